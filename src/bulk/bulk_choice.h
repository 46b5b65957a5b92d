#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "contract/enumerations.h"
#include "platform/Value.h"

namespace autonotify {

/// The kinds of tasks that a client's year is made of, in the order of their `TotalNum`.
enum class TaskFamily : std::size_t {
  GST,
  PST,
  PayrollRemitt,
  YearEnd,
  CorpTax,
  WSIB,
  EHT,
  Law,
  Other,
  EmployeePayroll,
  Custom,
  FederalPayroll,
  Projects,
  Bookkeeping
};
inline constexpr std::size_t taskFamilyCount = 14;

constexpr Id totalNumOf(TaskFamily family) {
  return 101 + static_cast<Id>(family);
}

/// Which tasks of a client are scheduled, and by which channels.
struct BulkChoice {
  std::array<bool, taskFamilyCount> families{};
  /// In the order of allNotifyTypes.
  std::array<bool, 4> channels{};

  bool& operator[](TaskFamily family) { return families[static_cast<std::size_t>(family)]; }
  bool operator[](TaskFamily family) const { return families[static_cast<std::size_t>(family)]; }
};

/// Whose tasks they are: a contact's or a company's.
struct BulkClient {
  enumAutoNotifyClientType type = enumAutoNotifyNone;
  Id companyID = noId;
  Id contactID = noId;

  bool isContact() const { return type == enumAutoNotifyContact; }
  bool isCompany() const { return type == enumAutoNotifyCompany; }
  Id id() const { return isContact() ? contactID : isCompany() ? companyID : noId; }
  /// False for a contact or a company without its id.
  bool isUsable() const { return id() >= 0 || !(isContact() || isCompany()); }
};

}  // namespace autonotify
