#include "platform/richtext/RtfLists.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "platform/rich_text.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace autonotify {
namespace {

constexpr std::size_t longestMarker = 31;
constexpr std::size_t mostDigits = 4;

int decimalOf(const std::string& text) {
  const int number = std::atoi(text.substr(0, mostDigits).c_str());
  return std::to_string(number) == text ? number : -1;
}

int letterOf(const std::string& text) {
  return text.size() == 1 && text[0] >= 'a' && text[0] <= 'z' ? text[0] - 'a' + 1 : -1;
}

struct RomanDigit {
  std::string_view text;
  int value;
};
constexpr RomanDigit romanDigits[] = {{"m", 1000}, {"cm", 900}, {"d", 500}, {"cd", 400}, {"c", 100},
                                      {"xc", 90},  {"l", 50},   {"xl", 40}, {"x", 10},   {"ix", 9},
                                      {"v", 5},    {"iv", 4},   {"i", 1}};

std::string spelledRoman(int number) {
  std::string text;
  for (const auto& [digit, value] : romanDigits)
    for (; number >= value; number -= value) text += digit;
  return text;
}

int romanOf(const std::string& text) {
  int number = 0;
  std::string_view left = text;
  for (const auto& [digit, value] : romanDigits)
    for (; left.starts_with(digit); left.remove_prefix(digit.size())) number += value;
  return number > 0 && spelledRoman(number) == text ? number : -1;
}

/// A way of counting, with its code in a list table and its word in a paragraph.
struct Numbering {
  /// The number that a text in small letters spells, or -1.
  int (*read)(const std::string& text);
  std::string (*inItsCase)(std::string_view text);
  int code;
  const char* word;
};
constexpr Numbering numberings[] = {
    {decimalOf, lowerCase, 0, "\\pndec"},  {letterOf, lowerCase, 4, "\\pnlcltr"},
    {letterOf, upperCase, 3, "\\pnucltr"}, {romanOf, lowerCase, 2, "\\pnlcrm"},
    {romanOf, upperCase, 1, "\\pnucrm"},
};
/// A text alone: one character is a bullet.
constexpr std::size_t noNumbering = std::size(numberings);
constexpr int bulletCode = 23;
constexpr int textCode = 255;

bool isAlphanumeric(char c) {
  return isAsciiDigit(c) || isAsciiLetter(c);
}

/// How many 16-bit units a text takes in a list table.
std::size_t unitsOf(std::string_view text) {
  std::size_t units = 0;
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Step step = utf8StepAt(text, at);
    units += step.isWellFormed() && step.value > 0xFFFF ? 2 : 1;
    at += step.length;
  }
  return units;
}

bool fitsIntoList(std::string_view marker) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
  return !marker.empty() && std::ranges::none_of(marker, isControl) &&
         unitsOf(marker) <= longestMarker;
}

std::string hexByte(std::size_t byte) {
  constexpr char digits[] = "0123456789abcdef";
  return {'\\', '\'', digits[byte / 16], digits[byte % 16]};
}

std::string escaped(std::string_view text) {
  return escapeForRichText(text, richTextLineBreaks);
}

}  // namespace

int RtfLists::listOf(const std::string& marker) {
  if (marker == bullet_) return bulletList_;
  if (!fitsIntoList(marker)) return 0;
  std::vector<Reading> readings = readingsOf(marker);
  auto reading = std::ranges::find_if(readings, [&](const auto& each) { return isNext(each); });
  if (reading == readings.end()) {
    // "i" begins a list of Roman numbers, "c" one of letters.
    reading = std::ranges::min_element(readings, {}, &Reading::number);
    lists_.push_back({reading->style, reading->number, reading->number});
    latest_[reading->style] = static_cast<int>(lists_.size());
  }
  const int list = latest_[reading->style];
  if (reading->style.numbering == noNumbering) {
    bullet_ = marker;
    bulletList_ = list;
  } else {
    ++lists_[static_cast<std::size_t>(list - 1)].next;
  }
  return list;
}

bool RtfLists::isNext(const Reading& reading) const {
  const auto found = latest_.find(reading.style);
  return found != latest_.end() &&
         lists_[static_cast<std::size_t>(found->second - 1)].next == reading.number;
}

/// At least one. The last letters and digits of a marker are its number: "1.2." counts the 2.
std::vector<RtfLists::Reading> RtfLists::readingsOf(const std::string& marker) {
  const auto last = std::find_if(marker.rbegin(), marker.rend(), isAlphanumeric);
  const auto first = std::find_if_not(last, marker.rend(), isAlphanumeric);
  const std::string before(marker.begin(), first.base());
  const std::string number(first.base(), last.base());
  const std::string after(last.base(), marker.end());
  std::vector<Reading> readings;
  for (const Numbering& numbering : numberings) {
    const int value = numbering.read(lowerCase(number));
    if (value >= 0 && numbering.inItsCase(number) == number)
      readings.push_back(
          {{static_cast<std::size_t>(&numbering - numberings), before, after}, value});
  }
  if (readings.empty()) readings.push_back({{noNumbering, marker, {}}, 1});
  return readings;
}

std::string RtfLists::wordsOf(int list) const {
  if (list == 0) return {};
  const auto& [style, start, next] = lists_[static_cast<std::size_t>(list - 1)];
  const bool isNumbered = style.numbering != noNumbering;
  std::string words = "{\\*\\pn";
  words += isNumbered ? std::string("\\pnlvlbody") + numberings[style.numbering].word +
                            "\\pnstart" + std::to_string(start)
                      : "\\pnlvlblt";
  words += "\\pnf0";
  if (!style.before.empty()) words += "{\\pntxtb " + escaped(style.before) + "}";
  if (!style.after.empty()) words += "{\\pntxta " + escaped(style.after) + "}";
  return words + "}\\ls" + std::to_string(list);
}

std::string RtfLists::tables() const {
  if (lists_.empty()) return {};
  std::string lists;
  std::string overrides;
  for (const List& list : lists_) {
    const std::string number = std::to_string(&list - lists_.data() + 1);
    lists += "{\\list\\listtemplateid" + number + "\\listsimple1" + levelOf(list) + "\\listid" +
             number + "}";
    overrides += "{\\listoverride\\listid" + number + "\\listoverridecount0\\ls" + number + "}";
  }
  return "{\\*\\listtable" + lists + "}\r\n{\\*\\listoverridetable" + overrides + "}\r\n";
}

/// The text of a level has its length in front of it, and a zero for the number.
std::string RtfLists::levelOf(const List& list) {
  const auto& [style, start, next] = list;
  const bool isNumbered = style.numbering != noNumbering;
  const std::size_t before = unitsOf(style.before);
  const std::size_t length = before + isNumbered + unitsOf(style.after);
  const int code = isNumbered    ? numberings[style.numbering].code
                   : length == 1 ? bulletCode
                                 : textCode;
  return "{\\listlevel\\levelnfc" + std::to_string(code) + "\\levelstartat" +
         std::to_string(start) + "\\levelfollow0{\\leveltext" + hexByte(length) +
         escaped(style.before) + (isNumbered ? hexByte(0) : "") + escaped(style.after) +
         ";}{\\levelnumbers" + (isNumbered ? hexByte(before + 1) : "") + ";}}";
}

}  // namespace autonotify
