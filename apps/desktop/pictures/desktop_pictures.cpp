// Takes the pictures of the documentation. Usage: desktop_pictures [--dark] DATABASE FOLDER
// With --dark in dark colours, and each with "-dark" in its name; in the language of the session.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QScreen>
#include <QTableView>
#include <QTextStream>
#include <QTimer>
#include <functional>
#include <vector>

#include "MainWindow.h"
#include "host/desk/rows/DiaryItem.h"
#include "icon_theme.h"
#include "qt_text.h"
#include "translations.h"

namespace autonotify::desktop {
namespace {

QPalette darkPalette() {
  QPalette palette(QColor(53, 53, 53));
  palette.setColor(QPalette::Base, QColor(35, 35, 35));
  palette.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
  palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
  palette.setColor(QPalette::Link, QColor(90, 170, 250));
  for (const auto role :
       {QPalette::WindowText, QPalette::ButtonText, QPalette::Text, QPalette::PlaceholderText})
    palette.setColor(QPalette::Disabled, role, QColor(127, 127, 127));
  return palette;
}

/// A window that comes up.
struct Step {
  /// Of its picture; empty for none.
  QString name;
  std::function<void(QWidget& window)> leave;
};

class Photographer {
 public:
  Photographer(QString folder, QString ending)
      : folder_(std::move(folder)), ending_(std::move(ending)) {}

  void take(QWidget& window, const QString& name) {
    // The counts and the first page come after the first paint.
    for (int round = 0; round < 5; ++round) QApplication::processEvents();
    if (!window.grab().save(QDir(folder_).filePath(name + ending_ + ".png")))
      tellFault("cannot write " + name);
  }
  /// Does `act`, which opens windows one after another; takes each and leaves it for the next.
  void takeEach(const std::function<void()>& act, const std::vector<Step>& steps) {
    std::size_t taken = 0;
    QObject walk;
    waitFor(walk, nullptr, steps, taken);
    act();
    if (taken < steps.size()) tellFault("no window came up for " + steps[taken].name);
  }
  bool hasFailed() const { return hasFailed_; }

 private:
  /// Waits for another window than the one before, until `walk` ends.
  void waitFor(QObject& walk, const QWidget* before, const std::vector<Step>& steps,
               std::size_t& taken) {
    QTimer::singleShot(300, &walk, [&, before] {
      QWidget* window = QApplication::activeModalWidget();
      if (taken == steps.size()) return;
      if (!window || window == before) return waitFor(walk, before, steps, taken);
      const Step& step = steps[taken++];
      if (!step.name.isEmpty()) take(*window, step.name);
      waitFor(walk, window, steps, taken);
      step.leave(*window);
    });
  }

  void tellFault(const QString& words) {
    QTextStream(stderr) << words << Qt::endl;
    hasFailed_ = true;
  }

