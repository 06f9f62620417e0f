#include "ManPages.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

// A line of text: without the marks that would make it a request, and with the hyphens that can be pasted.
std::string roffLine(std::string_view line) {
  std::string escaped = line.starts_with('.') || line.starts_with('\'') ? "\\&" : "";
  for (const char c : line) {
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else {
      escaped += c;
    }
  }
  return escaped + "\n";
}

std::string roff(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    escaped += roffLine(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return escaped;
}

std::string header(const std::string& name, const char* section, const std::string& description) {
  return ".TH " + name + " " + section + " \"\" \"tarq\\-dmr " TARQ_DMR_VERSION "\"\n.SH NAME\n" +
         roffLine(name + " - " + description);
}

std::string verbatim(std::string_view text) { return ".nf\n" + roff(text) + ".fi\n"; }

std::string commandLine(const CLI::App& app) {
  return app.get_parent() == nullptr ? app.get_name() : commandLine(*app.get_parent()) + " " + app.get_name();
}

std::string synopsis(const CLI::App& app) {
  std::string words = "[OPTIONS]";
  for (const CLI::Option* option : app.get_options()) {
    if (!option->nonpositional()) words += " [" + option->get_name() + "]";
  }
  if (app.get_parent() == nullptr) words += " COMMAND";
  return ".SH SYNOPSIS\n.B " + roffLine(commandLine(app)) + roffLine(words);
}

std::string optionRows(const CLI::App& app) {
  std::string rows = ".SH OPTIONS\n";
  for (const CLI::Option* option : app.get_options()) {
    rows += ".TP\n.B " + roffLine(option->get_name(false, true) + " " + option->get_type_name());
    rows += roff(option->get_description());
  }
  return rows;
}

std::string commandRows(const CLI::App& app) {
  std::string rows = ".SH COMMANDS\n";
  for (const CLI::App* command : app.get_subcommands({}))
    rows += ".TP\n.BR " + roffLine(pageName(*command) + " (1)") + roff(command->get_description());
  return rows;
}

// The paragraphs of the help after the options.
std::vector<std::string> paragraphsOf(const std::string& footer) {
  std::vector<std::string> paragraphs;
  for (size_t begin = 0; begin < footer.size();) {
    const size_t end = std::min(footer.find("\n\n", begin), footer.size());
    paragraphs.push_back(footer.substr(begin, end - begin));
    begin = end + 2;
  }
  return paragraphs;
}

struct Footer {
  std::string examples;
  std::string description;
  std::string exitCodes;
};

Footer splitFooter(const std::string& text) {
  Footer footer;
  for (const std::string& paragraph : paragraphsOf(text)) {
    if (paragraph.starts_with("Example")) {
      footer.examples = ".SH EXAMPLES\n" + verbatim(paragraph.substr(paragraph.find('\n') + 1));
    } else if (paragraph.starts_with("Exit codes: ")) {
      footer.exitCodes = ".SH EXIT STATUS\n" + roff(paragraph.substr(paragraph.find(' ', 5) + 1));
    } else {
      footer.description += ".PP\n" + roff(paragraph);
    }
  }
  return footer;
}

std::string seeAlso(const CLI::App& app) {
  std::string pages = ".SH SEE ALSO\n";
  if (app.get_parent() != nullptr) pages += ".BR " + roffLine(pageName(*app.get_parent()) + " (1),");
  for (const HelpTopic& topic : helpTopics()) {
    const bool last = &topic == &helpTopics().back();
    pages += ".BR " + roffLine("tarq-dmr-" + std::string(topic.name) + (last ? " (7)" : " (7),"));
  }
  return pages;
}

}  // namespace

std::string pageName(const CLI::App& app) {
  std::string name = commandLine(app);
  std::ranges::replace(name, ' ', '-');
  return name;
}

std::string commandPage(const CLI::App& app) {
  const Footer footer = splitFooter(app.get_footer());
  return header(pageName(app), "1", app.get_description()) + synopsis(app) + ".SH DESCRIPTION\n" +
         roff(app.get_description() + (app.get_parent() == nullptr ? "" : ".")) + footer.description +
         (app.get_parent() == nullptr ? commandRows(app) : "") + optionRows(app) + footer.examples +
         footer.exitCodes + seeAlso(app);
}

std::string topicPage(const HelpTopic& topic) {
  return header("tarq-dmr-" + std::string(topic.name), "7", topic.description) + ".SH DESCRIPTION\n" +
         verbatim(topic.text()) + ".SH SEE ALSO\n.BR " + roffLine("tarq-dmr (1)");
}
