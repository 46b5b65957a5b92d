#include "list/list_columns.h"

#include "platform/controls/Grid.h"

namespace autonotify {

// Heading, field, visible, width, least width, align, type, last. The name of the client shows in
// the list of all clients alone; the field of "Sent Status" is nowhere read.
constinit const std::array<ListColumn, list_column::count> listColumns{{
    {"", "ClientNotificationID", false, 0, 0, 4, grid_column::hiddenKey, true},
    {"", "CompanyIDNum", false, 0, 0, 4, grid_column::hiddenKey, true},
    {"", "ContactIDNum", false, 0, 0, 4, grid_column::hiddenKey, true},
    {"", "ScheduleIDNum", false, 0, 0, 4, grid_column::hiddenKey, true},
    {"", "TaskIDNum", false, 0, 0, 4, grid_column::hiddenKey, true},
    {"", "ApptIDNum", false, 0, 0, 4, grid_column::hiddenKey, true},
    {"", "DocketIDNum", false, 0, 0, 4, grid_column::hiddenKey, true},
    {"", "OperatingProcedureIDNum", false, 0, 0, 4, grid_column::hiddenKey, true},
    {"Client ID", "ClientID", true, 1000, 400, 4, grid_column::text, false},
    {"Client Name", "CompanyName", true, 2160, 500, 4, grid_column::text, false},
    {"Name", "", true, 2200, 500, 4, grid_column::text, false},
    {"Notification Type", "", true, 1000, 400, 4, grid_column::text, false},
    {"Notify On Date", "NotificationDate", true, 1000, 400, 4, grid_column::date, false},
    {"Date Created", "DateCreated", false, 1000, 400, 4, grid_column::date, false},
    {"Created By", "CreatedByUserIDNum", false, 1000, 400, 4, grid_column::text, false},
    {"Item Assigned To", "", false, 1000, 400, 4, grid_column::text, false},
    {"Managing Accountant", "AccountantName", false, 1000, 400, 4, grid_column::text, false},
    {"Supervising Partner", "PartnerName", false, 1000, 400, 5, grid_column::text, false},
    {"Sent", "NotificationSent", true, 800, 300, 5, grid_column::tick, false},
    {"Sent Status", "SentTime", true, 1000, 400, 4, grid_column::text, false},
    {"Sent Date", "SentTime", true, 1000, 400, 4, grid_column::date, false},
    {"Sent By", "SentByUserIDNum", false, 1000, 400, 4, grid_column::text, false},
    {"Company Phone Number", "OfficeNumber", false, 1500, 400, 4, grid_column::text, true},
    {"Company Fax Number", "FaxNumber", false, 1500, 400, 4, grid_column::text, true},
    {"Company Email", "Email", false, 2000, 400, 4, grid_column::text, true},
    {"Default Contact Name", "DefaultContactName", false, 1800, 400, 4, grid_column::text, true},
    {"Default Contact Phone Number", "DefaultContactPhoneNumber", false, 1500, 400, 4,
     grid_column::text, true},
    {"Default Contact Fax Number", "DefaultContactFaxNumber", false, 1500, 400, 4,
     grid_column::text, true},
    {"Default Contact Email", "DefaultContactEmail", false, 2000, 400, 4, grid_column::text, true},
    {"", "", true, 1020, 1020, 5, grid_column::button, true},
    {"", "", true, 1300, 1300, 5, grid_column::button, true},
    {"", "", true, 1120, 1120, 5, grid_column::button, true},
}};

}  // namespace autonotify
