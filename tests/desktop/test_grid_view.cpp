#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QPrintDialog>

#include "FormHostTest.h"
#include "binding/GridBinding.h"
#include "preview/PdfPages.h"
#include "support/TestHost.h"

namespace autonotify::test {
namespace {

using desktop::plain;

class CountingModel : public desktop::GridTableModel {
 public:
  using GridTableModel::GridTableModel;
  QVariant data(const QModelIndex& index, int role) const override {
    ++asked;
    return GridTableModel::data(index, role);
  }
  mutable int asked = 0;
};

class GridView : public FormHostTest {
 protected:
  void fill(int rows) {
    for (int row = 0; row < rows; ++row) grid_.put_CellText(grid_.AddItem(), 0, Id{row});
  }

  /// Runs `show` and, as soon as that has brought up such a dialog, `act` in it.
  template <class Dialog>
  static void inDialog(const std::function<void()>& show, const std::function<void(Dialog&)>& act) {
    QTimer clock;
    clock.callOnTimeout([&] {
      auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      clock.stop();
      act(*dialog);
    });
    clock.start(0);
    show();
  }

  /// Does `act` while the window with the grid is on the screen.
  void show(const std::function<void(QTableView&)>& act) {
    QTimer::singleShot(0, &program_, [&] {
      QApplication::setActiveWindow(&window());
      QApplication::processEvents();
      act(widget<QTableView>(grid_));
      owner_.hide();
    });
    owner_.showModal(nullptr);
  }

  Form owner_{host_, "frmGrid"};
  Grid grid_{owner_, host_, "flexGrid"};
};

TEST_F(GridView, IsAskedForWhatItShowsHoweverManyRowsThereAre) {
  for (const std::int16_t type : {grid_column::text, grid_column::tick, grid_column::button})
    grid_.AddColumn({"a", 900, 4, type});
  int asked[2];
  for (int& count : asked) {
    fill(&count == asked ? 1000 : 999'000);
    CountingModel model(grid_);
    desktop::GridCellDelegate delegate(grid_);
    QTableView view;
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    view.resize(400, 300);
    view.show();
    model.reload();
    QApplication::processEvents();
    view.scrollToBottom();
    view.repaint();
    count = model.asked;
  }
  EXPECT_GT(asked[0], 0);
  EXPECT_EQ(asked[0], asked[1]);
}

TEST_F(GridView, CutsTheWidestColumnsFirst) {
  const std::vector<desktop::ColumnWish> columns{
      {60, 50, 40, false}, {200, 40, 400, false}, {80, 100, 110, true}};
  const std::map<double, std::vector<double>> widths{{740, {120, 400, 220}},
                                                     {370, {60, 200, 110}},
                                                     {360, {40, 210, 110}},
                                                     {300, {40, 150, 110}},
                                                     {200, {60, 200, 110}}};
  for (const auto& [room, expected] : widths)
    EXPECT_THAT(desktop::fitColumns(columns, room),
                testing::Pointwise(testing::DoubleNear(0.01), expected))
        << room;
  const std::vector<desktop::ColumnWish> worded{{200, 40, 400, false}, {80, 120, 40, false, 70}};
  EXPECT_EQ(desktop::fitColumns(worded, 140), (std::vector<double>{70, 70}));
}

TEST_F(GridView, TellsItsViewsOfEveryChange) {
  desktop::GridTableModel model(grid_);
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  grid_.onRowChange = [&](const RowChange& change) { model.showChange(change); };
  grid_.onRender = [&](Aspect) { model.reload(); };
  grid_.AddColumn({"a", 900});
  fill(3);
  grid_.put_CellText(1, 0, "changed");
  model.showChange({RowChange::Kind::removed, 2});
  EXPECT_EQ(model.rowCount(), 2);
  grid_.put_Redraw(false);
  grid_.ClearAll();
  EXPECT_EQ(model.rowCount(), 2) << "as it was told last";
  EXPECT_FALSE(model.data(model.index(1, 0), Qt::DisplayRole).isValid()) << "it has gone since";
  EXPECT_FALSE(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).isValid());
  grid_.put_Redraw(true);
  EXPECT_EQ(model.rowCount() + model.columnCount(), 0);
}

TEST_F(GridView, DoesOnceWhatIsAskedForInHaste) {
  grid_.AddColumn({"", 1500, 5, grid_column::button});
  fill(2);
  std::function<void()> meanwhile;
  int done = 0;
  grid_.onCellButtonClick = [&](int, int) {
    ++done;
    if (meanwhile) meanwhile();
  };
  show([&](QTableView& table) {
    const QPoint button = table.visualRect(table.model()->index(1, 0)).center();
    const auto click = [&] { QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, button); };
    meanwhile = click;
    click();
    EXPECT_EQ(done, 1) << "it was still at work";
    meanwhile = nullptr;
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, button);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, button);
    EXPECT_EQ(done, 1) << "the second click of two";
    click();
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_EQ(done, 3);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Space, {}, " ", true);
    QApplication::sendEvent(&table, &held);
    EXPECT_EQ(done, 3) << "the key is held down";
  });
}

