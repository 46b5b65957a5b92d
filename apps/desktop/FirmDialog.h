#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "host/desk/Desk.h"

class QLineEdit;

namespace autonotify::desktop {

/// What the firm says of itself: whom its emails come from, what stands at the head of its letters.
class FirmDialog : public QDialog {
  Q_OBJECT

 public:
  /// The desk must outlive it.
  FirmDialog(host::Desk& desk, QWidget* parent);

  /// Stores what was changed; stays open with the caret in what cannot be stored.
  void accept() override;
  /// Asks before changes are lost.
  void reject() override;

 private:
  void tell(const QString& fault, QLineEdit* field);
  std::string textOf(std::size_t position) const;
  bool isChanged() const;

  host::Desk& desk_;
  /// By position among host::firmDetails().
  std::vector<QLineEdit*> fields_;
  std::vector<std::string> stored_;
};

}  // namespace autonotify::desktop
