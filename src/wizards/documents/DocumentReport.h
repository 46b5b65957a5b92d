#pragma once

#include <deque>
#include <string>

#include "contract/procedure.h"
#include "contract/recordsets.h"
#include "platform/controls/Report.h"

namespace autonotify {

struct DocumentKind;

/// What the documents of faxes and letters share: a report of one row of `ClientNotification`,
/// shown to the person, who prints it, and filed as a rich text in the client's folder afterwards.
class DocumentReport : public Report {
 public:
  ~DocumentReport() override;

  /// The whole work: fills, shows until the preview is closed, files. `deleteWhenClosed` deletes
  /// the row then. -1 for a client who is no company, or no contact.
  ///
  /// Closing the preview unloads the composer that it was opened from, which may delete the row:
  /// what is filed are the texts that were shown.
  void Initialize(Id notificationID, bool deleteWhenClosed, Id companyID, Id contactID);

 protected:
  /// `kind` outlives the report.
  explicit DocumentReport(const DocumentKind& kind);

 private:
  std::string tag(const std::string& procedureName) const;
  void fill(Step& step);
  void closeRow(Step& step);
  void reportFault(Step& step, ReportFault& fault);
  void terminate(Step& step);
  void save();
  std::string merged(std::string text) const;
  /// As the template spells it.
  std::string convertFieldName(const std::string& placeholder) const;
  std::string convertToRTF(const std::string& value) const;
  std::string documentPath(Step& step) const;

  const DocumentKind& kind_;
  /// One for each part of the kind.
  std::deque<ReportLabel> texts_;
  Id notificationID_ = noId;
  bool deleteWhenClosed_ = false;
  Id companyID_ = noId;
  Id contactID_ = noId;
  /// Open until the preview is closed.
  RecordsetHandle row_ = noRecordset;
};

/// Whether messages of the channel leave as documents.
bool hasDocument(Id channel);
/// The document of a row of such a channel for the client that the client list knows: the company,
/// else the contact, else neither.
void showDocument(Step& step, Id channel, Id notificationID, Id companyID, Id contactID);

}  // namespace autonotify
