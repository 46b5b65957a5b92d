#include "host/mail/notification_of_email.h"

#include "contract/enumerations.h"
#include "host/clients/record_rows.h"
#include "platform/controls/RichTextBox.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

struct WordsColumn {
  const char* column;
  std::string EmailWords::*text;
};
constexpr WordsColumn columns[] = {
    {"Field1", &EmailWords::to},
    {"Field2", &EmailWords::cc},
    {"Field3", &EmailWords::bcc},
    {"Field4", &EmailWords::subject},
};

std::string rowsOf(DatabaseReference& database, const EmailWords& words) {
  std::string sql =
      "SELECT ClientNotification.ClientNotificationID, ClientNotification.Memo FROM "
      "ClientNotification WHERE NotificationSent=False AND NotificationType=" +
      std::to_string(nt_Email);
  for (const auto& [column, text] : columns)
    if (!(words.*text).empty())
      sql += std::string(" AND ") + column + "='" + database.formatTextForSQL(words.*text) + "'";
  return sql + " ORDER BY ClientNotificationModifiedStamp DESC, ClientNotificationID DESC;";
}

/// The same text is kept with either line end.
std::string plainLines(const std::string& text) {
  return replaceAll(text, "\r\n", "\n");
}

/// What a composer sends for this text of a row.
std::string bodyOf(const std::string& memo) {
  RichTextBox box;
  box.setTextRTF(memo);
  return plainLines(box.text());
}

}  // namespace

std::optional<EmailRow> notificationOf(DatabaseReference& database, const EmailWords& words) {
  const std::string body = plainLines(words.body);
  for (OpenRows rows(database, rowsOf(database, words)); !rows.isAtEnd(); rows.moveNext()) {
    const EmailRow row{rows.row().id("ClientNotificationID"), rows.row().text("Memo")};
    if (bodyOf(row.memo) == body) return row;
  }
  return std::nullopt;
}

}  // namespace autonotify::host
