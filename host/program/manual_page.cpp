#include "host/program/manual_page.h"

#include <fmt/format.h>

#include "host/program/program_words.h"

namespace tslm5::host {
namespace {

/// Text in which nothing means anything to roff.
std::string Plain(std::string_view text) {
  std::string plain;
  bool is_line_start = true;
  for (const char c : text) {
    if (is_line_start && (c == '.' || c == '\'')) plain += "\\&";
    is_line_start = c == '\n';
    switch (c) {
      case '\\':
        plain += "\\e";
        break;
      case '-':
        plain += "\\-";
        break;
      case '"':
        plain += "\\(dq";
        break;
      case '\'':
        plain += "\\(aq";
        break;
      case '`':
        plain += "\\(ga";
        break;
      case '~':
        plain += "\\(ti";
        break;
      case '^':
        plain += "\\(ha";
        break;
      default:
        plain += c;
    }
  }
  return plain;
}

std::string Synopsis(const CommandWords& command) {
  std::string text = fmt::format(".TP\n\\fBtslm5 {}\\fR", Plain(command.name));
  for (const OptionWords& option : command.options) {
    if (!option.is_positional && !option.is_required) continue;
    text += option.is_positional
                ? fmt::format(" \\fI{}\\fR", Plain(option.name))
                : fmt::format(" \\fB{}\\fR \\fI{}\\fR", Plain(option.name), Plain(option.value));
  }
  return text + fmt::format(" [options]\n{}.\n", Plain(command.help));
}

std::string Option(const OptionWords& option) {
  std::string text = ".TP\n";
  if (option.is_positional) {
    text += fmt::format("\\fI{}\\fR", Plain(option.name));
  } else {
    std::string names = fmt::format("\\fB{}\\fR", Plain(option.name));
    for (const std::string& alias : option.aliases) {
      names = fmt::format("\\fB{}\\fR, {}", Plain(alias), names);
    }
    text += names;
    if (!option.value.empty()) text += fmt::format(" \\fI{}\\fR", Plain(option.value));
  }
  text += "\n" + Plain(option.help);
  if (!option.choices.empty()) {
    text += Plain(fmt::format("; one of {}", fmt::join(option.choices, ", ")));
  }
  return text + ".\n";
}

std::string Command(const CommandWords& command) {
  std::string text = fmt::format(".SS tslm5 {}\n{}.\n", Plain(command.name), Plain(command.help));
  for (const OptionWords& option : command.options) text += Option(option);
  if (!command.footer.empty()) {
    text += fmt::format(".PP\n.nf\n{}\n.fi\n", Plain(command.footer));
  }
  return text;
}

}  // namespace

std::string ManualPage(const CLI::App& program, const std::string& version) {
  const CommandWords words = WordsOf(program);
  const std::vector<CommandWords> commands = CommandsOf(program);
  std::string page =
      fmt::format(".TH TSLM5 1 \"\" \"tslm5 {}\" \"User commands\"\n", Plain(version));
  page += fmt::format(".SH NAME\ntslm5 \\- {}\n", Plain(words.help));
  page += ".SH SYNOPSIS\n";
  for (const CommandWords& command : commands) page += Synopsis(command);
  page += ".SH COMMANDS\n";
  for (const CommandWords& command : commands) page += Command(command);
  page += ".SH OPTIONS\n";
  for (const OptionWords& option : words.options) page += Option(option);
  page += fmt::format(".SH NOTES\n.nf\n{}\n.fi\n", Plain(words.footer));
  page +=
      ".SH ENVIRONMENT\n"
      ".TP\n\\fBLC_ALL\\fR, \\fBLC_NUMERIC\\fR, \\fBLANG\\fR\n"
      "The first that is set gives the locale, which tells the decimal separator.\n"
      ".TP\n\\fBNO_COLOR\\fR\nWhen it is set, nothing is coloured.\n"
      ".TP\n\\fBTSLM5_COMPONENTS\\fR, \\fBXDG_DATA_HOME\\fR\n"
      "Where the registrations of components are.\n";
  return page;
}

}  // namespace tslm5::host
