#include "merge/merge_host.h"
#include "merge/merge_tokens.h"

namespace autonotify::test {
namespace {

using std::string;

class MergeRules : public MergeHost {
 protected:
  MergeRules() {
    listSamples({{"Contact Display Name", "Anna Lee"},
                 {"Company Name", "Elm Ltd."},
                 {"Task Due Date", "April 30, 2026", 2},
                 {"Empty", ""},
                 {"Twice", "first"},
                 {"Twice", "second"}});
  }
};

constexpr const char* longEnough = " and so on, until a text has more than forty characters.";

TEST_F(MergeRules, MergesATemplateStoredAsRichText) {
  EXPECT_EQ(merged("{\\rtf1\\ansi Dear \\'abContact Display Name\\'bb, your "
                   "\\'ab(Task Due Date, mmmm d, yyyy)\\'bb\\par }"),
            "{\\rtf1\\ansi Dear Anna Lee, your April 30, 2026\\par }");
}

TEST_F(MergeRules, PutsEachTokenInItsPlace) {
  const struct {
    const char* why;
    const char* text;
    const char* result;
  } cases[] = {
      {"bare marks", "Dear «Contact Display Name»,", "Dear Anna Lee,"},
      {"any case", "Dear «CONTACT display name»,", "Dear Anna Lee,"},
      {"a date in any of its formats", "due «(Task Due Date, dd/mm/yy)» or «(task due date, D)»",
       "due April 30, 2026 or April 30, 2026"},
      {"a format that is none", "due «(Task Due Date, ddd)»!", "due !"},
      {"a date without a format", "due «Task Due Date»!", "due !"},
      {"a format on a field that is no date", "Dear «(Company Name, d)»!", "Dear !"},
      {"an unknown field", "Dear «Foo» you", "Dear  you"},
      {"an empty value", "Dear «Empty»you", "Dear you"},
      {"a blank ahead of a value after another character", "Dear:«Company Name»", "Dear: Elm Ltd."},
      {"also ahead of an empty one", "Dear:«Empty»you", "Dear: you"},
      {"none at the very start", "«Company Name», dear", "Elm Ltd., dear"},
      {"all places go by the first", "a «Company Name» (by «Company Name»)",
       "a Elm Ltd. (by Elm Ltd.)"},
      {"by the first, the other way round", "(«Company Name» by «Company Name»",
       "( Elm Ltd. by  Elm Ltd."},
      {"one value right behind another", "x «Company Name»«Contact Display Name»",
       "x Elm Ltd. Anna Lee"},
      {"the first of two fields with one name", "x «Twice»", "x first"},
  };
  for (const auto& [why, text, result] : cases)
    EXPECT_EQ(merged(text + string(longEnough)), result + string(longEnough)) << why;
}

TEST_F(MergeRules, AddsNoBlankOutsideRichText) {
  merge->ConvertStrToRTF = false;
  EXPECT_EQ(merged("Dear:«Company Name»" + string(longEnough)),
            "Dear:Elm Ltd." + string(longEnough));
}

TEST_F(MergeRules, TakesAShortTextForAFieldName) {
  EXPECT_EQ(merged("Company Name"), "Elm Ltd.");
  EXPECT_EQ(merged("Thank you for your visit"), "");
  EXPECT_EQ(merged("«Task Due Date»"), "");
  EXPECT_EQ(merged(""), "");
}

TEST_F(MergeRules, WritesTodaysDateInEachFormat) {
  host.clock.set(DateTime::of(2026, 4, 5));
  const char* const dates[] = {"Sunday, April 5 2026",
                               "Sunday April 5 2026",
                               "April 5, 2026",
                               "April 5 2026",
                               "Apr 5 2026",
                               "05/04/26",
                               "04/05/26",
                               "5",
                               "Sunday",
                               "April",
                               "Apr",
                               "2026",
                               "April 2026",
                               "April 5"};
  for (std::size_t i = 0; i < mergeDateFormats.size(); ++i) {
    const string token = "«(Todays Date, " + string(mergeDateFormats[i]) + ")»";
    EXPECT_EQ(merged("On " + token + longEnough), "On " + string(dates[i]) + longEnough) << token;
  }
  EXPECT_EQ(merged("On «(todays date, MMMM)»" + string(longEnough)),
            "On April" + string(longEnough));
}

TEST_F(MergeRules, MergesOneSpellingOfTheMarksWhenItHeldAField) {
  const string escaped = R"( \'abCompany Name\'bb)";
  const struct {
    const char* why;
    string text;
    string result;
  } cases[] = {
      {"a bare field: the escaped ones vanish", "By «Contact Display Name»" + escaped,
       "By Anna Lee "},
      {"and stay when an unknown bare one vanished", "By «Contact Display Name» «Foo»" + escaped,
       "By Anna Lee  \\'abCompany Name\\'bb"},
      {"today's date alone: the escaped ones follow", "On «(Todays Date, yyyy)»" + escaped,
       "On 2026 Elm Ltd."},
      {"an unknown bare field: the escaped ones follow", "By «Foo»" + escaped, "By  Elm Ltd."},
      {"unknown ones of both: the bare ones vanish", R"(By «Foo» \'abFoo\'bb)",
       R"(By  \'abFoo\'bb)"},
      {"unknown escaped ones alone vanish", R"(By \'abFoo\'bb\'ABBar\'BB.)", "By ."},
  };
  for (const auto& [why, text, result] : cases)
    EXPECT_EQ(merged(text + longEnough), result + longEnough) << why;
}

TEST_F(MergeRules, StopsAtAnOpeningMarkThatIsNeverClosed) {
  EXPECT_EQ(merged("By «Foo» and «Company Name" + string(longEnough)),
            "By  and «Company Name" + string(longEnough));
  string text = "«";
  EXPECT_EQ(merge->replaceUnfoundMergeFieldsWithBlanks(text), "«");
  text = R"(\'ab\'ab)";
  EXPECT_EQ(merge->replaceUnfoundMergeFieldsWithBlanks(text), R"(\'ab\'ab)");
  text = "»a«b»c";
  EXPECT_EQ(merge->replaceUnfoundMergeFieldsWithBlanks(text), "»ac");
}

TEST_F(MergeRules, RemovesTheTokensThatAValueBrings) {
  listSamples({{"One", "«Two»"}, {"Two", "2"}, {"Three", "«One»"}, {"Four", "»«"}});
  EXPECT_EQ(merged("a «One» b" + string(longEnough)), "a 2 b" + string(longEnough));
  EXPECT_EQ(merged("a «Three» b" + string(longEnough)), "a  b" + string(longEnough));
  EXPECT_EQ(merged("a «Foo» «Four» b" + string(longEnough)), "a  »« b" + string(longEnough));
}

TEST_F(MergeRules, NamesAPersonInPlaceOfTheCompanyThatTheyLack) {
  merge->ConvertCompanyNameToContactNameForContacts = true;
  merge->contactID = 3;
  EXPECT_EQ(merged("For «Company Name»" + string(longEnough)), "For Anna Lee" + string(longEnough));
  EXPECT_EQ(merged(R"(For \'abCompany Name\'bb)" + string(longEnough)),
            "For Anna Lee" + string(longEnough));
  EXPECT_EQ(merged("For «Company Name» of «Contact Display Name»" + string(longEnough)),
            "For Elm Ltd. of Anna Lee" + string(longEnough));
  merge->contactID = 0;
  EXPECT_EQ(merged("For «Company Name»" + string(longEnough)), "For Elm Ltd." + string(longEnough));
  merge->contactID = 3;
  merge->companyID = 1;
  EXPECT_EQ(merged("For «Company Name»" + string(longEnough)), "For Elm Ltd." + string(longEnough));
}

TEST_F(MergeRules, MergesNothingWithoutAListAndPreparesItForTheNextTime) {
  clsInsertFieldsInRTB fresh;
  fresh.taskID = 0;
  fresh.TestComment = true;
  fresh.TemplateText = "For «Task Name»" + string(longEnough);
  EXPECT_EQ(fresh.parseRTBComment(), "For " + string(longEnough));
  EXPECT_EQ(fresh.ListType, 8);
  EXPECT_NE(fresh.parseRTBComment(), "For " + string(longEnough));
}

TEST_F(MergeRules, ReplacesATokenOnItsOwn) {
  string text = "Dear-«A»-«a»";
  EXPECT_FALSE(merge->replaceText(text, "«A»", "x"));
  EXPECT_EQ(text, "Dear- x- x");
  merge->replaceText(text, "«B»", "y");
  EXPECT_EQ(text, "Dear- x- x");
  EXPECT_EQ(merge->convertFieldName("«A» »"), R"(\'abA\'bb \'bb)");
  text = "a\\par \r\nb";
  EXPECT_EQ(merge->removeBlankLinesFromRTFText(text), text);
}

}  // namespace
}  // namespace autonotify::test
