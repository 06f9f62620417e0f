#include "ActionCall.h"

#include <strings.h>

#include <algorithm>
#include <charconv>
#include <optional>

#include "CommaList.h"

namespace {

constexpr struct {
  int code;
  const char* words;
  const Service* service = nullptr;  // null: all that have no row of their own
} kUpnpErrors[] = {
    {401, "Invalid Action"},
    {402, "Invalid Args"},
    {501, "Action Failed"},
    {600, "Argument Value Invalid"},
    {601, "Argument Value Out of Range"},
    {602, "Optional Action Not Implemented"},
    {603, "Out of Memory"},
    {701, "Invalid Name", &kRenderingControl},
    {702, "Invalid InstanceID", &kRenderingControl},
    {701, "Transition not available"},
    {702, "No contents"},
    {706, "Invalid connection reference"},
    {710, "Seek mode not supported"},
    {711, "Illegal seek target"},
    {712, "Play mode not supported"},
    {714, "Illegal MIME-type"},
    {715, "Content busy"},
    {716, "Resource not found"},
    {717, "Play speed not supported"},
    {718, "Invalid InstanceID"},
};

struct NumberType {
  ValueType type;
  ValueRange range;
};
constexpr NumberType kNumberTypes[] = {
    {ValueType::kUi2, {0, UINT16_MAX}},
    {ValueType::kUi4, {0, UINT32_MAX}},
    {ValueType::kI4, {INT32_MIN, INT32_MAX}},
};

struct BooleanWord {
  const char* word;
  bool value;
};
// Source: UPnP Device Architecture 1.0, 2.3.
constexpr BooleanWord kBooleanWords[] = {{"0", false},   {"1", true},   {"false", false},
                                         {"true", true}, {"no", false}, {"yes", true}};

std::string_view trimmed(std::string_view text) {
  constexpr const char* kWhite = " \t\r\n";
  const size_t begin = text.find_first_not_of(kWhite);
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(kWhite) - begin + 1);
}

std::optional<int64_t> parseNumber(std::string_view text) {
  const std::string_view digits = trimmed(text);
  int64_t number = 0;
  const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || stop != digits.data() + digits.size()) return std::nullopt;
  return number;
}

const BooleanWord* findBoolean(std::string_view text) {
  const std::string word(trimmed(text));
  const auto found = std::ranges::find_if(
      kBooleanWords, [&](const BooleanWord& row) { return strcasecmp(row.word, word.c_str()) == 0; });
  return found == std::end(kBooleanWords) ? nullptr : found;
}

bool within(const ValueRange& range, int64_t number) { return number >= range.least && number <= range.most; }

void checkNumber(const StateVariable& variable, std::string_view text) {
  const ValueRange& type = std::ranges::find(kNumberTypes, variable.type, &NumberType::type)->range;
  const std::optional<int64_t> number = parseNumber(text);
  if (!number) throw ActionError{402};
  if (variable.range.isSet() && !within(variable.range, *number)) throw ActionError{variable.refusal};
  if (!within(type, *number)) throw ActionError{402};
}

void checkString(const StateVariable& variable, std::string_view text) {
  if (*variable.allowed == '\0' || isListed(text, variable.allowed) || isListed(text, variable.taken)) return;
  throw ActionError{variable.refusal};
}

}  // namespace

const char* describeUpnpError(const Service& service, int code) {
  const auto found = std::ranges::find_if(kUpnpErrors, [&](const auto& row) {
    return row.code == code && (row.service == nullptr || row.service == &service);
  });
  return found == std::end(kUpnpErrors) ? "Action Failed" : found->words;
}

void ActionCall::setInput(const Argument& argument, const std::string& value) {
  const StateVariable& variable = service_.variable(argument.variable);
  switch (variable.type) {
    case ValueType::kString:
      checkString(variable, value);
      break;
    case ValueType::kBoolean:
      if (findBoolean(value) == nullptr) throw ActionError{402};
      break;
    default:
      checkNumber(variable, value);
  }
  const bool isInstance = std::string_view(argument.name) == "InstanceID";
  if (isInstance && parseNumber(value) != 0) throw ActionError{service_.instanceRefusal};
  inputs_.insert_or_assign(argument.name, value);
}

int ActionCall::number(std::string_view name) const {
  return static_cast<int>(parseNumber(in(name)).value_or(0));
}

bool ActionCall::flag(std::string_view name) const { return findBoolean(in(name))->value; }

std::string ActionCall::output(std::string_view name) const {
  const auto found = outputs_.find(name);
  return found == outputs_.end() ? std::string() : found->second;
}
