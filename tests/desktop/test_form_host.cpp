#include "FormHostTest.h"
#include "binding/CalendarButton.h"
#include "binding/FittingArea.h"
#include "richtext/RichTextEditor.h"
#include "support/HeadlessPerson.h"

namespace autonotify::test {
namespace {

TEST_F(FormHostTest, WhatIsInsideFollowsItsContainer) {
  form_.fraGroup.setVisible(false);
  use([&] {
    look(form_.txtInGroup);
    form_.fraGroup.setVisible(true);
    look(form_.txtInGroup);
    form_.fraGroup.setEnabled(false);
    look(form_.txtInGroup);
    form_.fraGroup.setEnabled(true);
    look(form_.txtInGroup);
    auto& tabs = widget<QTabWidget>(form_.SSTab1);
    QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(1).center());
    EXPECT_EQ(form_.SSTab1.tab(), 1);
    look(form_.txtSecond);
    form_.txtSecond.setFocus();
    EXPECT_TRUE(widget<QLineEdit>(form_.txtSecond).hasFocus());
  });
}

TEST_F(FormHostTest, TheProgramIsOutOfReachUntilAHiddenWindowIsDone) {
  form_.cmdGo.onClick = [&] {
    form_.hide();
    QTimer::singleShot(0, [&] { clickProgram(); });
    for (int i = 0; i < 3; ++i) host_.pumpMessages();
    EXPECT_EQ(programClicks_, 0);
  };
  use([&] { QTest::mouseClick(&widget<QPushButton>(form_.cmdGo), Qt::LeftButton); });
  clickProgram();
  EXPECT_EQ(programClicks_, 1);
}

TEST_F(FormHostTest, AStepOfThePumpLooksForMessagesOnlyNowAndThen) {
  int looks = 0, handled = 0;
  auto* const dispatcher = QAbstractEventDispatcher::instance();
  const auto watch =
      QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, [&] { ++looks; });
  QElapsedTimer clock;
  clock.start();
  for (int step = 1; step <= 100'000; ++step) {
    if (step % 10'000 == 0) QTimer::singleShot(0, [&] { ++handled; });
    host_.pumpMessages();
  }
  EXPECT_LE(looks, 40 + clock.elapsed() / 4);
  QTest::qSleep(6);
  for (int i = 0; i < 3; ++i) host_.pumpMessages();
  EXPECT_EQ(handled, 10);
  QObject::disconnect(watch);
}

TEST_F(FormHostTest, AFaultEndsTheWindowAndReachesTheCaller) {
  const auto fail = [] { throw std::logic_error("fault"); };
  const auto type = [&] { QTest::keyClick(&widget<QLineEdit>(form_.txtLast), Qt::Key_A); };
  form_.cmdGo.onClick = fail;
  form_.txtLast.onChange = fail;
  form_.onUnloading = fail;
  const std::vector<std::function<void()>> acts{
      [&] { QTest::mouseClick(&widget<QPushButton>(form_.cmdGo), Qt::LeftButton); },
      type,
      [&, fail] {
        form_.txtLast.onKeyPress = [fail](int key) { return fail(), key; };
        type();
      },
      [&, fail] {
        form_.txtLast.onChange = nullptr;
        form_.txtLast.onKeyPress = nullptr;
        form_.txtLast.onKeyUp = [fail](int, int) { fail(); };
        type();
      },
      [&] { window().close(); },
      [&, fail] {
        form_.tmr.onTimer = fail;
        form_.tmr.setEnabled(true);
      }};
  for (const auto& act : acts) {
    QTimer::singleShot(0, act);
    EXPECT_THROW(form_.showModal(nullptr), std::logic_error) << &act - acts.data();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_FALSE(form_.isVisible());
  }
  clickProgram();
  EXPECT_EQ(programClicks_, 1);
}

TEST_F(FormHostTest, AWindowThatCannotBeDrawnLeavesNothingBehind) {
  Button stranger(form_, "cmdStranger");
  EXPECT_THROW(form_.showModal(nullptr), std::logic_error);
  form_.setCaption("still alive");
}

TEST_F(FormHostTest, AHostThatEndsTheShowUnloadsTheWindow) {
  QTimer::singleShot(0, [&] { host_.formHidden(form_); });
  form_.showModal(nullptr);
  EXPECT_FALSE(form_.isLoaded());
}

TEST_F(FormHostTest, TimersRunWhileTheWindowIsUpAlone) {
  int ticks = 0;
  form_.tmr.onTimer = [&] { ++ticks; };
  form_.tmr.setEnabled(true);
  use([&] {
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 1; }));
    form_.tmr.setInterval(0);
    ticks = 0;
    QTest::qWait(5);
    EXPECT_EQ(ticks, 0);
    form_.tmr.setInterval(1);
    form_.unload();
    ticks = 0;
    QTest::qWait(20);
    EXPECT_EQ(ticks, 0);
  });
}

