#ifndef BATCH_LINES_H_
#define BATCH_LINES_H_

#include <string>

// A line about content that is recognised by its metadata.
inline std::string line(const std::string& name) {
  return R"({"uri":"http://media.example/)" + name + R"(","metadata":"http-get:*:video"})";
}

inline std::string accepted(const std::string& name) {
  return R"({"code":0,"uri":"http://media.example/)" + name +
         R"(","mimeType":"video/*","additionalInfo":null,"resIndex":-1,"size":null,"duration":null,)"
         R"("reserved":null,"operation":null,"contentFormat":null})";
}

#endif  // BATCH_LINES_H_
