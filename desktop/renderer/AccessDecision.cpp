#include "AccessDecision.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "TextOutput.h"

namespace {

constexpr int kPatienceMs = 10'000;

bool isAmong(const std::string& address, const std::vector<std::string>& addresses) {
  return std::ranges::find(addresses, address) != addresses.end();
}

// Returns: the next line that is typed, or nothing when the time is over or the input has ended.
std::string typedLine() {
  pollfd input{STDIN_FILENO, POLLIN, 0};
  char line[64];
  if (poll(&input, 1, kPatienceMs) != 1) return {};
  const ssize_t length = read(STDIN_FILENO, line, sizeof line);
  return length <= 0 ? std::string() : std::string(line, static_cast<size_t>(length));
}

}  // namespace

AccessDecision::AccessDecision(const RendererOptions& options, std::function<void(const std::string&)> log)
    : options_(options), log_(std::move(log)) {}

bool AccessDecision::allows(const AccessDevice& device) {
  const bool allowed = decide(device);
  log_(device.address + (allowed ? " is allowed" : " is denied"));
  return allowed;
}

bool AccessDecision::decide(const AccessDevice& device) {
  if (isAmong(device.address, options_.denied)) return false;
  if (isAmong(device.address, options_.allowed)) return true;
  return options_.access == AccessMode::kAsk ? askPerson(device) : options_.access == AccessMode::kAllow;
}

void AccessDecision::deviceSeen(const AccessDevice& device) {
  const std::string mac = device.mac.empty() ? "" : " (" + device.mac + ")";
  log_("new device " + device.address + mac + ", " + printable(device.agent));
}

bool AccessDecision::askPerson(const AccessDevice& device) {
  const std::lock_guard lock(terminal_);
  std::fprintf(stderr, "Allow %s (%s)? y or n, 10 s: ", device.address.c_str(),
               printable(device.agent).c_str());
  const std::string answer = typedLine();
  const bool allowed = answer.starts_with('y') || answer.starts_with('Y');
  if (answer.empty()) std::fputs("no answer, so not\n", stderr);
  return allowed;
}
