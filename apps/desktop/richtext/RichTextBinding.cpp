#include "richtext/RichTextBinding.h"

#include <QKeyEvent>

#include "binding/qt_key_codes.h"
#include "richtext/document_conversion.h"

namespace autonotify::desktop {
namespace {

/// The character of Ctrl+V.
constexpr int pastingKey = 22;

}  // namespace

RichTextBinding::RichTextBinding(Form& form, RichTextBox& control, RichTextEditor& editor)
    : BindingOf(form, control, editor), edit_(editor.edit()) {
  connect(&edit_, &QTextEdit::textChanged, this, &RichTextBinding::passContent);
  connect(&edit_, &QTextEdit::selectionChanged, this, &RichTextBinding::passSelection);
  connect(&edit_, &QTextEdit::cursorPositionChanged, this, &RichTextBinding::passSelection);
}

// What cannot be changed can still be read to its end.
void RichTextBinding::drawEnabled(bool isEnabled) {
  widget_.setReadOnly(!isEnabled);
}

QWidget& RichTextBinding::colored() {
  return *edit_.viewport();
}

void RichTextBinding::drawValue() {
  const QTextDocument& document = *edit_.document();
  if (shown_ != control_.content()) {
    shown_ = control_.content();
    showRichText(*edit_.document(), *shown_);
  }
  if (!control_.selStart()) return;
  QTextCursor cursor = edit_.textCursor();
  const std::size_t start = *control_.selStart();
  const int first = positionOf(document, start);
  const int last = positionOf(document, start + control_.selLength());
  if (cursor.selectionStart() == first && cursor.selectionEnd() == last) return;
  cursor.setPosition(first);
  cursor.setPosition(last, QTextCursor::KeepAnchor);
  edit_.setTextCursor(cursor);
}

bool RichTextBinding::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress)
    isKeyPassed_ = writesCharacter(static_cast<QKeyEvent&>(*event));
  if (event->type() == QEvent::KeyRelease || event->type() == QEvent::FocusOut)
    isKeyPassed_ = false;
  return Binding::eventFilter(watched, event);
}

// What is done otherwise, by the mouse or the bar, counts as a key too: the one that pastes.
void RichTextBinding::passContent() {
  pass([this](Person& person) {
    RichText content = richTextOf(*edit_.document());
    if (content == control_.content()) return;
    if (!isKeyPassed_) person.pressKey(control_, pastingKey);
    person.editRichText(control_, std::move(content));
    shown_ = control_.content();
  });
}

void RichTextBinding::passSelection() {
  pass([this](Person& person) {
    const QTextCursor cursor = edit_.textCursor();
    const std::size_t start = placeOf(*edit_.document(), cursor.selectionStart());
    const std::size_t end = placeOf(*edit_.document(), cursor.selectionEnd());
    person.selectText(control_, start, end - start);
  });
}

}  // namespace autonotify::desktop
