#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/clients/ClientDirectory.h"
#include "host/clients/person_names.h"
#include "host/database/sqlite/SqliteDatabase.h"
#include "platform/PlatformError.h"
#include "support/host_wrappers.h"

namespace autonotify::host {
namespace {

TEST(PersonNamesTest, coupleName) {
  // display, first, last, spouse's first, last and whole name
  const std::tuple<PersonNames, const char*, const char*> cases[] = {
      {{"Jane Smith", "Jane", "Smith", "John", "Smith", ""},
       "Jane & John Smith",
       "Jane Smith & John Smith"},
      {{"", "Jane", "Smith", "John", "", ""}, "Jane & John Smith", "Jane Smith & John Smith"},
      {{"", "Élodie", "Côté", "Luc", "CÔTÉ", ""}, "Élodie & Luc Côté", "Élodie Côté & Luc CÔTÉ"},
      {{"", "Jane", "Smith", "John", "Doe", ""}, "Jane Smith & John Doe", "Jane Smith & John Doe"},
      {{"", "Jane", "Smith", "", "", "John Doe"}, "Jane Smith & John Doe", "Jane Smith & John Doe"},
      {{"J. Smith", "", "", "", "", "John Doe"}, "J. Smith & John Doe", "J. Smith & John Doe"},
      {{"J. Smith", "Jane", "Smith", "", "", ""}, "J. Smith", "J. Smith"},
      {{"", "Jane", "Smith", "", "", ""}, "Jane Smith", "Jane Smith"},
      {{"", "Jane", "", "John", "", ""}, "Jane & John", "Jane & John"},
      {{"", "", "", "", "", ""}, "", ""}};
  for (const auto& [names, shared, full] : cases) {
    EXPECT_EQ(coupleName(names, true), shared);
    EXPECT_EQ(coupleName(names, false), full);
  }
}

class ClientDirectoryTest : public testing::Test {
 protected:
  ClientDirectoryTest() {
    exec(
        "INSERT INTO Companies (CompanyID, CompanyName, CorporateName, ClientIDStr, PartnerName,"
        " AccountantName, OfficeNumber, FaxNumber, Email, DefaultContactName,"
        " DefaultContactPhoneNumber, DefaultContactEmail) VALUES"
        " (10, 'Harbour Cafe', 'Harbour Inc.', 'HC1', 'P. Partner', 'A. Accountant', '555-0100',"
        "  '555-0101', 'cafe@x.example', 'Stored Name', '555-0102', 'stored@x.example'),"
        " (11, '', 'Numbered Ltd.', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL),"
        " (12, 'Hidden', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL);"
        "INSERT INTO ClientData (ClientDataID, CompanyIDNum, ShowThisClient) VALUES"
        " (100, 10, 1), (101, 11, 1), (102, 12, 0);"
        "INSERT INTO Contacts (ContactID, DisplayName, FirstName, LastName, SpouseFirstName,"
        " ClientIDStr, PartnerName, AccountantName, BusinessPhone_Main, HomePhone_Main,"
        " BusinessPhone_Fax, HomePhone_Fax, BusinessEmail, PersonalEmail) VALUES"
        " (20, 'Jane Smith', 'Jane', 'Smith', 'John', 'JS', 'P. Partner', 'A. Accountant',"
        "  '555-0110', '555-0111', '', '555-0112', 'jane@work.example', 'jane@home.example'),"
        " (21, NULL, 'Luc', 'Roy', NULL, NULL, NULL, NULL, NULL, '555-0120', NULL, NULL, '',"
        "  'luc@home.example');"
        "INSERT INTO ContactLinks (ContactIDNum, CompanyNum, DefaultContact) VALUES"
        " (20, 11, 0), (21, 11, 1), (20, 11, 1), (20, 10, 0);"
        "INSERT INTO AccountantFirmInfo (CompanyName, CorporateName) VALUES"
        " (NULL, ''), ('', 'Fisher & Lind');"
        "INSERT INTO AccountantEmployeeInfo (ContactID, DisplayName) VALUES"
        " (5, 'Émile Côté'), (6, 'Ann Lee');"
        "INSERT INTO Categories (CategoryID, CategoryName, CategorySpecialCode) VALUES"
        " (30, 'Business Clients', 2), (31, 'Address Book', 1), (32, 'Other', NULL);");
  }

  void exec(const char* sql) { inner->connection().exec(sql); }

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
  EXPECT_EQ(directory.getUserNameFromID(5), "Émile Côté");
  EXPECT_EQ(directory.getUserIDFromName(" ÉMILE CÔTÉ "), 5);
  for (const char* name : {"", "Ann", "Ann Lee'; --"}) {
    EXPECT_EQ(directory.getUserIDFromName(name), noId) << name;
  }
}

TEST_P(ClientDirectoryModes, givesInfoItems) {
  struct Case {
    std::int16_t item;
    const char* stored;     ///< a company that holds all of them
    const char* ofContact;  ///< a company that holds none, with contact 21 as the default
    const char* contact;    ///< contact 20
  };
  const Case cases[] = {
      {info_item::clientId, "HC1", "", "JS"},
      {info_item::supervisingPartner, "P. Partner", "", "P. Partner"},
      {info_item::managingAccountant, "A. Accountant", "", "A. Accountant"},
      {info_item::phone, "555-0100", "", "555-0110"},
      {info_item::fax, "555-0101", "", "555-0112"},
      {info_item::email, "cafe@x.example", "", "jane@work.example"},
      {info_item::defaultContactName, "Stored Name", "Luc Roy", ""},
      {info_item::defaultContactPhone, "555-0102", "555-0120", ""},
      {info_item::defaultContactEmail, "stored@x.example", "luc@home.example", ""},
      {0, "", "", ""},
      {11, "", "", ""},
  };
  for (const Case& each : cases) {
    EXPECT_EQ(directory.getCompanyInfoItem(10, each.item), each.stored) << each.item;
    EXPECT_EQ(directory.getCompanyInfoItem(11, each.item), each.ofContact) << each.item;
    EXPECT_EQ(directory.getContactInfoItem(20, each.item), each.contact) << each.item;
    EXPECT_EQ(directory.getCompanyInfoItem(-1, each.item), "");
    EXPECT_EQ(directory.getContactInfoItem(99, each.item), "");
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
