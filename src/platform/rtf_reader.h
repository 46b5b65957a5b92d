#pragma once

#include <cstddef>
#include <string_view>

namespace autonotify {

/// One piece of an RTF text. The views point into the text that is read.
struct RtfToken {
  enum class Kind {
    groupStart,
    groupEnd,
    /// A control word: `text` is its name, without backslash and parameter.
    word,
    /// A backslash with the one character in `text`. An escaped line end counts as "\n"; "'" is a
    /// `\'` that no two hexadecimal digits follow.
    symbol,
    /// `\'hh`: the byte is `parameter`.
    hexByte,
    /// Bytes that stand for themselves, at least one, without line ends and NUL bytes. An escaped
    /// backslash or brace comes as a text of its own.
    text,
    /// The bytes that follow `\bin`.
    binary,
    end
  };

  Kind kind = Kind::end;
  std::string_view text;
  /// Held to the range of 32 bits; 0 when there is none.
  int parameter = 0;
  bool hasParameter = false;
};

/// Splits any bytes into RTF tokens, in time linear in their number and with no memory of its own.
/// Groups aren't matched: whoever reads the tokens does that.
class RtfReader {
 public:
  /// `rtf` must outlive the reader and its tokens.
  explicit RtfReader(std::string_view rtf) : rtf_(rtf) {}

  /// The next token; of kind `end` once there are no more.
  RtfToken next();

  /// Leaves out what stands behind the last closing brace of the text. For use behind a brace.
  void endAtLastBrace();

 private:
  RtfToken readControl();
  RtfToken readWord();
  RtfToken readHexByte();
  RtfToken readBinary(int length);
  std::string_view take(std::size_t length);

  std::string_view rtf_;
  std::size_t at_ = 0;
};

}  // namespace autonotify
