#include "contacts/clsClientAddrBkCatTxt.h"
#include "host/services/HostClientIDClass.h"
#include "host/services/HostGridColumnList.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

class CategoryText : public HostTest {
 protected:
  std::string textOf(Id company, bool showMain = false) {
    clsClientAddrBkCatTxt text;
    text.put_CompanyIDNum(company);
    text.ShowMainAddressBookCategory = showMain;
    text.generateCategoryText();
    const std::string first = text.CategoryText;
    text.generateCategoryText();
    EXPECT_EQ(text.CategoryText, first) << "made anew each time";
    return first;
  }
  Id addCategory(const char* name, Id parent, int code = 0) {
    return addRow("Categories",
                  {{"CategoryName", name}, {"CategoryNum", parent}, {"CategorySpecialCode", code}});
  }
};

TEST_F(CategoryText, GoesUpFromTheCompany) {
  const Id main = addCategory("Main", noId, 1);
  const Id top = addCategory("Clients", main);
  const Id own = addCategory("Retail", top);
  const Id parent = addRow("Companies", {{"CompanyName", "Holding"}});
  const Id company =
      addRow("Companies", {{"CompanyName", "Acme"}, {"CategoryNum", own}, {"CompanyNum", parent}});
  const Id child = addRow("Companies", {{"CompanyName", "Sub"}, {"CompanyNum", parent}});
  const std::string lines = "    Retail\r\n        Holding\r\n            Clients\r\n";
  EXPECT_EQ(textOf(company), lines);
  EXPECT_EQ(textOf(company, true), lines + "                Main\r\n");
  EXPECT_EQ(textOf(child), "    Holding\r\n");
  const auto textIn = [&](Id category, Id parentCompany) {
    return textOf(addRow("Companies", {{"CategoryNum", category}, {"CompanyNum", parentCompany}}));
  };
  ASSERT_EQ(child, own);
  EXPECT_EQ(textIn(noId, child), "    Sub\r\n") << "the id is no category's";
  EXPECT_EQ(textIn(main, parent), "    Holding\r\n") << "a line left out takes no blanks";
  plainDatabase->connection().exec(
      "INSERT INTO Categories (CategoryID, CategoryName, CategoryNum) VALUES (0, 'Zero', 2)");
  EXPECT_EQ(textIn(0, noId), "    Zero\r\n        Clients\r\n");
  EXPECT_EQ(textIn(addCategory("Low", 0), noId), "    Low\r\n        Zero\r\n") << "ends at 0";
  EXPECT_EQ(textOf(parent), "");
  EXPECT_EQ(textOf(noId), "");

  clsClientAddrBkCatTxt ofContact;
  ofContact.put_ContactIDNum(addRow("Contacts", {{"DisplayName", "Jo"}}));
  ofContact.generateCategoryText();
  EXPECT_EQ(ofContact.CategoryText, "");
  EXPECT_EQ(ofContact.get_ContactIDNum(), 1);
}

TEST_F(CategoryText, EndsAfterAHundredRounds) {
  const auto lineCount = [&](Id category) {
    const std::string text = textOf(addRow("Companies", {{"CategoryNum", category}}));
    return std::ranges::count(text, '\n');
  };
  Id category = noId;
  for (int i = 0; i < 150; ++i) category = addCategory("C", category);
  EXPECT_EQ(lineCount(category), 101);
  EXPECT_EQ(lineCount(40), 40);
  const Id loop = addCategory("Loop", 0);
  plainDatabase->connection().exec(
      "UPDATE Categories SET CategoryNum=CategoryID WHERE CategoryName='Loop'");
  EXPECT_EQ(lineCount(loop), 101);
}

/// Writes down its end.
template <class HostClass>
struct Mortal : HostClass {
  explicit Mortal(std::string& log) : log_(log) {}
  ~Mortal() override { log_ += std::string(" ") + HostClass::className; }
  std::string& log_;
};
struct StubbornClient : Mortal<host::HostClientIDClass> {
  using Mortal::Mortal;
  void Terminate() override { throw PlatformError(1000, "no"); }
};

TEST_F(CategoryText, ReleasesTheClientBeforeTheChain) {
  std::string ends;
  registry.registerClass("ClientIDClass", [&] { return std::make_unique<StubbornClient>(ends); });
  registry.registerClass("GridColumnList",
                         [&] { return std::make_unique<Mortal<host::HostGridColumnList>>(ends); });
  for (const int choice : {error_choice::next, error_choice::leave}) {
    ends.clear();
    errors.answer({choice});
    { const clsClientAddrBkCatTxt text; }
    EXPECT_EQ(ends, " ClientIDClass GridColumnList");
  }
}

}  // namespace
}  // namespace autonotify::test
