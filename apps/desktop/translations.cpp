#include "translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include "host/words/Words.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

/// The language that was found; empty for none.
QString addWords(const QLocale& locale, const QString& name, const QString& folder) {
  auto* words = new QTranslator(QCoreApplication::instance());
  if (words->load(locale, name, "_", folder)) QCoreApplication::installTranslator(words);
  return words->language();
}

std::string translated(const char* text) {
  return plain(QCoreApplication::translate("Words", text));
}

}  // namespace

void speakLanguageOf(const QLocale& locale) {
  const QString folder = ":/translations";
  QString language = addWords(locale, "hvnotify", folder);
  if (language.isEmpty()) language = addWords(QLocale(QLocale::English), "hvnotify", folder);
  addWords(QLocale(language), "qtbase", QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  host::Words::speak(translated);
}

}  // namespace autonotify::desktop
