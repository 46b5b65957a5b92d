#pragma once

#include <string>

#include "platform/Value.h"

// What a notification or a schedule entry leads to: its client, task and names; and the copying and
// deleting of rows.
//
// All procedures settle their failures at the error dialog. A lookup gives its default, -1 or empty
// text, when the database is closed, the row does not exist or the column is empty. Lookups of a
// schedule entry go on to the archive when the entry itself is gone.

namespace autonotify {

// Validators: True when the text is a number above 0. They judge the form of an id and never look
// into the database.

bool validAppointmentID(const std::string& appointmentId);
bool validDocketID(const std::string& docketId);
bool validScheduleID(const std::string& scheduleId);
bool validTaskID(const std::string& taskId);

// One column of one row.

Id getScheduleIDFromNotificationID(Id notificationId);
Id getScheduleIDFromTaskID(Id taskId);
/// Of an archived task, the id that it had.
Id getTaskIDFromScheduleID(Id scheduleId);
/// `Schedule.ClientNum`, also for an archived entry.
Id getClientDataIDFromScheduleID(Id scheduleId);
Id getScheduleNumFromScheduleID(Id scheduleId);
Id getTotalNumFromScheduleID(Id scheduleId);
std::string getScheduleNameFromScheduleID(Id scheduleId);
Id getContactIDFromScheduleID(Id scheduleId);
std::string getAppointmentSubjectFromAppointmentID(Id appointmentId);
std::string getTaskSubjectFromTaskID(Id taskId);
std::string getDocketSubjectFromDocketID(Id docketId);
Id getCompanyIDFromAppointmentID(Id appointmentId);
Id getContactIDFromAppointmentID(Id appointmentId);

// The client.

Id getCompanyIDFromScheduleID(Id scheduleId);
std::string getCompanyNameFromScheduleID(Id scheduleId);

/// enumAutoNotifyCompany or enumAutoNotifyContact by the schedule entry of the notification; 0 when
/// neither is known to the client list.
int getClientTypeFromNotificationID(Id notificationId);

/// The row's own company; when the row is linked to an item, the company of that item.
Id getCompanyIDFromAutoNotificationID(Id notificationId);
/// The row's own contact; when the row is linked to an item, the contact of that item.
Id getContactIDFromAutoNotificationID(Id notificationId);

struct CompanyAndContactID {
  Id companyId = noId;
  Id contactId = noId;
  friend bool operator==(const CompanyAndContactID&, const CompanyAndContactID&) = default;
};

/// Company and contact of the first item whose id is not below 0, in the order of the arguments.
CompanyAndContactID getCompanyAndContactIDFromNotificationID(Id scheduleId, Id taskId,
                                                             Id appointmentId, Id docketId);

// Copying and deleting.

/// Copies the channel fields of the old row that hold anything to the new row, except a subject,
/// since the new row has one of its own: `Field4` of an email, `Field6` of a fax. Memo, date and
/// ids are not copied, and no stamp is written.
///
/// The statement that opens the new row lacks its WHERE, as hosts know it: an engine that does not
/// take the text as a selection by key raises, and nothing is copied.
void copyOldNotificationInfoToNewNotification(Id newNotificationId, Id oldNotificationId);

/// The same from the old schedule entry's row of the new row's channel, with a complete statement.
void copyOldNotificationInfoToNewNotificationByScheduleIDNum(Id newNotificationId,
                                                             Id oldScheduleId);

/// True when the row was deleted. The channel's bit of the schedule entry stays.
bool deleteNotification(Id notificationId);

}  // namespace autonotify
