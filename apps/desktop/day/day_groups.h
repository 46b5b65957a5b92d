#pragma once

#include <QDate>
#include <QString>
#include <vector>

#include "day/DayModel.h"

namespace autonotify::desktop {

// A working day as its page words it.

std::vector<DayGroupShown> dayGroups(const host::WorkingDay& day, QDate today);
/// The rows of the week that begins on that Monday.
DayGroupShown weekGroup(DateTime monday, const host::WorkingDay& day,
                        std::vector<host::DayLine> lines);
/// Behind the date: how many are overdue, due today and later this week.
QString summaryText(const QString& date, const host::WorkingDay& day);
/// When there is something again; empty where nothing is known.
QString nextWeekText(const host::WorkingDay& day);

}  // namespace autonotify::desktop
