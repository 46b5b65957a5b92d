#include <fmt/format.h>

#include "platform/text.h"
#include "reference_pages.h"
#include "usage.h"

namespace autonotify::console {
namespace {

/// Text as troff prints it, on a line of its own.
std::string escapedForTroff(const std::string& text) {
  std::string escaped = replaceAll(replaceAll(text, "\\", "\\e"), "-", "\\-");
  for (const char* sign : {".", "'"})
    escaped = replaceAll(escaped, std::string("\n") + sign, std::string("\n\\&") + sign);
  const bool isRequest = escaped.starts_with('.') || escaped.starts_with('\'');
  return (isRequest ? "\\&" : "") + escaped;
}

/// "--until DATE" in bold and italics.
std::string optionTerm(const CLI::Option& option) {
  std::string names;
  for (const std::string& name : option.get_lnames())
    names += fmt::format("{}\\fB\\-\\-{}\\fR", names.empty() ? "" : ", ", escapedForTroff(name));
  if (names.empty()) return fmt::format("\\fI{}\\fR", escapedForTroff(option.get_name(true)));
  const std::string value = option.get_expected_max() > 0 ? option.get_type_name() : "";
  return value.empty() ? names : fmt::format("{} \\fI{}\\fR", names, escapedForTroff(value));
}

std::string optionParagraphs(const CLI::App& command) {
  std::string text;
  for (const CLI::Option* option : command.get_options()) {
    const bool isHidden = option->get_group().empty() || option == command.get_help_ptr();
    if (isHidden) continue;
    text += fmt::format(".TP\n{}\n{}\n", optionTerm(*option),
                        escapedForTroff(option->get_description()));
  }
  return text;
}

std::string synopsisOf(const CLI::App& command, const std::string& path) {
  std::string line = fmt::format("\\fB{}\\fR", escapedForTroff(path));
  for (const CLI::Option* option : command.get_options()) {
    if (!option->get_positional()) continue;
    const std::string name = fmt::format("\\fI{}\\fR", escapedForTroff(option->get_name(true)));
    line += option->get_required() ? ' ' + name : fmt::format(" [{}]", name);
  }
  return line + " [\\fIoptions\\fR]";
}

std::string commandSections(const CLI::App& above, const std::string& path) {
  std::string text;
  for (const CLI::App* command : commandsOf(above)) {
    const std::string name = path + command->get_name();
    const std::string below = commandSections(*command, name + ' ');
    text += fmt::format(".SS \"{}\"\n{}.\n", name, escapedForTroff(command->get_description()));
    if (below.empty())
      text += fmt::format(".PP\n{}\n{}", synopsisOf(*command, name), optionParagraphs(*command));
    text += below;
  }
  return text;
}

}  // namespace

std::string manualPage(const CLI::App& program) {
  const std::string name = program.get_name();
  return fmt::format(
      ".TH {} 1 \"\" \"{} {}\" \"User Commands\"\n"
      ".SH NAME\n{} \\- client notices of an accounting firm\n"
      ".SH SYNOPSIS\n\\fB{}\\fR [\\fIoptions\\fR] \\fICOMMAND\\fR ...\n"
      ".SH DESCRIPTION\n{}\n"
      ".SH OPTIONS\n{}"
      ".SH COMMANDS\n{}"
      ".SH NOTES\n{}",
      upperCase(name), name, HVNOTIFY_VERSION, name, name,
      escapedForTroff(program.get_description()), optionParagraphs(program),
      commandSections(program, ""), escapedForTroff(usageNotes()));
}

}  // namespace autonotify::console
