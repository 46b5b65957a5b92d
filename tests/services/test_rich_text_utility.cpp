#include <gtest/gtest.h>

#include "host/services/ClassRegistry.h"
#include "host/services/HostRichTextUtility.h"
#include "platform/PlatformError.h"
#include "platform/controls/RichTextBox.h"

namespace autonotify::host {
namespace {

TEST(RichTextUtilityTest, insertsAtAPlaceInCharacters) {
  const auto made = ClassRegistry().create("richtextutility");
  auto* utility = dynamic_cast<RichTextUtility*>(made.get());
  ASSERT_TRUE(utility);
  RichTextBox box;
  box.setTextRTF("{\\rtf1 \\'e9{\\b b}}");
  struct {
    int position;
    const char* text;
  } const cases[] = {{1, "é-b"}, {-1, "-é-b"}, {99, "-é-b-"}};
  for (const auto& [position, text] : cases) {
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

}  // namespace
}  // namespace autonotify::host
