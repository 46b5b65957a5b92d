#include "binding/window_notes.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>

#include "colors.h"

namespace autonotify::desktop {
namespace {

void show(QLabel& label, const WindowNote& note, bool isTicked) {
  QPalette palette;
  if (!isTicked && note.isTrouble) palette.setColor(QPalette::WindowText, troubleColor(palette));
  label.setPalette(palette);
  QString text = isTicked ? note.tickedText : note.text;
  if (label.buddy()) label.buddy()->setAccessibleDescription(text);
  // With a buddy it would underline a letter.
  label.setText(label.buddy() ? text.replace("&", "&&") : text);
}

void show(QLabel& label, const WindowNote& note) {
  label.setTextFormat(Qt::PlainText);
  auto* box = qobject_cast<QAbstractButton*>(label.buddy());
  show(label, note, box && box->isChecked());
  if (!box) return;
  QObject::connect(box, &QAbstractButton::toggled, &label,
                   [&label, note](bool isTicked) { show(label, note, isTicked); });
}

void showTrouble(QLabel& label) {
  QPalette palette;
  palette.setColor(QPalette::WindowText, troubleColor(palette));
  palette.setColor(QPalette::Window, troubleGround(palette));
  label.setPalette(palette);
  label.setAutoFillBackground(true);
}

void showFirst(QPushButton& button) {
  QPalette palette = button.palette();
  palette.setColor(QPalette::Button, palette.color(QPalette::Highlight));
  palette.setColor(QPalette::ButtonText, palette.color(QPalette::HighlightedText));
  button.setPalette(palette);
}

}  // namespace

void showNotes(QWidget& layout, const WindowNotes& notes) {
  for (QLabel* label : layout.findChildren<QLabel*>(QRegularExpression("^staticNote"))) {
    const auto found = notes.find(label->objectName());
    label->setVisible(found != notes.end());
    if (found != notes.end()) show(*label, found->second);
  }
  for (QLabel* label : layout.findChildren<QLabel*>()) {
    if (label->property("tellsTrouble").toBool()) showTrouble(*label);
    if (label->property("isSecondary").toBool())
      label->setForegroundRole(QPalette::PlaceholderText);
  }
  for (auto* button : layout.findChildren<QPushButton*>())
    if (button->property("isPrimary").toBool()) showFirst(*button);
}

void followNotes(QWidget& layout, const WindowNotes& notes) {
  for (const auto& [name, note] : notes) {
    auto* label = layout.findChild<QLabel*>(name);
    if (!label) continue;
    label->setTextFormat(Qt::PlainText);
    show(*label, note, false);
  }
}

}  // namespace autonotify::desktop
