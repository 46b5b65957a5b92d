#include <vector>

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/tags.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tag = procedureTag<"modChannelNotifications", name>;
template <FixedText name>
constexpr std::string_view itemTag = procedureTag<"modApptNotifications", name>;

constexpr const char* textOfNotification =
    "SELECT ClientNotification.ClientNotificationID, "
    "ClientNotification.ClientNotificationModifiedStamp, ClientNotification.Memo FROM "
    "ClientNotification WHERE ClientNotificationID=";

/// A field of an edit. `clears` lets an empty text through, which otherwise means: leave it.
struct FieldEdit {
  const char* column;
  const std::string& text;
  bool clears = false;
};

using FieldEdits = std::vector<FieldEdit>;

void editNotification(std::string_view procedureTag, Id notificationId, const FieldEdits& edits,
                      const char* statement = notificationById) {
  procedure(procedureTag, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    const Rows row(step, statement, notificationId, keysetUpdate);
    if (!row) return;
    row.write("ClientNotificationModifiedStamp", nowText);
    for (const FieldEdit& edit : edits) {
      if (edit.clears || !isEmpty(step, edit.text)) row.write(edit.column, edit.text);
    }
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
  editNotification(tag<"editEmailNotification">, notificationNum,
                   emailEdits(ToStr, CcStr, BccStr, subjectStr, memoStr));
}

void editFaxNotification(Id notificationNum, const std::string& ToStr, const std::string& FromStr,
                         const std::string& SenderFaxStr, const std::string& ReceiverFaxStr,
                         const std::string& PagesStr, const std::string& subjectStr,
                         const std::string& memoStr) {
  editNotification(
      tag<"editFaxNotification">, notificationNum,
      faxEdits(ToStr, FromStr, SenderFaxStr, ReceiverFaxStr, PagesStr, subjectStr, memoStr));
}

void editLetterNotification(Id notificationNum, const std::string& memoStr) {
  editNotification(tag<"editLetterNotification">, notificationNum, letterEdits(memoStr));
}

void editPhoneNotification(Id notificationNum, const std::string& ToStr,
                           const std::string& PhoneNumberStr, const std::string& TimesStr,
                           const std::string& memoStr) {
  editNotification(tag<"editPhoneNotification">, notificationNum,
                   phoneEdits(ToStr, PhoneNumberStr, TimesStr, memoStr));
}

void editApptEmailNotification(std::int32_t, Id notificationNum, const std::string& ToStr,
                               const std::string& CcStr, const std::string& BccStr,
                               const std::string& subjectStr, const std::string& memoStr) {
  editNotification(itemTag<"editApptEmailNotification">, notificationNum,
                   emailEdits(ToStr, CcStr, BccStr, subjectStr, memoStr));
}

void editApptFaxNotification(std::int32_t, Id notificationNum, const std::string& ToStr,
                             const std::string& FromStr, const std::string& SenderFaxStr,
                             const std::string& ReceiverFaxStr, const std::string& PagesStr,
                             const std::string& subjectStr, const std::string& memoStr) {
  editNotification(
      itemTag<"editApptFaxNotification">, notificationNum,
      faxEdits(ToStr, FromStr, SenderFaxStr, ReceiverFaxStr, PagesStr, subjectStr, memoStr));
}

void editApptLetterNotification(std::int32_t, Id notificationNum, const std::string& memoStr) {
  editNotification(itemTag<"editApptLetterNotification">, notificationNum, letterEdits(memoStr),
                   textOfNotification);
}

void editApptPhoneNotification(std::int32_t, Id notificationNum, const std::string& ToStr,
                               const std::string& PhoneNumberStr, const std::string& TimesStr,
                               const std::string& memoStr) {
  editNotification(itemTag<"editApptPhoneNotification">, notificationNum,
                   phoneEdits(ToStr, PhoneNumberStr, TimesStr, memoStr));
}

}  // namespace autonotify
