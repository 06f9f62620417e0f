#ifndef TARQ_DMR_PASSED_MEMBERS_H_
#define TARQ_DMR_PASSED_MEMBERS_H_

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The members of a batch line that its result line repeats, so that whoever asks can tell which is which: "id" and
// every key that begins with "x-".
// Ownership: copies the values; the keys must outlive the object.
class PassedMembers {
 public:
  static bool takes(std::string_view key) { return key == "id" || key.starts_with("x-"); }

  // `afterKey` is the rest of the line, with a NUL at its end. The value is copied as written, but for
  // control characters. It has the place of
  // its first equal key.
  void set(std::string_view key, const char* afterKey);

  // Returns: the members, each after a comma. It is valid JSON when the line is.
  std::string json() const;

 private:
  std::vector<std::pair<std::string_view, std::string>> members_;
  std::map<std::string_view, size_t> places_;
};

#endif  // TARQ_DMR_PASSED_MEMBERS_H_
