#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>
#include <QSettings>
#include <QTextStream>
#include <cstdio>

#include "MainWindow.h"
#include "platform/date_time_text.h"
#include "text.h"

namespace autonotify::desktop {
namespace {

constexpr int exitUsage = 2;

/// Reads the options; the answer is a fault in words, empty when all is well.
QString readOptions(const QCommandLineParser& parser, host::DeskOptions& options) {
  const QStringList places = parser.positionalArguments();
  if (places.size() > 1) return QObject::tr("one database at a time");
  options.database =
      plain(places.isEmpty() ? QSettings().value("lastDatabase").toString() : places.front());
  options.outbox = plain(parser.value("outbox"));
  options.firmCode = plain(parser.value("firm-code"));
  if (parser.isSet("today")) {
    options.today = parseDateTime(plain(parser.value("today")));
    if (!options.today) return QObject::tr("\"%1\" is no date").arg(parser.value("today"));
  }
  if (parser.isSet("user")) {
    bool isNumber = false;
    options.user = parser.value("user").toInt(&isNumber);
    if (!isNumber) return QObject::tr("\"%1\" is no user's number").arg(parser.value("user"));
  }
  return {};
}

int run(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName("hvnotify-desktop");
  QApplication::setOrganizationName("hvnotify");
  QApplication::setApplicationVersion(HVNOTIFY_VERSION);
  QApplication::setWindowIcon(QIcon(":/icons/hvnotify.svg"));
  QCommandLineParser parser;
  parser.setApplicationDescription(QObject::tr("The notices that a firm owes its clients."));
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument("database", QObject::tr("the database (default: the last one)"),
                               "[DATABASE]");
  parser.addOptions({{"today", QObject::tr("the date to work with"), "DATE"},
                     {"user", QObject::tr("who works: the id of a member of staff"), "ID"},
                     {"outbox", QObject::tr("folder for emails"), "FOLDER"},
                     {"firm-code", QObject::tr("the installation's firm code"), "CODE"}});
  parser.process(app);
  host::DeskOptions options;
  const QString fault = readOptions(parser, options);
  if (!fault.isEmpty()) {
    QTextStream(stderr) << "hvnotify-desktop: " << fault << Qt::endl;
    return exitUsage;
  }
  MainWindow window(options);
  window.show();
  return QApplication::exec();
}

}  // namespace
}  // namespace autonotify::desktop

int main(int argc, char** argv) {
  return autonotify::desktop::run(argc, argv);
}
