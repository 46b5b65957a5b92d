#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/demo/region.h"

namespace autonotify::host::demo {

/// Letters in which a firm tells a client of a task, and the documents it asks for with it.
enum class Letter {
  salesTax,
  provincialTax,
  payroll,
  yearEnd,
  corporateTax,
  safety,
  legal,
  personalTax,
  meeting,
  project,
  bookkeeping,
  general,
  count
};

/// One kind of task: a member of a family.
struct ScheduleKind {
  int totalNum;
  int scheduleNum;
  std::string_view name;  ///< with words of inRegion
  int period;             ///< working days of notice; negative after the due date
  Letter letter;
  int monthsBetween;  ///< 12, 3 or 1; 0 for a kind without a rhythm
  int fiscalMonth;    ///< month of the period's end; 0 for the client's own
  int monthsToDue;    ///< from the period's end
  int dueDay;         ///< 31 for the last day of the month
  int percentOfClients;
  double hours;  ///< estimated
};

struct ScheduleFamily {
  int totalNum;
  std::string_view name;
  std::string_view abbreviation;
};

/// The fallback kind, which tasks of no known kind use.
constexpr int fallbackTotalNum = 101;
constexpr int fallbackScheduleNum = 10;
/// The number of a family's own row.
constexpr int familyScheduleNum = -1;

std::span<const ScheduleFamily> scheduleFamilies();
/// The kinds of business clients, then those of personal ones.
std::span<const ScheduleKind> businessKinds();
std::span<const ScheduleKind> personalKinds();

/// The letter as a rich text with merge fields between \'ab and \'bb.
std::string letterTemplate(Letter letter, const Region& region);

struct DocumentLine {
  Letter letter;
  int type;  ///< 1 an instruction, 2 a document that the client must send
  std::string_view name;
};
std::span<const DocumentLine> documentLines();

}  // namespace autonotify::host::demo
