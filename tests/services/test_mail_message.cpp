#include "host/mail/html_page.h"
#include "host/mail/mail_message.h"
#include "services/received_mail.h"
#include "support/text_table.h"

namespace autonotify::host {

namespace {

using namespace test;

constexpr const char* file = "mail_texts.txt";

MailMessage letter() {
  return {.from = {"Harbour & Pine LLP", "office@firm.example"},
          .to = {{"", "jane@client.example"}},
          .cc = {},
          .bcc = {},
          .subject = "Your T4 Summary is due on Thursday, April 30 2026",
          .body = "Dear Jane,\r\n\r\nPlease call us.\r\n",
          .page = {},
          .testOf = {},
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
  auto cases = rowsOf(file, "bodies", 2);
  const std::string longLine = std::string(5000, 'x') + " \nafter\t\n";
  cases.push_back({longLine, longLine});
  for (const auto& row : cases) {
    MailMessage message = letter();
    message.body = row[0];
    const std::string text = messageText(message);
    expectSound(text);
    EXPECT_EQ(readMail(text).body, row[1]);
  }
}

TEST(MailMessageTest, aPageStandsBesideTheTextAndSaysTheSame) {
  for (const auto& row : rowsOf(file, "pages", 2)) {
    MailMessage message = letter();
    message.page = pageOf(readRichText(row[0]));
    const std::string text = messageText(message);
    expectSound(text);
    const ReceivedMail mail = readMail(text);
    EXPECT_TRUE(mail.contentType.starts_with("multipart/alternative; boundary="));
    EXPECT_EQ(mail.body, "Dear Jane,\n\nPlease call us.\n");
    const std::size_t start = mail.page.find(">\n<", mail.page.find("<body")) + 2;
    EXPECT_EQ(mail.page.substr(start, mail.page.find("</body>") - start), row[1]);
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
  expectRows(file, "recipients", [](auto& text) {
    std::string all;
    for (const auto& [name, address] : parseRecipients(text))
      all += (all.empty() ? "" : " | ") + name + (name.empty() ? "<" : " <") + address + ">";
    return all;
  });
}

TEST(AddressesTest, refusesWhatNoServerTakesAndNamesIt) {
  for (const auto& row : rowsOf(file, "no recipients", 1)) {
    try {
      parseRecipients("good@x.example; " + row[0]);
      ADD_FAILURE() << row[0] << " was taken";
    } catch (const MailError& error) {
      EXPECT_EQ(error.what(), "\"" + row[0] + "\" is not a valid email address.");
    }
  }
}

}  // namespace
}  // namespace autonotify::host
