#pragma once

#include <functional>
#include <string>
#include <vector>

#include "contract/contact_lists.h"
#include "contract/date_explanation.h"
#include "contract/merge_fields.h"
#include "control/component.h"
#include "platform/Value.h"

namespace autonotify {

/// What hosts need besides clsAutoNotifyCtrl: marking and editing rows, trying and propagating
/// templates, a client's addresses, and why a date is what it is.
///
/// Create a clsAutoNotifyCtrl and assign its references first; they serve this object too. Failures
/// are settled as there.
class clsNotificationTools : public ComponentObject {
 public:
  /// Marks the row sent at the current date and time.
  virtual void changeNotificationToSent(Id notificationID) = 0;
  /// Marks the row cancelled and clears its sent time.
  virtual void cancelNotification(Id notificationID) = 0;
  /// Opens the composer of an email that waits for its date. False when the person cancelled, or
  /// the row is no email.
  virtual bool editEmailNotification(Id notificationID) = 0;
  /// Shows the document of a fax or a letter and files it when its preview is closed. False for a
  /// row of another channel, and for one that does not exist.
  virtual bool makeDocument(Id notificationID) = 0;
  /// The faults of a template; none when it is sound. `isRTF` says which spelling of the marks to
  /// look for: \'ab and \'bb, or « and ».
  virtual std::vector<TemplateFault> findTemplateFaults(const std::string& text, bool isRTF) = 0;
  /// The fields of a template, each once, and what becomes of them in a notification of the
  /// schedule entry; without an entry (-1) nothing has a value. None where the marks do not pair.
  virtual std::vector<TemplateField> listTemplateFields(const std::string& text, Id scheduleID) = 0;
  /// The template merged with the records of the schedule entry and its client, as its own template
  /// would be; empty for an entry that does not exist.
  virtual std::string mergeTemplate(const std::string& templateText, Id scheduleID) = 0;
  /// Changes nothing.
  virtual DateExplanation explainNotificationDate(Id scheduleID) = 0;
  /// The date if the firm is open then, otherwise the last open day before it: what weekends and
  /// the holidays of the database leave.
  virtual DateTime lastWorkingDay(DateTime date) = 0;

  // Contacts.

  /// The address block of the client, of a company with its default contact as the person. Empty
  /// for a client who does not exist.
  virtual std::string composeAddress(const AddressWish& wish) = 0;
  /// What is known of a company, a contact, or (enumAutoNotifyNone) the firm itself, which has fax
  /// numbers alone. Emails of a client come with the firm's own.
  virtual RecipientOffer listRecipients(enumAutoNotifyClientType clientType, Id clientID,
                                        RecipientKind kind) = 0;
  /// The company's default contact, or -1.
  virtual Id checkForDefaultContact(Id companyID) = 0;
  /// Makes the contact the company's only default one, or leaves it without one by -1, and renews
  /// what the company tells of it. False, with nothing changed, when the contact is not linked to
  /// the company.
  virtual bool setDefaultContact(Id companyID, Id contactID) = 0;

  /// The template of the kind; the standard one when it has none, and for a kind without a row.
  virtual std::string readTemplate(Id scheduleTypeID) = 0;
  /// Composes the texts of all unsent notifications of the kind anew, by the template of its
  /// `ScheduleTypes` row; a client who is a contact only keeps the old text. `progress` hears of
  /// each unsent notification looked at; it may be empty. Nothing happens for a kind without a row.
  virtual void propagateTemplate(Id scheduleTypeID,
                                 const std::function<void(int rowsDone, int rows)>& progress) = 0;
  /// The text that the template gives a notification when it is carried into it; empty for one that
  /// keeps its own.
  virtual std::string composeNotification(const std::string& templateText, Id notificationID) = 0;
  /// Writes that text into the notification, whether it was sent or not.
  virtual void recomposeNotification(const std::string& templateText, Id notificationID) = 0;
  /// The fields that a template for this use can be filled with, in the order of the editor's list.
  virtual std::vector<MergeFieldInfo> listMergeFields(MergeUse use) = 0;
};

}  // namespace autonotify
