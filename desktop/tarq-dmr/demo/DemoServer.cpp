#include "DemoServer.h"

#include <httplib.h>

#include <algorithm>

#include "CommandError.h"

namespace {

constexpr const char* kLoopback = "127.0.0.1";

DemoRequest recorded(const httplib::Request& request) {
  DemoRequest record{request.method + " " + request.path, {}};
  for (const auto& [name, value] : request.headers) {
    // The library adds the two ends of the connection as if the client had sent them.
    if (name.starts_with("REMOTE_") || name.starts_with("LOCAL_")) continue;
    record.headers.emplace_back(name, value);
  }
  return record;
}

}  // namespace

DemoServer::DemoServer(const std::vector<DemoFile>& files)
    : files_(files), server_(std::make_unique<httplib::Server>()) {
  server_->new_task_queue = [] { return new httplib::ThreadPool(2); };
  server_->set_pre_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
    answer(request, response);
    return httplib::Server::HandlerResponse::Handled;
  });
  port_ = server_->bind_to_any_port(kLoopback);
  if (port_ <= 0) throw CommandError("the media server found no free port");
  thread_ = std::thread([this] { server_->listen_after_bind(); });
  while (!server_->is_running()) std::this_thread::yield();
}

DemoServer::~DemoServer() {
  server_->stop();
  thread_.join();
}

std::string DemoServer::url(const std::string& path) const {
  return std::string("http://") + kLoopback + ":" + std::to_string(port_) + path;
}

std::vector<DemoRequest> DemoServer::takeRequests() {
  const std::lock_guard lock(mutex_);
  return std::exchange(requests_, {});
}

void DemoServer::answer(const httplib::Request& request, httplib::Response& response) {
  {
    const std::lock_guard lock(mutex_);
    requests_.push_back(recorded(request));
  }
  const auto file = std::find_if(files_.begin(), files_.end(),
                                 [&](const DemoFile& candidate) { return request.path == candidate.path; });
  response.status = file == files_.end() ? 404 : file->status;
  if (response.status != 200) return;
  response.set_header("Content-Type", file->contentType);
  response.set_header("contentFeatures.dlna.org", file->contentFeatures);
  response.set_header("transferMode.dlna.org", request.get_header_value("transferMode.dlna.org"));
}
