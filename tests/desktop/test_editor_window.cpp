#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

#include "editor/frmTaskAutoNotification.h"
#include "richtext/MergeFieldHighlighter.h"
#include "richtext/RichTextEditor.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

class EditorWindow : public HostTest {};

TEST_F(EditorWindow, FindsFieldsByKeysAndKnowsOfWhatTheMousePastes) {
  const Id kind = addKind(101, 10, 5, "{\\rtf1 There is nothing in this text yet.}");
  screen.expectWindow("frmTaskAutoNotification", [](WindowInUse& window) {
    QWidget& top = *QApplication::activeModalWidget();
    auto& edit = top.findChild<desktop::RichTextEditor*>("RichTextBox")->edit();
    QApplication::clipboard()->setText("Pasted: ");
    EXPECT_FALSE(window.sees("lblChanged"));
    edit.paste();
    EXPECT_TRUE(window.sees("lblChanged"));
    QTest::keyClick(&top, Qt::Key_F, Qt::ControlModifier);
    auto& search = *top.findChild<QLineEdit*>("staticSearch");
    QTest::keyClicks(&search, "task NAME");
    QStringList shown;
    const auto& list = *top.findChild<QListWidget*>("FieldList");
    for (int row = 0; row < list.count(); ++row)
      if (!list.item(row)->isHidden()) shown += list.item(row)->text();
    EXPECT_EQ(shown, QStringList({"[Task Info]", "Task Name"}));
    EXPECT_EQ(top.findChild<QLabel*>("staticFound")->text(), "1 found");
    QTest::keyClick(&search, Qt::Key_Down);
    EXPECT_EQ(window.read("RichTextBox"), "Pasted: There is nothing in this text yet.");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(window.read("RichTextBox"), "Pasted: «Task Name»There is nothing in this text yet.");
    window.form().hide();
  });
  frmTaskAutoNotification().Initialize(kind);
}

TEST(MergeFields, AreColouredByWhetherThereIsSuchAField) {
  QTextDocument document("«Task Name» «(Task Due Date, mmm d)» «Foo» «Todays Date»");
  desktop::MergeFieldHighlighter colours(document, QPalette(), {"Task Name", "Task Due Date"});
  colours.rehighlight();
  std::string waves;
  for (const auto& range : document.firstBlock().layout()->formats())
    waves += range.format.underlineStyle() == QTextCharFormat::WaveUnderline ? '~' : '-';
  EXPECT_EQ(waves, "--~-");
}

}  // namespace
}  // namespace autonotify::test
