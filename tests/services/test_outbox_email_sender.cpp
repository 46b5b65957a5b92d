#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <functional>

#include "host/database/sqlite/SqliteDatabase.h"
#include "host/mail/OutboxEmailSender.h"
#include "services/received_mail.h"
#include "support/fixed_clock.h"
#include "support/full_disk.h"
#include "support/temporary_folder.h"
#include "support/text_table.h"

namespace {

bool foldersCannotBeKept = false;
int foldersKept = 0;
std::function<void()> whileWritten;

}  // namespace

/// In place of the C library's: the medium of folders may fail, and others are at work meanwhile.
extern "C" int fsync(int file) {
  if (whileWritten) std::exchange(whileWritten, nullptr)();
  struct stat status {};
  const bool isFolder = ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
  foldersKept += isFolder;
  if (!foldersCannotBeKept || !isFolder) return static_cast<int>(::syscall(SYS_fsync, file));
  errno = EIO;
  return -1;
}

namespace autonotify::host {
namespace {

namespace fs = std::filesystem;
using namespace test;
using Texts = std::vector<std::string>;

class OutboxEmailSenderTest : public testing::Test {
 protected:
  OutboxEmailSender newSender(const std::string& to = "jane@client.example",
                              std::function<std::string(Id)> identityOf = nullptr) {
    const Mailbox firm{"Firm", "office@firm.example"};
    OutboxEmailSender sender({folder.path().string(), firm, std::nullopt, identityOf}, clock);
    sender.put_to(to);
    sender.put_subject("Your T4 Summary is due");
    sender.put_body("Dear Jane,\n");
    return sender;
  }

  std::vector<fs::path> files() {
    std::vector<fs::path> paths;
    for (const auto& entry : fs::directory_iterator(folder.path()))
      if (entry.is_regular_file()) paths.push_back(entry.path());
    return paths;
  }

  ReceivedMail onlyMail() {
    EXPECT_EQ(files().size(), 1u);
    return files().empty() ? ReceivedMail{} : readMail(readFile(files().front()));
  }

  void expectRefused(OutboxEmailSender& sender, const std::string& sentence) {
    EXPECT_FALSE(sender.send());
    EXPECT_NE(sender.getLastError().find(sentence), std::string::npos) << sender.getLastError();
    EXPECT_EQ(sender.getLastError().back(), '.');
    EXPECT_FALSE(sender.alreadyDelivered());
  }

