#include "wizards/DocumentComposer.h"

#include "contract/windows.h"
#include "store/modNotifyClients.h"
#include "wizards/documents/DocumentReport.h"

namespace autonotify {

void DocumentComposer::InitializeBlankSend(notificationTypes type, Id companyID, Id contactID,
                                           ItemKind kind) {
  procedure(tag("InitializeBlankSend"), [&](Step& step) {
    open({ComposerMode::blankSend, type, kind});
    takeRow(noId);
    if (!isDatabaseOpen(step)) return;
    step.run(setPointer, Pointer::busy);
    addBlankRow(step, {companyID, contactID});
    fillAndShow(step);
  });
}

void DocumentComposer::addBlankRow(Step& step, const CompanyAndContactID& client) {
  NewRow row(step, "ClientNotification");
  channel_.fillBlankRow(step, row, client);
  Id added = noId;
  row.saveAndReadBack(added, "ClientNotificationID");
  takeRow(added);
}

void DocumentComposer::finish(Step& step) {
  hideAndRepaint(step);
  sendsAtOnce() ? send(step) : saveForLater(step);
}

/// Of a row that goes with the window nothing but the document is left by the time it is marked.
void DocumentComposer::send(Step& step) {
  saveFields();
  showDocument(step, channel_.composer.channel, notifyID(), companyID(), contactID());
  noteSent();
  if (mode() == ComposerMode::notifyNow) markSentNow(step, notifyID());
}

}  // namespace autonotify
