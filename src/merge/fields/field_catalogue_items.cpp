#include "merge/fields/field_rows.h"

namespace autonotify {

using namespace field_rows;

namespace {

constexpr FieldDefinition appointmentRows[] = {
    text("Appointment Name", "Subject", "Meeting with Jane Smith", 100),
    date("Appointment Date", "DateFrom", "Jan 31, ", SampleYear::current),
    time("Appointment Start Time", "TimeFrom", "9:00 am"),
    time("Appointment End Time", "TimeTo", "10:30 am"),
    text("Time Duration", "TimeDuration", "1 hr 30 min", 50),
    text("Appointment Text", "AppointmentText", "Sample appointment description text", unlimited),
};
constexpr CustomFields appointmentCustom{"CustomFields", "ApptCustomName", "Custom Appt Field ",
                                         "ApptCustom"};
constexpr FieldPart appointmentParts[] = {{appointmentRows}, {.custom = &appointmentCustom}};

constexpr FieldDefinition taskRows[] = {
    text("Task Name", "Subject", "1st Quarterly GST Payment", 100),
    text("Task Status", "TaskStatus", "In Progress", 50),
    date("Task Due Date", "DueDate", "Jan 31, ", SampleYear::current),
    date("Task in-House Due Date", "inHouseDueDate", "Jan 27, ", SampleYear::current),
    date("Period End Date", "PeriodEndDate", "Dec 31, ", SampleYear::previous),
    text("Period Description", "PeriodDescription", "4th Quarter", 50),
    date("Task Calendar Date", "CalendarDate", "Jan 27, ", SampleYear::current),
    yesNo("Received All Documents Flag", "ReceivedAllDocs"),
    date("Received Documents Date", "ReceivedDocsDate", "Jan 15, ", SampleYear::current),
    text("File Location", "FileLocation", "Cabinet 3", 100),
    date("Task Client Info Deadline Date", "InfoDeadlineDate", "Jan 20, ", SampleYear::current),
    inGroup("DocsAndInstructionsInfo",
            typed(FieldType::documentsList, "Client Documents & Instructions",
                  "DocsAndInstructionsList", "- Document Required - Bank statements")),
    text("Employee Assigned", "EmployeeAssigned", "Mary Green", 100),
    text("Task Year", "Year", "2025", 4),
    text("Amount Paid", "Amount", "1,250.00", 20),
    text("Completed By", "PersonCompleted", "Mary Green", 100),
    date("Date Completed", "DateCompleted", "Jan 26, ", SampleYear::current),
    text("Number of Days In Progress", "NumDaysInProgress", "5", 10),
    duration("Estimated Time", "EstimatedTime"),
    yesNo("Portal Allow Client To See Task Flag", "PortalAllowClientToSeeTaskFlag"),
};
constexpr CustomFields scheduleCustom{"CustomFields", "RemittanceLabel", "Custom Task Field ",
                                      "ScheduleCustom"};
constexpr FieldDefinition taskCalendarRows[] = {
    text("Task Subject", "Subject", "Prepare GST return", 100),
    time("Task Start Time", "TimeFrom", "9:00 am"),
    time("Task End Time", "TimeTo", "10:30 am"),
    text("Time Duration", "TimeDuration", "1 hr 30 min", 50),
    text("Task Text", "AppointmentText", "Sample task description text", unlimited),
};
constexpr CustomFields taskCustom{"CustomFields", "TaskCustomName", "Custom Task Calendar Field ",
                                  "TaskCustom"};
constexpr FieldPart taskParts[] = {
    {taskRows},         {.custom = &scheduleCustom}, {.header = "[Task Info]"},
    {taskCalendarRows}, {.custom = &taskCustom},
};

constexpr FieldDefinition timeEntryRows[] = {
    text("Time Entry Name", "Subject", "Bookkeeping", 100),
    date("Time Entry Date", "DateFrom", "Jan 31, ", SampleYear::current),
    time("Time Entry Start Time", "TimeFrom", "9:00 am"),
    time("Time Entry End Time", "TimeTo", "10:30 am"),
    text("Time Duration", "TimeDuration", "1 hr 30 min", 50),
    text("Time Entry Text", "AppointmentText", "Sample time entry description text", unlimited),
    text("Time Entry Status", "DocketStatus", "Completed", 50),
    date("Time Entry Date Created", "DateCreated", "Jan 31, ", SampleYear::current),
    yesNo("Time Entry Locked", "DocketLocked", "No"),
    yesNo("Is Invoiced", "Invoiced", "No"),
    yesNo("Used Time Entry Timer", "UsedRealTime"),
    time("Time From (Actual Time)", "RealTimeFrom", "9:02 am"),
    time("Time To (Actual Time)", "RealTimeTo", "9:33 am"),
    time("Time From (Rounded Time)", "RoundedTimeFrom", "9:00 am"),
    time("Time To (Rounded Time)", "RoundedTimeTo", "10:30 am"),
    text("Billing Type", "DocketBillingType", "Hourly", 50),
    text("Billing Rate", "BillingJobRate", "150.00", 20),
    yesNo("Billable Time", "BillableTime"),
    typed(FieldType::duration, "Total Time (Actual)", "TotalTimeReal", "31 min"),
    duration("Total Time (Rounded)", "TotalTimeRounded"),
    yesNo("Use Adjusted Time", "UseAdjustedTime", "No"),
    duration("Total Time (Adjusted)", "TotalTimeAdjusted"),
    duration("Total Time (Final)", "TotalTimeFinal"),
    currency("Total Amount (Actual)", "TotalAmountReal"),
    yesNo("Use Adjusted Amount", "UseAdjustedAmount", "No"),
    currency("Total Amount (Adjusted)", "TotalAmountAdjusted"),
    currency("Total Amount (Final)", "TotalAmountFinal"),
    text("Internal Time Entry Description", "DescriptionInternal", "Sample internal description",
         unlimited),
    text("Invoice Time Entry Description", "DescriptionClient", "Sample invoice description",
         unlimited),
};
constexpr CustomFields docketCustom{"CustomFields", "DocketCustomName", "Custom Time Entry Field ",
                                    "DocketCustom"};
constexpr FieldPart timeEntryParts[] = {{timeEntryRows}, {.custom = &docketCustom}};

constexpr FieldDefinition firmRows[] = {
    text("Your Company Name", "CompanyName", "Brown & Green", 100),
    text("Your Corporate Name", "CorporateName", "Brown & Green LLP", 100),
    text("Your Company Type", "CompanyType", "Partnership", 50),
    text("Your Industry Type", "IndustryType", "Accounting", 50),
    text("Your Address", "Address", "55 Main Street, Suite 200", 150),
    text("Your City", "City", "Springfield", 50),
    text("Your Province", "Province", "Ontario", 50, canada),
    text("Your Postal Code", "PostalCode", "A1A 1A1", 15, canada),
    text("Your State", "Province", "New York", 50, elsewhere),
    text("Your Zip Code", "PostalCode", "12345", 15, elsewhere),
    text("Your Country", "Country", "Canada", 50),
    text("Your Office Number", "OfficeNumber", "(555) 555-0140", 30),
    text("Your Fax Number", "FaxNumber", "(555) 555-0141", 30),
    text("Your Email", "Email", "office@browngreen.example", 100),
    text("Your Web Site", "WebSite", "www.browngreen.example", 100),
};
constexpr CustomFields firmCustom{"CustomAddressFields", "CompanyLabel",
                                  "Your Company Custom Field ", "FirmCustom"};
constexpr FieldPart firmParts[] = {{firmRows}, {.custom = &firmCustom}};

}  // namespace

constinit const FieldBlock appointmentBlock{"AppointInfo", appointmentParts};
constinit const FieldBlock taskBlock{"TaskInfo", taskParts};
constinit const FieldBlock timeEntryBlock{"DocketInfo", timeEntryParts};
constinit const FieldBlock firmBlock{"FirmInfo", firmParts};

}  // namespace autonotify
