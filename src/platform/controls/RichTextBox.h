#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/Control.h"
#include "platform/richtext/RichText.h"

namespace autonotify {

/// A field of rich text. Every change of the content raises onChange.
///
/// Places are counted in characters from 0: not in bytes, and the end of a paragraph counts one,
/// however text() spells it; list markers count nothing. Places behind the end mean the end.
/// Undoing is the renderer's.
class RichTextBox : public Control {
 public:
  using Control::Control;

  /// The content as compact RTF; see writeRichText. What was set is read back with every merge
  /// token in one piece.
  std::string textRTF() const { return writeRichText(content_); }
  /// Replaces the content; a text that is no RTF comes as plain text. The caret goes to the start.
  void setTextRTF(std::string_view rtf) { setContent(readRichText(rtf)); }

  /// The content as people read it, with list markers, lines ended by carriage return and line
  /// feed.
  std::string text() const;
  /// Replaces the content by plain text that looks like the first character did. The caret goes to
  /// the start.
  void setText(std::string_view plainText);

  const RichText& content() const { return content_; }
  void setContent(RichText content);

  /// The caret, or the start of the selection; nothing when the renderer cannot tell.
  std::optional<std::size_t> selStart() const { return selStart_; }
  std::size_t selLength() const { return selLength_; }
  void select(std::size_t start, std::size_t length = 0);
  /// Lines ended as in text(), without list markers.
  std::string selectedText() const;

  /// Puts plain text in at a place, looking like the character before it, and the caret behind it.
  void insertTextAt(std::string_view plainText, std::size_t place);
  /// Puts plain text in place of the selection; where there is none, in at the caret.
  void replaceSelection(std::string_view plainText);
  /// Changes the look of the selected characters: bold, font, colour and so on.
  void formatSelection(const std::function<void(CharacterFormat&)>& change);
  /// Changes the paragraphs that the selection or the caret touches: alignment, list marker.
  void formatParagraphs(const std::function<void(ParagraphFormat&)>& change);

  /// Takes out the first piece of the RTF that reads like this, in any case: text with its line
  /// ends spelled "\par \r\n", accented letters spelled as they are or as in RTF. False, and
  /// nothing changes, when there is none.
  bool removeRichText(std::string_view piece);

  /// A person has written plain text over the content.
  bool acceptText(const std::string& text) override;
  /// A person has edited the content or moved the caret in the renderer, which shows it already.
  void acceptContent(RichText content);
  void acceptSelection(std::optional<std::size_t> start, std::size_t length = 0);

 private:
  struct Range {
    std::size_t start;
    std::size_t end;
  };
  Range selection() const { return {selStart_.value_or(0), selStart_.value_or(0) + selLength_}; }
  void putText(std::string_view plainText, Range range);
  void showChange();

  RichText content_;
  std::optional<std::size_t> selStart_ = 0;
  std::size_t selLength_ = 0;
};

}  // namespace autonotify
