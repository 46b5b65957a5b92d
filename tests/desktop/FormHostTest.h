#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QtWidgets>

#include "binding/QtFormHost.h"
#include "platform/controls/Form.h"
#include "qt_text.h"
#include "support/all_controls.h"

namespace autonotify::test {
using desktop::QtFormHost;
using desktop::shown;

/// A window with a control of every kind that is drawn.
class frmEveryKind : public Form {
 public:
  explicit frmEveryKind(FormHost& host) : Form(host, "frmEveryKind", "Every kind") {
    txtInGroup.setContainer(fraGroup);
    for (OptionButton& option : opt) option.setContainer(fraGroup);
    SSTab1.setPages({"first", "second"});
    txtFirst.setContainer(SSTab1, 0);
    txtSecond.setContainer(SSTab1, 1);
    for (const char* text : {"ann@a", "bob@b", "cyd@c"}) {
      lstEntries.addItem(text);
      cboEntries.addItem(text);
      tvwNodes.addNode(-1, text, text);
    }
    DTPicker1.setValue(DateTime::of(2026, 5, 4));
  }

  Frame fraGroup{*this, "fraGroup"};
  TextBox txtInGroup{*this, "txtInGroup"};
  std::array<OptionButton, 2> opt = controlArray<OptionButton, 2>(*this, "opt");
  TabControl SSTab1{*this, "SSTab1"};
  TextBox txtFirst{*this, "txtFirst"};
  TextBox txtSecond{*this, "txtSecond"};
  Label lblText{*this, "lblText"};
  ListBox lstEntries{*this, "lstEntries"};
  TreeView tvwNodes{*this, "tvwNodes"};
  ComboBox cboEntries{*this, "cboEntries"};
  TextBox txtLast{*this, "txtLast"};
  DatePicker DTPicker1{*this, "DTPicker1"};
  ProgressBar pgb{*this, "pgb"};
  RichTextBox rtb{*this, "rtb"};
  Button cmdGo{*this, "cmdGo", "Go"};
  Timer tmr{*this, "tmr", 1};

  std::function<void()> onUnloading;

 protected:
  bool queryUnload(CloseReason) override {
    if (onUnloading) onUnloading();
    return true;
  }
};

/// A window with a control of every kind before the program's own.
class FormHostTest : public testing::Test {
 protected:
  FormHostTest() : button_(new QPushButton("of the program", &program_)) {
    program_.show();
    QObject::connect(button_, &QPushButton::clicked, [this] { ++programClicks_; });
  }

  /// Shows the window and runs `act` in it, after which it goes.
  void use(const std::function<void()>& act) {
    QObject scope;
    QTimer::singleShot(0, &scope, [&] {
      QApplication::setActiveWindow(&window());
      QApplication::processEvents();
      act();
      form_.hide();
    });
    form_.showModal(nullptr);
  }

  static QWidget& window() { return *QApplication::activeModalWidget(); }
  template <class Widget>
  Widget& widget(const Control& control) {
    return *window().findChild<Widget*>(shown(control.name()));
  }
  void look(const Control& control) {
    const QWidget& drawn = widget<QWidget>(control);
    EXPECT_EQ(drawn.isVisibleTo(&window()), control.isShown()) << control.name();
    EXPECT_EQ(drawn.isEnabled(), control.isReachable() || !control.isShown()) << control.name();
  }
  void clickProgram() { QTest::mouseClick(button_, Qt::LeftButton); }

  QWidget program_;
  QtFormHost host_{program_};
  QPushButton* button_;
  int programClicks_ = 0;
  frmEveryKind form_{host_};
};

}  // namespace autonotify::test
