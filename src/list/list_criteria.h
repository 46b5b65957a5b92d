#pragma once

#include <string>

#include "platform/DateTime.h"
#include "platform/Value.h"

namespace autonotify {

/// How a date criterion compares.
namespace date_direction {
inline constexpr int onAndAfter = 1;
inline constexpr int onAndBefore = 2;
inline constexpr int on = 3;
inline constexpr int between = 4;
}  // namespace date_direction

/// What the list shows. A flag tells whether the value beside it counts.
struct AutoNotifyListCriteria {
  bool searchCompany = false;
  Id searchCompanyID = noId;
  bool searchContact = false;
  Id searchContactID = noId;
  bool searchNotificationType = false;
  /// The bit of a channel, see notifyType.
  Id searchNotificationTypeNum = noId;
  bool searchByNotificationDate = false;
  DateTime searchStartNotificationDate;
  DateTime searchEndNotificationDate;
  int searchNotificationDateDirection = date_direction::between;
  bool searchCreatedByUserID = false;
  Id searchCreatedByUserIDNum = noId;
  bool searchEmployeeAssignedName = false;
  std::string searchEmployeeAssignedNameText;
  bool searchAccountantName = false;
  std::string searchAccountantNameText;
  bool searchPartnerName = false;
  std::string searchPartnerNameText;
  bool searchNotificationSent = true;
  /// False shows unsent rows, True sent ones.
  bool searchNotificationSentValue = false;
  bool searchByNotificationSentDate = false;
  DateTime searchStartNotificationSentDate;
  DateTime searchEndNotificationSentDate;
  int searchNotificationSentDateDirection = date_direction::between;
  bool searchSentByUserID = false;
  Id searchSentByUserIDNum = noId;
  bool searchNotificationSentStatus = false;
  bool searchNotificationSentStatus_NotSent = true;
  bool searchNotificationSentStatus_Sent = false;
  bool searchNotificationSentStatus_Cancelled = false;
};

}  // namespace autonotify
