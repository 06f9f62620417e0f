#ifndef TARQ_LIBRARY_CONTENT_DIRECTORY_H_
#define TARQ_LIBRARY_CONTENT_DIRECTORY_H_

#include <cstdint>
#include <string>

#include "HttpClient.h"

// Where a media server is, and its ContentDirectory.
struct ServerDescription {
  std::string url;  // of the description
  std::string name;
  std::string model;
  std::string controlUrl;
  std::string serviceType;
};

// Reads the description at that URL.
// Errors: CommandError when there is none, when it has no ContentDirectory, or one on another host: a description
//   must not make this program send requests elsewhere.
ServerDescription describeServer(HttpClient& http, const std::string& url);

// A part of what a container holds, as the server tells it.
struct BrowsePage {
  std::string didl;
  int64_t returned = -1;  // below 0: not told
  int64_t total = -1;     // 0 often means that the server does not know
  std::string updateId;
};

// The actions of the service.
// Threads: one.
// Errors: HttpError.
class ContentDirectory {
 public:
  ContentDirectory(HttpClient& http, const ServerDescription& server) : http_(http), server_(server) {}

  // The children of a container, `count` from `start` on.
  BrowsePage browse(const std::string& container, int64_t start, int64_t count);
  std::string systemUpdateId();

 private:
  std::string act(const std::string& action, const std::string& arguments);

  HttpClient& http_;
  const ServerDescription& server_;
};

#endif  // TARQ_LIBRARY_CONTENT_DIRECTORY_H_
