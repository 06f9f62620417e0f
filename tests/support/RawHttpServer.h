#ifndef RAW_HTTP_SERVER_H_
#define RAW_HTTP_SERVER_H_

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

// A listening socket on an ephemeral port of the loopback address, or of another that this machine has.
class LoopbackListener {
 public:
  explicit LoopbackListener(int backlog = SOMAXCONN, const char* ip = "127.0.0.1")
      : ip_(ip), fd_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    address_.sin_family = AF_INET;
    inet_pton(AF_INET, ip, &address_.sin_addr);
    socklen_t size = sizeof address_;
    bind(fd_, address(), size);
    listen(fd_, backlog);
    getsockname(fd_, address(), &size);
  }
  ~LoopbackListener() { close(fd_); }
  LoopbackListener(const LoopbackListener&) = delete;
  LoopbackListener& operator=(const LoopbackListener&) = delete;

  int fd() const { return fd_; }
  sockaddr* address() { return reinterpret_cast<sockaddr*>(&address_); }
  std::string url(const std::string& path) const {
    return "http://" + ip_ + ":" + std::to_string(ntohs(address_.sin_port)) + path;
  }

 private:
  std::string ip_;
  int fd_;
  sockaddr_in address_{};
};

// Answers each connection with raw bytes, so that it can misbehave as real servers do. It reads one request,
// records it, plays the answer and closes.
// Threads: up to eight connections at once, each answered on a thread of its own. The destructor cuts all.
class RawHttpServer {
 public:
  class Connection {
   public:
    explicit Connection(int fd) : fd_(fd) {
      for (char byte; !request_.ends_with("\r\n\r\n") && recv(fd_, &byte, 1, 0) == 1;) request_ += byte;
      const size_t length = request_.find("Content-Length: ");
      if (length == std::string::npos) return;
      body_.resize(std::stoul(request_.substr(length + 16)));
      recv(fd_, body_.data(), body_.size(), MSG_WAITALL);
    }
    const std::string& request() const { return request_; }
    const std::string& body() const { return body_; }
    // False: the client is gone.
    bool send(std::string_view text) {
      for (ssize_t sent; !text.empty(); text.remove_prefix(static_cast<size_t>(sent))) {
        if ((sent = ::send(fd_, text.data(), text.size(), MSG_NOSIGNAL)) <= 0) return false;
      }
      return true;
    }
    // True: the client closed within `limit`.
    bool closedWithin(std::chrono::milliseconds limit) {
      pollfd waiting{fd_, POLLIN, 0};
      char byte;
      return poll(&waiting, 1, static_cast<int>(limit.count())) > 0 && recv(fd_, &byte, 1, 0) <= 0;
    }
    // The end of the connection becomes a reset.
    void resetOnClose() {
      const linger none{1, 0};
      setsockopt(fd_, SOL_SOCKET, SO_LINGER, &none, sizeof none);
    }

   private:
    int fd_;
    std::string request_;
    std::string body_;
  };
  using Answer = std::function<void(Connection&)>;

  explicit RawHttpServer(Answer answer, const char* ip = "127.0.0.1")
      : listener_(SOMAXCONN, ip), answer_(std::move(answer)) {
    for (int i = 0; i < 8; ++i) threads_.emplace_back([this] { serve(); });
  }
  explicit RawHttpServer(std::string answer)
      : RawHttpServer([text = std::move(answer)](Connection& client) { client.send(text); }) {}
  ~RawHttpServer() {
    shutdown(listener_.fd(), SHUT_RDWR);  // ends accept()
    const std::lock_guard lock(mutex_);
    ended_ = true;
    for (const int fd : open_) shutdown(fd, SHUT_RDWR);
  }

  std::string url(const std::string& path = "/media") const { return listener_.url(path); }
  std::vector<std::string> requests() {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

 private:
  void serve() {
    for (int fd; (fd = accept4(listener_.fd(), nullptr, nullptr, SOCK_CLOEXEC)) >= 0; close(fd)) {
      std::unique_lock lock(mutex_);
      if (ended_) continue;
      open_.insert(fd);
      lock.unlock();
      Connection client(fd);
      lock.lock();
      requests_.push_back(client.request());
      lock.unlock();
      answer_(client);
      lock.lock();
      open_.erase(fd);
    }
  }

  LoopbackListener listener_;
  Answer answer_;
  std::mutex mutex_;
  bool ended_ = false;
  std::set<int> open_;
  std::vector<std::string> requests_;
  std::vector<std::jthread> threads_;  // last: they use all of the above
};

#endif  // RAW_HTTP_SERVER_H_