TEST_F(FormHostTest, TabFollowsTheWindowsOwnOrder) {
  form_.orderFirst({&form_.txtLast, &form_.txtFirst, &form_.cmdGo});
  use([&] {
    std::string order;
    for (int i = 0; i < 3; ++i) {
      order += form_.focused()->name() + " ";
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, "txtLast txtFirst cmdGo ");
  });
}

TEST_F(FormHostTest, FocusMovesOnFromAButtonThatTurnsItselfOff) {
  form_.cmdGo.onClick = [&] { form_.cmdGo.setEnabled(false); };
  use([&] {
    QTest::mouseClick(&widget<QPushButton>(form_.cmdGo), Qt::LeftButton);
    EXPECT_EQ(form_.focused(), &form_.txtInGroup);
    EXPECT_TRUE(widget<QLineEdit>(form_.txtInGroup).hasFocus());
  });
}

TEST(FittingArea, ScrollsToWhatTheScreenHasNoRoomFor) {
  QDialog window;
  auto* content = new QWidget;
  auto* rows = new QVBoxLayout(content);
  auto* text = new QTextEdit;
  rows->addWidget(text);
  auto* words = new QLabel("A line of words that wraps where it has no room");
  words->setWordWrap(true);
  rows->addWidget(words);
  (new QVBoxLayout(&window))->addWidget(new desktop::FittingArea(*content, &window));
  window.resize(200, 150);
  window.show();
  QApplication::processEvents();
  const QScrollBar& bar = *window.findChild<desktop::FittingArea*>()->verticalScrollBar();
  EXPECT_LT(text->height(), text->sizeHint().height());
  EXPECT_EQ(bar.maximum(), 0);
  QLineEdit* last = nullptr;
  for (int row = 0; row < 50; ++row) rows->addWidget(last = new QLineEdit);
  for (int round = 0; round < 3; ++round) QApplication::processEvents();
  EXPECT_LT(window.height(), window.screen()->availableSize().height());
  EXPECT_TRUE(last->visibleRegion().isEmpty());
  QApplication::setActiveWindow(&window);
  last->setFocus();
  EXPECT_FALSE(last->visibleRegion().isEmpty());
}

TEST_F(FormHostTest, ChoosesInListsOnce) {
  std::string told;
  for (Control* control :
       {static_cast<Control*>(&form_.lstEntries), static_cast<Control*>(&form_.tvwNodes)}) {
    control->onClick = [&] { told += "click "; };
    control->onDoubleClick = [&] { told += "double "; };
  }
  use([&] {
    auto& list = widget<QListWidget>(form_.lstEntries);
    auto& tree = widget<QTreeWidget>(form_.tvwNodes);
    const auto useView = [&](QAbstractItemView& view, const QRect& second) {
      QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, second.center());
      told += "/ ";
      QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, second.center());
      told += "/ ";
      QTest::keyClick(&view, Qt::Key_Down);
      told += "/ ";
      QTest::keyClick(&view, Qt::Key_Return);
      told += "/ ";
      QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, second.center());
      QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, second.center());
      EXPECT_EQ(std::exchange(told, {}), "click / double / / click / click click ");
    };
    useView(list, list.visualItemRect(list.item(1)));
    EXPECT_EQ(form_.lstEntries.listIndex(), 1);
    useView(tree, tree.visualItemRect(tree.topLevelItem(1)));
    EXPECT_EQ(form_.tvwNodes.selected(), 1);
  });
}

