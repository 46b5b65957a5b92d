#pragma once

#include <QDialog>

#include "host/desk/Desk.h"

class QCheckBox;
class QFormLayout;
class QLineEdit;
class QRadioButton;

namespace autonotify::desktop {

/// How notifications go out from this machine, and what the user wants to be told.
class OptionsDialog : public QDialog {
  Q_OBJECT

 public:
  /// `desk` may be null: the user's own options cannot be changed then.
  OptionsDialog(host::Desk* desk, QWidget* parent);

  /// Stores the options, if they are sound.
  void accept() override;
  /// Asks before a change is lost.
  void reject() override;

 private:
  QWidget* makeMailGroup();
  QWidget* makeDocumentsGroup();
  QWidget* makeUserGroup();
  /// A field for a path with a button to look for it.
  QLineEdit* addPath(QFormLayout& layout, const QString& label, const QString& path,
                     QString (*choose)(QWidget* parent));

  void watchChanges();

  host::Desk* desk_;
  bool isChanged_ = false;
  QRadioButton* toOutbox_ = nullptr;
  QRadioButton* toProgram_ = nullptr;
  QRadioButton* toServer_ = nullptr;
  QLineEdit* server_ = nullptr;
  QLineEdit* passwordFile_ = nullptr;
  QLineEdit* outbox_ = nullptr;
  QLineEdit* documents_ = nullptr;
  QCheckBox* plain_ = nullptr;
  /// In the order of the user's options.
  QList<QCheckBox*> userOptions_;
};

}  // namespace autonotify::desktop
