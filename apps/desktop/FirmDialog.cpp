#include "FirmDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QVBoxLayout>
#include <optional>

#include "binding/FittingArea.h"
#include "host/desk/work/firm_details.h"
#include "host/words/Words.h"
#include "platform/PlatformError.h"
#include "qt_text.h"
#include "yes_question.h"

namespace autonotify::desktop {
namespace {

constexpr int usualFieldWidth = 320;

}  // namespace

FirmDialog::FirmDialog(host::Desk& desk, QWidget* parent)
    : QDialog(parent), desk_(desk), stored_(host::readFirmDetails(desk)) {
  setWindowTitle(tr("The Firm"));
  auto* content = new QWidget(this);
  auto* layout = new QFormLayout(content);
  for (std::size_t i = 0; i < stored_.size(); ++i) {
    const host::FirmDetail& detail = host::firmDetails()[i];
    auto* field = new QLineEdit(shown(stored_[i]), this);
    field->setObjectName(detail.key);
    field->setMinimumWidth(usualFieldWidth);
    layout->addRow(tr("%1:").arg(shown(host::Words::tr(detail.name))), field);
    fields_.push_back(field);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout->addRow(buttons);
  auto* around = new QVBoxLayout(this);
  around->setContentsMargins({});
  around->addWidget(new FittingArea(*content, this));
}

void FirmDialog::accept() {
  std::vector<std::optional<std::string>> changed(stored_.size());
  for (std::size_t i = 0; i < stored_.size(); ++i) {
    const std::string text = textOf(i);
    if (text == stored_[i]) continue;
    const std::string fault = host::faultOfFirmDetail(host::firmDetails()[i], text);
    if (!fault.empty()) return tell(shown(fault) + '.', fields_[i]);
    changed[i] = text;
  }
  try {
    if (isChanged()) host::storeFirmDetails(desk_, changed);
    QDialog::accept();
  } catch (const PlatformError& error) {
    tell(faultOf(error.description()), fields_.front());
  }
}

void FirmDialog::tell(const QString& fault, QLineEdit* field) {
  QMessageBox::warning(this, windowTitle(), fault);
  field->setFocus();
}

void FirmDialog::reject() {
  if (!isChanged() ||
      isYes(this, windowTitle(), tr("Do you want to close this and lose your changes?")))
    QDialog::reject();
}

std::string FirmDialog::textOf(std::size_t position) const {
  return plain(fields_[position]->text().trimmed());
}

bool FirmDialog::isChanged() const {
  for (std::size_t i = 0; i < stored_.size(); ++i)
    if (textOf(i) != stored_[i]) return true;
  return false;
}

}  // namespace autonotify::desktop
