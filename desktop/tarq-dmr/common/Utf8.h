#ifndef TARQ_DMR_UTF8_H_
#define TARQ_DMR_UTF8_H_

#include <string>
#include <string_view>

// UTF-8 as in RFC 3629: no overlong forms, no surrogates, nothing above U+10FFFF.
bool isValidUtf8(std::string_view text);
// A copy in which every byte that belongs to no valid character is U+FFFD.
std::string repairUtf8(std::string_view text);

#endif  // TARQ_DMR_UTF8_H_