  TemporaryFolder folder;
  FixedClock clock;
};

TEST_F(OutboxEmailSenderTest, putsOneReadableMessageIn) {
  OutboxEmailSender sender = newSender("jane@client.example; John <john@client.example>");
  sender.put_cc("cc@client.example");
  sender.put_bcc("file@firm.example");
  ASSERT_TRUE(sender.send()) << sender.getLastError();
  const ReceivedMail mail = onlyMail();
  EXPECT_EQ(mail.to, (Texts{"jane@client.example", "John <john@client.example>"}));
  EXPECT_EQ(mail.from.at(0) + " " + mail.cc.at(0) + " " + mail.bcc.at(0),
            "Firm <office@firm.example> cc@client.example file@firm.example");
  EXPECT_EQ(mail.subject + " " + mail.date + " " + mail.body,
            "Your T4 Summary is due 2026-04-15 09:30:00 Dear Jane,\n");
  EXPECT_EQ(files().front().filename(),
            mail.messageId.substr(0, mail.messageId.find('@')) + ".eml");
  EXPECT_EQ(fs::status(files().front()).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(OutboxEmailSenderTest, oneIdentityMakesOneMessageAlsoOnceItWasSent) {
  for (int round = 0; round < 3; ++round) {
    OutboxEmailSender sender = newSender();
    sender.setIdentity("firm-1/17");
    sender.put_body("version " + std::to_string(round));
    clock.set(clock.now().addDays(round));
    ASSERT_TRUE(sender.send()) << sender.getLastError();
    EXPECT_EQ(sender.alreadyDelivered(), round > 0);
    if (round == 2) break;
    EXPECT_EQ(onlyMail().body, "version 0\n");
    fs::create_directory(folder / "sent");
    if (round == 1) {
      const fs::path sent = files().front();
      fs::rename(sent, folder.path() / "sent" / sent.filename());
    }
  }
  EXPECT_TRUE(files().empty());
  OutboxEmailSender other = newSender();
  other.setIdentity("firm-1/18");
  ASSERT_TRUE(other.send());
  EXPECT_EQ(files().size(), 1u);
}

TEST_F(OutboxEmailSenderTest, SeveralGoInTogetherAndEachIsToldByItself) {
  std::vector<OutboxEmailSender> senders;
  for (const char* identity : {"1", "2", "1", "4", "5"}) {
    senders.push_back(newSender(senders.size() == 3 ? "nobody" : "jane@client.example"));
    senders.back().setIdentity(identity);
  }
  std::vector<OutboxEmailSender*> all;
  all.reserve(senders.size());
  for (OutboxEmailSender& each : senders) all.push_back(&each);
  ASSERT_TRUE(senders[1].send());
  const auto told = [&] {
    std::string words;
    foldersKept = 0;
    OutboxEmailSender::sendAll(all);
    for (OutboxEmailSender& each : senders)
      words += !each.getLastError().empty() ? "failed "
               : each.alreadyDelivered()    ? "found "
                                            : "new ";
    return words + std::to_string(foldersKept) + " " + std::to_string(files().size());
  };
  foldersCannotBeKept = true;
  EXPECT_EQ(told(), "failed found failed failed failed 1 1");
  EXPECT_NE(senders[4].getLastError().find("may not be kept"), std::string::npos);
  foldersCannotBeKept = false;
  EXPECT_EQ(told(), "new found found failed new 1 3");
  EXPECT_EQ(told(), "found found found failed found 0 3");
  fs::remove_all(folder.path());
  OutboxEmailSender::sendAll(all);
  for (OutboxEmailSender& each : senders) EXPECT_NE(each.getLastError(), "");
  fs::create_directory(folder.path());
}

TEST_F(OutboxEmailSenderTest, anothersMessageThatComesMeanwhileStaysTheOnlyOne) {
  OutboxEmailSender sender = newSender();
  ASSERT_TRUE(sender.send());
  const fs::path file = files().front();
  for (const char* place : {"sent", "sending"}) {
    const fs::path other = folder.path() / place / file.filename();
    fs::create_directory(other.parent_path());
    fs::remove(file);
    whileWritten = [&] { writeFile(other, "theirs"); };
    const bool isSent = sender.send();
    EXPECT_EQ(std::pair(isSent, !isSent),
              std::pair(place == std::string("sent"), sender.isUncertain()))
        << sender.getLastError();
    EXPECT_TRUE(sender.alreadyDelivered() == isSent && files().empty());
    fs::remove(other);
  }
}

TEST_F(OutboxEmailSenderTest, aMessageHasTheIdentityOfTheRowThatHoldsItsWordsOrIsOneOfItsOwn) {
  const auto database = createSqliteInMemory();
  database->connection().exec(readFile(AUTONOTIFY_TEST_FOLDER "emails_of_rows.sql"));
  const auto identityOf = [](Id row) { return "firm-1/" + std::to_string(row); };
  const auto newWords = [&] {
    OutboxEmailSender sender = newSender("jane@client.example", identityOf);
    sender.put_DatabaseReference(database.get());
    sender.put_body("Dear Jane,\r\n");
    return sender;
  };
  OutboxEmailSender named = newWords();
  named.setIdentity("named by the host");
  ASSERT_TRUE(named.send()) << named.getLastError();
  std::string delivered;
  for (int sent = 1; sent <= 3; ++sent) {
    for (OutboxEmailSender sender : {newWords(), newWords()})
      ASSERT_TRUE(sender.send() && sender.send()) << sender.getLastError();
    for (int row = 1; row <= 5; ++row) {
      OutboxEmailSender known = newSender();
      known.setIdentity(identityOf(row));
      delivered += known.isDelivered() ? std::to_string(row) : "";
    }
    delivered += " " + std::to_string(files().size()) + "; ";
    database->connection().exec(
        "UPDATE ClientNotification SET NotificationSent=1 WHERE ClientNotificationID=" +
        std::to_string(sent));
  }
  EXPECT_EQ(delivered, "1 2; 12 3; 12 5; ") << "the third has no row: each sender's is another";
}

TEST_F(OutboxEmailSenderTest, refusesMessagesThatCannotGo) {
  for (const auto& row : rowsOf("mail_texts.txt", "messages that cannot go", 3)) {
    OutboxEmailSender sender = newSender(row[0]);
    sender.put_cc(row[1]);
    expectRefused(sender, row[2]);
  }
  OutboxEmailSender wordless = newSender();
  wordless.put_body(" \r\n");
  expectRefused(wordless, "The message has no text.");
  EXPECT_EQ(folder.fileCount(), 0u);
}

TEST_F(OutboxEmailSenderTest, theFirmsRecordTellsWhoWrites) {
  const auto database = createSqliteInMemory();
  OutboxEmailSender sender({folder.path().string(), {}}, clock);
  sender.put_to("jane@client.example");
  sender.put_body("Dear Jane,");
  sender.put_DatabaseReference(database.get());
  expectRefused(sender, "The firm has no email address to send from.");
  database->connection().exec(
      "INSERT INTO AccountantFirmInfo (CompanyName, Email) VALUES ('Harbour & Pine', 'a b');");
  expectRefused(sender, "\"a b\" is not a valid email address.");
  database->connection().exec("UPDATE AccountantFirmInfo SET Email='office@pine.example';");
  ASSERT_TRUE(sender.send()) << sender.getLastError();
  EXPECT_EQ(onlyMail().from, Texts{"Harbour & Pine <office@pine.example>"});
  database->connection().exec("DROP TABLE AccountantFirmInfo;");
  EXPECT_FALSE(sender.send());
  EXPECT_TRUE(sender.getLastError().starts_with("The firm's database cannot be read: "));
}

TEST_F(OutboxEmailSenderTest, aLinkInTheWayIsNotWrittenThrough) {
  OutboxEmailSender sender = newSender();
  ASSERT_TRUE(sender.send());
  const fs::path file = files().front();
  for (const char* target : {"victim", "nowhere"}) {
    fs::remove(file);
    writeFile(folder / "victim", "untouched");
    fs::create_symlink(folder / target, file);
    expectRefused(sender, "is in its way");
    EXPECT_EQ(readFile(folder / "victim"), "untouched");
    EXPECT_FALSE(fs::exists(folder / "nowhere"));
  }
  fs::remove(file);
  fs::remove(folder / "victim");
  writeFile(file, "");
  expectRefused(sender, "is in its way");
}

TEST_F(OutboxEmailSenderTest, aDiskThatFillsLeavesNothingBehind) {
  OutboxEmailSender sender = newSender();
  sender.put_body(std::string(100000, 'x'));
  const bool sent = [&] {
    const FullDisk full;
    return sender.send();
  }();
  EXPECT_FALSE(sent);
  EXPECT_NE(sender.getLastError().find("cannot be written into the outbox folder"),
            std::string::npos);
  EXPECT_EQ(folder.fileCount(), 0u);
  EXPECT_TRUE(sender.send());
}

TEST_F(OutboxEmailSenderTest, aMessageThatMayNotLastIsNotLeftToPassForOneThatDoes) {
  OutboxEmailSender sender = newSender();
  sender.setIdentity("firm-1/17");
  foldersCannotBeKept = true;
  for (int round = 0; round < 2; ++round) {
    expectRefused(sender, "The message may not be kept in the outbox folder");
    EXPECT_EQ(folder.fileCount(), 0u);
    EXPECT_FALSE(sender.isDelivered());
  }
  foldersCannotBeKept = false;
  EXPECT_TRUE(sender.send());
  EXPECT_FALSE(sender.alreadyDelivered());
}

}  // namespace
}  // namespace autonotify::host
