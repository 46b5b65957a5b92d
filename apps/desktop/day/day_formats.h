#pragma once

#include <QDate>
#include <QString>

namespace autonotify::desktop {

// Days in the words and the order of the desktop's language.

/// "Thursday, April 30"
QString longDay(QDate day);
/// "Thursday, April 30, 2026"
QString longDate(QDate day);
/// "April 30"
QString dayAndMonth(QDate day);
/// "Apr 30"
QString shortDay(QDate day);
/// "Apr 30, 2026"
QString shortDate(QDate day);

}  // namespace autonotify::desktop
