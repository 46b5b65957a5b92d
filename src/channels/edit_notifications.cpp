#include <vector>

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

/// A field of an edit. `clears` lets an empty text through, which otherwise means: leave it.
struct FieldEdit {
  const char* column;
  const std::string& text;
  bool clears = false;
};

using FieldEdits = std::vector<FieldEdit>;

void editNotification(const char* tag, Id notificationId, const FieldEdits& edits,
                      const char* statement = notificationById) {
  procedure(tag, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    withRow(step, statement, notificationId, keysetUpdate, [&](RecordsetHandle handle) {
      writeField(step, handle, "ClientNotificationModifiedStamp", nowText);
      for (const FieldEdit& edit : edits) {
        if (!edit.clears && isEmpty(step, edit.text)) continue;
        writeField(step, handle, edit.column, [&] { return edit.text; });
      }
    });
  });
}

FieldEdits emailEdits(const std::string& to, const std::string& cc, const std::string& bcc,
                      const std::string& subject, const std::string& memo) {
  return {{"Field1", to}, {"Field2", cc}, {"Field3", bcc}, {"Field4", subject}, {"Memo", memo}};
}

FieldEdits faxEdits(const std::string& to, const std::string& from, const std::string& senderFax,
                    const std::string& receiverFax, const std::string& pages,
                    const std::string& subject, const std::string& memo) {
  return {{"Field1", to},    {"Field2", from},    {"Field3", senderFax}, {"Field4", receiverFax},
          {"Field5", pages}, {"Field6", subject}, {"Memo", memo}};
}

FieldEdits letterEdits(const std::string& memo) {
  return {{"Memo", memo, true}};
}

FieldEdits phoneEdits(const std::string& to, const std::string& number, const std::string& times,
                      const std::string& memo) {
  return {{"Field1", to}, {"Field2", number}, {"Field3", times}, {"Memo", memo}};
}

}  // namespace

void editEmailNotification(Id notificationNum, const std::string& ToStr, const std::string& CcStr,
                           const std::string& BccStr, const std::string& subjectStr,
                           const std::string& memoStr) {
  editNotification("Morvane.exe-modChannelNotifications-editEmailNotification", notificationNum,
                   emailEdits(ToStr, CcStr, BccStr, subjectStr, memoStr));
}

void editFaxNotification(Id notificationNum, const std::string& ToStr, const std::string& FromStr,
                         const std::string& SenderFaxStr, const std::string& ReceiverFaxStr,
                         const std::string& PagesStr, const std::string& subjectStr,
                         const std::string& memoStr) {
  editNotification(
      "Morvane.exe-modChannelNotifications-editFaxNotification", notificationNum,
      faxEdits(ToStr, FromStr, SenderFaxStr, ReceiverFaxStr, PagesStr, subjectStr, memoStr));
}

void editLetterNotification(Id notificationNum, const std::string& memoStr) {
  editNotification("Morvane.exe-modChannelNotifications-editLetterNotification", notificationNum,
                   letterEdits(memoStr));
}

void editPhoneNotification(Id notificationNum, const std::string& ToStr,
                           const std::string& PhoneNumberStr, const std::string& TimesStr,
                           const std::string& memoStr) {
  editNotification("Morvane.exe-modChannelNotifications-editPhoneNotification", notificationNum,
                   phoneEdits(ToStr, PhoneNumberStr, TimesStr, memoStr));
}

void editApptEmailNotification(CurrentDayTimerType, Id notificationNum, const std::string& ToStr,
                               const std::string& CcStr, const std::string& BccStr,
                               const std::string& subjectStr, const std::string& memoStr) {
  editNotification("Morvane.exe-modApptNotifications-editApptEmailNotification", notificationNum,
                   emailEdits(ToStr, CcStr, BccStr, subjectStr, memoStr));
}

void editApptFaxNotification(CurrentDayTimerType, Id notificationNum, const std::string& ToStr,
                             const std::string& FromStr, const std::string& SenderFaxStr,
                             const std::string& ReceiverFaxStr, const std::string& PagesStr,
                             const std::string& subjectStr, const std::string& memoStr) {
  editNotification(
      "Morvane.exe-modApptNotifications-editApptFaxNotification", notificationNum,
      faxEdits(ToStr, FromStr, SenderFaxStr, ReceiverFaxStr, PagesStr, subjectStr, memoStr));
}

void editApptLetterNotification(CurrentDayTimerType, Id notificationNum,
                                const std::string& memoStr) {
  editNotification("Morvane.exe-modApptNotifications-editApptLetterNotification", notificationNum,
                   letterEdits(memoStr),
                   "SELECT ClientNotification.ClientNotificationID, "
                   "ClientNotification.ClientNotificationModifiedStamp, ClientNotification.Memo "
                   "FROM ClientNotification WHERE ClientNotificationID=");
}

void editApptPhoneNotification(CurrentDayTimerType, Id notificationNum, const std::string& ToStr,
                               const std::string& PhoneNumberStr, const std::string& TimesStr,
                               const std::string& memoStr) {
  editNotification("Morvane.exe-modApptNotifications-editApptPhoneNotification", notificationNum,
                   phoneEdits(ToStr, PhoneNumberStr, TimesStr, memoStr));
}

}  // namespace autonotify
