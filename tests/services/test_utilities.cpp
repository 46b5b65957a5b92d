#include "host/services/ClassRegistry.h"
#include "host/services/HostClientIDClass.h"
#include "host/services/HostFileUtility.h"
#include "host/services/HostGeneralUtilities.h"
#include "host/services/HostListCleaner.h"
#include "host/services/HostRichTextUtility.h"
#include "host/services/HostValidationUtilities.h"
#include "host/services/HostWorkingFolder.h"
#include "host/services/clocks.h"
#include "host/services/host_errors.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/RichTextBox.h"
#include "support/error_number.h"
#include "support/fixed_clock.h"
#include "support/temporary_folder.h"
#include "support/text_table.h"

namespace autonotify::host {
namespace {

using namespace test;

constexpr const char* serviceTexts = "service_texts.txt";

TEST(GeneralUtilitiesTest, tellsEmptyValuesAndTheKeysOfANumericField) {
  HostGeneralUtilities utilities;
  for (int key : {48, 57, 8, 9, 13, 22}) EXPECT_EQ(utilities.filterKeyPress(key), key);
  for (int key : {47, 58, 32, 45, 46, 97, 0, -1, 0x2460})
    EXPECT_EQ(utilities.filterKeyPress(key), 0) << key;
  EXPECT_TRUE(utilities.isValueEmpty(Value()));
  EXPECT_TRUE(utilities.isValueEmpty(Value("")));
  for (const Value& value : {Value(" "), Value(0), Value(false), Value(0.0), Value(DateTime())}) {
    EXPECT_FALSE(utilities.isValueEmpty(value));
    EXPECT_EQ(utilities.textOrDefault(value, true), value);
  }
  EXPECT_EQ(utilities.textOrDefault(Value(), true), Value(""));
}

TEST(GeneralUtilitiesTest, comboIsFilledAndChosenFromAsPeopleRead) {
  HostGeneralUtilities utilities;
  ComboBox combo;
  combo.addItem("old");
  utilities.fillComboFromList({"a@x.ca", "B@x.ca", "b@x.ca"}, combo, true);
  EXPECT_EQ(combo.listCount(), 3);
  utilities.selectComboText(combo, " b@X.ca ", -1, -1);
  EXPECT_EQ(combo.text(), "B@x.ca");
  utilities.selectComboText(combo, "c@x.ca", -1, -1);
  EXPECT_EQ(combo.text(), "B@x.ca");
  utilities.fillComboFromList({"more"}, combo, false);
  EXPECT_EQ(combo.listCount(), 4);
}

TEST(ListCleanerTest, keepsTheFirstSpellingInOrder) {
  std::vector<std::string> list{"", "Zoë", "b ", " ", "ZOË", "a", " B", "a"};
  HostListCleaner().cleanList(list);
  EXPECT_EQ(list, (std::vector<std::string>{"Zoë", "b ", "a"}));
}

TEST(ClientIDTest, companyComesBeforeContact) {
  HostClientIDClass client;
  EXPECT_EQ(client.get_ClientType(), enumAutoNotifyNone);
  client.put_ContactIDNum(0);
  EXPECT_EQ(client.get_ClientType(), enumAutoNotifyContact);
  client.put_CompanyIDNum(0);
  EXPECT_EQ(client.get_ClientType(), enumAutoNotifyCompany);
}

TEST(ValidationUtilitiesTest, readsDatesAsPeopleLeaveThemInAFieldOrLeavesTheTarget) {
  HostValidationUtilities validation;
  expectRows(serviceTexts, "dates in a field", [&](auto& text) {
    DateTime date = DateTime::of(2020, 1, 1);
    EXPECT_EQ(validation.parseDateText(text, date), validation.isDateText(text)) << text;
    return dateTimeText(date);
  });
}

TEST(ValidationUtilitiesTest, durationsWeekendsAndYears) {
  HostValidationUtilities validation;
  expectRows(serviceTexts, "durations",
             [&](auto& minutes) { return validation.getDurationText(std::stoi(minutes)); });
  for (int day = 0; day < 14; ++day)
    EXPECT_EQ(validation.isWeekend(DateTime::of(2026, 4, 27).addDays(day)), day % 7 >= 5) << day;
  for (std::int16_t year : {1900, 2026, 2099}) EXPECT_TRUE(validation.isValidYear(year));
  for (std::int16_t year : {-1, 0, 26, 1899, 2100}) EXPECT_FALSE(validation.isValidYear(year));
}

TEST(RichTextUtilityTest, insertsAtAPlaceInCharacters) {
  const auto made = ClassRegistry().create("richtextutility");
  auto* utility = dynamic_cast<RichTextUtility*>(made.get());
  ASSERT_TRUE(utility);
  RichTextBox box;
  box.setTextRTF("{\\rtf1 \\'e9{\\b b}}");
  for (const auto& [position, text] : {std::pair{1, "é-b"}, {-1, "-é-b"}, {99, "-é-b-"}}) {
    EXPECT_EQ(utility->insertTextAt(&box, "-", position), Value(true));
    EXPECT_EQ(box.text(), text);
  }
  EXPECT_TRUE(box.content().paragraphs.front().runs.back().format.bold);
  EXPECT_THROW(utility->insertTextAt(nullptr, "-", 0), PlatformError);
}

TEST(RichTextUtilityTest, plainTextEndsItsLinesAsBoxesDo) {
  HostRichTextUtility utility;
  EXPECT_EQ(utility.toPlainText("{\\rtf1 a\\par \\'abb\\'bb\\line c}"), "a\r\n«b»\r\nc");
  EXPECT_EQ(utility.toPlainText("plain\r\nand\n"), "plain\r\nand\r\n");
}

TEST(ClassRegistryTest, createsByNameInAnyCaseAndTakesClassesOfPrograms) {
  class Marked : public HostObject {};
  ClassRegistry registry;
  EXPECT_NE(dynamic_cast<GeneralUtilities*>(registry.create("generalUTILITIES").get()), nullptr);
  EXPECT_EQ(errorOf([&] { registry.create("EmailSender"); }), error_number::cannotCreateObject);
  for (const char* name : {"EmailSender", "FileUtility"}) {
    registry.registerClass(name, [] { return std::make_unique<Marked>(); });
    EXPECT_NE(dynamic_cast<Marked*>(registry.create(name).get()), nullptr) << name;
  }
}

TEST(ClocksTest, shiftedClockKeepsTheTimeOfDayAndGoesOn) {
  FixedClock base;
  base.set(DateTime::of(2026, 4, 30, 23, 59, 58));
  DateShiftedClock clock(base, DateTime::of(2024, 2, 28));
  EXPECT_EQ(clock.now(), DateTime::of(2024, 2, 28, 23, 59, 58));
  base.set(DateTime::of(2026, 5, 1, 0, 0, 3));
  EXPECT_EQ(clock.now(), DateTime::of(2024, 2, 29, 0, 0, 3));
  EXPECT_EQ(clock.today(), DateTime::of(2024, 2, 29));
}

namespace fs = std::filesystem;
TEST(FileUtilityTest, seesAndDeletesFilesAloneAndTellsWhyNot) {
  TemporaryFolder folder;
  HostFileUtility files;
  const auto numberOf = [&](const std::string& path) {
    try {
      files.deleteFile(path);
    } catch (const PlatformError& error) {
      EXPECT_NE(error.description().find(path), std::string::npos);
      return error.number();
    }
    return 0;
  };
  writeFile(folder / "temp.txt", "x");
  fs::create_directory(folder / "sub");
  EXPECT_TRUE(files.fileExists(folder / "temp.txt"));
  for (const char* none : {"none", "sub", ""}) EXPECT_FALSE(files.fileExists(folder / none));
  EXPECT_EQ(numberOf(folder / "temp.txt"), 0);
  EXPECT_EQ(numberOf(folder / "temp.txt"), error_number::fileNotFound);
  EXPECT_EQ(numberOf(folder / "sub"), error_number::pathFileAccess);
  EXPECT_TRUE(fs::exists(folder / "sub"));
}

TEST(WorkingFolderTest, isMadeForItsOwnerAloneOrToldWhyNot) {
  TemporaryFolder folder;
  EXPECT_EQ(HostWorkingFolder(folder / "a/b").getWorkingFolder(), folder / "a/b");
  EXPECT_FALSE(fs::exists(folder / "a/b")) << "it is left behind";
  HostWorkingFolder working(folder / "a/b");
  working.getWorkingFolder();
  EXPECT_EQ(fs::status(folder / "a/b").permissions(), fs::perms::owner_all);
  fs::permissions(folder / "a/b", fs::perms::group_read, fs::perm_options::add);
  EXPECT_THROW(working.getWorkingFolder(), PlatformError) << "others could read it";
  writeFile(folder / "file", "");
  EXPECT_THROW(HostWorkingFolder(folder / "file").getWorkingFolder(), PlatformError);
}

}  // namespace
}  // namespace autonotify::host