TEST_F(FormHostTest, ATypedTextIsNoChoiceAndStaysWhereTheCaretIs) {
  int clicks = 0;
  form_.cboEntries.onClick = [&] { ++clicks; };
  const auto expectEntry = [&](const char* entry, int chosen) {
    EXPECT_EQ(form_.cboEntries.text() + std::to_string(form_.cboEntries.listIndex()), entry);
    EXPECT_EQ(clicks, chosen);
  };
  use([&] {
    auto& combo = widget<QComboBox>(form_.cboEntries);
    combo.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(combo.lineEdit(), "bob@b");
    QTest::keyClick(&combo, Qt::Key_Return);
    QTest::keyClick(&combo, Qt::Key_Tab);
    EXPECT_EQ(form_.focused()->name(), "txtLast");
    expectEntry("bob@b-1", 0);
    combo.showPopup();
    combo.view()->setCurrentIndex(combo.model()->index(1, 0));
    QTest::keyClick(combo.view(), Qt::Key_Return);
    expectEntry("bob@b1", 1);
    combo.lineEdit()->setCursorPosition(3);
    QTest::keyClicks(combo.lineEdit(), "by");
    expectEntry("bobby@b-1", 1);
    form_.cboEntries.setListIndex(1);
    const QPointF middle = combo.rect().center();
    for (QWidget* part : {static_cast<QWidget*>(combo.lineEdit()), static_cast<QWidget*>(&combo)}) {
      QWheelEvent wheel(middle, combo.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, {},
                        Qt::NoScrollPhase, false);
      QApplication::sendEvent(part, &wheel);
      EXPECT_FALSE(wheel.isAccepted()) << "the page below may use it";
    }
    expectEntry("bob@b1", 2);
  });
}

TEST_F(FormHostTest, ADateIsPickedInACalendarThatHasRoom) {
  std::vector<DateTime> closed;
  form_.DTPicker1.onCloseUp = [&] { closed.push_back(form_.DTPicker1.value()); };
  use([&] {
    auto& picker = widget<desktop::CalendarButton>(form_.DTPicker1);
    EXPECT_GE(picker.width(), picker.iconSize().width());
    picker.setFocus(Qt::TabFocusReason);
    for (const auto& [open, leave] :
         {std::pair(Qt::Key_Space, Qt::Key_Escape), std::pair(Qt::Key_Down, Qt::Key_Return)}) {
      QTest::keyClick(&picker, open);
      QWidget& calendar = *QApplication::activePopupWidget();
      EXPECT_TRUE(picker.screen()->availableGeometry().contains(calendar.frameGeometry()));
      EXPECT_GE(calendar.width(), calendar.sizeHint().width());
      for (const auto key : {Qt::Key_Right, leave})
        QTest::keyClick(picker.calendar().findChild<QTableView*>(), key);
      QApplication::processEvents();
    }
    EXPECT_EQ(closed, std::vector({DateTime::of(2026, 5, 4), DateTime::of(2026, 5, 5)}));
  });
}

