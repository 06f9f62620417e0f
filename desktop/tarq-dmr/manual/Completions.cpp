#include "Completions.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

#include "HelpCommand.h"

namespace {

using Words = std::vector<std::string>;

bool takesValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

bool takesFile(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type == "FILE" || type == "PATH" || type == "JAR";
}

std::vector<const CLI::Option*> namedOptions(const CLI::App& app) {
  auto options = app.get_options();
  std::erase_if(options, [](const CLI::Option* option) { return !option->nonpositional(); });
  return options;
}

Words optionNames(const CLI::App& app, bool (*wanted)(const CLI::Option&)) {
  Words names;
  for (const CLI::Option* option : namedOptions(app)) {
    if (!wanted(*option)) continue;
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

// What the argument of `help` may be.
Words helpArguments(const CLI::App& app) {
  Words words;
  for (const HelpTopic& topic : helpTopics()) words.emplace_back(topic.name);
  for (const CLI::App* command : app.get_subcommands({})) words.push_back(command->get_name());
  return words;
}

std::string join(const Words& words, const char* separator) {
  std::string joined;
  for (const std::string& word : words) joined += (joined.empty() ? "" : separator) + word;
  return joined;
}

// On one line, with a backslash before each of these characters.
std::string escaped(std::string_view text, std::string_view characters) {
  std::string line;
  for (const char c : text) {
    if (characters.find(c) != characters.npos) line += '\\';
    line += c == '\n' ? ' ' : c;
  }
  return line;
}

// As one word of a shell. fish knows a backslash between single quotes, too: escape it before.
std::string shellWord(std::string_view text) {
  std::string word = "'";
  for (const char c : text) {
    if (c == '\'') {
      word += "'\\''";
    } else {
      word += c;
    }
  }
  return word + "'";
}

// Of all commands, each name once.
Words allOptionNames(const CLI::App& app, bool (*wanted)(const CLI::Option&)) {
  std::set<std::string> all;
  for (const CLI::App* command : app.get_subcommands({})) {
    for (const std::string& name : optionNames(*command, wanted)) all.insert(name);
  }
  return {all.begin(), all.end()};
}

std::string bashCase(const std::string& command, const Words& words) {
  return "    " + command + ") words='" + join(words, " ") + "' ;;\n";
}

bool any(const CLI::Option&) { return true; }

std::string zshArgument(const CLI::Option& option, const std::string& name) {
  std::string argument = name + "[" + escaped(option.get_description(), "[]\\:") + "]";
  if (takesValue(option))
    argument += ":" + option.get_type_name() + ":" + (takesFile(option) ? "_files" : " ");
  return shellWord(argument);
}

std::string zshCommand(const CLI::App& command, const std::string& rest) {
  std::string text = "        " + command.get_name() + ") _arguments";
  for (const CLI::Option* option : namedOptions(command)) {
    for (const std::string& name : option->get_lnames())
      text += " \\\n          " + zshArgument(*option, "--" + name);
  }
  return text + rest + " ;;\n";
}

std::string fishOption(const std::string& command, const CLI::Option& option) {
  std::string line = "complete -c tarq-dmr -n '__fish_seen_subcommand_from " + command + "'";
  for (const std::string& name : option.get_lnames()) line += " -l " + name;
  if (takesFile(option)) line += " -r -F";
  if (takesValue(option) && !takesFile(option)) line += " -x";
  return line + " -d " + shellWord(escaped(option.get_description(), "\\")) + "\n";
}

}  // namespace

std::string bashCompletion(const CLI::App& app) {
  Words top = optionNames(app, any);
  std::string cases;
  for (const CLI::App* command : app.get_subcommands({})) {
    top.push_back(command->get_name());
    Words words = optionNames(*command, any);
    if (command->get_name() == "help") std::ranges::copy(helpArguments(app), std::back_inserter(words));
    cases += bashCase(command->get_name(), words);
  }
  return "_tarq_dmr() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} command= words each\n"
         "  for each in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
         "    [[ $each == -* ]] || { command=$each; break; }\n"
         "  done\n"
         "  COMPREPLY=()\n"
         "  case ${COMP_WORDS[COMP_CWORD-1]} in\n"
         "    " +
         join(allOptionNames(app, takesFile), "|") +
         ")\n      mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n      return ;;\n    " +
         join(allOptionNames(app, takesValue), "|") +
         ") return ;;\n"
         "  esac\n"
         "  case $command in\n" +
         bashCase("''", top) + cases +
         "  esac\n"
         "  mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$word\")\n"
         "}\n"
         "complete -o filenames -F _tarq_dmr tarq-dmr\n";
}

std::string zshCompletion(const CLI::App& app) {
  std::string names;
  std::string cases;
  for (const CLI::App* command : app.get_subcommands({})) {
    names += "        " + shellWord(command->get_name() + ":" + command->get_description()) + "\n";
    const bool isHelp = command->get_name() == "help";
    cases += zshCommand(*command, isHelp ? " '1:topic:(" + join(helpArguments(app), " ") + ")'" : "");
  }
  return "#compdef tarq-dmr\n"
         "_tarq-dmr() {\n"
         "  local curcontext=$curcontext state line\n"
         "  local -a commands\n"
         "  _arguments -C '(- *)--help' '(- *)--version' '1:command:->command' '*::argument:->argument'\n"
         "  case $state in\n"
         "    command)\n"
         "      commands=(\n" +
         names +
         "      )\n"
         "      _describe command commands ;;\n"
         "    argument)\n"
         "      case $words[1] in\n" +
         cases +
         "      esac ;;\n"
         "  esac\n"
         "}\n"
         "_tarq-dmr \"$@\"\n";
}

std::string fishCompletion(const CLI::App& app) {
  std::string text =
      "complete -c tarq-dmr -f\n"
      "complete -c tarq-dmr -n __fish_use_subcommand -l help\n"
      "complete -c tarq-dmr -n __fish_use_subcommand -l version\n";
  for (const CLI::App* command : app.get_subcommands({})) {
    const std::string name = command->get_name();
    text += "complete -c tarq-dmr -n __fish_use_subcommand -a " + name + " -d " +
            shellWord(command->get_description()) + "\n";
    for (const CLI::Option* option : namedOptions(*command)) text += fishOption(name, *option);
  }
  return text + "complete -c tarq-dmr -n '__fish_seen_subcommand_from help' -a " +
         shellWord(join(helpArguments(app), " ")) + "\n";
}
