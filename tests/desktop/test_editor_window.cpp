#include <QTest>
#include <QtWidgets>

#include "editor/frmTaskAutoNotification.h"
#include "richtext/MergeFieldDelegate.h"
#include "richtext/MergeFieldHighlighter.h"
#include "richtext/RichTextEditor.h"
#include "richtext/document_conversion.h"
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

/// Drops files onto the text; False when it takes none.
bool drop(QTextEdit& edit, const QStringList& paths) {
  QMimeData data;
  QList<QUrl> files;
  for (const QString& path : paths) files.append(QUrl::fromLocalFile(path));
  data.setUrls(files);
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(edit.viewport(), &enter);
  if (!enter.isAccepted()) return false;
  QDropEvent dropped({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
  return QApplication::sendEvent(edit.viewport(), &dropped);
}

TEST_F(EditorWindow, TakesFilesThatAreDroppedOnTheText) {
  const QString letter(AUTONOTIFY_TEST_FOLDER "../console/word_processor.rtf");
  screen.expectWindow("frmTaskAutoNotification", [&](WindowInUse& window) {
    auto& editor = *QApplication::activeModalWidget()->findChild<desktop::RichTextEditor*>();
    QTextEdit& edit = editor.edit();
    EXPECT_TRUE(drop(edit, {letter, QCoreApplication::applicationFilePath()}));
    auto* told = editor.findChild<QMessageBox*>();
    ASSERT_TRUE(told);
    EXPECT_TRUE(told->text().endsWith("cannot be read: it is larger than 16 MiB.") ||
                told->text().endsWith("it is no text; save it as RTF or plain text."));
    told->close();
    EXPECT_EQ(window.read("RichTextBox"), "«Old text»");
    EXPECT_FALSE(window.sees("lblChanged"));
    EXPECT_TRUE(drop(edit, {letter}));
    EXPECT_EQ(window.read("RichTextBox"),
              "Dear «Contact Display Name»,\r\nyour «Task Name» is due on «(Task Due Date, mmmm d, "
              "yyyy)».\r\n«Company Name» — «Period Description»\r\n«Old text»");
    EXPECT_TRUE(window.sees("lblChanged"));
    edit.undo();
    EXPECT_EQ(window.read("RichTextBox"), "«Old text»");
    editor.setReadOnly(true);
    EXPECT_FALSE(drop(edit, {letter}));
    window.form().hide();
  });
  frmTaskAutoNotification().Initialize(addKind(101, 10, 5, "Old text"));
}

TEST(RichTextEditor, KeepsTheFormatsOfWhatIsPasted) {
  desktop::RichTextEditor editor;
  QTextEdit& edit = editor.edit();
  for (const char* name : {"text/rtf", "application/rtf", "text/richtext"}) {
    edit.setPlainText("[]");
    edit.moveCursor(QTextCursor::Right);
    auto* data = new QMimeData;
    data->setText("never this");
    data->setData(name, R"({\rtf1{\colortbl;\red255\green0\blue0;}a{\b b}\par
\pard\qc{\pntext\u8226?\tab}\cf1 c\par\pard\qr d})");
    QApplication::clipboard()->setMimeData(data);
    edit.paste();
    edit.selectAll();
    edit.copy();
    edit.paste();
    const RichText text = desktop::richTextOf(*edit.document());
    std::string lines;
    for (const Paragraph& each : text.paragraphs) {
      lines += each.format.marker;
      for (const auto& run : each.runs) lines += (run.format.bold ? "*" : "") + run.text;
      lines += "/";
    }
    EXPECT_EQ(lines, "[a*b/•c/d]/");
    ASSERT_EQ(text.paragraphs.size(), 3u);
    EXPECT_EQ(text.paragraphs[1].runs[0].format.color, 255);
    EXPECT_EQ(text.paragraphs[1].format.alignment, Alignment::center);
    EXPECT_EQ(text.paragraphs[2].format.alignment, Alignment::right);
  }
  auto* broken = new QMimeData;
  broken->setText("plain");
  broken->setData("text/rtf", "{\\rtf1 }");
  QApplication::clipboard()->setMimeData(broken);
  edit.paste();
  EXPECT_TRUE(edit.toPlainText().endsWith("plain"));
}

TEST(MergeFields, HaveAnIconThatTellsDatesFromAllElse) {
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
