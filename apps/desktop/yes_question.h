#pragma once

#include <QMessageBox>

namespace autonotify::desktop {

/// Asks; Enter and Esc say no.
inline bool isYes(QWidget* parent, const QString& title, const QString& question) {
  return QMessageBox::question(parent, title, question, QMessageBox::Yes | QMessageBox::No,
                               QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace autonotify::desktop
