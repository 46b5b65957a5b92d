#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/mail/addresses.h"

namespace autonotify::host {

void PrintTo(const Mailbox& mailbox, std::ostream* out) {
  *out << mailbox.name << " <" << mailbox.address << ">";
}

namespace {

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
  };
  for (const auto& [text, mailboxes] : cases) EXPECT_EQ(parseRecipients(text), mailboxes) << text;
}

void expectRefused(const std::vector<std::string>& entries) {
  for (const std::string& entry : entries) {
    try {
      const auto mailboxes = parseRecipients("good@x.example; " + entry);
      ADD_FAILURE() << entry << " was taken as " << testing::PrintToString(mailboxes);
    } catch (const MailError& error) {
      EXPECT_EQ(error.what(), "\"" + entry + "\" is not a valid email address.");
    }
  }
}

TEST(AddressesTest, refusesWhatNoServerTakesAndNamesIt) {
  expectRefused({"jane", "jane@", "Jane Smith", "Jane <>"});
  expectRefused({"jane@@client.example", "jane smith@client.example", "jane@client..example",
                 ".jane@client.example", "jane@client example", "Jane <jane@client.example",
                 "team: a@x.example", "undisclosed-recipients:", "a@x.example b@x.example",
                 "élodie@client.example", "613-555-0100 <Home Fax>", "Bcc: evil@x.example",
                 "jane@client.example\x01", "jane\xFF@client.example"});
  expectRefused({"jane@client.example> <a@x.example>"});
  const std::string longLocal(65, 'a');
  EXPECT_THROW(parseRecipients(longLocal + "@x.example"), MailError);
}

}  // namespace
}  // namespace autonotify::host
