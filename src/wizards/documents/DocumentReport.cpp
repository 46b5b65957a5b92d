#include "wizards/documents/DocumentReport.h"

#include "contract/windows.h"
#include "wizards/documents/drFax.h"
#include "wizards/documents/drLetter.h"

namespace autonotify {

void DocumentReport::Initialize(Id, bool, Id, Id) {
  showModal(locale().getActiveWindow());
}

drFax::drFax() : DocumentReport(formHost(), "drFax", "Fax") {}
drLetter::drLetter() : DocumentReport(formHost(), "drLetter", "Letter") {}

}  // namespace autonotify
