#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

#include "platform/Value.h"
#include "platform/format.h"

namespace autonotify {
namespace {

/// A piece of a pattern: a literal text, or one of `0`, `#` and `.`.
struct Piece {
  enum class Kind { literal, digit, point };

  Kind kind;
  bool required = false;
  std::string text;
};

/// One section of a pattern, taken apart.
struct Section {
  std::vector<Piece> pieces;
  int integerPlaces = 0;
  int decimalPlaces = 0;
  bool thousands = false;
};

/// Length of the quoted or escaped literal at the start of the pattern; 0 when there is none.
std::size_t quotedLength(std::string_view pattern) {
  if (pattern[0] == '\\') return std::min<std::size_t>(2, pattern.size());
  if (pattern[0] != '"') return 0;
  const std::size_t end = pattern.find('"', 1);
  return end == std::string_view::npos ? pattern.size() : end + 1;
}

std::string_view unquoted(std::string_view literal) {
  if (literal.size() < 2) return literal == "\"" ? std::string_view{} : literal;
  literal.remove_prefix(1);
  if (literal.ends_with('"') && literal.size() > 1) literal.remove_suffix(1);
  return literal;
}

/// The pattern's text up to the next `;` that is no literal; it is taken off the pattern.
std::string_view takeSection(std::string_view& pattern) {
  std::size_t end = 0;
  while (end < pattern.size() && pattern[end] != ';')
    end += std::max<std::size_t>(1, quotedLength(pattern.substr(end)));
  const std::string_view section = pattern.substr(0, end);
  pattern.remove_prefix(std::min(end + 1, pattern.size()));
  return section;
}

Section parseSection(std::string_view pattern) {
  Section section;
  bool pastPoint = false;
  while (!pattern.empty()) {
    const char c = pattern[0];
    const std::size_t length = std::max<std::size_t>(1, quotedLength(pattern));
    if (c == '0' || c == '#') {
      section.pieces.push_back({Piece::Kind::digit, c == '0', {}});
      ++(pastPoint ? section.decimalPlaces : section.integerPlaces);
    } else if (c == '.' && !pastPoint) {
      section.pieces.push_back({Piece::Kind::point, false, {}});
      pastPoint = true;
    } else if (c == ',' && section.integerPlaces > 0 && !pastPoint) {
      section.thousands = true;
    } else {
      const std::string_view raw = pattern.substr(0, length);
      section.pieces.push_back({Piece::Kind::literal, false, std::string(unquoted(raw))});
    }
    pattern.remove_prefix(length);
  }
  return section;
}

/// A decimal number without its sign: 0.digits times ten to the power `exponent`.
struct Decimal {
  std::string digits;
  int exponent = 0;

  /// The digit worth ten to the power `place`.
  char digitAt(int place) const {
    const int index = exponent - 1 - place;
    return index >= 0 && index < static_cast<int>(digits.size())
               ? digits[static_cast<std::size_t>(index)]
               : '0';
  }
  bool isZero() const { return digits.empty(); }
};

/// The shortest decimal number that reads back as `number`, so that halves are those that a person
/// sees: 2.675 is one.
Decimal decimalOf(double number) {
  char text[64];
  const char* const end = std::to_chars(std::begin(text), std::end(text), std::fabs(number),
                                        std::chars_format::scientific)
                              .ptr;
  const char* const mark = std::find(static_cast<const char*>(text), end, 'e');
  Decimal result;
  for (const char* c = text; c != mark; ++c)
    if (*c != '.') result.digits += *c;
  if (result.digits == "0") return {};
  std::from_chars(mark + (mark[1] == '+' ? 2 : 1), end, result.exponent);
  ++result.exponent;
  return result;
}

/// Rounds half away from zero.
Decimal rounded(Decimal number, int decimals) {
  const int kept = number.exponent + decimals;
  if (kept < 0) return {};
  if (kept >= static_cast<int>(number.digits.size())) return number;
  const bool up = number.digits[static_cast<std::size_t>(kept)] >= '5';
  number.digits.resize(static_cast<std::size_t>(kept));
  if (!up) {
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    return number.digits.empty() ? Decimal{} : number;
  }
  number.digits.erase(number.digits.find_last_not_of('9') + 1);
  if (number.digits.empty()) return {"1", number.exponent + 1};
  ++number.digits.back();
  return number;
}

/// Lays digits into the places of a section from left to right.
class Layout {
 public:
  Layout(const Section& section, const Decimal& number) : section_(section), number_(number) {}

  std::string write() {
    int place = section_.integerPlaces - 1;
    for (const Piece& piece : section_.pieces) {
      if (piece.kind == Piece::Kind::digit) {
        writePlace(place--, piece.required);
      } else if (piece.kind == Piece::Kind::point) {
        writeSurplus(-1);
        text_ += '.';
      } else {
        text_ += piece.text;
      }
    }
    return std::move(text_);
  }

 private:
  void writePlace(int place, bool required) {
    begun_ = begun_ || required;
    if (place >= 0) {
      writeSurplus(place);
      if (begun_ || place < number_.exponent) writeIntegerDigit(place);
    } else if (required || hasDigitsFrom(place)) {
      text_ += number_.digitAt(place);
    }
  }

  /// The digits above the section's first place come with that place, or with the point when there
  /// is none.
  void writeSurplus(int place) {
    if (surplusWritten_) return;
    surplusWritten_ = true;
    for (int above = number_.exponent - 1; above > place; --above) writeIntegerDigit(above);
  }

  void writeIntegerDigit(int place) {
    text_ += number_.digitAt(place);
    if (section_.thousands && place > 0 && place % 3 == 0) text_ += ',';
  }

  bool hasDigitsFrom(int place) const {
    return number_.exponent - static_cast<int>(number_.digits.size()) <= place && !number_.isZero();
  }

  const Section& section_;
  const Decimal& number_;
  std::string text_;
  bool begun_ = false;
  bool surplusWritten_ = false;
};

}  // namespace

std::string formatNumber(double number, std::string_view pattern) {
  if (pattern.empty() || !std::isfinite(number)) return toText(number);
  const Section general = parseSection(takeSection(pattern));
  const std::string_view second = takeSection(pattern);
  const Decimal shown = rounded(decimalOf(number), general.decimalPlaces);
  if (number >= 0 || shown.isZero()) return Layout(general, shown).write();
  if (second.empty()) return '-' + Layout(general, shown).write();
  const Section negative = parseSection(second);
  return Layout(negative, rounded(decimalOf(number), negative.decimalPlaces)).write();
}

}  // namespace autonotify
