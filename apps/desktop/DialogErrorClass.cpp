#include "DialogErrorClass.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

#include "qt_text.h"

namespace autonotify::desktop {
namespace {

QString detailsOf(const host::RecordedError& error) {
  QString details = QObject::tr("Error %1").arg(error.number);
  if (!error.source.empty()) details += QObject::tr("\nSource: %1").arg(shown(error.source));
  if (!error.procedure.empty()) details += QObject::tr("\nIn: %1").arg(shown(error.procedure));
  return details + "\n\n" + shown(error.description);
}

}  // namespace

int DialogErrorClass::choose(const host::RecordedError& error) {
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName("errorDialog");
  box.setIcon(QMessageBox::Critical);
  box.setWindowTitle(QObject::tr("Something went wrong"));
  box.setText(faultOf(error.description));
  box.setInformativeText(
      QObject::tr("Continue goes on behind the failed step, Leave ends the operation as far as it "
                  "has come, Try Again repeats the step."));
  box.setDetailedText(detailsOf(error));
  const auto* next = box.addButton(QObject::tr("&Continue"), QMessageBox::AcceptRole);
  auto* leave = box.addButton(QObject::tr("&Leave"), QMessageBox::RejectRole);
  const auto* again = box.addButton(QObject::tr("&Try Again"), QMessageBox::ResetRole);
  box.setEscapeButton(leave);
  box.setDefaultButton(leave);
  box.exec();
  if (box.clickedButton() == next) return error_choice::next;
  return box.clickedButton() == again ? error_choice::quit : error_choice::leave;
}

}  // namespace autonotify::desktop
