#include "OptionsDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "binding/FittingArea.h"
#include "host/desk/user_options.h"
#include "mail_choice.h"
#include "qt_text.h"
#include "yes_question.h"

namespace autonotify::desktop {
namespace {

struct UserOption {
  /// The box's object name.
  const char* name;
  const char* text;
  bool (*isOn)(host::Desk& desk);
  void (*turn)(host::Desk& desk, bool on);
};
constexpr UserOption userOptions[] = {
    {"confirm",
     QT_TRANSLATE_NOOP("autonotify::desktop::OptionsDialog",
                       "&Confirm each notification that I schedule"),
     host::confirmsScheduling, host::setConfirmsScheduling},
    {"askToCancel",
     QT_TRANSLATE_NOOP("autonotify::desktop::OptionsDialog",
                       "&Ask before a notification is cancelled"),
     host::asksBeforeCancelling, host::setAsksBeforeCancelling},
};

}  // namespace

OptionsDialog::OptionsDialog(host::Desk* desk, QWidget* parent) : QDialog(parent), desk_(desk) {
  setWindowTitle(tr("Options"));
  auto* content = new QWidget(this);
  auto* layout = new QVBoxLayout(content);
  layout->addWidget(makeMailGroup());
  layout->addWidget(makeDocumentsGroup());
  layout->addWidget(makeUserGroup());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addWidget(buttons);
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins({});
  around->addWidget(new FittingArea(*content, this));
  watchChanges();
}

void OptionsDialog::watchChanges() {
  const auto note = [this] { isChanged_ = true; };
  for (auto* field : findChildren<QLineEdit*>())
    connect(field, &QLineEdit::textChanged, this, note);
  for (auto* box : findChildren<QAbstractButton*>())
    connect(box, &QAbstractButton::toggled, this, note);
}

QLineEdit* OptionsDialog::addPath(QFormLayout& layout, const QString& label, const QString& path,
                                  QString (*choose)(QWidget* parent)) {
  auto* row = new QWidget(this);
  auto* field = new QLineEdit(path, row);
  field->setAccessibleName(QString(label).remove('&').remove(':').trimmed());
  auto* browse = new QPushButton(tr("Browse..."), row);
  connect(browse, &QPushButton::clicked, this, [this, field, choose] {
    const QString chosen = choose(this);
    if (!chosen.isEmpty()) field->setText(chosen);
  });
  auto* box = new QHBoxLayout(row);
  box->setContentsMargins(0, 0, 0, 0);
  box->addWidget(field);
  box->addWidget(browse);
  auto* words = new QLabel(label, this);
  words->setBuddy(field);
  layout.addRow(words, row);
  return field;
}

QWidget* OptionsDialog::makeMailGroup() {
  const MailChoice chosen = chosenMail();
  auto* group = new QGroupBox(tr("Emails on this machine"), this);
  auto* layout = new QFormLayout(group);
  toOutbox_ =
      new QRadioButton(tr("&Leave them in the outbox folder for another mail system"), group);
  toProgram_ = new QRadioButton(tr("&Open them in this desktop's mail program"), group);
  toServer_ = new QRadioButton(tr("&Send them through a mail server"), group);
  for (QRadioButton* way : {toOutbox_, toProgram_, toServer_}) layout->addRow(way);
  server_ = new QLineEdit(chosen.server, group);
  server_->setObjectName("server");
  server_->setMinimumWidth(300);
  server_->setPlaceholderText("smtp://user@mail.example:587");
  layout->addRow(tr("Ser&ver:"), server_);
  passwordFile_ =
      addPath(*layout, tr("File with the &password:"), chosen.passwordFile, [](QWidget* parent) {
        return QFileDialog::getOpenFileName(parent, tr("File with the password"));
      });
  outbox_ = addPath(*layout, tr("Outbox &folder:"), chosen.outbox, [](QWidget* parent) {
    return QFileDialog::getExistingDirectory(parent, tr("Outbox folder"));
  });
  outbox_->setPlaceholderText(tr("beside the database file"));
  for (QWidget* part : {static_cast<QWidget*>(server_), passwordFile_->parentWidget()}) {
    part->setEnabled(false);
    connect(toServer_, &QRadioButton::toggled, part, &QWidget::setEnabled);
  }
  plain_ = new QCheckBox(tr("Send emails as plain te&xt, without formats"), group);
  plain_->setObjectName("plainMail");
  plain_->setChecked(chosen.isPlain);
  layout->addRow(plain_);
  toOutbox_->setChecked(true);
  toProgram_->setChecked(chosen.toProgram);
  toServer_->setChecked(!server_->text().isEmpty());
  return group;
}

QWidget* OptionsDialog::makeDocumentsGroup() {
  auto* group = new QGroupBox(tr("Letters and faxes on this machine"), this);
  documents_ = addPath(*new QFormLayout(group), tr("&Documents folder:"), chosenMail().documents,
                       [](QWidget* parent) {
                         return QFileDialog::getExistingDirectory(parent, tr("Documents folder"));
                       });
  documents_->setObjectName("documents");
  documents_->setPlaceholderText(tr("beside the database file"));
  return group;
}

QWidget* OptionsDialog::makeUserGroup() {
  auto* group = new QGroupBox(tr("For me"), this);
  auto* layout = new QVBoxLayout(group);
  for (const UserOption& option : userOptions) {
    auto* box = new QCheckBox(tr(option.text), group);
    box->setObjectName(option.name);
    box->setEnabled(desk_ != nullptr);
    if (desk_) box->setChecked(option.isOn(*desk_));
    layout->addWidget(box);
    userOptions_.append(box);
  }
  return group;
}

void OptionsDialog::reject() {
  if (!isChanged_ ||
      isYes(this, windowTitle(), tr("Do you want to close this and lose what you have changed?")))
    QDialog::reject();
}

void OptionsDialog::accept() {
  MailChoice choice;
  choice.toProgram = toProgram_->isChecked();
  choice.outbox = outbox_->text().trimmed();
  choice.documents = documents_->text().trimmed();
  choice.isPlain = plain_->isChecked();
  if (toServer_->isChecked()) {
    choice.server = server_->text().trimmed();
    choice.passwordFile = passwordFile_->text();
  }
  try {
    if (toServer_->isChecked())
      host::readSmtpServer(plain(choice.server), plain(choice.passwordFile));
    for (qsizetype i = 0; desk_ && i < userOptions_.size(); ++i)
      userOptions[i].turn(*desk_, userOptions_[i]->isChecked());
  } catch (const host::MailError& error) {
    QMessageBox::warning(this, windowTitle(), shown(error.what()));
    return;
  } catch (const PlatformError& error) {
    QMessageBox::critical(this, windowTitle(), faultOf(error.description()));
    return;
  }
  chooseMail(choice);
  QDialog::accept();
}

}  // namespace autonotify::desktop
