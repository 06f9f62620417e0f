#include "ServiceTable.h"

#include <algorithm>

namespace {

template <size_t N>
std::span<const Argument> named(const std::array<Argument, N>& arguments) {
  const auto end = std::ranges::find(arguments, nullptr, &Argument::name);
  return {arguments.begin(), end};
}

}  // namespace

std::span<const Argument> Action::inputs() const { return named(in); }
std::span<const Argument> Action::outputs() const { return named(out); }

std::string Service::type() const { return std::string("urn:schemas-upnp-org:service:") + name + ":1"; }

const StateVariable& Service::variable(std::string_view variableName) const {
  return *std::ranges::find(variables, variableName,
                            [](const StateVariable& row) { return std::string_view(row.name); });
}
