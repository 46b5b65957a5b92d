#include "DialogMsgbox.h"

#include <QApplication>
#include <QMessageBox>

#include "qt_text.h"

namespace autonotify::desktop {
namespace {

struct Style {
  int style;
  QMessageBox::Icon icon;
  const char* title;
};
constexpr Style styles[] = {
    {message_style::inputRefused, QMessageBox::Warning,
     QT_TRANSLATE_NOOP("QObject", "Please Check")},
    {message_style::valueRefused, QMessageBox::Warning,
     QT_TRANSLATE_NOOP("QObject", "Please Check")},
    {message_style::alreadySent, QMessageBox::Question,
     QT_TRANSLATE_NOOP("QObject", "Client Notifications")},
    {message_style::warning, QMessageBox::Warning, QT_TRANSLATE_NOOP("QObject", "Warning")},
    {message_style::batchNotice, QMessageBox::Warning,
     QT_TRANSLATE_NOOP("QObject", "Client Notifications")},
    {message_style::reportError, QMessageBox::Critical, QT_TRANSLATE_NOOP("QObject", "Error")},
    {message_style::armedConfirmed, QMessageBox::Information,
     QT_TRANSLATE_NOOP("QObject", "Scheduled")},
};
constexpr Style otherStyle{message_style::notice, QMessageBox::Information,
                           QT_TRANSLATE_NOOP("QObject", "Client Notifications")};

const Style& lookOf(int style) {
  for (const Style& each : styles) {
    if (each.style == style) return each;
  }
  return otherStyle;
}

int ask(const std::string& text, int style, QMessageBox::StandardButtons buttons,
        QMessageBox::StandardButton first, const char* name) {
  const Style& look = lookOf(style);
  QMessageBox box(look.icon, QObject::tr(look.title), shown(text), buttons,
                  QApplication::activeWindow());
  box.setObjectName(name);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(first);
  return box.exec();
}

}  // namespace

void DialogMsgbox::showMessage(const std::string& text, int style, HostObject*, int, int, int, int,
                               const std::string&, int) {
  ask(text, style, QMessageBox::Ok, QMessageBox::Ok, "message");
}

int DialogMsgbox::askQuestion(const std::string& text, int style, HostObject*, int, int, int, int,
                              const std::string&, int) {
  const int answer =
      ask(text, style, QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, "question");
  return answer == QMessageBox::Yes ? message_answer::yes : message_answer::no;
}

}  // namespace autonotify::desktop
