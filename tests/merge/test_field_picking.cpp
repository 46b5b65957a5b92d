// A field picked from the list beside a text: its token, and where it goes.
#include "merge/MergeTest.h"
#include "merge/templates/merge_tokens.h"
#include "platform/controls/RichTextBox.h"

namespace autonotify::test {
namespace {

class FieldPicking : public MergeTest {
 protected:
  FieldPicking() {
    listSamples({{"Company Name", "Acme"}, {"Task Due Date", "May 1, 2026", 2}});
    merge->RTB = &box;
  }

  std::string parsed(int itemData, bool withMarks) {
    return merge->parseListItem(itemData, withMarks);
  }
  Value click(int itemData) { return merge->onListClick(itemData); }

  RichTextBox box;
};

TEST_F(FieldPicking, anEntryGivesItsToken) {
  EXPECT_EQ(parsed(1, true), "«Company Name»");
  EXPECT_EQ(parsed(1, false), "Company Name");
  EXPECT_EQ(parsed(2, true), "«(Task Due Date, mmmm d yyyy)»");
  EXPECT_EQ(parsed(2, false), "(Task Due Date, mmmm d yyyy)");
  EXPECT_EQ(merge->getDBFieldFromListItem(1), "Column");
  EXPECT_EQ(merge->getDBFieldFromListItem(2), "(Task Due Date, mmmm d yyyy)");
  for (const int noField : {-1, 99}) {
    EXPECT_EQ(parsed(noField, true), "");
    EXPECT_EQ(merge->getDBFieldFromListItem(noField), "");
  }
}

TEST_F(FieldPicking, aClickPutsTheTokenAtTheCaret) {
  box.setText("Dear é!");
  box.select(6);
  EXPECT_EQ(click(1), Value(true));
  EXPECT_EQ(box.text(), "Dear é«Company Name»!");
  click(2);
  EXPECT_EQ(box.text(), "Dear é«Company Name»«(Task Due Date, mmmm d yyyy)»!");
  const std::string before = box.textRTF();
  EXPECT_EQ(click(-1), Value());
  EXPECT_EQ(box.textRTF(), before);
}

TEST_F(FieldPicking, aCaretThatTheBoxCannotTellIsOne) {
  box.setText("ab");
  box.acceptSelection(std::nullopt);
  click(1);
  EXPECT_EQ(box.text(), "a«Company Name»b");
  merge->RTB = nullptr;  // a failure that the person settles, of reading and of inserting
  errors.answer({1, 1});
  EXPECT_EQ(click(1), Value());
}

TEST_F(FieldPicking, todaysDateInEachFormat) {
  bool withMarks = true;
  for (int index = -1; index <= 15; ++index) {
    const bool isKnown = index >= 1 && index <= 14;
    const std::string format{isKnown ? mergeDateFormats[static_cast<std::size_t>(index - 1)] : ""};
    const std::string token = "«(Todays Date, " + format + ")»";
    EXPECT_EQ(merge->insertCurrentDateMergeField(index, withMarks), token);
    box.setText("");
    merge->insertCurrentDate(index);
    EXPECT_EQ(box.text(), token);
  }
  withMarks = false;
  int index = 5;
  EXPECT_EQ(merge->insertCurrentDateMergeField(index, withMarks), "(Todays Date, mmm d yyyy)");
}

}  // namespace
}  // namespace autonotify::test
