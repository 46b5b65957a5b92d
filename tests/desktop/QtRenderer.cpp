#include "QtRenderer.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QTextEdit>
#include <exception>

#include "binding/FormWindow.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DatePicker.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "richtext/RichTextEditor.h"
#include "text.h"

namespace autonotify::test {
namespace {

using desktop::plain;
using desktop::shown;

std::string tick(bool isTicked) {
  return isTicked ? "ticked" : "clear";
}

/// What a person reads in the widget.
std::string drawn(const QWidget& widget) {
  if (auto* field = qobject_cast<const QLineEdit*>(&widget)) return plain(field->text());
  if (auto* combo = qobject_cast<const QComboBox*>(&widget)) return plain(combo->currentText());
  if (auto* box = qobject_cast<const QCheckBox*>(&widget)) return tick(box->isChecked());
  if (auto* date = qobject_cast<const QDateEdit*>(&widget)) return plain(date->date().toString());
  if (auto* rich = widget.findChild<const QTextEdit*>()) return plain(rich->toPlainText());
  return {};
}

/// What the control holds, in the same words.
std::string held(const Control& control) {
  if (auto* field = dynamic_cast<const TextBox*>(&control)) return field->text();
  if (auto* combo = dynamic_cast<const ComboBox*>(&control)) return combo->text();
  if (auto* box = dynamic_cast<const CheckBox*>(&control)) return tick(box->value());
  if (auto* date = dynamic_cast<const DatePicker*>(&control))
    return plain(desktop::qtDate(date->value()).toString());
  if (auto* rich = dynamic_cast<const RichTextBox*>(&control))
    return plain(shown(rich->text()).replace("\r\n", "\n"));
  return {};
}

class QtDriver : public WindowDriver {
 public:
  QtDriver(Form& form, QWidget& window) : form_(form), window_(window) {}

  bool click(Control& control) override {
    QWidget& widget = within(control);
    QTest::mouseClick(&widget, Qt::LeftButton);
    return settle(control);
  }

  bool type(Control& control, const std::string& text) override {
    if (!tabTo(control)) return false;
    QWidget& widget = fieldOf(within(control));
    QTest::keySequence(&widget, QKeySequence::SelectAll);
    QTest::keyClick(&widget, Qt::Key_Delete);
    QTest::keyClicks(&widget, shown(text));
    return settle(control);
  }

  bool choose(Control& control, int position) override {
    auto& combo = widgetOf<QComboBox>(control);
    combo.showPopup();
    combo.view()->setCurrentIndex(combo.model()->index(position, 0));
    QTest::keyClick(combo.view(), Qt::Key_Return);
    return settle(control);
  }

  bool pickDate(DatePicker& picker, DateTime date) override {
    auto& edit = widgetOf<QDateEdit>(picker);
    QTest::mouseClick(&edit, Qt::LeftButton, {}, QPoint(edit.width() - 6, edit.height() / 2));
    QApplication::processEvents();
    QCalendarWidget& calendar = *edit.calendarWidget();
    EXPECT_TRUE(calendar.isVisible()) << "the calendar drops down";
    calendar.setSelectedDate(desktop::qtDate(date));
    QTest::keyClick(calendar.findChild<QTableView*>(), Qt::Key_Return);
    settle(picker);
    return true;
  }

  bool tabTo(Control& control) override {
    within(control).setFocus(Qt::TabFocusReason);
    return settle(control);
  }

  bool closeBox() override {
    window_.close();
    return !form_.isVisible();
  }

  void look(const Control& control) override {
    QApplication::processEvents();
    const QWidget* widget = find(control);
    ASSERT_NE(widget, nullptr) << control.name();
    EXPECT_EQ(widget->isVisibleTo(&window_), control.isShown()) << control.name();
    if (!control.isShown()) return;
    EXPECT_EQ(widget->isEnabled(), control.isReachable()) << control.name();
    EXPECT_EQ(drawn(*widget), held(control)) << control.name();
  }

 private:
  QWidget* find(const Control& control) const {
    return window_.findChild<QWidget*>(shown(control.name()));
  }

  /// What a person can reach on the screen.
  QWidget& within(Control& control) const {
    QWidget* widget = find(control);
    const std::string place = form_.name() + "." + control.name();
    if (!form_.isVisible()) throw std::logic_error(place + ": the window is not on the screen");
    if (!widget) throw std::logic_error(place + " has no widget");
    if (!widget->isVisibleTo(&window_)) throw std::logic_error(place + " is hidden");
    if (!widget->isEnabled()) throw std::logic_error(place + " is disabled");
    // Without a window system nobody gives the window back what a pop-up has taken.
    QApplication::setActiveWindow(&window_);
    return *widget;
  }

  template <class Widget>
  Widget& widgetOf(Control& control) const {
    return *qobject_cast<Widget*>(&within(control));
  }

  static QWidget& fieldOf(QWidget& widget) {
    if (auto* combo = qobject_cast<QComboBox*>(&widget)) return *combo->lineEdit();
    if (auto* editor = qobject_cast<desktop::RichTextEditor*>(&widget)) return editor->edit();
    return widget;
  }

  /// True when the act has got through to the control.
  bool settle(Control& control) const {
    QApplication::processEvents();
    return !form_.isVisible() || !control.takesFocus() || form_.focused() == &control;
  }

  Form& form_;
  QWidget& window_;
};

}  // namespace

void QtRenderer::show(Form& form, const Use& use) {
  desktop::FormWindow window(form, nullptr);
  window.show();
  QApplication::setActiveWindow(&window);
  QApplication::processEvents();
  QtDriver driver(form, window);
  use(driver);
}

}  // namespace autonotify::test
