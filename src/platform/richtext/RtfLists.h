#pragma once

#include <compare>
#include <map>
#include <string>
#include <vector>

namespace autonotify {

/// The lists of an RTF text that is written. Entries have markers alone ("3.", "•"), but word
/// processors count for themselves: an entry belongs to the list that comes to its marker next, or
/// else begins one that starts with it.
class RtfLists {
 public:
  /// To be asked for the entries in their order. Lists are numbered from 1; 0 is none: there is no
  /// marker, or one that no list can have.
  int listOf(const std::string& marker);

  /// What the paragraphs of a list's entries are written with; nothing for none.
  std::string wordsOf(int list) const;

  /// The tables of all lists, for the head of the text; nothing where there are no lists.
  std::string tables() const;

 private:
  /// A marker is a number between two texts, or a text alone.
  struct Style {
    /// A place in the table of the ways of counting; its end for a text alone.
    std::size_t numbering;
    std::string before;
    std::string after;
    auto operator<=>(const Style&) const = default;
  };
  struct Reading {
    Style style;
    int number;
  };
  struct List {
    Style style;
    int start;
    int next;
  };

  static std::vector<Reading> readingsOf(const std::string& marker);
  static std::string levelOf(const List& list);
  bool isNext(const Reading& reading) const;

  std::vector<List> lists_;
  /// The last marker without a number, and its list: entries with bullets come in rows.
  std::string bullet_;
  int bulletList_ = 0;
  /// The last list of each style.
  std::map<Style, int> latest_;
};

}  // namespace autonotify
