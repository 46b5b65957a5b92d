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

/// Numbers stay as the locale has them.
void nameDaysIn(QLocale::Language language, const QLocale& locale) {
  if (locale.language() == language || locale.language() == QLocale::C) return;
  QLocale::setDefault(QLocale(language, locale.territory()));
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
  nameDaysIn(QLocale(language).language(), locale);
  host::Words::speak(translated);
}

}  // namespace autonotify::desktop
