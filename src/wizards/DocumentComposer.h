#pragma once

#include "contract/rows.h"
#include "store/modNotificationLinks.h"
#include "wizards/NotificationComposer.h"

namespace autonotify {

/// What a channel whose message leaves as a document differs in from the others of its kind.
struct DocumentChannel {
  ComposerChannel composer;
  /// Gives the row of a blank send what it starts with.
  void (*fillBlankRow)(Step& step, NewRow& row, const CompanyAndContactID& client);
};

/// The composer of a channel whose message leaves as a document: a fax or a letter.
///
/// Finish hides the window, stores the fields and, by the mode, shows the document, which unloads
/// this window when it is closed, or arms the message for its date, or leaves it at that. A
/// document that was shown counts as sent, whatever the person did with it.
class DocumentComposer : public NotificationComposer {
 public:
  /// Sends a message that no item stands behind, from a row of its own. -1 for a client who is no
  /// company, or no contact. With the database closed nothing is shown.
  void InitializeBlankSend(notificationTypes type, Id companyID, Id contactID, ItemKind kind);

 protected:
  /// The channel outlives the window.
  explicit DocumentComposer(const DocumentChannel& channel)
      : NotificationComposer(channel.composer), channel_(channel) {}
  void finish(Step& step) override;

 private:
  void addBlankRow(Step& step, const CompanyAndContactID& client);
  void send(Step& step);

  const DocumentChannel& channel_;
};

}  // namespace autonotify
