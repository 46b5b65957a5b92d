#pragma once

#include <array>
#include <string>

#include "contract/enumerations.h"
#include "list/list_criteria.h"

namespace autonotify {

// Where the criteria of the list hold each single one.

using ListCriteria = AutoNotifyListCriteria;

struct NumberCriterion {
  bool ListCriteria::*isOn;
  Id ListCriteria::*number;

  /// Whether the criterion is on and has a value.
  bool asks(const ListCriteria& all) const { return all.*isOn && all.*number >= 0; }
};
inline constexpr NumberCriterion companyCriterion{
    &ListCriteria::searchCompany,
    &ListCriteria::searchCompanyID,
};
inline constexpr NumberCriterion contactCriterion{
    &ListCriteria::searchContact,
    &ListCriteria::searchContactID,
};
inline constexpr NumberCriterion channelCriterion{
    &ListCriteria::searchNotificationType,
    &ListCriteria::searchNotificationTypeNum,
};
inline constexpr NumberCriterion createdByCriterion{
    &ListCriteria::searchCreatedByUserID,
    &ListCriteria::searchCreatedByUserIDNum,
};
inline constexpr NumberCriterion sentByCriterion{
    &ListCriteria::searchSentByUserID,
    &ListCriteria::searchSentByUserIDNum,
};

/// By the name of a member of staff.
struct NameCriterion {
  bool ListCriteria::*isOn;
  std::string ListCriteria::*name;

  bool asks(const ListCriteria& all) const { return all.*isOn && !(all.*name).empty(); }
};
inline constexpr NameCriterion employeeCriterion{
    &ListCriteria::searchEmployeeAssignedName,
    &ListCriteria::searchEmployeeAssignedNameText,
};
inline constexpr NameCriterion accountantCriterion{
    &ListCriteria::searchAccountantName,
    &ListCriteria::searchAccountantNameText,
};
inline constexpr NameCriterion partnerCriterion{
    &ListCriteria::searchPartnerName,
    &ListCriteria::searchPartnerNameText,
};

struct DateCriterion {
  bool ListCriteria::*isOn;
  DateTime ListCriteria::*start;
  DateTime ListCriteria::*end;
  int ListCriteria::*direction;
};
inline constexpr DateCriterion notificationDateCriterion{
    &ListCriteria::searchByNotificationDate,
    &ListCriteria::searchStartNotificationDate,
    &ListCriteria::searchEndNotificationDate,
    &ListCriteria::searchNotificationDateDirection,
};
inline constexpr DateCriterion sentDateCriterion{
    &ListCriteria::searchByNotificationSentDate,
    &ListCriteria::searchStartNotificationSentDate,
    &ListCriteria::searchEndNotificationSentDate,
    &ListCriteria::searchNotificationSentDateDirection,
};

/// One of the states that the criterion of the send status may ask for.
struct StatusCriterion {
  bool ListCriteria::*isOn;
  enumNotificationSendStatus status;
  const char* name;
};
inline constexpr std::array<StatusCriterion, 3> statusCriteria{{
    {&ListCriteria::searchNotificationSentStatus_NotSent, enumNotificationSendStatus_NotSent,
     "Pending Send"},
    {&ListCriteria::searchNotificationSentStatus_Sent, enumNotificationSendStatus_Sent, "Sent"},
    {&ListCriteria::searchNotificationSentStatus_Cancelled, enumNotificationSendStatus_Cancelled,
     "Send Cancelled"},
}};

}  // namespace autonotify
