#include "host/database/schema/schema_builder.h"

namespace autonotify::host::schema {

namespace {

/// A table of which this application keeps only whose row it is and what it says.
TableDef clientTable(std::string_view name, std::string_view keyName, const Columns& more = {}) {
  return table(name, {key(keyName), links({"CompanyIDNum", "ContactIDNum"}), more},
               {{"CompanyIDNum"}, {"ContactIDNum"}});
}

Columns with(Columns first, const Columns& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

std::vector<TableDef> clientRecordTables() {
  return {
      clientTable("ClientNotes", "ClientNoteID", memos({"Notes"})),
      clientTable("CommunicationLog", "CommunicationLogID",
                  with(links({"CommunicationLogTypeIDNum", "UserIDNum"}),
                       with(dates({"DateCreated"}), memos({"Notes"})))),
      table("CommunicationLogTypes", {key("CommunicationLogTypeID"), texts({"TypeName"})}),
      clientTable("CompanyProjects", "CompanyProjectID", texts({"ProjectName"})),
      table("CompanyProjectSteps",
            {key("CompanyProjectStepID"), links({"ProjectIDNum"}), integers({"OrderNum"}),
             texts({"StepName"})},
            {{"ProjectIDNum"}}),
      clientTable("Documents", "DocumentID",
                  with(texts({"DocumentName", "FilePath"}), dates({"DateCreated"}))),
      clientTable("MissingInfo", "MissingInfoID",
                  with(links({"TaskIDNum"}), memos({"MissingInfoText"}))),
      clientTable("ClientCustomCategoriesTypes", "ClientCustomCategoriesTypeID",
                  texts({"CategoryTypeName"})),
  };
}

std::vector<TableDef> personalTaxTables() {
  return {
      clientTable("PersonalTaxClientSummary", "PersonalTaxClientSummaryID",
                  with(integers({"Year"}), memos({"Summary"}))),
      clientTable("PersonalTaxDataImportInfo", "PersonalTaxDataImportInfoID",
                  with(integers({"Year"}), texts({"FileName"}))),
      clientTable("PersonalTaxInfo", "PersonalTaxInfoID", integers({"Year"})),
      clientTable("PersonalTaxNotes", "PersonalTaxNoteID",
                  with(integers({"Year"}), memos({"Notes"}))),
      clientTable("PersonalTaxProfileInfo", "PersonalTaxProfileInfoID", texts({"ProfileName"})),
      clientTable("PersonalTaxStatus", "PersonalTaxStatusID",
                  with(integers({"Year"}), texts({"StatusName"}))),
      table("PersonalTaxSteps",
            {key("PersonalTaxStepID"), integers({"OrderNum"}), texts({"StepName"})}),
      table("PersonalTaxTasks",
            {key("PersonalTaxTaskID"), links({"PersonalTaxStatusIDNum", "TaskIDNum"})},
            {{"PersonalTaxStatusIDNum"}, {"TaskIDNum"}}),
  };
}

std::vector<TableDef> billingTables() {
  return {
      table("BillingInterruptCategories",
            {key("BillingInterruptCategoryID"), texts({"CategoryName"})}),
      clientTable("Invoices", "InvoiceID", with(dates({"InvoiceDate"}), currencies({"Amount"}))),
      clientTable("Deposits", "DepositID", with(dates({"DepositDate"}), currencies({"Amount"}))),
      table("DepositPayments",
            {key("DepositPaymentID"), links({"DepositIDNum", "InvoiceIDNum"}),
             currencies({"Amount"})},
            {{"DepositIDNum"}, {"InvoiceIDNum"}}),
      table("UserBillingRates",
            {key("UserBillingRateID"), links({"UserIDNum"}), currencies({"BillingRate"})},
            {{"UserIDNum"}}),
      table("UserBillingScheduleTypeInfo",
            {key("UserBillingScheduleTypeInfoID"), links({"UserIDNum", "ScheduleTypeIDNum"})},
            {{"UserIDNum"}}),
  };
}

std::vector<TableDef> deskTables() {
  return {
      clientTable("Reminders", "ReminderID",
                  with(links({"UserIDNum", "TaskIDNum", "ApptIDNum"}),
                       with(dates({"ReminderDate"}), texts({"Subject"})))),
      table("Searches", {key("SearchID"), texts({"SearchName"}), memos({"SearchText"})}),
      table("SearchesUserSpecific",
            {key("SearchUserSpecificID"), links({"UserIDNum"}), texts({"SearchName"}),
             memos({"SearchText"})},
            {{"UserIDNum"}}),
  };
}

}  // namespace

std::vector<TableDef> practiceTables() {
  std::vector<TableDef> result = clientRecordTables();
  for (auto* part : {&personalTaxTables, &billingTables, &deskTables})
    for (TableDef& each : part()) result.push_back(std::move(each));
  return result;
}

}  // namespace autonotify::host::schema
