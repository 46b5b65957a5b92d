#include "QtRenderer.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QProgressBar>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>
#include <algorithm>
#include <functional>
#include <stdexcept>

#include "binding/DateBinding.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DatePicker.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TabControl.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/TreeView.h"
#include "preview/PdfPages.h"
#include "qt_text.h"
#include "richtext/RichTextEditor.h"

namespace autonotify::test {
namespace {

using desktop::plain;
using desktop::shown;

std::string tick(bool isTicked) {
  return isTicked ? "ticked" : "clear";
}

/// What a control holds and what is read in its widget, in the same words.
struct Sight {
  std::string held;
  std::string drawn;
};

/// A caption; the layout's where the program has given none.
Sight captions(const Control& control, const QString& drawn) {
  return {control.caption().empty() ? plain(drawn) : control.caption(), plain(drawn)};
}

QString currentText(const QListWidget& list) {
  return list.currentItem() ? list.currentItem()->text() : QString();
}

QString currentText(const QTreeWidget& tree) {
  return tree.currentItem() ? tree.currentItem()->text(0) : QString();
}

std::string heldText(const ItemList& list) {
  return list.listIndex() < 0 ? std::string() : list.list(list.listIndex());
}

using Look = std::function<bool(const Control&, const QWidget&, Sight&)>;

/// Looks at a pair of these kinds; False for another pair.
template <class ControlType, class WidgetType, class See>
Look lookAt(See see) {
  return [see](const Control& control, const QWidget& widget, Sight& sight) {
    auto* model = dynamic_cast<const ControlType*>(&control);
    auto* drawn = qobject_cast<const WidgetType*>(&widget);
    if (model && drawn) sight = see(*model, *drawn);
    return model && drawn;
  };
}

const Look looks[] = {
    lookAt<TextBox, QLineEdit>([](auto& model, auto& drawn) {
      return Sight{model.text(), plain(drawn.text())};
    }),
    lookAt<ComboBox, QComboBox>([](auto& model, auto& drawn) {
      return Sight{model.text() + "/" + std::to_string(model.listCount()),
                   plain(drawn.currentText()) + "/" + std::to_string(drawn.count())};
    }),
    lookAt<CheckBox, QAbstractButton>([](auto& model, auto& drawn) {
      return Sight{tick(model.value()), tick(drawn.isChecked())};
    }),
    lookAt<OptionButton, QRadioButton>([](auto& model, auto& drawn) {
      return Sight{tick(model.value()), tick(drawn.isChecked())};
    }),
    lookAt<DatePicker, QDateEdit>([](auto& model, auto& drawn) {
      return Sight{plain(desktop::qtDate(model.value()).toString()),
                   plain(drawn.date().toString())};
    }),
    lookAt<RichTextBox, desktop::RichTextEditor>([](auto& model, auto& drawn) {
      return Sight{plain(shown(model.text()).replace("\r\n", "\n")),
                   plain(drawn.template findChild<const QTextEdit*>()->toPlainText())};
    }),
    lookAt<ListBox, QListWidget>([](auto& model, auto& drawn) {
      return Sight{heldText(model), plain(currentText(drawn))};
    }),
    lookAt<TreeView, QTreeWidget>([](auto& model, auto& drawn) {
      return Sight{model.selectedNode() ? model.selectedNode()->text : std::string(),
                   plain(currentText(drawn))};
    }),
    lookAt<TabControl, QTabWidget>([](auto& model, auto& drawn) {
      return Sight{model.pages().at(static_cast<std::size_t>(model.tab())),
                   plain(drawn.tabText(drawn.currentIndex()))};
    }),
    lookAt<ProgressBar, QProgressBar>([](auto& model, auto& drawn) {
      return Sight{std::to_string(model.value()), std::to_string(drawn.value())};
    }),
    lookAt<Label, QLabel>([](auto& model, auto& drawn) { return captions(model, drawn.text()); }),
    lookAt<Button, QAbstractButton>(
        [](auto& model, auto& drawn) { return captions(model, drawn.text()); }),
    lookAt<Frame, QGroupBox>(
        [](auto& model, auto& drawn) { return captions(model, drawn.title()); }),
    lookAt<Frame, QFrame>([](auto&, auto&) { return Sight{}; }),
};

/// False when a person can only read it.
bool acts(const QWidget& widget) {
  auto* editor = qobject_cast<const desktop::RichTextEditor*>(&widget);
  return editor ? !editor->findChild<const QTextEdit*>()->isReadOnly() : widget.isEnabled();
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
    QTest::keyClicks(widget.focusProxy() ? widget.focusProxy() : &widget, shown(text));
    return settle(control);
  }

