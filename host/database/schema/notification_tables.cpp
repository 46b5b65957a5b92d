#include "host/database/schema/schema_builder.h"

namespace autonotify::host::schema {

std::vector<TableDef> notificationTables() {
  return {
      // A row without a word about its state is pending.
      table("ClientNotification",
            {key("ClientNotificationID"), smalls({"NotificationType"}),
             links({"ScheduleIDNum", "ApptIDNum", "TaskIDNum", "DocketIDNum",
                    "OperatingProcedureIDNum", "CompanyIDNum", "ContactIDNum"}),
             dates({"NotificationDate"}),
             texts({"Field1", "Field2", "Field3", "Field4", "Field5", "Field6"}), memos({"Memo"}),
             flags({"NotificationSent"}), smalls({"NotificationSentStatus"}, "1"),
             dates({"SentTime"}), integers({"SentByUserIDNum"}), dates({"DateCreated"}),
             integers({"CreatedByUserIDNum"}), dates({"ClientNotificationModifiedStamp"})},
            {{"ScheduleIDNum", "NotificationType"},
             {"NotificationSent", "NotificationDate"},
             {"NotificationDate"},
             {"SentTime"},
             {"ApptIDNum"},
             {"TaskIDNum"},
             {"DocketIDNum"},
             {"CompanyIDNum"},
             {"ContactIDNum"}}),
      table(
          "ClientScheduleAutoNotifications",
          {key("ClientScheduleAutoNotificationID"), links({"CompanyIDNum", "ContactIDNum"}),
           smalls({"ProjectsNotifyType", "BookkeepingNotifyType", "GSTNotifyType", "PSTNotifyType",
                   "FederalPayrollNotifyType", "PayrollNotifyType", "PayrollRemittNotifyType",
                   "YearEndNotifyType", "CorpTaxNotifyType", "WSIBNotifyType", "EHTNotifyType",
                   "LawNotifyType", "OtherNotifyType", "CustomNotifyType"},
                  "0")},
          {{"CompanyIDNum"}, {"ContactIDNum"}}),
  };
}

}  // namespace autonotify::host::schema
