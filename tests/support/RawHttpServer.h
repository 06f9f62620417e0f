#ifndef RAW_HTTP_SERVER_H_
#define RAW_HTTP_SERVER_H_

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

// A listening socket on an ephemeral port of the loopback address.
class LoopbackListener {
 public:
  explicit LoopbackListener(int backlog = SOMAXCONN) : fd_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    bind(fd_, reinterpret_cast<sockaddr*>(&address), size);
    listen(fd_, backlog);
    getsockname(fd_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
  }
  ~LoopbackListener() { close(fd_); }
  LoopbackListener(const LoopbackListener&) = delete;
  LoopbackListener& operator=(const LoopbackListener&) = delete;

  int fd() const { return fd_; }
  std::string url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
  }

 private:
  int fd_;
  int port_ = 0;
};

// Answers each connection with raw bytes, so that it can misbehave as real servers do. It reads one request,
// records it, sends the answer and closes the connection. The destructor closes all connections.
// Threads: one for each open connection, on which the answer is sent.
class RawHttpServer {
 public:
  class Connection {
   public:
    explicit Connection(int fd) : fd_(fd) {
      for (char byte; !request_.ends_with("\r\n\r\n") && recv(fd_, &byte, 1, 0) == 1;) request_ += byte;
    }
    const std::string& request() const { return request_; }
    // Of a HEAD request.
    std::string path() const { return request_.substr(5, request_.find(" HTTP") - 5); }
    // Returns: false when the client has closed the connection.
    bool send(std::string_view text) {
      while (!text.empty()) {
        const ssize_t sent = ::send(fd_, text.data(), text.size(), MSG_NOSIGNAL);
        if (sent <= 0) return false;
        text.remove_prefix(static_cast<size_t>(sent));
      }
      return true;
    }
    // Returns: whether the client closed the connection within `limit`.
    bool closedWithin(std::chrono::milliseconds limit) {
      pollfd waiting{fd_, POLLIN, 0};
      char byte;
      return poll(&waiting, 1, static_cast<int>(limit.count())) > 0 && recv(fd_, &byte, 1, 0) <= 0;
    }
    // Sends one byte at a time.
    // Returns: false when the client has closed the connection.
    bool sendSlowly(std::string_view text, std::chrono::milliseconds pause) {
      for (const char byte : text) {
        if (!send({&byte, 1}) || closedWithin(pause)) return false;
      }
      return true;
    }
    // Makes the end of the connection a reset.
    void resetOnClose() {
      const linger none{1, 0};
      setsockopt(fd_, SOL_SOCKET, SO_LINGER, &none, sizeof none);
    }

   private:
    int fd_;
    std::string request_;
  };
  using Answer = std::function<void(Connection&)>;

  explicit RawHttpServer(Answer answer) : answer_(std::move(answer)), acceptor_([this] { acceptAll(); }) {}
  explicit RawHttpServer(std::string answer)
      : RawHttpServer([text = std::move(answer)](Connection& client) { client.send(text); }) {}

  ~RawHttpServer() {
    // Ends `accept`.
    shutdown(listener_.fd(), SHUT_RDWR);
    acceptor_.join();
    std::unique_lock lock(mutex_);
    for (const int fd : open_) shutdown(fd, SHUT_RDWR);
    changed_.wait(lock, [this] { return open_.empty(); });
  }

  std::string url(const std::string& path = "/media") const { return listener_.url(path); }

  std::vector<std::string> requests() {
    const std::lock_guard lock(mutex_);
    return requests_;
  }
  // Returns: whether every connection ended within `limit`.
  bool allClosedWithin(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, limit, [this] { return open_.empty(); });
  }

 private:
  void acceptAll() {
    for (int fd; (fd = accept4(listener_.fd(), nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
      const std::lock_guard lock(mutex_);
      open_.push_back(fd);
      std::thread([this, fd] { serve(fd); }).detach();
    }
  }

  void serve(int fd) {
    Connection client(fd);
    {
      const std::lock_guard lock(mutex_);
      requests_.push_back(client.request());
    }
    answer_(client);
    const std::lock_guard lock(mutex_);
    open_.remove(fd);
    close(fd);
    // Still locked, because the server may be destroyed right after.
    changed_.notify_all();
  }

  LoopbackListener listener_;
  Answer answer_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::list<int> open_;
  std::vector<std::string> requests_;
  // The last member, because it uses all others.
  std::thread acceptor_;
};

#endif  // RAW_HTTP_SERVER_H_