TEST_F(GridView, ShowsNoRowsThatAreHalfDone) {
  grid_.AddColumn({"Client"});
  fill(2);
  grid_.put_Row(1);
  show([&](QTableView& table) {
    for (const bool isPainted : {false, true}) {
      grid_.setVisible(false);
      grid_.put_Redraw(isPainted);
      grid_.setVisible(true);
      QApplication::processEvents();
      EXPECT_EQ(table.model()->rowCount(), isPainted ? 2 : 0);
      EXPECT_EQ(table.currentIndex().row(), isPainted ? 1 : -1);
      EXPECT_EQ(table.findChild<QLabel*>()->isVisible(), !isPainted);
    }
  });
}

TEST_F(GridView, KeepsItsFirstColumnsInSight) {
  for (const char* heading : {"Client", "b", "c", "d", "e"}) grid_.AddColumn({heading, 4500});
  grid_.BindControl(0, nullptr, 12);
  fill(3);
  grid_.put(GridSetting::FreezeAtCol, 0);
  int edited = -1;
  grid_.onAfterEdit = [&](int row, int, bool&) { edited = row; };
  show([&](QTableView& table) {
    auto& frozen = *table.findChild<QTableView*>();
    EXPECT_TRUE(frozen.isVisible());
    EXPECT_EQ(frozen.width(), table.columnWidth(0));
    table.horizontalScrollBar()->setValue(table.horizontalScrollBar()->maximum());
    QTest::mouseClick(frozen.viewport(), Qt::LeftButton, {},
                      frozen.visualRect(table.model()->index(2, 0)).center());
    EXPECT_EQ(edited, 2);
    table.setCurrentIndex(table.model()->index(2, 1));
    QApplication::processEvents();
    EXPECT_EQ(table.visualRect(table.currentIndex()).left(), frozen.width()) << "not below it";
    grid_.put(GridSetting::FreezeAtCol, -1);
    EXPECT_FALSE(frozen.isVisible());
  });
}

TEST_F(GridView, SaysWhatItsCellsAreAndHowManyAreTicked) {
  QTableView table;
  table.setProperty("nameColumns", "1 9");
  desktop::GridTableModel model(grid_, desktop::GridLook(table));
  table.setModel(&model);
  const desktop::GridTotals totals(grid_, table);
  for (const auto type :
       {grid_column::hiddenKey, grid_column::text, grid_column::tick, grid_column::button})
    grid_.AddColumn({"Sent", 900, 4, type, 0, false, 0, type != grid_column::hiddenKey});
  fill(120);
  grid_.put_CellText(0, 1, "Anaïs Côté");
  grid_.put_CellText(0, 3, "Send Now");
  grid_.put_cellChecked(0, 2, true);
  model.reload();
  const char* spoken[] = {"0", "Anaïs Côté", "Sent, ticked", "Send Now, Anaïs Côté"};
  const char* total[] = {"", "Rows: 120", "1", ""};
  for (int column = 0; column < 4; ++column) {
    EXPECT_EQ(plain(model.data(model.index(0, column), Qt::AccessibleTextRole).toString()),
              spoken[column]);
    EXPECT_EQ(plain(totals.totalOf(column)), total[column]);
  }
}

