#include "CallDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "binding/FittingArea.h"
#include "platform/rich_text.h"
#include "qt_text.h"
#include "yes_question.h"

namespace autonotify::desktop {
namespace {

constexpr QSize usualSize(520, 420);

struct Field {
  int place;
  const char* label;
};
constexpr Field fields[] = {
    {host::Notification::phoneTo,
     QT_TRANSLATE_NOOP("autonotify::desktop::CallDialog", "Person to call:")},
    {host::Notification::phoneNumber,
     QT_TRANSLATE_NOOP("autonotify::desktop::CallDialog", "Telephone number:")},
    {host::Notification::phoneTimes,
     QT_TRANSLATE_NOOP("autonotify::desktop::CallDialog", "Available times:")},
};

struct Answer {
  /// The button's object name.
  const char* name;
  const char* text;
  host::CallResult result;
};
constexpr Answer answers[] = {
    {"callMade", QT_TRANSLATE_NOOP("autonotify::desktop::CallDialog", "Call &Made"),
     host::CallResult::made},
    {"noAnswer", QT_TRANSLATE_NOOP("autonotify::desktop::CallDialog", "No &Answer"),
     host::CallResult::noAnswer},
};

}  // namespace

CallDialog::CallDialog(const host::Notification& call, const QString& subject, QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(tr("Call Client"));
  auto* about = new QLabel(subject, this);
  about->setTextFormat(Qt::PlainText);
  about->setWordWrap(true);
  QFont bold = about->font();
  bold.setBold(true);
  about->setFont(bold);
  auto* text = new QTextEdit(this);
  text->setReadOnly(true);
  text->setAccessibleName(tr("Text of the notification"));
  text->setPlainText(shown(plainTextOf(call.memo)));
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(about);
  layout->addWidget(makeFields(call));
  layout->addWidget(text, 1);
  note_ = new QLineEdit(this);
  note_->setObjectName("note");
  note_->setPlaceholderText(tr("A note about the call"));
  note_->setAccessibleName(note_->placeholderText());
  layout->addWidget(note_);
  layout->addWidget(makeButtons());
  resize(usualSize.boundedTo(FittingArea::roomFor(*this)));
  note_->setFocus();
}

QWidget* CallDialog::makeFields(const host::Notification& call) {
  auto* group = new QWidget(this);
  auto* layout = new QFormLayout(group);
  layout->setContentsMargins({});
  for (const Field& field : fields) {
    auto* value = new QLabel(shown(call.fields[field.place]), group);
    value->setTextFormat(Qt::PlainText);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout->addRow(tr(field.label), value);
  }
  return group;
}

QWidget* CallDialog::makeButtons() {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  for (const Answer& answer : answers) {
    QPushButton* button = buttons->addButton(tr(answer.text), QDialogButtonBox::ActionRole);
    button->setObjectName(answer.name);
    connect(button, &QPushButton::clicked, this, [this, result = answer.result] {
      result_ = result;
      accept();
    });
  }
  // Enter in the note says nothing of how the call went.
  for (QAbstractButton* button : buttons->buttons())
    qobject_cast<QPushButton*>(button)->setAutoDefault(false);
  return buttons;
}

void CallDialog::reject() {
  if (note().empty() ||
      isYes(this, windowTitle(), tr("Do you want to close this and lose your note?")))
    QDialog::reject();
}

std::string CallDialog::note() const {
  return plain(note_->text().trimmed());
}

}  // namespace autonotify::desktop
