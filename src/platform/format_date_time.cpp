#include <algorithm>
#include <array>
#include <charconv>

#include "platform/calendar_names.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {

/// A moment taken apart as far as patterns ask for it.
struct DateFormat::Moment {
  DateTime time;
  std::chrono::year_month_day date;
  bool hasHalves;  ///< the day has two halves of twelve hours
};

namespace {

constexpr std::string_view halfOfDay = "am/pm";

/// The most characters of a number, and of what a field of a pattern writes.
constexpr std::size_t longestNumber = 12;
constexpr std::size_t longestField = 16;

using Moment = DateFormat::Moment;

// What writes gives the end of what it has written.

char* write(char* to, std::string_view name) {
  return to + name.copy(to, name.size());
}
char* write(char* to, int number) {
  return std::to_chars(to, to + longestNumber, number).ptr;
}
char* writeTwoDigits(char* to, int number) {
  if (number < 0 || number > 99) return write(to, number);
  *to++ = static_cast<char>('0' + number / 10);
  *to++ = static_cast<char>('0' + number % 10);
  return to;
}
char* writeYear(char* to, int year) {
  if (year < 1000) return write(to, year);
  return writeTwoDigits(writeTwoDigits(to, year / 100), year % 100);
}

std::string_view weekdayName(const Moment& m) {
  return weekdayNames[static_cast<std::size_t>(m.time.weekday() - 1)];
}
std::string_view monthName(const Moment& m) {
  return monthNames[static_cast<unsigned>(m.date.month()) - 1];
}
char* writeShortened(char* to, std::string_view name) {
  return std::copy_n(name.data(), shortNameLength, to);
}

int day(const Moment& m) {
  return static_cast<int>(static_cast<unsigned>(m.date.day()));
}
int month(const Moment& m) {
  return static_cast<int>(static_cast<unsigned>(m.date.month()));
}
int year(const Moment& m) {
  return static_cast<int>(m.date.year());
}
int hour(const Moment& m) {
  return m.hasHalves ? (m.time.hour() + 11) % 12 + 1 : m.time.hour();
}

/// How the letters of a pattern are written.
using Write = char* (*)(const Moment& moment, std::string_view letters, char* to);

struct Field {
  char letter;
  /// How often the letter stands there.
  std::size_t length;
  Write write;
};

// Of two fields of one letter the longer one stands first.
using Letters = std::string_view;
constexpr Field fields[] = {
    {'d', 4, [](const Moment& m, Letters, char* to) { return write(to, weekdayName(m)); }},
    {'d', 3, [](const Moment& m, Letters, char* to) { return writeShortened(to, weekdayName(m)); }},
    {'d', 2, [](const Moment& m, Letters, char* to) { return writeTwoDigits(to, day(m)); }},
    {'d', 1, [](const Moment& m, Letters, char* to) { return write(to, day(m)); }},
    {'m', 4, [](const Moment& m, Letters, char* to) { return write(to, monthName(m)); }},
    {'m', 3, [](const Moment& m, Letters, char* to) { return writeShortened(to, monthName(m)); }},
    {'m', 2, [](const Moment& m, Letters, char* to) { return writeTwoDigits(to, month(m)); }},
    {'m', 1, [](const Moment& m, Letters, char* to) { return write(to, month(m)); }},
    {'y', 4, [](const Moment& m, Letters, char* to) { return writeYear(to, year(m)); }},
    {'y', 2, [](const Moment& m, Letters, char* to) { return writeTwoDigits(to, year(m) % 100); }},
    {'h', 2, [](const Moment& m, Letters, char* to) { return writeTwoDigits(to, hour(m)); }},
    {'h', 1, [](const Moment& m, Letters, char* to) { return write(to, hour(m)); }},
    {'n', 2,
     [](const Moment& m, Letters, char* to) { return writeTwoDigits(to, m.time.minute()); }},
    {'n', 1, [](const Moment& m, Letters, char* to) { return write(to, m.time.minute()); }},
    {'s', 2,
     [](const Moment& m, Letters, char* to) { return writeTwoDigits(to, m.time.second()); }},
    {'s', 1, [](const Moment& m, Letters, char* to) { return write(to, m.time.second()); }},
};

char* writeHalfOfDay(const Moment& moment, Letters letters, char* to) {
  return write(to, letters.substr(moment.time.hour() < 12 ? 0 : 3, 2));
}

char* writeLetters(const Moment&, Letters letters, char* to) {
  if (letters.size() != 1) return write(to, letters);
  *to = letters.front();
  return to + 1;
}

constexpr char small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter | 0x20) : letter;
}

