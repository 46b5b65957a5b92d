#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "host/mail/mail_message.h"
#include "services/received_mail.h"

namespace autonotify::host {
namespace {

using test::readMail;
using test::ReceivedMail;

MailMessage letter() {
  return {.from = {"Harbour & Pine LLP", "office@firm.example"},
          .to = {{"", "jane@client.example"}},
          .cc = {},
          .bcc = {},
          .subject = "Your T4 Summary is due on Thursday, April 30 2026",
          .body = "Dear Jane,\r\n\r\nPlease call us.\r\n",
          .date = DateTime::of(2026, 4, 30, 14, 5, 7),
          .messageId = "abc@firm.example"};
}

/// What every message must keep to, whatever is put into it.
void expectSound(const std::string& text) {
  EXPECT_TRUE(std::ranges::all_of(text, [](char byte) {
    return byte == '\r' || byte == '\n' || byte == '\t' || (byte >= ' ' && byte < 0x7F);
  }));
  std::size_t start = 0;
  for (std::size_t end = text.find('\n'); end != text.npos; end = text.find('\n', start)) {
    ASSERT_GT(end, start);
    EXPECT_EQ(text[end - 1], '\r') << text.substr(start, end - start);
    EXPECT_LE(end - 1 - start, 998u);
    start = end + 1;
  }
  EXPECT_EQ(start, text.size());
  EXPECT_EQ(std::ranges::count(text, '\r'), std::ranges::count(text, '\n'));
}

TEST(MailMessageTest, aMailProgramReadsEveryPartBack) {
  MailMessage message = letter();
  message.from.name = "Forêt & Fils, \"CPA\"";
  message.to = {{"Jane Smith", "jane@client.example"}, {"", "john@client.example"}};
  message.cc = {{"Łukasz Żak", "lukasz@client.example"}};
  message.bcc = {{"", "file@firm.example"}};
  const std::string text = messageText(message);
  expectSound(text);
  const ReceivedMail mail = readMail(text);
  EXPECT_EQ(mail.from, std::vector<std::string>{"Forêt & Fils, \"CPA\" <office@firm.example>"});
  EXPECT_EQ(mail.to,
            (std::vector<std::string>{"Jane Smith <jane@client.example>", "john@client.example"}));
  EXPECT_EQ(mail.cc, std::vector<std::string>{"Łukasz Żak <lukasz@client.example>"});
  EXPECT_EQ(mail.bcc, std::vector<std::string>{"file@firm.example"});
  EXPECT_EQ(mail.subject, message.subject);
  EXPECT_EQ(mail.messageId, "abc@firm.example");
  EXPECT_EQ(mail.date, "2026-04-30 14:05:07");
  EXPECT_EQ(mail.contentType, "text/plain; charset=utf-8");
  EXPECT_EQ(mail.body, "Dear Jane,\n\nPlease call us.\n");
}

TEST(MailMessageTest, bodiesArriveAsTheyWereWritten) {
  const std::string longLine(5000, 'x');
  const std::string bodies[] = {
      "",
      "one line without an end",
      "From the firm\n.\n..two dots\nFrom me",
      "Bonjour Élodie, « échéance » le 30 avril — à bientôt\n",
      "日本語のテキスト\n" + std::string(300, '=') + "\n",
      longLine + "\nafter\n",
      "trailing blanks  \nand tab\t\nend",
      "Subject: no header\n\nX: y\n",
  };
  for (const std::string& body : bodies) {
    MailMessage message = letter();
    message.body = body;
    const std::string text = messageText(message);
    expectSound(text);
    EXPECT_EQ(readMail(text).body, body.empty() || body.ends_with('\n') ? body : body + '\n');
  }
}

TEST(MailMessageTest, bodiesAreCleanedOfWhatNoMailMayHold) {
  struct Case {
    std::string given;
    std::string body;
  };
  const Case cases[] = {{std::string("a\0b\x01\x7F"
                                     "c",
                                     6),
                         "abc\n"},
                        {"bad \xFF byte", "bad \xEF\xBF\xBD byte\n"},
                        {"mac\rdos\r\nunix\n", "mac\ndos\nunix\n"}};
  for (const Case& each : cases) {
    MailMessage message = letter();
    message.body = each.given;
    const std::string text = messageText(message);
    expectSound(text);
    EXPECT_EQ(readMail(text).body, each.body);
  }
}

TEST(MailMessageTest, aLineBreakInAFieldAddsNoHeader) {
  const std::vector<std::string> headers = readMail(messageText(letter())).headers;
  for (const std::string breaking : {"\r\n", "\n", "\r", "\r\n\r\n", "\n \n"}) {
    MailMessage message = letter();
    message.subject = "Due" + breaking + "Bcc: evil@x.example" + breaking + breaking + "<b>body";
    message.from.name = cleanLine("Firm" + breaking + "X-Evil: 1");
    const std::string text = messageText(message);
    expectSound(text);
    const ReceivedMail mail = readMail(text);
    EXPECT_EQ(mail.headers, headers);
    EXPECT_TRUE(mail.bcc.empty());
    EXPECT_EQ(mail.body, "Dear Jane,\n\nPlease call us.\n");
    EXPECT_EQ(mail.subject.substr(0, 3), "Due");
  }
}

TEST(MailMessageTest, longAndForeignSubjectsComeThrough) {
  std::string longFrench;
  for (int i = 0; i < 60; ++i) longFrench += "échéance à payer ";
  for (const std::string& subject : {std::string(), std::string(300, 'x'), longFrench + "fin",
                                     std::string("Rappel : « T1 » — 日本 😀")}) {
    MailMessage message = letter();
    message.subject = subject;
    const std::string text = messageText(message);
    expectSound(text);
    EXPECT_EQ(readMail(text).subject, subject);
  }
}

TEST(MailMessageTest, fiveThousandRecipientsFold) {
  MailMessage message = letter();
  message.to.clear();
  for (int i = 0; i < 5000; ++i) {
    message.to.push_back(
        {"Client Émile " + std::to_string(i), "client" + std::to_string(i) + "@x.example"});
  }
  const std::string text = messageText(message);
  expectSound(text);
  const ReceivedMail mail = readMail(text);
  ASSERT_EQ(mail.to.size(), 5000u);
  EXPECT_EQ(mail.to[4999], "Client Émile 4999 <client4999@x.example>");
}

}  // namespace
}  // namespace autonotify::host
