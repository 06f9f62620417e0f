#include "CommandLine.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Words = std::vector<std::string>;

// Characters to insert, delete or replace, and neighbours to swap.
size_t editDistance(std::string_view from, std::string_view to) {
  std::vector<std::vector<size_t>> cost(from.size() + 1, std::vector<size_t>(to.size() + 1));
  for (size_t i = 0; i <= from.size(); ++i) {
    for (size_t j = 0; j <= to.size(); ++j) {
      cost[i][j] = i + j;
      if (i == 0 || j == 0) continue;
      const size_t replaced = cost[i - 1][j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      cost[i][j] = std::min({replaced, cost[i - 1][j] + 1, cost[i][j - 1] + 1});
      const bool swapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (swapped) cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
    }
  }
  return cost.back().back();
}

// Returns: "; did you mean X?", or nothing when no candidate is similar.
std::string suggestion(const std::string& word, const Words& candidates) {
  const auto distance = [&](const std::string& candidate) { return editDistance(word, candidate); };
  const auto nearest = std::ranges::min_element(candidates, {}, distance);
  if (nearest == candidates.end() || 2 * distance(*nearest) > nearest->size()) return "";
  return "; did you mean " + *nearest + "?";
}

Words commandNames(const CLI::App& app) {
  Words names;
  for (const CLI::App* command : app.get_subcommands({})) names.push_back(command->get_name());
  return names;
}

Words optionNames(const CLI::App& command) {
  Words names;
  for (const CLI::Option* option : command.get_options()) {
    if (option->nonpositional()) names.push_back("--" + option->get_lnames().front());
  }
  return names;
}

// What is wrong with a word that `app`, the program or one of its commands, does not take.
std::string complaint(const CLI::App& app, const std::string& word) {
  const bool isProgram = app.get_parent() == nullptr;
  if (word.starts_with("-")) {
    const std::string name = word.substr(0, word.find('='));
    const std::string where = isProgram ? "before the command" : "of " + app.get_name();
    return "there is no option " + name + " " + where + suggestion(name, optionNames(app));
  }
  if (isProgram && app.get_subcommands().empty())
    return "there is no command " + word + suggestion(word, commandNames(app));
  return "unexpected argument: " + word;
}

void checkLeftovers(const CLI::App& app) {
  for (const std::string& word : app.remaining())
    throw CLI::ParseError(complaint(app, word), CLI::ExitCodes::ExtrasError);
}

void checkAll(const CLI::App& app) {
  checkLeftovers(app);
  for (const CLI::App* command : app.get_subcommands()) checkLeftovers(*command);
}

}  // namespace

void rejectLeftovers(CLI::App& app) {
  app.allow_extras();
  for (CLI::App* command : app.get_subcommands({})) command->allow_extras();
  app.parse_complete_callback([&app] { checkAll(app); });
}
