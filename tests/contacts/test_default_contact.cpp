#include "contacts/modContactSummaries.h"
#include "contacts/modDefaultContact.h"
#include "platform/rich_text.h"
#include "support/HostTest.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

class DefaultContact : public HostTest {
 protected:
  static constexpr Id company = 1, al = 1, jo = 2;

  DefaultContact() { addAllTold(*this, "address_book.txt", "default contact"); }

  std::string defaults() {
    return dump(
        "SELECT DISTINCT ContactIDNum FROM ContactLinks WHERE DefaultContact<>0 ORDER BY 1");
  }
  std::string told() {
    return dump(
        "SELECT DefaultContactName, DefaultContactPhoneNumber, DefaultContactFaxNumber, "
        "DefaultContactEmail FROM Companies");
  }
  std::string summary() {
    return plainTextOf(toText(valueOf("CompaniesNotes", "ContactNotes", "CompanyNum=1")));
  }
};

TEST_F(DefaultContact, ExactlyOneIsLeft) {
  EXPECT_EQ(checkForDefaultContact(company, noId), noId);
  linkDefaultContact(al, company);
  linkDefaultContact(jo, company);
  EXPECT_EQ(checkForDefaultContact(company, noId), al);
  EXPECT_EQ(checkForDefaultContact(company, al), jo);
  EXPECT_FALSE(setContactAsDefault(company, 99));
  EXPECT_EQ(defaults(), "1|\n2|\n");
  EXPECT_TRUE(setContactAsDefault(company, jo));
  EXPECT_EQ(defaults(), "2|\n");
  EXPECT_EQ(told(), "Zoë|3||zoe@x|\n");
  setNoContactAsDefault(company);
  EXPECT_EQ(defaults(), "");
  EXPECT_EQ(told(), "||||\n");
}

TEST_F(DefaultContact, ASkippedCallTakesNobodyAway) {
  linkDefaultContact(al, company);
  calls.reset();
  calls.record(true);
  setContactAsDefault(company, jo);
  const auto whole = calls.log();
  const int total = calls.count();
  for (int n = 1; n <= total; ++n) {
    setContactAsDefault(company, al);
    errors.answerRest(1, 9);
    calls.reset();
    calls.failAt(n);
    setContactAsDefault(company, jo);
    calls.reset();
    errors.answerRest(1, 0);
    EXPECT_NE(defaults(), "") << whole[static_cast<std::size_t>(n - 1)];
  }
}

TEST_F(DefaultContact, SummariesFollowTheDefaultContact) {
  saveCompanyContactRTF(company);
  EXPECT_EQ(summary(), "This company has no default contact.");
  setContactAsDefault(company, jo);
  saveContactBusinessRTFForAllCompanies(jo);
  EXPECT_EQ(summary(), "Zoë\nPhone: 3\nFax: 9");
  saveContactBusinessRTFForAllCompanies(al);
  EXPECT_EQ(summary(), "Zoë\nPhone: 3\nFax: 9") << "not the default contact";
  saveContactBusinessRTF(al, company);
  EXPECT_EQ(summary(), "Al\nFax: 2\nEmail: al@x");
  saveContactBusinessRTF(99, company);
  EXPECT_EQ(summary(), "Al\nFax: 2\nEmail: al@x");
  const Id nameless = addRow("Contacts", {{"DisplayName", ""}});
  addRow("ContactLinks", {{"ContactIDNum", nameless}, {"CompanyNum", company}});
  saveContactBusinessRTF(nameless, company);
  EXPECT_EQ(summary(), "") << "there is such a contact";
}

}  // namespace
}  // namespace autonotify::test
