#include <gtest/gtest.h>

#include <QUrlQuery>

#include "MailProgramSender.h"
#include "host/mail/addresses.h"

namespace autonotify::desktop {
namespace {

TEST(MailProgram, GetsTheWholeMessageInOneAddress) {
  MailProgramSender sender;
  sender.put_to("Zo\xC3\xAB Roy <zoe@x.example>; b&c@x.example");
  sender.put_bcc("d@x.example");
  sender.put_subject("Fees & \xC3\xA9t\xC3\xA9?\r\nBcc: evil@x.example");
  sender.put_body("One #1 = 100%\nTwo");
  const QUrl url = sender.address();
  ASSERT_TRUE(url.isValid());
  EXPECT_EQ(url.toEncoded(QUrl::RemoveQuery), "mailto:zoe@x.example,b%26c@x.example");
  const QUrlQuery query(url);
  const auto item = [&](const char* name) {
    return query.queryItemValue(name, QUrl::FullyDecoded).toStdString();
  };
  EXPECT_EQ(query.queryItems().size(), 3);
  EXPECT_EQ(item("bcc"), "d@x.example");
  EXPECT_EQ(item("subject"), "Fees & \xC3\xA9t\xC3\xA9? Bcc: evil@x.example");
  EXPECT_EQ(item("body"), "One #1 = 100%\r\nTwo");

  sender.put_to("nobody");
  EXPECT_THROW(sender.address(), host::MailError);
  EXPECT_FALSE(sender.send());
  EXPECT_FALSE(sender.getLastError().empty());
}

}  // namespace
}  // namespace autonotify::desktop