  bool choose(Control& control, int position) override {
    QWidget& widget = within(control);
    if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
      combo->showPopup();
      combo->view()->setCurrentIndex(combo->model()->index(position, 0));
      QTest::keyClick(combo->view(), Qt::Key_Return);
    } else if (auto* list = qobject_cast<QListWidget*>(&widget)) {
      list->scrollToItem(list->item(position));
      pressAt(*list->viewport(), list->visualItemRect(list->item(position)));
    } else if (auto* tree = qobject_cast<QTreeWidget*>(&widget)) {
      pressAt(*tree->viewport(), tree->visualItemRect(nodeAt(*tree, position)));
    } else if (auto* tabs = qobject_cast<QTabWidget*>(&widget)) {
      pressAt(*tabs->tabBar(), tabs->tabBar()->tabRect(position));
    } else {
      throw std::logic_error(control.name() + ": nothing can be chosen there");
    }
    return settle(control);
  }

  bool pickDate(DatePicker& picker, DateTime date) override {
    auto& edit = dynamic_cast<QDateEdit&>(within(picker));
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
    EXPECT_EQ(acts(*widget), control.isReachable()) << control.name();
    Sight sight;
    EXPECT_TRUE(
        std::ranges::any_of(looks, [&](const Look& row) { return row(control, *widget, sight); }))
        << control.name() << ": nobody knows how to look at this";
    EXPECT_EQ(sight.drawn, sight.held) << control.name();
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
    if (!acts(*widget)) throw std::logic_error(place + " is disabled");
    // Without a window system nobody gives the window back what a pop-up has taken.
    QApplication::setActiveWindow(&window_);
    return *widget;
  }

  static void pressAt(QWidget& widget, const QRect& place) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, place.center());
  }

  static QTreeWidgetItem* nodeAt(const QTreeWidget& tree, int position) {
    for (QTreeWidgetItemIterator node(const_cast<QTreeWidget*>(&tree)); *node; ++node) {
      if ((*node)->data(0, Qt::UserRole).toInt() == position) return *node;
    }
    throw std::logic_error("there is no node " + std::to_string(position));
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

class QtReader : public ReportDriver {
 public:
  explicit QtReader(QWidget& window) : window_(window) {
    QPdfDocument& document = *window.findChild<desktop::PdfPages*>()->document();
    for (int page = 0; page < document.pageCount(); ++page)
      drawn_ += inked(document.getAllText(page).text());
  }
  void close() override { window_.close(); }
  void look(const ReportLabel& label) override {
    EXPECT_TRUE(drawn_.contains(inked(shown(label.caption()))))
        << label.name() << " of " << plain(drawn_);
  }

 private:
  /// Lines and pages break where they may.
  static QString inked(QString text) { return text.remove(QRegularExpression("\\s")); }

  QWidget& window_;
  QString drawn_;
};

/// Runs `show` and, when it has brought up a window, `act` in that.
void inNextWindow(const std::function<void()>& show, const std::function<void(QWidget&)>& act) {
  QObject scope;
  QTimer::singleShot(0, &scope, [&] {
    QWidget& window = *QApplication::activeModalWidget();
    QApplication::setActiveWindow(&window);
    act(window);
  });
  show();
}

}  // namespace

QtRenderer::QtRenderer() {
  program_.show();
}

void QtRenderer::show(Form& form, const Use& use) {
  inNextWindow([&] { host_.showModal(form, nullptr); },
               [&](QWidget& window) {
                 QtDriver driver(form, window);
                 use(driver);
                 host_.formHidden(form);
               });
}

void QtRenderer::show(Report& report, const ReportUse& use) {
  inNextWindow([&] { host_.showReport(report, nullptr); },
               [&](QWidget& window) {
                 QtReader driver(window);
                 use(driver);
                 host_.reportClosed(report);
               });
}

}  // namespace autonotify::test
