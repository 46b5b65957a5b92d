// Times what a person waits for. Usage:
//   first_paint                 an empty window, the floor
//   first_paint DATABASE        the window with the day
//   first_paint --acts DATABASE the acts in that window, one a line
//   first_paint --scroll DATABASE
//                               one hundred places of the list of notifications, from end to end
// A window's first paint is told as the steady clock's milliseconds: whoever started the program
// knows when that was.
#include <time.h>

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTreeView>
#include <algorithm>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <vector>

#include "MainWindow.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

double steadyMilliseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// Tells when a widget has been painted.
class PaintWatch : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    const bool isPaint = onPaint && event->type() == QEvent::Paint;
    const bool answer = QApplication::notify(receiver, event);
    if (isPaint) onPaint(*receiver);
    return answer;
  }
  /// Runs events until the widget has been painted; when that was.
  double waitForPaint(const QWidget& widget) {
    double painted = 0;
    onPaint = [&](const QObject& each) {
      if (&each == &widget) painted = steadyMilliseconds();
    };
    while (painted == 0) processEvents(QEventLoop::WaitForMoreEvents);
    onPaint = nullptr;
    return painted;
  }

  std::function<void(QObject& painted)> onPaint;
};

host::DeskOptions optionsFor(const QString& database) {
  host::DeskOptions options;
  options.database = plain(database);
  options.today = DateTime::of(2026, 4, 15);
  return options;
}

/// Until nothing that was put off is left to do.
void settle() {
  for (int round = 0; round < 10; ++round) QApplication::processEvents();
}

struct Act {
  const char* words;
  std::function<void()> run;
};

using Seen = std::function<void(QWidget& list, QTableView& table, QObject& painted)>;

/// Opens the list of notifications until it is closed; tells each paint in it.
void openList(PaintWatch& app, MainWindow& window, const Seen& seen) {
  app.onPaint = [&](QObject& painted) {
    auto* list = QApplication::activeModalWidget();
    auto* table = list ? list->findChild<QTableView*>("AutoNotifyFlexGrid") : nullptr;
    if (table) seen(*list, *table, painted);
  };
  window.findChild<QAction*>("notifications")->trigger();
  app.onPaint = nullptr;
}

