#pragma once

#include <string>

#include "contract/procedure.h"
#include "contract/recordsets.h"
#include "platform/controls/Report.h"

namespace autonotify {

/// What the documents of faxes and letters share: a report of one row of `ClientNotification`,
/// shown to the person, who prints it, and filed as a rich text in the client's folder afterwards.
class DocumentReport : public Report {
 public:
  /// The whole work: fills, shows until the preview is closed, files. `deleteWhenClosed` deletes
  /// the row then. -1 for a client who is no company, or no contact.
  void Initialize(Id notificationID, bool deleteWhenClosed, Id companyID, Id contactID);

 protected:
  using Report::Report;
};

/// The document of a row for the client that the client list knows: the company, else the contact,
/// else neither.
template <class Document>
void showDocument(Step& step, Id notificationID, Id companyID, Id contactID) {
  const bool isCompany = step.holds([&] { return clients().isCompanyClient(companyID); });
  const bool isContact =
      !isCompany && step.holds([&] { return clients().isContactClient(contactID); });
  Document document;
  document.Initialize(notificationID, false, isCompany ? companyID : noId,
                      isContact ? contactID : noId);
}

}  // namespace autonotify
