#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DateTime.h"

namespace autonotify {

/// The moment in a pattern of the classic letters, in any case: `d dd ddd dddd` (day, two digits,
/// short and full weekday), `m mm mmm mmmm` (month), `yy yyyy`, `h hh` (12-hour when the pattern
/// holds `am/pm`), `n nn` (minutes), `s ss`, `am/pm` (written in the pattern's case). `m` or `mm`
/// as the first letters after `h` or `hh` means minutes. Names are English. "\" makes the next
/// character literal, quotes enclose literal text; all other characters stand for themselves.
std::string formatDateTime(DateTime moment, std::string_view pattern);

/// A pattern of formatDateTime that is read once, for many moments.
class DateFormat {
 public:
  explicit DateFormat(std::string_view pattern);
  std::string text(DateTime moment) const;

  struct Moment;

 private:
  /// A part of the pattern, and what writes it and gives the end of what is written.
  struct Piece {
    char* (*write)(const Moment& moment, std::string_view letters, char* to);
    std::size_t begin;
    std::size_t end;
  };

  /// Gives the end of what it writes.
  char* write(DateTime moment, char* to) const;

  std::string pattern_;
  bool hasHalves_;
  std::vector<Piece> pieces_;
  std::size_t longest_ = 0;  ///< a text has at most so many bytes
};

/// The number in a pattern of `0`, `#`, `.`, `,` (thousands) and literal characters, with an
/// optional second section after `;` for negative numbers (which then get no sign of their own).
/// Rounds half away from zero, by the shortest decimal number that reads back as `number`: 2.675 in
/// "0.00" is 2.68. A negative number that rounds to zero is shown as zero. An empty pattern, an
/// infinity and not-a-number give the number's ordinary text form.
std::string formatNumber(double number, std::string_view pattern);

}  // namespace autonotify
