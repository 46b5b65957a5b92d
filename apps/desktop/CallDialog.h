#pragma once

#include <QDialog>

#include "host/desk/work/note_call.h"

class QLineEdit;

namespace autonotify::desktop {

/// A call that is due: whom to call and what to say, and below it how the call went.
class CallDialog : public QDialog {
  Q_OBJECT

 public:
  /// `subject` says whom and what the call is about.
  CallDialog(const host::Notification& call, const QString& subject, QWidget* parent);

  // When it was accepted.
  host::CallResult callResult() const { return result_; }
  /// Of the person, about the call.
  std::string note() const;

 protected:
  /// Asks before a note is lost.
  void reject() override;

 private:
  QWidget* makeFields(const host::Notification& call);
  QWidget* makeButtons();

  QLineEdit* note_ = nullptr;
  host::CallResult result_ = host::CallResult::made;
};

}  // namespace autonotify::desktop
