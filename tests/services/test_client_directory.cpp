#include <gmock/gmock.h>

#include "host/clients/ClientDirectory.h"
#include "host/clients/person_names.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "support/host_wrappers.h"
#include "support/temporary_folder.h"
#include "support/text_table.h"

namespace autonotify::host {
namespace {

TEST(PersonNamesTest, coupleName) {
  // display, first, last, spouse's first, last and whole name; with one last name, with both
  for (const auto& row : test::rowsOf("client_texts.txt", "couples", 8)) {
    const PersonNames names{row[0], row[1], row[2], row[3], row[4], row[5]};
    EXPECT_EQ(coupleName(names, true), row[6]);
    EXPECT_EQ(coupleName(names, false), row[7]);
  }
}

class ClientDirectoryTest : public testing::Test {
 protected:
  ClientDirectoryTest() { exec(test::readFile(AUTONOTIFY_TEST_FOLDER "clients.sql")); }

  void exec(const std::string& sql) { inner->connection().exec(sql); }

  std::unique_ptr<SqliteDatabase> inner = createSqliteInMemory();
  test::HostCalls calls;
  test::CountedDatabase database{*inner, calls};
  ClientDirectory directory{database};
};

/// Every rule holds alike for single lookups and in a batch.
class ClientDirectoryModes : public ClientDirectoryTest, public testing::WithParamInterface<bool> {
 protected:
  ClientDirectoryModes() { directory.setClientLookupBatch(GetParam()); }
};

TEST_P(ClientDirectoryModes, knowsAndNamesWhoIsAClient) {
  for (const Id id : {10, 11}) EXPECT_TRUE(directory.isCompanyClient(id)) << id;
  for (const Id id : {12, 13, 100, 0, -1}) EXPECT_FALSE(directory.isCompanyClient(id)) << id;
  for (const Id id : {20, 21}) EXPECT_TRUE(directory.isContactClient(id)) << id;
  for (const Id id : {22, 10, 0, -1}) EXPECT_FALSE(directory.isContactClient(id)) << id;
  EXPECT_EQ(directory.getCompanyIDFromClientID(101), 11);
  EXPECT_EQ(directory.getCompanyIDFromClientID(11), noId);
  EXPECT_EQ(directory.getClientDataIDFromCompanyID(12), 102);
  EXPECT_EQ(directory.getDefaultContactID(11), 21) << "the first link of two";
  EXPECT_EQ(directory.getDefaultContactID(10), noId);
  EXPECT_EQ(directory.getMainAddressBookCategoryID(), 31);
  EXPECT_EQ(directory.getCompanyDisplayName(11), "Numbered Ltd.");
  EXPECT_EQ(directory.getCompanyNameFromClientID(100), "Harbour Cafe");
  EXPECT_EQ(directory.getCompanyNameFromClientID(99), "");
  EXPECT_EQ(directory.getCompanyNameFromClientID(clientDataOfFirm), "Fisher & Lind");
  EXPECT_EQ(directory.getContactDisplayName(21), "Luc Roy");
  EXPECT_EQ(directory.getContactAndSpouseName(20, true, 2), "Jane & John Smith");
  EXPECT_EQ(directory.getContactAndSpouseName(20, true, 1), "Jane Smith & John Smith");
  EXPECT_EQ(directory.getContactAndSpouseName(20, false, 2), "Jane Smith");
  EXPECT_EQ(directory.getCategoryName(30), "Business Clients");
  using testing::ElementsAre;
  EXPECT_THAT(directory.getClientNames(),
              ElementsAre("Harbour Cafe", "Jane Smith", "Luc Roy", "Numbered Ltd."));
  EXPECT_THAT(directory.getEmployeeNames(), ElementsAre("Ann Lee", "Émile Côté"));
  using Client = ListedClient;
  EXPECT_EQ(directory.getClientFromName(" numbered LTD."), (Client{enumAutoNotifyCompany, 11}));
  EXPECT_EQ(directory.getClientFromName("Luc Roy"), (Client{enumAutoNotifyContact, 21}));
  for (const char* name : {"Hidden", "", " "})
    EXPECT_EQ(directory.getClientFromName(name), Client{});
  EXPECT_EQ(directory.getUserNameFromID(5), "Émile Côté");
  EXPECT_EQ(directory.getUserIDFromName(" ÉMILE CÔTÉ "), 5);
  for (const char* name : {"", "Ann", "Ann Lee'; --"})
    EXPECT_EQ(directory.getUserIDFromName(name), noId) << name;
}

TEST_P(ClientDirectoryModes, givesInfoItems) {
  // Of a company that holds all, of one that holds none but a default contact, and of a contact.
  for (const auto& row : test::rowsOf("client_texts.txt", "info items", 5)) {
    const auto item = static_cast<std::int16_t>(std::stoi(row[0]));
    EXPECT_EQ(directory.getCompanyInfoItem(10, item), row[2]) << row[1];
    EXPECT_EQ(directory.getCompanyInfoItem(11, item), row[3]) << row[1];
    EXPECT_EQ(directory.getContactInfoItem(20, item), row[4]) << row[1];
    EXPECT_EQ(directory.getCompanyInfoItem(-1, item), "");
    EXPECT_EQ(directory.getContactInfoItem(99, item), "");
  }
}

INSTANTIATE_TEST_SUITE_P(Lookups, ClientDirectoryModes, testing::Bool(),
                         [](const auto& mode) { return mode.param ? "Batch" : "Single"; });

TEST_F(ClientDirectoryTest, aBatchReadsATableOnceAndDropsItAtItsEnd) {
  directory.setClientLookupBatch(true);
  EXPECT_EQ(directory.getContactDisplayName(20), "Jane Smith");
  const int read = calls.count();
  exec("UPDATE Contacts SET DisplayName='Jane Doe' WHERE ContactID=20;");
  EXPECT_EQ(directory.getContactDisplayName(20), "Jane Smith");
  EXPECT_EQ(directory.getContactDisplayName(99), "");
  EXPECT_EQ(calls.count(), read);
  directory.setClientLookupBatch(true);
  EXPECT_EQ(directory.getContactDisplayName(20), "Jane Doe") << "another batch begins anew";
  exec("UPDATE Contacts SET DisplayName='Jane Roe' WHERE ContactID=20;");
  directory.refresh();
  EXPECT_EQ(directory.getContactDisplayName(20), "Jane Roe");
}

TEST_F(ClientDirectoryTest, aFailureIsPassedOnAndTheNextLookupIsWhole) {
  const auto lookup = [&] {
    return directory.getCompanyInfoItem(11, info_item::defaultContactEmail);
  };
  for (const bool batch : {false, true}) {
    int failed = 0;
    do {
      directory.setClientLookupBatch(batch);
      calls.reset();
      calls.failAt(++failed);
      try {
        EXPECT_EQ(lookup(), "luc@home.example") << "only a failing close may be overlooked";
      } catch (const PlatformError& error) {
        EXPECT_EQ(error.number(), 1000);
      }
    } while (calls.failures() > 0 && lookup() == "luc@home.example");
    EXPECT_EQ(calls.failures(), 0);
    EXPECT_GT(failed, 3);
  }
}

}  // namespace
}  // namespace autonotify::host
