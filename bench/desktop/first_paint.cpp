// Times what a person waits for. Usage:
//   first_paint                 an empty window, the floor
//   first_paint DATABASE        the window with the open tasks
//   first_paint --acts DATABASE the acts in that window, one a line
// A window's first paint is told as the steady clock's milliseconds: whoever started the program
// knows when that was.
#include <time.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTextStream>
#include <functional>

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
    const bool isPaint = receiver == watched_ && event->type() == QEvent::Paint;
    const bool answer = QApplication::notify(receiver, event);
    if (isPaint) painted_ = steadyMilliseconds();
    return answer;
  }
  /// Runs events until the widget has been painted; when that was.
  double waitForPaint(const QWidget& widget) {
    watched_ = &widget;
    painted_ = 0;
    while (painted_ == 0) processEvents(QEventLoop::WaitForMoreEvents);
    watched_ = nullptr;
    return painted_;
  }

 private:
  const QObject* watched_ = nullptr;
  double painted_ = 0;
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

void timeActs(PaintWatch& app, const QString& database) {
  MainWindow window(optionsFor(database));
  window.show();
  auto& table = *window.findChild<QTableView*>("tasks");
  auto& filter = *window.findChild<QLineEdit*>("filter");
  auto& due = *window.findChild<QPushButton*>("dueBadge");
  QTextStream out(stdout);
  QElapsedTimer clock;
  clock.start();
  app.waitForPaint(*table.viewport());
  settle();
  out << "counts after the first paint\t" << clock.nsecsElapsed() / 1e6 << '\n';
  const auto sort = [&](int column, Qt::SortOrder order) {
    return [&table, column, order] { table.sortByColumn(column, order); };
  };
  const auto find = [&](const char* text) { return [&filter, text] { filter.setText(text); }; };
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
    clock.restart();
    act.run();
    app.waitForPaint(*table.viewport());
    out << act.words << '\t' << clock.nsecsElapsed() / 1e6 << '\n';
    settle();
  }
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
    watched = window->findChild<QTableView*>("tasks")->viewport();
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
  QStringList places = QApplication::arguments().mid(1);
  if (!places.isEmpty() && places.front() == "--acts") {
    timeActs(app, places.value(1));
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
