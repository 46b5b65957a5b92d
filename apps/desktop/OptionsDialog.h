#pragma once

#include <QDialog>
#include <optional>

#include "host/desk/Desk.h"

class QCheckBox;
class QLineEdit;
class QRadioButton;

namespace autonotify::desktop {

/// The mail server that was chosen for this machine; unset when emails stay in the outbox. Throws
/// MailError when the password cannot be read.
std::optional<host::SmtpServer> chosenMailServer();

/// True when emails are opened in the desktop's own mail program.
bool mailProgramIsChosen();

/// How emails go out from this machine, and what the user wants to be told.
class OptionsDialog : public QDialog {
  Q_OBJECT

 public:
  /// `desk` may be null: the user's own options cannot be changed then.
  OptionsDialog(host::Desk* desk, QWidget* parent);

  /// Stores the options, if they are sound.
  void accept() override;

 private:
  QWidget* makeMailGroup();
  QWidget* makeUserGroup();
  void choosePasswordFile();

  host::Desk* desk_;
  QRadioButton* toOutbox_ = nullptr;
  QRadioButton* toProgram_ = nullptr;
  QRadioButton* toServer_ = nullptr;
  QLineEdit* server_ = nullptr;
  QLineEdit* passwordFile_ = nullptr;
  QCheckBox* confirm_ = nullptr;
};

}  // namespace autonotify::desktop
