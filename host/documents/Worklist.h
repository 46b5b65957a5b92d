#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <string>

#include "host/words/Words.h"
#include "platform/controls/Report.h"

namespace autonotify::host {

/// What is to be done by hand, as a list on paper: a line for each entry, with the words to be said
/// below it.
class Worklist : public Report {
 public:
  static constexpr const char* className = "worklist";
  /// Names of its labels, in the order of what it holds.
  static constexpr const char* titleLabel = "title";
  static constexpr const char* cellLabel = "cell";
  static constexpr const char* wordsLabel = "words";

  struct Column {
    const char* heading;
    /// Of the width, in proportion to the others.
    double share;
  };
  static constexpr std::array<Column, 7> columns{{{Words::later("Date"), 60},
                                                  {Words::later("By"), 36},
                                                  {Words::later("Client"), 130},
                                                  {Words::later("Task"), 130},
                                                  {Words::later("To"), 90},
                                                  {Words::later("Number"), 84},
                                                  {Words::later("Times"), 52}}};
  using Cells = std::array<std::string, columns.size()>;

  Worklist(FormHost& host, const std::string& title);
  /// `words` may be empty.
  void add(const Cells& cells, const std::string& words);
  std::size_t entries() const { return entries_; }

 private:
  void addText(const char* label, const std::string& text);

  std::deque<ReportLabel> texts_;
  std::size_t entries_ = 0;
};

}  // namespace autonotify::host
