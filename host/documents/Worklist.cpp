#include "host/documents/Worklist.h"

#include "platform/controls/FormHost.h"

namespace autonotify::host {

Worklist::Worklist(FormHost& host, const std::string& title) : Report(host, className, title) {
  addText(titleLabel, title);
}

void Worklist::add(const Cells& cells, const std::string& words) {
  for (const std::string& cell : cells) addText(cellLabel, cell);
  addText(wordsLabel, words);
  ++entries_;
}

void Worklist::addText(const char* label, const std::string& text) {
  texts_.emplace_back(*this, "Section1", label, text);
}

}  // namespace autonotify::host
