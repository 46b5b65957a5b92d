#include "wizards/documents/DocumentReport.h"

#include "contract/AutoNotifyListForm.h"
#include "contract/Window.h"
#include "contract/tags.h"
#include "contract/windows.h"
#include "settings/modUserSettings.h"
#include "store/modNotificationLinks.h"
#include "wizards/documents/document_kinds.h"

namespace autonotify {
namespace {

constexpr const char* rowToPrint =
    "SELECT ClientNotification.* FROM ClientNotification WHERE ClientNotificationID = ";

bool isJobToReport(int jobType) {
  return jobType == report_job::printing || jobType == report_job::exporting;
}

Form* findLoaded(Step& step, const char* name) {
  return step.value(static_cast<Form*>(nullptr), [&] { return findForm(name); });
}

}  // namespace

DocumentReport::DocumentReport(const DocumentKind& kind)
    : Report(formHost(), kind.name, kind.word), kind_(kind) {
  for (const DocumentPart& part : kind.parts) texts_.emplace_back(*this, part.section, part.label);
  react(onError, tag("DataReport_Error"), *this, &DocumentReport::reportFault);
  react(onTerminate, tag("DataReport_Terminate"), *this, &DocumentReport::terminate);
}

/// A report that was never shown has not been closed either.
DocumentReport::~DocumentReport() {
  if (row_ == noRecordset) return;
  endQuietly([this] { procedure(tag("Class_Terminate"), [&](Step& step) { closeRow(step); }); });
}

std::string DocumentReport::tag(const std::string& procedureName) const {
  return windowTag(name(), procedureName);
}

void DocumentReport::Initialize(Id notificationID, bool deleteWhenClosed, Id companyID,
                                Id contactID) {
  procedure(tag("Initialize"), [&](Step& step) {
    notificationID_ = notificationID;
    deleteWhenClosed_ = deleteWhenClosed;
    companyID_ = companyID;
    contactID_ = contactID;
    if (!isDatabaseOpen(step)) return;
    margins = {.left = getLeftMargin(), .top = getTopMargin()};
    step.assign(row_, openRecordset, statementFor(rowToPrint, notificationID), keysetRead);
    if (Row(step, row_).exists()) {
      fill(step);
      step.run([&] { setDataSource(database().getRecordsetObject(row_)); });
      step.run([&] { showModal(locale().getActiveWindow()); });
      save();
    } else {
      step.run(showMessage, "There are no records to view for this report", message_style::warning);
    }
  });
}

void DocumentReport::fill(Step& step) {
  const Row row(step, row_);
  auto text = texts_.begin();
  for (const DocumentPart& part : kind_.parts) (text++)->setCaption(part.read(row, part.column));
}

void DocumentReport::closeRow(Step& step) {
  const RecordsetHandle row = std::exchange(row_, noRecordset);
  setDataSource(nullptr);
  if (!isDatabaseOpen(step)) return;
  if (step.holds([&] { return database().isRecordsetOpen(row); })) Row(step, row).close();
}

void DocumentReport::reportFault(Step& step, ReportFault& fault) {
  if (!isJobToReport(fault.jobType)) return;
  fault.showsError = false;
  const std::string text =
      "There was an error printing this report.\r\n\r\nError #:" + std::to_string(fault.number) +
      "\r\n\r\nError:" + fault.description;
  step.run(showMessageAbove, this, text, message_style::reportError);
  step.run([&] { unload(); });
}

void DocumentReport::terminate(Step& step) {
  closeRow(step);
  if (deleteWhenClosed_ && (notificationID_ >= 0 || kind_.deletesAnyId)) {
    deleteNotification(notificationID_);
  }
  if (Form* composer = findLoaded(step, kind_.composer)) {
    step.run([&] { composer->unload(); });
  }
  if (Form* list = findLoaded(step, AutoNotifyListForm::formName)) {
    if (kind_.resetsPointer) step.run(setPointer, Pointer::standard);
    step.run(showAgain, *list);
  }
}

}  // namespace autonotify