double milliseconds(const QElapsedTimer& clock) {
  return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

/// Until the window of the list of notifications is seen, which has read nothing by then, and until
/// its rows are.
void timeList(PaintWatch& app, MainWindow& window, QTextStream& out) {
  QElapsedTimer clock;
  std::optional<double> seen;
  std::optional<double> filled;
  int count = 0;
  clock.start();
  openList(app, window, [&](QWidget& list, QTableView& table, QObject& painted) {
    if (filled) return;
    const QAbstractItemModel& rows = *table.model();
    if (&painted == &list && !seen && rows.columnCount() == 0) seen = milliseconds(clock);
    if (&painted != table.viewport() || rows.rowCount() == 0) return;
    filled = milliseconds(clock);
    count = rows.rowCount();
    QMetaObject::invokeMethod(&list, "close", Qt::QueuedConnection);
  });
  out << "the window of the list of notifications\t" << seen.value() << '\n';
  out << "its " << count << " rows\t" << filled.value() << '\n';
}

/// What the processor needs until a place between the first row and the last one has been painted,
/// in milliseconds: the median of so many.
double timePlaces(QTableView& table, int places) {
  const QAbstractItemModel& rows = *table.model();
  const int last = rows.rowCount() - 1;
  std::vector<double> times;
  for (int place = 0; place < places; ++place) {
    const auto row = static_cast<int>(std::int64_t{last} * place / (places - 1));
    const std::clock_t start = std::clock();
    table.scrollTo(rows.index(row, table.currentIndex().column()));
    table.viewport()->repaint();
    times.push_back(static_cast<double>(std::clock() - start) * 1e3 / CLOCKS_PER_SEC);
  }
  std::ranges::nth_element(times, times.begin() + places / 2);
  return times[static_cast<std::size_t>(places) / 2];
}

void timeScrolling(PaintWatch& app, const QString& database) {
  constexpr int places = 100;
  MainWindow window(optionsFor(database));
  window.show();
  settle();
  std::optional<double> elapsed;
  int count = 0;
  bool isBegun = false;
  openList(app, window, [&](QWidget& list, QTableView& table, QObject& painted) {
    if (&painted != table.viewport() || table.model()->rowCount() == 0 || isBegun) return;
    isBegun = true;
    const auto scroll = [&] {
      settle();
      count = table.model()->rowCount();
      elapsed = timePlaces(table, places);
      list.close();
    };
    QMetaObject::invokeMethod(&list, scroll, Qt::QueuedConnection);
  });
  QTextStream(stdout) << "a place among " << count << " rows\t" << elapsed.value() << '\n';
}

/// The page of the day, until it stands; and the way to the tasks.
void timePages(PaintWatch& app, MainWindow& window, QTextStream& out) {
  auto& day = *window.findChild<QTreeView*>("day");
  QElapsedTimer clock;
  clock.start();
  app.waitForPaint(*day.viewport());
  out << "the page of the day\t" << milliseconds(clock) << '\n';
  while (day.model()->rowCount(day.model()->index(0, 0)) == 0) QApplication::processEvents();
  out << "its rows\t" << milliseconds(clock) << '\n';
  settle();
  out << "its counts and its picture\t" << milliseconds(clock) << '\n';
  clock.restart();
  window.goTo(Navigation::Place::tasks);
  app.waitForPaint(*window.findChild<QTableView*>("tasks")->viewport());
  out << "the tasks\t" << milliseconds(clock) << '\n';
  settle();
}

void timeTable(PaintWatch& app, MainWindow& window, QTextStream& out) {
  auto& table = *window.findChild<QTableView*>("tasks");
  auto& filter = *window.findChild<QLineEdit*>("filter");
  auto& due = *window.findChild<QCheckBox*>("dueOnly");
  const auto sort = [&](int column, Qt::SortOrder order) {
    return [&table, column, order] { table.sortByColumn(column, order); };
  };
  // Typing pauses before it finds: Down does not wait.
  const auto find = [&](const char* text) {
    return [&filter, text] {
      filter.setText(text);
      QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
      QApplication::sendEvent(&filter, &down);
    };
  };
  const Act acts[] = {
      {"sort by due date, last first", sort(TaskTableModel::dueDate, Qt::DescendingOrder)},
      {"sort by task", sort(TaskTableModel::task, Qt::AscendingOrder)},
      {"sort by task, last first", sort(TaskTableModel::task, Qt::DescendingOrder)},
      {"sort by client", sort(TaskTableModel::client, Qt::AscendingOrder)},
      {"sort by client, last first", sort(TaskTableModel::client, Qt::DescendingOrder)},
      {"sort by due date", sort(TaskTableModel::dueDate, Qt::AscendingOrder)},
      {"filter: many", find("ltd")},
      {"filter: few", find("Maple Ridge Law Gr")},
      {"filter: none", find("xyzzy")},
      {"filter: cleared", find("")},
      {"due today alone", [&] { due.click(); }},
      {"all again", [&] { due.click(); }},
  };
  for (const Act& act : acts) {
    QElapsedTimer clock;
    clock.start();
    act.run();
    app.waitForPaint(*table.viewport());
    out << act.words << '\t' << milliseconds(clock) << '\n';
    settle();
  }
}

void timeActs(PaintWatch& app, const QString& database) {
  MainWindow window(optionsFor(database));
  window.show();
  QTextStream out(stdout);
  timePages(app, window, out);
  timeTable(app, window, out);
  timeList(app, window, out);
}

void timeFirstPaint(PaintWatch& app, const QStringList& places) {
  std::unique_ptr<QMainWindow> window;
  QWidget* watched = nullptr;
  if (places.isEmpty()) {
    window = std::make_unique<QMainWindow>();
    window->resize(1000, 640);
    watched = window.get();
  } else {
    window = std::make_unique<MainWindow>(optionsFor(places.front()));
    watched = window->findChild<QTreeView*>("day")->viewport();
  }
  window->show();
  QTextStream(stdout) << QString::number(app.waitForPaint(*watched), 'f', 3) << '\n';
}

int run(int argc, char** argv) {
  const QTemporaryDir settings;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
  PaintWatch app(argc, argv);
  QApplication::setApplicationName("first_paint");
  QApplication::setOrganizationName("hvnotify-bench");
  const QStringList places = QApplication::arguments().mid(1);
  const QString mode = places.value(0);
  if (mode == "--acts") {
    timeActs(app, places.value(1));
  } else if (mode == "--scroll") {
    timeScrolling(app, places.value(1));
  } else {
    timeFirstPaint(app, places);
  }
  return 0;
}

}  // namespace
}  // namespace autonotify::desktop

int main(int argc, char** argv) {
  return autonotify::desktop::run(argc, argv);
}
