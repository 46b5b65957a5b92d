#include <QCommandLineParser>
#include <QIcon>
#include <QSettings>
#include <QTextStream>
#include <algorithm>
#include <cstdio>
#include <iterator>

#include "MainWindow.h"
#include "binding/FaultWatch.h"
#include "host/desk/day_text.h"
#include "icon_theme.h"
#include "qt_text.h"
#include "translations.h"

namespace autonotify::desktop {
namespace {

constexpr int exitNoDisplay = 1;
constexpr int exitUsage = 2;
constexpr const char* displayVariables[] = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

/// Reads the options; the answer is a fault in words, empty when all is well.
QString readOptions(const QCommandLineParser& parser, host::DeskOptions& options) {
  const QStringList places = parser.positionalArguments();
  if (places.size() > 1) return QObject::tr("one database at a time");
  options.database =
      plain(places.isEmpty() ? QSettings().value(lastDatabaseKey).toString() : places.front());
  options.outbox = plain(parser.value("outbox"));
  options.documents = plain(parser.isSet("documents") ? parser.value("documents")
                                                      : qEnvironmentVariable("HVNOTIFY_DOCUMENTS"));
  const QString hint = QObject::tr(": start the program with %1 FOLDER");
  options.hints = {plain(hint.arg("--outbox")), plain(hint.arg("--documents"))};
  options.firmCode = plain(parser.value("firm-code"));
  if (parser.isSet("today")) {
    const std::string today = plain(parser.value("today"));
    options.today = host::readDate(today);
    if (!options.today)
      return QObject::tr("\"%1\" is no date; write it as 2026-04-30").arg(shown(today));
  }
  if (parser.isSet("user")) {
    bool isNumber = false;
    options.user = parser.value("user").toInt(&isNumber);
    if (!isNumber) return QObject::tr("\"%1\" is no user's number").arg(parser.value("user"));
  }
  return {};
}

/// Without one the toolkit would end the program with words for programmers.
bool hasDisplay() {
  return std::any_of(std::begin(displayVariables), std::end(displayVariables),
                     [](const char* name) { return qEnvironmentVariableIsSet(name); });
}

int run(int argc, char** argv) {
  if (!hasDisplay()) {
    std::fputs("hvnotify-desktop: there is no display; log in to a desktop, or use \"ssh -X\"\n",
               stderr);
    return exitNoDisplay;
  }
  GuardedApplication app(argc, argv);
  QApplication::setApplicationName("hvnotify-desktop");
  QApplication::setOrganizationName("hvnotify");
  QApplication::setApplicationVersion(HVNOTIFY_VERSION);
  speakLanguageOf(QLocale());
  supplyIcons();
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
                     {"documents", QObject::tr("folder for the documents of clients"), "FOLDER"},
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