TEST_F(FormHostTest, EnterAtTheEndAddsALineOfTheSameFontEachTime) {
  const std::string start = "{\\rtf1{\\fonttbl{\\f0 Courier;}}\\f0\\fs40 Dear Ann,";
  for (const std::string end : {"}", "\\par}", "\\par\\par}", "\\par\\b\\par}"}) {
    form_.rtb.setTextRTF(start + end);
    use([&] {
      auto& edit = widget<desktop::RichTextEditor>(form_.rtb).edit();
      edit.setFocus();
      edit.moveCursor(QTextCursor::End);
      const int lines = edit.document()->blockCount();
      for (int more = 1; more <= 3; ++more) {
        QTest::keyClick(&edit, Qt::Key_Return);
        EXPECT_EQ(edit.document()->blockCount(), lines + more) << end;
        EXPECT_EQ(edit.textCursor().blockNumber(), lines + more - 1) << end;
        EXPECT_EQ(edit.currentCharFormat().font().pointSizeF(), 20) << end;
        EXPECT_EQ(edit.currentCharFormat().fontFamilies().toStringList().value(0), "Courier")
            << end;
      }
    });
  }
}

TEST_F(FormHostTest, CaptionsAndColoursGoAsTheyCame) {
  use([&] {
    auto& label = widget<QLabel>(form_.lblText);
    EXPECT_EQ(label.text(), "from the layout");
    form_.lblText.setCaption("x");
    form_.lblText.setCaption("");
    EXPECT_EQ(label.text(), "");
    auto& combo = widget<QComboBox>(form_.cboEntries);
    auto& text = widget<desktop::RichTextEditor>(form_.rtb);
    for (const auto& [control, drawn] :
         {std::pair<Control*, QWidget*>(&form_.cboEntries, combo.lineEdit()),
          {&form_.rtb, text.edit().viewport()}}) {
      const QColor before = drawn->palette().color(QPalette::Base);
      control->setBackColor(0x00FFFF);
      EXPECT_EQ(drawn->palette().color(QPalette::Base), QColor(255, 255, 0));
      EXPECT_EQ(drawn->palette().color(QPalette::Text), QColor(Qt::black));
      control->setBackColor(std::nullopt);
      EXPECT_EQ(drawn->palette().color(QPalette::Base), before);
    }
  });
}

TEST_F(FormHostTest, TextThatCannotBeChangedCanBeReadToItsEnd) {
  std::string lines;
  for (int line = 0; line < 300; ++line) lines += "line\r\n";
  form_.rtb.setText(lines);
  form_.rtb.setEnabled(false);
  use([&] {
    auto& editor = widget<desktop::RichTextEditor>(form_.rtb).edit();
    EXPECT_TRUE(editor.isReadOnly());
    EXPECT_TRUE(editor.isEnabled());
    QTest::keyClicks(&editor, "x");
    EXPECT_EQ(form_.rtb.text(), lines);
    editor.verticalScrollBar()->setValue(editor.verticalScrollBar()->maximum());
    EXPECT_GT(editor.verticalScrollBar()->value(), 0);
  });
}

TEST_F(FormHostTest, KeysAreToldByTheirCodes) {
  std::string told;
  form_.txtLast.onKeyUp = [&](int key, int shift) {
    told += std::to_string(key) + "/" + std::to_string(shift) + " ";
  };
  form_.txtLast.onKeyPress = [&](int key) { return key == 'x' ? 0 : key == 'y' ? 'z' : key; };
  use([&] {
    auto& field = widget<QLineEdit>(form_.txtLast);
    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, "axy");
    told.clear();
    EXPECT_EQ(form_.txtLast.text(), "az");
    QTest::keyClick(&field, Qt::Key_Home);
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClick(&field, Qt::Key_F2, Qt::ShiftModifier);
    QTest::keyClick(&field, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(told, "36/0 46/0 113/1 16/0 81/2 17/0 ");
    EXPECT_EQ(form_.txtLast.text(), "z");
  });
}

TEST_F(FormHostTest, EscapeAndEnterPressNothingByThemselves) {
  int clicks = 0;
  form_.cmdGo.onClick = [&] { ++clicks; };
  use([&] {
    auto& field = widget<QLineEdit>(form_.txtLast);
    field.setFocus(Qt::TabFocusReason);
    for (const auto key : {Qt::Key_Escape, Qt::Key_Return}) QTest::keyClick(&field, key);
    EXPECT_TRUE(form_.isVisible());
    EXPECT_EQ(clicks, 0);
    auto& button = widget<QPushButton>(form_.cmdGo);
    button.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(clicks, 1);
  });
}

