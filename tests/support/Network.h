#ifndef TARQ_TESTS_NETWORK_H_
#define TARQ_TESTS_NETWORK_H_

#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

inline constexpr const char* kOtherAddress = "10.9.0.1";
inline constexpr const char* kOwnAddress = "10.9.0.2";

// Two machines with a cable between them, as network namespaces: what is tested starts on the other one, with the
// interface v0; this process has v1.
class Network {
 public:
  // Before any thread starts.
  // Returns: false when this process may not do that.
  static bool make() {
    if (!leaveNetwork()) return false;
    const int machine = ::open("/proc/self/ns/net", O_RDONLY | O_CLOEXEC);
    otherMachine = "/proc/" + std::to_string(::getpid()) + "/fd/" + std::to_string(machine);
    const std::string script =
        "set -e; on() { nsenter --net=" + otherMachine +
        " ip \"$@\"; }; ip link set lo up; on link set lo up;" +
        "ip link add v1 type veth peer name v0 netns " + otherMachine + "; ip addr add " + kOwnAddress +
        "/24 dev v1; ip link set v1 up; ip route add default dev v1; on addr add " + kOtherAddress +
        "/24 dev v0; on link set v0 up; on route add default dev v0; on link add v8 type veth peer name v9";
    return ::unshare(CLONE_NEWNET) == 0 && std::system(script.c_str()) == 0;
  }

  static inline std::string otherMachine;  // the file that nsenter takes for it

 private:
  // Who is not root becomes it in a user namespace.
  static bool leaveNetwork() {
    const uid_t user = ::geteuid();
    if (::unshare(CLONE_NEWNET) == 0) return true;
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) return false;
    std::ofstream("/proc/self/uid_map") << "0 " + std::to_string(user) + " 1";
    return true;
  }
};

// Waits until that is true.
// Returns: false after ten seconds, in which it was not.
template <class Condition>
bool becomesTrue(Condition condition) {
  for (int i = 0; i < 1000; ++i, ::usleep(10'000)) {
    if (condition()) return true;
  }
  return false;
}

#endif  // TARQ_TESTS_NETWORK_H_
