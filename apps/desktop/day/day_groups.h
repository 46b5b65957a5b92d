#pragma once

#include <QDate>
#include <QString>
#include <vector>

#include "day/DayModel.h"

namespace autonotify::desktop {

// A working day as its page words it.

// Channels are a bit set.

std::vector<DayGroupShown> dayGroups(const host::WorkingDay& day, int channels, QDate today);
/// The rows of the week that begins on that Monday.
DayGroupShown weekGroup(DateTime monday, const host::WorkingDay& day, int channels,
                        std::vector<host::DayLine> lines);
/// Behind the date: how many are overdue, due today and later this week.
QString summaryText(const QString& date, const host::WorkingDay& day, int channels);
/// How many of the groups' rows are not among their lines.
std::size_t countLeftOut(const std::vector<DayGroupShown>& groups);
/// When there is something again; empty where nothing is known.
QString nextWeekText(const host::WorkingDay& day);

}  // namespace autonotify::desktop
