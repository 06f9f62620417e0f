#ifndef TARQ_DMR_DEMO_SERVER_H_
#define TARQ_DMR_DEMO_SERVER_H_

#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace httplib {
class Server;
struct Request;
struct Response;
}  // namespace httplib

// A request as the server saw it, headers in alphabetical order.
struct DemoRequest {
  std::string line;  // method and path
  std::vector<std::pair<std::string, std::string>> headers;
};

// A file of the server, and the answer to a request for it.
struct DemoFile {
  const char* path;
  int status;
  const char* contentType;
  const char* contentFeatures;
};

// A small media server on a free port of the loopback address, running until it is destroyed.
// Threads: it serves on threads of its own; all operations from one thread.
class DemoServer {
 public:
  // The strings of `files` are constants.
  // Errors: CommandError when there is no free port.
  explicit DemoServer(const std::vector<DemoFile>& files);
  ~DemoServer();
  DemoServer(const DemoServer&) = delete;
  DemoServer& operator=(const DemoServer&) = delete;

  std::string url(const std::string& path) const;
  std::vector<DemoRequest> takeRequests();  // since the last call

 private:
  void answer(const httplib::Request& request, httplib::Response& response);

  const std::vector<DemoFile> files_;
  std::unique_ptr<httplib::Server> server_;
  int port_;
  std::mutex mutex_;
  std::vector<DemoRequest> requests_;  // guarded by `mutex_`
  std::thread thread_;
};

#endif  // TARQ_DMR_DEMO_SERVER_H_
