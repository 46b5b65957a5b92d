#include <initializer_list>

#include "store/channels/modChannelNotifications.h"
#include "store/column_lookup.h"

namespace autonotify {
namespace {

/// A field of an edit. `clears` lets an empty text through, which otherwise means: leave it.
struct FieldEdit {
  const char* column;
  const std::string& text;
  bool clears = false;
};

void editNotification(const char* tag, Id notificationId, std::initializer_list<FieldEdit> edits) {
  procedure(tag, [&](Step& step) {
    if (!isDatabaseOpen(step)) return;
    withFirstRow(
        step,
        statementFor(
            "SELECT ClientNotification.* FROM ClientNotification WHERE ClientNotificationID=",
            notificationId),
        keysetUpdate, [&](RecordsetHandle handle) {
          writeField(step, handle, "ClientNotificationModifiedStamp", nowText);
          for (const FieldEdit& edit : edits) {
            if (!edit.clears && isEmpty(step, edit.text)) continue;
            writeField(step, handle, edit.column, [&] { return edit.text; });
          }
        });
  });
}

}  // namespace

void editEmailNotification(Id notificationNum, const std::string& ToStr, const std::string& CcStr,
                           const std::string& BccStr, const std::string& subjectStr,
                           const std::string& memoStr) {
  editNotification("Morvane.exe-modChannelNotifications-editEmailNotification", notificationNum,
                   {{"Field1", ToStr},
                    {"Field2", CcStr},
                    {"Field3", BccStr},
                    {"Field4", subjectStr},
                    {"Memo", memoStr}});
}

void editFaxNotification(Id notificationNum, const std::string& ToStr, const std::string& FromStr,
                         const std::string& SenderFaxStr, const std::string& ReceiverFaxStr,
                         const std::string& PagesStr, const std::string& subjectStr,
                         const std::string& memoStr) {
  editNotification("Morvane.exe-modChannelNotifications-editFaxNotification", notificationNum,
                   {{"Field1", ToStr},
                    {"Field2", FromStr},
                    {"Field3", SenderFaxStr},
                    {"Field4", ReceiverFaxStr},
                    {"Field5", PagesStr},
                    {"Field6", subjectStr},
                    {"Memo", memoStr}});
}

void editLetterNotification(Id notificationNum, const std::string& memoStr) {
  editNotification("Morvane.exe-modChannelNotifications-editLetterNotification", notificationNum,
                   {{"Memo", memoStr, true}});
}

void editPhoneNotification(Id notificationNum, const std::string& ToStr,
                           const std::string& PhoneNumberStr, const std::string& TimesStr,
                           const std::string& memoStr) {
  editNotification(
      "Morvane.exe-modChannelNotifications-editPhoneNotification", notificationNum,
      {{"Field1", ToStr}, {"Field2", PhoneNumberStr}, {"Field3", TimesStr}, {"Memo", memoStr}});
}

}  // namespace autonotify