const Field* fieldOf(char letter, std::size_t length) {
  for (const Field& field : fields)
    if (field.letter == letter && field.length <= length) return &field;
  return nullptr;
}

const Field* fieldAt(std::string_view pattern) {
  const char letter = small(pattern[0]);
  if (letter < 'a' || letter > 'z') return nullptr;
  std::size_t length = 1;
  while (length < pattern.size() && small(pattern[length]) == letter) ++length;
  return fieldOf(letter, length);
}

/// `m` and `mm` behind an hour, whatever separates them, mean minutes.
const Field* minutesIfBehindHour(const Field* field, char previousLetter) {
  if (previousLetter != 'h' || field->letter != 'm' || field->length > 2) return field;
  return fieldOf('n', field->length);
}

/// What is written for a piece of a pattern.
struct PatternPiece {
  Write write;
  std::string_view letters;
};

/// Takes a pattern apart from left to right.
class PatternReader {
 public:
  explicit PatternReader(std::string_view pattern) : rest_(pattern) {}

  bool isAtEnd() const { return rest_.empty(); }

  PatternPiece next() {
    if (const Field* field = fieldAt(rest_)) {
      field = minutesIfBehindHour(field, previousLetter_);
      previousLetter_ = field->letter;
      return {field->write, take(field->length)};
    }
    if (equalIgnoreCase(rest_.substr(0, halfOfDay.size()), halfOfDay))
      return {writeHalfOfDay, take(halfOfDay.size())};
    return {writeLetters, takeLiteral()};
  }

 private:
  std::string_view take(std::size_t length) {
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view takeLiteral() {
    if (rest_[0] == '\\' && rest_.size() > 1) return take(2).substr(1);
    if (rest_[0] != '"') return take(1);
    take(1);
    const std::string_view literal = take(rest_.find('"'));
    take(1);
    return literal;
  }

  std::string_view rest_;
  char previousLetter_ = 0;
};

void append(std::string& text, const Moment& moment, const PatternPiece& piece) {
  if (piece.write == writeLetters) {
    text += piece.letters;
  } else {
    char field[longestField];
    text.append(field, piece.write(moment, piece.letters, field));
  }
}

bool hasHalvesOfDay(std::string_view pattern) {
  return findIgnoreCase(pattern, halfOfDay) != std::string_view::npos;
}

}  // namespace

DateFormat::DateFormat(std::string_view pattern)
    : pattern_(pattern), hasHalves_(hasHalvesOfDay(pattern)) {
  const std::string_view own = pattern_;
  for (PatternReader reader(own); !reader.isAtEnd();) {
    const PatternPiece piece = reader.next();
    const auto begin = static_cast<std::size_t>(piece.letters.data() - own.data());
    const std::size_t end = begin + piece.letters.size();
    longest_ += std::max(longestField, piece.letters.size());
    const bool isBehindLetters = !pieces_.empty() && pieces_.back().write == writeLetters;
    if (isBehindLetters && piece.write == writeLetters && pieces_.back().end == begin) {
      pieces_.back().end = end;
    } else {
      pieces_.push_back({piece.write, begin, end});
    }
  }
}

std::string DateFormat::text(DateTime time) const {
  std::array<char, 8 * longestField> room;
  if (longest_ <= room.size()) return {room.data(), write(time, room.data())};
  std::string text(longest_, ' ');
  text.resize(static_cast<std::size_t>(write(time, text.data()) - text.data()));
  return text;
}

char* DateFormat::write(DateTime time, char* to) const {
  const Moment moment{time, time.date(), hasHalves_};
  for (const Piece& piece : pieces_)
    to = piece.write(moment, {pattern_.data() + piece.begin, piece.end - piece.begin}, to);
  return to;
}

std::string formatDateTime(DateTime time, std::string_view pattern) {
  std::string text;
  const Moment moment{time, time.date(), hasHalvesOfDay(pattern)};
  for (PatternReader reader(pattern); !reader.isAtEnd();) append(text, moment, reader.next());
  return text;
}

}  // namespace autonotify