  QString folder_;
  QString ending_;
  bool hasFailed_ = false;
};

using Wish = std::function<bool(const host::TaskLine& line)>;

/// Chooses the first task that is as wished.
void chooseTask(QTableView& table, const Wish& isWished) {
  auto& tasks = static_cast<TaskTableModel&>(*table.model());
  for (int row = 0; row < tasks.rowCount(); ++row) {
    if (row + 1 == tasks.rowCount()) tasks.fetchMore({});
    if (isWished(tasks.lineAt(tasks.index(row, 0)))) return table.selectRow(row);
  }
}

bool waitsForNoEmail(const host::TaskLine& line) {
  return !(line.pendingChannels & nt_Email);
}

/// By a call among others.
bool waitsForMany(const host::TaskLine& line) {
  return (line.pendingChannels & nt_Phone) && line.pendingChannels != nt_Phone;
}

std::function<void(QWidget& top)> press(const char* name) {
  return [name](QWidget& top) { top.findChild<QAbstractButton*>(name)->click(); };
}

void close(QWidget& top) {
  top.close();
}

void takeWindowsOfTasks(Photographer& photographer, MainWindow& window) {
  auto& table = *window.findChild<QTableView*>("tasks");
  const auto run = [&](const char* command) {
    return [&window, command] { window.findChild<QAction*>(command)->trigger(); };
  };
  table.sortByColumn(TaskTableModel::dueDate, Qt::DescendingOrder);
  chooseTask(table, waitsForNoEmail);
  photographer.takeEach(run("scheduleEmail"), {{"email-composer", press("cmdCancel")}});
  photographer.takeEach(run("notifyNow"), {{"notify-now", press("chkNotify(2)")},
                                           {"letter-composer", press("cmdFinish")},
                                           {"letter-preview", close}});
  photographer.takeEach(
      run("notifyNow"),
      {{"", press("chkNotify(1)")}, {"fax-composer", press("cmdFinish")}, {"fax-preview", close}});
  photographer.takeEach(run("notifyNow"), {{"", press("chkNotify(3)")}, {"phone-composer", close}});
  photographer.takeEach(run("editTemplates"), {{"template-editor", close}});
  photographer.takeEach(run("firm"), {{"desktop-firm", close}});
  photographer.takeEach(run("options"), {{"desktop-options", close}});
  chooseTask(table, waitsForMany);
  photographer.takeEach(run("notifyAutomatically"), {{"notify-automatically", close}});
  photographer.takeEach(run("callClient"), {{"call-client", close}});
  photographer.takeEach(run("scheduleYear"), {{"schedule-year", close}});
}

/// A cell of the list as people press it.
std::function<void(QWidget& top)> pressCell(int row, int column) {
  return [row, column](QWidget& top) {
    auto* table = top.findChild<QTableView*>();
    emit table->clicked(table->model()->index(row, column));
  };
}

void takeList(Photographer& photographer, MainWindow& window) {
  constexpr int viewInfo = 31;
  const auto open = [&] { window.findChild<QAction*>("notifications")->trigger(); };
  const Step done{"", press("cmdClose")};
  photographer.takeEach(
      open, {{"notification-list", pressCell(0, viewInfo)}, {"list-composer", close}, done});
  for (const auto& [button, name] : {std::pair("imgTopBarButton(0)", "list-search"),
                                     std::pair("imgTopBarButton(1)", "list-columns"),
                                     std::pair("imgTopBarButton(2)", "list-preview"),
                                     std::pair("cmdAdvancedOptions", "list-send-options"),
                                     std::pair("cmdGridOptions", "list-grid-options")})
    photographer.takeEach(open, {{"", press(button)}, {name, close}, done});
}

/// The panel that other programs open for an item of the diary.
void takeDiaryPanel(Photographer& photographer, host::Desk& desk) {
  const auto items = host::readDiary(desk, {Appointments, desk.today(), {}, {}, {}}).rows;
  const auto open = [&] {
    desk.control().cls_openSendNotificationWizardApptNotifyNowForm(Appointments, items.front().id,
                                                                   nt_Email);
  };
  if (!items.empty()) photographer.takeEach(open, {{"notify-diary-item", close}});
}

/// Up to the size of the pictures.
void fillScreen(QWidget& window) {
  window.resize(QSize(1366, 768).boundedTo(window.screen()->availableSize()));
}

void takeAll(Photographer& photographer, const QString& database) {
  host::DeskOptions options;
  options.today = DateTime::of(2026, 4, 15);
  MainWindow empty(options);
  fillScreen(empty);
  empty.show();
  photographer.take(empty, "desktop-empty");
  empty.hide();
  options.database = plain(database);
  MainWindow window(options);
  fillScreen(window);
  window.show();
  photographer.take(window, "desktop-day");
  window.goTo(Navigation::Place::clients);
  photographer.take(window, "desktop-clients");
  window.goTo(Navigation::Place::tasks);
  photographer.take(window, "desktop-tasks");
  takeWindowsOfTasks(photographer, window);
  takeList(photographer, window);
  takeDiaryPanel(photographer, *window.desk());
}

int run(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("hvnotify-pictures");
  QApplication::setStyle("fusion");
  speakLanguageOf(QLocale());
  supplyIcons();
  QStringList arguments = QApplication::arguments().mid(1);
  const bool isDark = arguments.removeAll("--dark") > 0;
  if (arguments.size() != 2) {
    QTextStream(stderr) << "usage: desktop_pictures [--dark] DATABASE FOLDER" << Qt::endl;
    return 2;
  }
  if (isDark) QApplication::setPalette(darkPalette());
  Photographer photographer(arguments[1], isDark ? "-dark" : "");
  takeAll(photographer, arguments[0]);
  return photographer.hasFailed() ? 1 : 0;
}

}  // namespace
}  // namespace autonotify::desktop

int main(int argc, char** argv) {
  return autonotify::desktop::run(argc, argv);
}
