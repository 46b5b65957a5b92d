#include "list/frmSendAutoNotifyCustomFields.h"

#include <algorithm>

#include "contract/rows.h"
#include "contract/windows.h"

namespace autonotify {
namespace {

/// Five fields each: how their columns begin, and what people call them.
struct CustomNames {
  const char* columns;
  const char* caption;
};
constexpr std::array<CustomNames, 5> customNames{{
    {"CustomName", "Client Field "},
    {"ApptCustomName", "Appointment Field "},
    {"RemittanceLabel", "Task Field "},
    {"TaskCustomName", "Task Calendar Field "},
    {"DocketCustomName", "Time Entry Field "},
}};
constexpr std::size_t namesOfKind = frmSendAutoNotifyCustomFields::fieldCount / customNames.size();

constexpr const char* selectCustomFields = "SELECT CustomFields.* FROM CustomFields;";

std::string numberedName(const char* CustomNames::*start, std::size_t field) {
  return customNames[field / namesOfKind].*start + std::to_string(field % namesOfKind + 1);
}

}  // namespace

frmSendAutoNotifyCustomFields::frmSendAutoNotifyCustomFields()
    : SettingsWindow(formHost(), "frmSendAutoNotifyCustomFields", "Custom Field Names") {
  for (std::size_t field = 0; field < fieldCount; ++field) {
    lblField[field].setCaption(numberedName(&CustomNames::caption, field));
    react(txtField[field].onChange, "txtField_Change", &frmSendAutoNotifyCustomFields::noteChange);
  }
  tieButtons(cmdApply, cmdOK, cmdCancel);
}

void frmSendAutoNotifyCustomFields::Initialize() {
  procedure(tag("Initialize"), [&](Step& step) {
    populateFieldNames();
    step.run(styleForm, *this);
    step.run(autonotify::showModal, *this);
  });
}

void frmSendAutoNotifyCustomFields::populateFieldNames() {
  procedure(tag("populateFieldNames"), [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    if (const Rows found(step, selectCustomFields, keysetUpdate); !found) {
      step.run([&] { database().addNewRecord(found.handle()); });
      step.run([&] { database().saveNewRecord(found.handle()); });
    }
    if (const Rows row(step, selectCustomFields, keysetRead); row)
      for (std::size_t field = 0; field < fieldCount; ++field) {
        names_[field] = row.text(numberedName(&CustomNames::columns, field).c_str());
        txtField[field].setText(names_[field]);
      }
    isDirty_ = false;
  });
}

bool frmSendAutoNotifyCustomFields::saveFields() {
  return procedure(tag("saveFields"), false, [&](Step& step, bool& isSaved) {
    if (isDirty_ && isDatabaseOpen(step)) {
      const Rows row(step, selectCustomFields, keysetUpdate);
      for (std::size_t field = 0; row && field < fieldCount; ++field)
        if (txtField[field].text() != names_[field]) saveName(row, field);
      isDirty_ = !row || !std::ranges::equal(txtField, names_, {}, &TextBox::text);
    }
    isSaved = !isDirty_;
  });
}

void frmSendAutoNotifyCustomFields::saveName(const Row& row, std::size_t field) {
  const std::string column = numberedName(&CustomNames::columns, field);
  row.step().run([&] {
    updateField(row.handle(), column.c_str(), txtField[field].text());
    names_[field] = txtField[field].text();
  });
}

}  // namespace autonotify
