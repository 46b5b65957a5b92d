#include <QTest>
#include <QtWidgets>

#include "editor/frmTaskAutoNotification.h"
#include "icon_theme.h"
#include "richtext/MergeFieldDelegate.h"
#include "richtext/MergeFieldHighlighter.h"
#include "richtext/RichTextEditor.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

class EditorWindow : public HostTest {};

TEST_F(EditorWindow, FindsFieldsByKeysAndKnowsOfWhatTheMousePastes) {
  const Id kind = addKind(101, 10, 5, "{\\rtf1 There is nothing in this text yet.}");
  screen.expectWindow("frmTaskAutoNotification", [this](WindowInUse& window) {
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
    std::string focused;
    for (const auto shift : {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier}) {
      QTest::keyClick(&top, Qt::Key_F6, shift);
      focused += window.focus() + " ";
    }
    EXPECT_EQ(focused, "tvwTasks RichTextBox FieldList RichTextBox ");
    screen.expectWindow("frmTestComment", [](WindowInUse& result) {
      auto* text = QApplication::activeModalWidget()->findChild<QTextEdit*>();
      EXPECT_FALSE(QApplication::activeModalWidget()->findChild<QToolBar*>()->isVisible());
      for (const auto key : {Qt::Key_A, Qt::Key_C}) QTest::keyClick(text, key, Qt::ControlModifier);
      QTest::keyClick(text, Qt::Key_X);
      EXPECT_EQ(result.read("rtbClientNotes"), QApplication::clipboard()->text().toStdString());
      QTest::keyClick(text, Qt::Key_Return);
      EXPECT_FALSE(result.form().isVisible());
    });
    window.click("cmdNotifyComment(1)");
    window.form().hide();
  });
  frmTaskAutoNotification().Initialize(kind);
}

TEST(MergeFields, HaveAnIconThatTellsDatesFromAllElse) {
  desktop::supplyIcons();
  const desktop::MergeFieldDelegate delegate({"Task Due Date"}, nullptr);
  QListWidget list;
  list.addItems({"[Task Info]", "Task Name", "Task Due Date"});
  list.item(0)->setFlags(Qt::NoItemFlags);
  QStyleOptionViewItem options[3];
  for (int i = 0; i < 3; ++i) delegate.initStyleOption(&options[i], list.model()->index(i, 0));
  EXPECT_TRUE(options[0].icon.isNull());
  EXPECT_EQ(options[1].icon.name() + options[2].icon.name(), "insert-textview-calendar-day");
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
