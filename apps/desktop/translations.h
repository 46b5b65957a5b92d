#pragma once

#include <QLocale>

namespace autonotify::desktop {

/// Gives the words of the program and of the host in the language that the locale's user reads best
/// of those there are, and the toolkit's in the same one where it has it; else in English. Days and
/// months are named in the same language. Before any words are shown.
void speakLanguageOf(const QLocale& locale);

}  // namespace autonotify::desktop
