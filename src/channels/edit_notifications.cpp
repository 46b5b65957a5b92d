#include <vector>

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/tags.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modChannelNotifications", name>;
template <FixedText name>
constexpr std::string_view itemTag = procedureTag<"modApptNotifications", name>;

constexpr const char* editedNotification =
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

void editNotification(std::string_view frameTag, Id notificationId, const FieldEdits& edits,
                      const char* statement = notificationById) {
  procedure(frameTag, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    const Rows row(step, statement, notificationId, keysetUpdate);
    if (!row) return;
    row.write("ClientNotificationModifiedStamp", nowText);
    for (const FieldEdit& edit : edits) {
      if (edit.clears || !isEmpty(step, edit.text)) row.write(edit.column, edit.text);
    }
  });
}

FieldEdits editsOf(const EmailTexts& texts) {
  return {{"Field1", texts.to},
          {"Field2", texts.cc},
          {"Field3", texts.bcc},
          {"Field4", texts.subject},
          {"Memo", texts.memo}};
}

FieldEdits editsOf(const FaxTexts& texts) {
  return {{"Field1", texts.to},          {"Field2", texts.from},  {"Field3", texts.senderFax},
          {"Field4", texts.receiverFax}, {"Field5", texts.pages}, {"Field6", texts.subject},
          {"Memo", texts.memo}};
}

FieldEdits editsOf(const PhoneTexts& texts) {
  return {{"Field1", texts.to},
          {"Field2", texts.number},
          {"Field3", texts.times},
          {"Memo", texts.memo}};
}

FieldEdits editsOfLetter(const std::string& memo) {
  return {{"Memo", memo, true}};
}

}  // namespace

void editEmailNotification(Id notificationNum, const EmailTexts& texts) {
  editNotification(tagOf<"editEmailNotification">, notificationNum, editsOf(texts));
}

void editFaxNotification(Id notificationNum, const FaxTexts& texts) {
  editNotification(tagOf<"editFaxNotification">, notificationNum, editsOf(texts));
}

void editLetterNotification(Id notificationNum, const std::string& memo) {
  editNotification(tagOf<"editLetterNotification">, notificationNum, editsOfLetter(memo));
}

void editPhoneNotification(Id notificationNum, const PhoneTexts& texts) {
  editNotification(tagOf<"editPhoneNotification">, notificationNum, editsOf(texts));
}

void editApptEmailNotification(std::int32_t, Id notificationNum, const EmailTexts& texts) {
  editNotification(itemTag<"editApptEmailNotification">, notificationNum, editsOf(texts));
}

void editApptFaxNotification(std::int32_t, Id notificationNum, const FaxTexts& texts) {
  editNotification(itemTag<"editApptFaxNotification">, notificationNum, editsOf(texts));
}

void editApptLetterNotification(std::int32_t, Id notificationNum, const std::string& memo) {
  constexpr std::string_view frameTag = itemTag<"editApptLetterNotification">;
  editNotification(frameTag, notificationNum, editsOfLetter(memo), editedNotification);
}

void editApptPhoneNotification(std::int32_t, Id notificationNum, const PhoneTexts& texts) {
  editNotification(itemTag<"editApptPhoneNotification">, notificationNum, editsOf(texts));
}

}  // namespace autonotify