TEST_F(FormHostTest, ALongListIsDrawnOnce) {
  use([&] {
    auto& list = widget<QListWidget>(form_.lstEntries);
    form_.lstEntries.clear();
    for (int i = 0; i < 5000; ++i) form_.lstEntries.addItem(std::to_string(i));
    EXPECT_EQ(list.count(), 3);
    form_.lstEntries.setListIndex(4000);
    EXPECT_EQ(list.currentItem()->text(), "4000");
    EXPECT_EQ(list.count(), 5000);
  });
}

TEST_F(FormHostTest, RowsAreDrawnAsTheyChangeAndTheOthersStay) {
  use([&] {
    auto& list = widget<QListWidget>(form_.lstEntries);
    auto& tree = widget<QTreeWidget>(form_.tvwNodes);
    auto& combo = widget<QComboBox>(form_.cboEntries);
    combo.setItemData(1, "mark");
    QListWidgetItem* const second = list.item(1);
    QTreeWidgetItem* const root = tree.topLevelItem(1);
    form_.lstEntries.setListIndex(1);
    for (ItemList* entries :
         {static_cast<ItemList*>(&form_.lstEntries), static_cast<ItemList*>(&form_.cboEntries)}) {
      entries->addItem("dan@d");
      entries->setList(2, "eve@e");
      entries->removeItem(0);
    }
    form_.tvwNodes.addNode(form_.tvwNodes.addNode(1, "below", "below"), "leaf", "leaf");
    EXPECT_EQ(list.item(0), second);
    EXPECT_EQ(list.currentRow(), 0);
    EXPECT_EQ(combo.itemData(0), "mark");
    EXPECT_EQ(combo.currentText(), "");
    for (int row = 0; row < 3; ++row) {
      EXPECT_EQ(list.item(row)->text(), shown(form_.lstEntries.list(row)));
      EXPECT_EQ(combo.itemText(row), shown(form_.cboEntries.list(row)));
    }
    EXPECT_EQ(list.count() + combo.count(), 6);
    EXPECT_EQ(tree.topLevelItem(1), root);
    EXPECT_EQ(root->child(0)->text(0), "below");
    EXPECT_TRUE(root->child(0)->isExpanded());
    for (int entry = 3; entry > 0; --entry) form_.cboEntries.removeItem(0);
    form_.cboEntries.addItem("alone");
    EXPECT_EQ(combo.currentText() + QString::number(combo.currentIndex()), "-1");
  });
}

TEST(EveryKind, IsSeenAndUsedByKeysAndMouse) {
  HeadlessPerson person;
  frmEveryKind form(person);
  form.setCaption("shown");
  person.expectWindow("frmEveryKind", [&](WindowInUse& window) {
    window.choose("lstEntries", "bob@b");
    window.choose("tvwNodes", "cyd@c");
    window.choose("SSTab1", "second");
    window.choose("cboEntries", "ann@a");
    window.click("opt(1)");
    window.type("rtb", "Dear Ann");
    window.pickDate("DTPicker1", DateTime::of(2026, 5, 6));
    for (const Control* control : form.controls())
      if (!dynamic_cast<const Timer*>(control)) window.read(control->name());
    EXPECT_EQ(form.lstEntries.listIndex(), 1);
    EXPECT_EQ(form.tvwNodes.selected(), 2);
    EXPECT_EQ(form.SSTab1.tab(), 1);
    EXPECT_EQ(chosenOption(form.opt), 1);
    EXPECT_EQ(form.rtb.text(), "Dear Ann");
    form.hide();
  });
  form.showModal(nullptr);
  form.unload();
  person.finish();
}

}  // namespace
}  // namespace autonotify::test