TEST_F(GridView, IsPrintedBelowItsHeadingsOnEveryPage) {
  for (const char* heading : {"Client", "Cut off", "Never"}) grid_.AddColumn({heading, 900});
  grid_.AddColumn({"Sent", 300, 4, grid_column::tick});
  fill(200);
  grid_.put_ColWidth(1, 0);
  grid_.put_cellChecked(7, 3, true);
  QStringList pages;
  bool isTurned = true;
  const auto read = [&](desktop::ModalWindow& preview) {
    const QPdfDocument& pdf = *preview.findChild<desktop::PdfPages*>()->document();
    isTurned = pdf.pagePointSize(0).width() > pdf.pagePointSize(0).height();
    for (int page = 0; page < pdf.pageCount(); ++page)
      pages << const_cast<QPdfDocument&>(pdf).getAllText(page).text();
    preview.close();
  };
  inDialog<desktop::ModalWindow>(
      [&] { grid_.openHalvornGridPrintPreviewForm("What is due", 1, 1); }, read);
  EXPECT_GT(pages.size(), 2);
  for (const QString& page : pages) EXPECT_EQ(page.count("Client"), 1) << plain(page);
  const QStringList words = pages.join("\n").split(QRegularExpression("\\s"), Qt::SkipEmptyParts);
  for (int row = 0; row < 200; ++row) EXPECT_TRUE(words.contains(QString::number(row))) << row;
  for (const char* absent : {"Cut", "Never", "Sent", "Yes"}) EXPECT_FALSE(words.contains(absent));
  EXPECT_TRUE(pages.front().startsWith("What is due"));
  EXPECT_FALSE(isTurned);
  pages.clear();
  grid_.put_ColWidth(0, 15'000);
  inDialog<QPrintDialog>([&] { grid_.printGrid(true, "", 3); },
                         [&](QPrintDialog& printer) {
                           read(dynamic_cast<desktop::ModalWindow&>(*printer.parentWidget()));
                           printer.reject();
                         });
  EXPECT_EQ(pages.join("").count("Yes"), 1);
  EXPECT_TRUE(isTurned) << "too wide for upright paper";
}

TEST_F(GridView, OptionsAreThoseThatAreStoredOfTheUser) {
  AttachedHost host([](TableRows rows) {
    for (const Id user : {7, 8}) rows.addRow("UserGridSettings2", {{"UserIDNum", user}});
  });
  for (const char* heading : {"", "Client"}) grid_.AddColumn({heading});
  grid_.put_DatabaseReference(&host.database);
  grid_.put_LocaleReference(&host.locale);
  const std::string before = host.dump("SELECT UserGridSettings2.* FROM UserGridSettings2;");
  const auto choose = [&](bool accepts) {
    bool isCancelled = false;
    inDialog<QDialog>([&] { isCancelled = grid_.openHalvornGridSettingsForm(); },
                      [&](QDialog& dialog) {
                        dialog.findChild<QCheckBox*>("wraps")->click();
                        dialog.findChild<QComboBox*>("frozen")->setCurrentIndex(1);
                        accepts ? dialog.accept() : dialog.reject();
                      });
    return isCancelled;
  };
  EXPECT_TRUE(choose(false));
  EXPECT_EQ(host.dump("SELECT UserGridSettings2.* FROM UserGridSettings2;"), before);
  EXPECT_FALSE(choose(true));
  EXPECT_EQ(host.rowCount("UserGridSettings2 WHERE autoNotifyGridWordWrap=True AND "
                          "autoNotifyGridLockNameColumn=True AND autoNotifyGridLockColumnNum=1"),
            1);
  inDialog<QMessageBox>([&] { EXPECT_TRUE(grid_.openHalvornGridPropertiesForm()); },
                        [](QMessageBox& box) {
                          EXPECT_TRUE(box.text().startsWith("Rows: 0."));
                          box.accept();
                        });
}

}  // namespace
}  // namespace autonotify::test
