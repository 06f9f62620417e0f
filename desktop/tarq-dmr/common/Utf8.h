#ifndef TARQ_DMR_UTF8_H_
#define TARQ_DMR_UTF8_H_

#include <string>
#include <string_view>

// Returns: whether `text` is UTF-8 without overlong forms, surrogates and anything above U+10FFFF.
// Source: RFC 3629.
bool isValidUtf8(std::string_view string);

// A copy with U+FFFD for every byte that is not part of a valid character.
std::string repairUtf8(std::string_view string);

#endif  // TARQ_DMR_UTF8_H_
