// Takes the pictures of the documentation. Usage: desktop_pictures DATABASE FOLDER
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QTableView>
#include <QTextStream>
#include <QTimer>

#include "MainWindow.h"
#include "text.h"

namespace autonotify::desktop {
namespace {

bool take(QWidget& window, const QString& folder, const QString& name) {
  // The counts and the first page come after the first paint.
  for (int round = 0; round < 5; ++round) QApplication::processEvents();
  const bool isSaved = window.grab().save(QDir(folder).filePath(name + ".png"));
  if (!isSaved) QTextStream(stderr) << "cannot write " << name << Qt::endl;
  return isSaved;
}

int run(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("hvnotify-pictures");
  QApplication::setStyle("fusion");
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 3) {
    QTextStream(stderr) << "usage: desktop_pictures DATABASE FOLDER" << Qt::endl;
    return 2;
  }
  const QString folder = arguments[2];
  host::DeskOptions options;
  options.today = DateTime::of(2026, 4, 15);
  MainWindow empty(options);
  empty.show();
  bool allTaken = take(empty, folder, "desktop-empty");
  empty.hide();
  options.database = plain(arguments[1]);
  MainWindow window(options);
  window.show();
  allTaken = take(window, folder, "desktop-tasks") && allTaken;
  window.findChild<QTableView*>("tasks")->sortByColumn(TaskTableModel::dueDate,
                                                       Qt::DescendingOrder);
  QTimer::singleShot(300, [&] {
    QWidget& composer = *QApplication::activeModalWidget();
    allTaken = take(composer, folder, "email-composer") && allTaken;
    composer.findChild<QAbstractButton*>("cmdCancel")->click();
  });
  window.findChild<QAction*>("scheduleEmail")->trigger();
  QTimer::singleShot(300, [&] {
    auto& dialog = *qobject_cast<QDialog*>(QApplication::activeModalWidget());
    allTaken = take(dialog, folder, "desktop-options") && allTaken;
    dialog.reject();
  });
  window.findChild<QAction*>("options")->trigger();
  return allTaken ? 0 : 1;
}

}  // namespace
}  // namespace autonotify::desktop

int main(int argc, char** argv) {
  return autonotify::desktop::run(argc, argv);
}
