#pragma once

#include "binding/window_notes.h"
#include "host/desk/work/composer_outlook.h"
#include "host/desk/work/schedule_year.h"

namespace autonotify::desktop {

/// What the date of a notification is measured by. A zero date is not known.
struct ComposerDays {
  DateTime today;
  /// Of what it is about.
  DateTime due;
};

/// Beside Finish what that will do and for whom, and beside the date what is odd about it.
WindowNotes composerNotes(const host::ComposerOutlook& outlook, const ComposerDays& days);
/// What is odd about the date, as a question; empty for nothing.
QString dateQuestion(const host::ComposerOutlook& outlook, const ComposerDays& days);
/// Which tasks of a year are to be armed for a date that is past, as a question; empty for none.
QString yearQuestion(host::Desk& desk, const std::vector<host::YearTask>& preview);

}  // namespace autonotify::desktop
