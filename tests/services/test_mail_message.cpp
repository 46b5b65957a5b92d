#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "host/mail/mail_message.h"
#include "services/received_mail.h"

namespace autonotify::host {

void PrintTo(const Mailbox& mailbox, std::ostream* out) {
  *out << mailbox.name << " <" << mailbox.address << ">";
}

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
  using Texts = std::vector<std::string>;
  EXPECT_EQ(mail.from, Texts{"Forêt & Fils, \"CPA\" <office@firm.example>"});
  EXPECT_EQ(mail.to, (Texts{"Jane Smith <jane@client.example>", "john@client.example"}));
  EXPECT_EQ(mail.cc, Texts{"Łukasz Żak <lukasz@client.example>"});
  EXPECT_EQ(mail.bcc, Texts{"file@firm.example"});
  EXPECT_EQ((Texts{mail.subject, mail.messageId, mail.date, mail.contentType, mail.body}),
            (Texts{message.subject, "abc@firm.example", "2026-04-30 14:05:07",
                   "text/plain; charset=utf-8", "Dear Jane,\n\nPlease call us.\n"}));
}

TEST(MailMessageTest, bodiesArriveCleanedOfWhatNoMailMayHold) {
  const std::string longLine = std::string(5000, 'x') + " \nafter\t\n";
  const std::pair<std::string, std::string> cases[] = {
      {"", ""},
      {"one line without an end", "one line without an end\n"},
      {"From the firm\n.\n..two dots\nFrom me\n", "From the firm\n.\n..two dots\nFrom me\n"},
      {"Subject: « échéance » 日本\n\n=: y\n", "Subject: « échéance » 日本\n\n=: y\n"},
      {longLine, longLine},
      {std::string("a\0b\x01\x7F!", 6), "ab!\n"},
      {"bad \xFF byte", "bad \xEF\xBF\xBD byte\n"},
      {"mac\rdos\r\nunix\n", "mac\ndos\nunix\n"}};
  for (const auto& [given, arrived] : cases) {
    MailMessage message = letter();
    message.body = given;
    const std::string text = messageText(message);
    expectSound(text);
    EXPECT_EQ(readMail(text).body, arrived);
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
    EXPECT_EQ(mail.subject, cleanLine(message.subject));
    EXPECT_EQ(mail.subject.find_first_of("\r\n"), std::string::npos);
    EXPECT_EQ(mail.body, "Dear Jane,\n\nPlease call us.\n");
  }
}

TEST(MailMessageTest, longAndForeignFieldsComeThrough) {
  std::string french;
  for (int i = 0; i < 60; ++i) french += "échéance à payer ";
  for (const std::string& subject : {std::string(), std::string(300, 'x'), french + "fin",
                                     std::string("Rappel : « T1 » — 日本 😀")}) {
    MailMessage message = letter();
    message.subject = subject;
    message.to.assign(subject.size(), {"Client Émile", "client@x.example"});
    const std::string text = messageText(message);
    expectSound(text);
    EXPECT_EQ(readMail(text).subject, subject);
    EXPECT_EQ(readMail(text).to,
              std::vector<std::string>(subject.size(), "Client Émile <client@x.example>"));
  }
}

TEST(AddressesTest, readsWhatStaffWriteIntoTheField) {
  const std::pair<const char*, std::vector<Mailbox>> cases[] = {
      {" ; , ;\r\n", {}},
      {"a@x.example; b@x.example,c@x.example;",
       {{"", "a@x.example"}, {"", "b@x.example"}, {"", "c@x.example"}}},
      {"Jane Smith <jane@client.example>", {{"Jane Smith", "jane@client.example"}}},
      {"\"Smith, Jane; CPA\" <jane@client.example>; b@x.example",
       {{"Smith, Jane; CPA", "jane@client.example"}, {"", "b@x.example"}}},
      {"\"a>b\" <a@x.example>", {{"a>b", "a@x.example"}}},
      {"\"The \\\"A\\\" Team\" <a@x.example>", {{"The \"A\" Team", "a@x.example"}}},
      {"Élodie Côté <elodie@client.example>", {{"Élodie Côté", "elodie@client.example"}}},
      {"o'brien+tax@sub.client.example", {{"", "o'brien+tax@sub.client.example"}}},
      {"jane@bücher.example", {{"", "jane@xn--bcher-kva.example"}}},
      {"=?utf-8?Q?Zo=C3=AB?= (CPA) < z@x.example >", {{"Zoë (CPA)", "z@x.example"}}},
      {"Jane <\"a;\\\" <b>@c\"@x.example>", {{"Jane", "\"a;\\\" <b>@c\"@x.example"}}},
      {"a@[192.0.2.1], a@[IPv6:2001:db8::1]",
       {{"", "a@[192.0.2.1]"}, {"", "a@[IPv6:2001:db8::1]"}}},
  };
  for (const auto& [text, mailboxes] : cases) EXPECT_EQ(parseRecipients(text), mailboxes) << text;
}

TEST(AddressesTest, refusesWhatNoServerTakesAndNamesIt) {
  const std::string entries[] = {"jane",
                                 "jane@",
                                 "Jane Smith",
                                 "Jane <>",
                                 "jane@@client.example",
                                 "jane smith@client.example",
                                 "jane@client..example",
                                 ".jane@client.example",
                                 "jane@client example",
                                 "Jane <jane@client.example",
                                 "team: a@x.example",
                                 "undisclosed-recipients:",
                                 "a@x.example b@x.example",
                                 "élodie@client.example",
                                 "613-555-0100 <Home Fax>",
                                 "Bcc: evil@x.example",
                                 "jane@client.example\x01",
                                 "jane\xFF@client.example",
                                 "jane@client.example> <a@x.example>",
                                 "a@x.example<b@x.example>",
                                 "\"Jane\" jane@client.example>",
                                 "<a@x.example>\"",
                                 "jane@client.example (work",
                                 "<a@x.example> x>",
                                 "jane@client.example (work)",
                                 "Jane <@y.example:jane@client.example>",
                                 "=?utf-8?Q?a=0D=0ABcc?= <a@x.example>",
                                 "\"é\"@x.example",
                                 "\"a\"b\"@x.example",
                                 "a@[12c7.0.0.1]",
                                 "a@[2001:db8::1]",
                                 "a@x℀.example",
                                 "a@x bü",
                                 "\"a\x01\"@x.example",
                                 "J\xE9 Roy <a@x.example>",
                                 "a@" + std::string(253, 'x'),
                                 std::string(65, 'a') + "@x.example"};
  for (const std::string& entry : entries) {
    try {
      const auto mailboxes = parseRecipients("good@x.example; " + entry);
      ADD_FAILURE() << entry << " was taken as " << testing::PrintToString(mailboxes);
    } catch (const MailError& error) {
      EXPECT_EQ(error.what(), "\"" + entry + "\" is not a valid email address.");
    }
  }
}

}  // namespace
}  // namespace autonotify::host
