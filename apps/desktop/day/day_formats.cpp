#include "day/day_formats.h"

#include <QLocale>
#include <QObject>

namespace autonotify::desktop {
QString longDay(QDate day) {
  return QLocale().toString(day, QObject::tr("dddd, MMMM d", "a day's format"));
}

QString longDate(QDate day) {
  return QLocale().toString(day, QObject::tr("dddd, MMMM d, yyyy", "a day's format"));
}

QString dayAndMonth(QDate day) {
  return QLocale().toString(day, QObject::tr("MMMM d", "a day's format"));
}

QString shortDay(QDate day) {
  return QLocale().toString(day, QObject::tr("MMM d", "a day's format"));
}

QString shortDate(QDate day) {
  return QLocale().toString(day, QObject::tr("MMM d, yyyy", "a day's format"));
}

}  // namespace autonotify::desktop
