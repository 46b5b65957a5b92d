#include "host/dialogs/TerminalMsgbox.h"

#include <string_view>

namespace autonotify::host {
namespace {

struct StyleWord {
  int style;
  std::string_view word;
};
constexpr StyleWord styleWords[] = {
    {message_style::inputRefused, "Please check: "},
    {message_style::valueRefused, "Please check: "},
    {message_style::warning, "Warning: "},
    {message_style::reportError, "Error: "},
    {message_style::armedConfirmed, "Scheduled: "},
};

std::string_view wordFor(int style) {
  for (const StyleWord& each : styleWords) {
    if (each.style == style) return each.word;
  }
  return "Note: ";
}

}  // namespace

void TerminalMsgbox::showMessage(const std::string& text, int style, HostObject*, int, int, int,
                                 int, const std::string&, int) {
  terminal_.say(std::string(wordFor(style)) + text);
}

int TerminalMsgbox::askQuestion(const std::string& text, int, HostObject*, int, int, int, int,
                                const std::string&, int) {
  bool saidYes = yesByDefault_;
  if (terminal_.isInteractive()) {
    saidYes = terminal_.ask(text + " (y/n)", "yn", yesByDefault_ ? 0 : 1) == 0;
  } else {
    terminal_.say(text + (saidYes ? " Yes" : " No"));
  }
  return saidYes ? message_answer::yes : message_answer::no;
}

}  // namespace autonotify::host
