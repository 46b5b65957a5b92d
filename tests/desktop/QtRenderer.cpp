#include "QtRenderer.h"

#include <gtest/gtest.h>

#include <QPdfDocument>
#include <QPdfSelection>
#include <QTest>
#include <QtWidgets>
#include <utility>

#include "SortHeader.h"
#include "binding/DateBinding.h"
#include "preview/PdfPages.h"
#include "qt_text.h"
#include "richtext/RichTextEditor.h"
#include "support/all_controls.h"

namespace autonotify::test {
namespace {

using desktop::plain;
using desktop::shown;

std::string tick(bool isTicked) {
  return isTicked ? "ticked" : "clear";
}

/// What a control holds and what is read in its widget, in the same words.
struct Sight {
  std::string held, drawn;
};

/// A caption; the layout's where the program has given none.
std::string captionOf(const Control& control, const QString& drawn) {
  return control.caption().empty() ? plain(drawn) : control.caption();
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

/// A width in pixels; nothing in a table that gives its columns what room there is.
QString widthIn(const QTableView& table, int pixels) {
  return table.property("stretches").toBool() ? QString() : QString::number(pixels);
}

/// The headings with their widths and the rows, as the model holds them.
QString heldText(const Grid& grid, const QTableView& table) {
  QString text = QString("%1 %2 ").arg(grid.get_Row()).arg(grid.sortKeys()[0].column);
  for (int column = 0; column < grid.get_Cols(); ++column) {
    if (!grid.showsColumn(column)) continue;
    const int pixels = qRound(grid.get_ColWidth(column) * table.logicalDpiX() / 1440.0);
    text += "|" + shown(grid.get_ColHeading(column)) + " " + widthIn(table, pixels);
    const bool isTick = grid.get_colType(column) == grid_column::tick;
    for (int row = 0; row < grid.get_Rows(); ++row)
      text += "," + (isTick ? QString::number(2 * grid.get_cellChecked(row, column))
                            : shown(grid.get_CellText(row, column)));
  }
  return text;
}

QString drawnText(const QTableView& table) {
  const QHeaderView& header = *table.horizontalHeader();
  const QAbstractItemModel& model = *table.model();
  const int sorted = header.isSortIndicatorShown() ? header.sortIndicatorSection() : -1;
  QString text = QString("%1 %2 ").arg(table.currentIndex().row()).arg(sorted);
  for (int column = 0; column < model.columnCount(); ++column) {
    if (table.isColumnHidden(column)) continue;
    text += "|" + model.headerData(column, Qt::Horizontal).toString() + " " +
            widthIn(table, table.columnWidth(column));
    for (int row = 0; row < model.rowCount(); ++row) {
      const QModelIndex cell = model.index(row, column);
      const QVariant tick = cell.data(Qt::CheckStateRole);
      text += "," + (tick.isValid() ? tick : cell.data()).toString();
    }
  }
  return text;
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

// What is held and what is drawn, told of `model` and `widget`.
#define LOOK(ControlType, WidgetType, held, drawn) \
  lookAt<ControlType, WidgetType>([](auto& model, auto& widget) { return Sight{held, drawn}; })
const Look looks[] = {
    LOOK(TextBox, QLineEdit, model.text(), plain(widget.text())),
    LOOK(ComboBox, QComboBox, model.text() + "/" + std::to_string(model.listCount()),
         plain(widget.currentText()) + "/" + std::to_string(widget.count())),
    LOOK(CheckBox, QAbstractButton, tick(model.value()), tick(widget.isChecked())),
    LOOK(OptionButton, QRadioButton, tick(model.value()), tick(widget.isChecked())),
    LOOK(DatePicker, desktop::CalendarButton, plain(desktop::qtDate(model.value()).toString()),
         plain(widget.date().toString())),
    LOOK(RichTextBox, desktop::RichTextEditor, plain(shown(model.text()).replace("\r\n", "\n")),
         plain(widget.template findChild<const QTextEdit*>()->toPlainText())),
    LOOK(ListBox, QListWidget, heldText(model), plain(currentText(widget))),
    LOOK(TreeView, QTreeWidget, model.selectedNode() ? model.selectedNode()->text : std::string(),
         plain(currentText(widget))),
    LOOK(Grid, QTableView, plain(heldText(model, widget)), plain(drawnText(widget))),
    LOOK(TabControl, QTabWidget, model.pages().at(static_cast<std::size_t>(model.tab())),
         plain(widget.tabText(widget.currentIndex()))),
    LOOK(ProgressBar, QProgressBar, std::to_string(model.value()), std::to_string(widget.value())),
    LOOK(Label, QLabel, captionOf(model, widget.text()), plain(widget.text())),
    LOOK(Button, QAbstractButton, captionOf(model, widget.text()), plain(widget.text())),
    LOOK(Frame, QGroupBox, captionOf(model, widget.title()), plain(widget.title())),
    lookAt<Frame, QFrame>([](auto&, auto&) { return Sight{}; }),
};
#undef LOOK

/// False when a person can only read it.
bool acts(const QWidget& widget) {
  auto* editor = qobject_cast<const desktop::RichTextEditor*>(&widget);
  return editor ? !editor->findChild<const QTextEdit*>()->isReadOnly() : widget.isEnabled();
}

class QtDriver : public WindowDriver {
 public:
  QtDriver(Form& form, QWidget& window) : WindowDriver(form), form_(form), window_(window) {}

  bool click(Control& control) override {
    QWidget& widget = within(control);
    pressAt(widget, placeToClick(widget));
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
    auto& button = dynamic_cast<desktop::CalendarButton&>(within(picker));
    QTest::mouseClick(&button, Qt::LeftButton);
    QApplication::processEvents();
    QCalendarWidget& calendar = button.calendar();
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

  bool clickCell(Grid& grid, int row, int column) override {
    QTableView& table = tableOf(grid, row, column);
    const QModelIndex cell = table.model()->index(row, column);
    table.scrollTo(cell);
    pressAt(*table.viewport(), table.visualRect(cell));
    return settle(grid);
  }

  /// With the mouse and by keys in turn.
  bool clickHeading(Grid& grid, int column) override {
    QHeaderView& header = *tableOf(grid, -1, column).horizontalHeader();
    if (std::exchange(isKeyNext_, !isKeyNext_)) {
      auto& headings = static_cast<desktop::SortHeader&>(header);
      headings.setCurrent(column);
      QTest::keyClick(&headings, Qt::Key_Space);
      headings.setCurrent(-1);
      return settle(grid);
    }
    const int middle = header.sectionViewportPosition(column) + header.sectionSize(column) / 2;
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {middle, header.height() / 2});
    return settle(grid);
  }

  bool sizeColumn(Grid& grid, int column, int width) override {
    QTableView& table = tableOf(grid, -1, column);
    if (table.horizontalHeader()->sectionResizeMode(column) != QHeaderView::Interactive)
      throw std::logic_error(grid.name() + ": its columns cannot be sized");
    table.setFocus(Qt::TabFocusReason);
    table.setColumnWidth(column, qRound(width * table.logicalDpiX() / 1440.0));
    return settle(grid);
  }

  bool rightClick(Grid& grid) override {
    auto& table = dynamic_cast<QTableView&>(within(grid));
    table.setFocus(Qt::TabFocusReason);
    QTest::mouseClick(table.viewport(), Qt::RightButton);
    return settle(grid);
  }

  bool closeBox() override {
    window_.close();
    return !form_.isLoaded();
  }

  void look(const Control& control) override {
    QApplication::processEvents();
    const QWidget* widget = find(control);
    ASSERT_NE(widget, nullptr) << control.name();
    EXPECT_EQ(widget->isVisibleTo(&window_), control.isShown()) << control.name();
    if (!control.isShown()) return;
    const bool isForReading = widget->property("forReading").toBool();
    EXPECT_EQ(acts(*widget), control.isReachable() && !isForReading) << control.name();
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

  /// A check box that is wider than its words takes no click behind them.
  static QRect placeToClick(QWidget& widget) {
    if (!qobject_cast<QCheckBox*>(&widget)) return widget.rect();
    QStyleOptionButton option;
    option.initFrom(&widget);
    return widget.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &widget);
  }

  static void pressAt(QWidget& widget, const QRect& place) {
    QTest::mouseClick(&widget, Qt::LeftButton, {}, place.center());
  }

  /// The table, where it has that row (-1: any) and shows that column.
  QTableView& tableOf(Grid& grid, int row, int column) const {
    auto& table = dynamic_cast<QTableView&>(within(grid));
    QApplication::processEvents();
    const QAbstractItemModel& model = *table.model();
    if (row >= model.rowCount() || column >= model.columnCount() || table.isColumnHidden(column))
      throw std::logic_error(grid.name() + ": there is no such cell");
    return table;
  }

  static QTreeWidgetItem* nodeAt(const QTreeWidget& tree, int position) {
    for (QTreeWidgetItemIterator node(const_cast<QTreeWidget*>(&tree)); *node; ++node)
      if ((*node)->data(0, Qt::UserRole).toInt() == position) return *node;
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
  bool isKeyNext_ = false;
};

class QtReader : public ReportDriver {
 public:
  QtReader(Report& report, QWidget& window) : ReportDriver(report), window_(window) {
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
                 QtReader driver(report, window);
                 use(driver);
                 host_.reportClosed(report);
               });
}

}  // namespace autonotify::test
