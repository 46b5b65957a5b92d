#include "merge/merge_sources.h"

#include "contract/enumerations.h"
#include "merge/clsInsertFieldsInRTB.h"

namespace autonotify {
namespace {

/// How the statements of a source are made: the select alone reads all rows, with `where` and an id
/// behind it the one row.
struct SourceRow {
  std::string_view group;
  Id clsInsertFieldsInRTB::*id;
  const char* select;
  const char* where;
  const char* findColumn;
  /// The select of a single document where it differs: it names the fifth custom column as well.
  const char* fullSelect = nullptr;
  bool hasAllRows = true;
};

using Merge = clsInsertFieldsInRTB;

// In the order of MergeSource. "ComapnyNum" is the column that the search for notes has always
// asked for.
constexpr SourceRow sourceRows[mergeSourceCount] = {
    {"ClientInfo", &Merge::companyID, nullptr, nullptr, "CompanyID"},
    {"CompanyInfo", &Merge::companyID,
     "SELECT Companies.*, Companies.Custom1 AS CompanyCustom1, Companies.Custom2 AS "
     "CompanyCustom2, Companies.Custom3 AS CompanyCustom3, Companies.Custom4 AS CompanyCustom4, "
     "Companies.Custom5 From Companies",
     " WHERE Companies.CompanyID=", "CompanyID",
     "SELECT Companies.*, Companies.Custom1 AS CompanyCustom1, Companies.Custom2 AS "
     "CompanyCustom2, Companies.Custom3 AS CompanyCustom3, Companies.Custom4 AS CompanyCustom4, "
     "Companies.Custom5 AS CompanyCustom5 From Companies"},
    {"CompanyNotes", &Merge::companyID, "SELECT CompaniesNotes.* From CompaniesNotes",
     " WHERE CompaniesNotes.CompanyNum=", "ComapnyNum"},
    {"ContactInfo", &Merge::contactID,
     "SELECT Contacts.*, Contacts.Custom1 AS ContactCustom1, Contacts.Custom2 AS ContactCustom2, "
     "Contacts.Custom3 AS ContactCustom3, Contacts.Custom4 AS ContactCustom4, Contacts.Custom5 AS "
     "ContactCustom5 From Contacts",
     " WHERE Contacts.ContactID=", "ContactID"},
    {"ContactNotes", &Merge::contactID, "SELECT ContactsNotes.* From ContactsNotes",
     " WHERE ContactsNotes.ContactNum=", "ContactNum"},
    {"SoftwareInfo", &Merge::companyID,
     "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True",
     " AND SoftwareInfo.CompanyIDNum=", "CompanyID"},
    {"FirmInfo", &Merge::firmID,
     "SELECT AccountantFirmInfo.*, AccountantFirmInfo.Custom1 AS FirmCustom1, "
     "AccountantFirmInfo.Custom2 AS FirmCustom2, AccountantFirmInfo.Custom3 AS FirmCustom3, "
     "AccountantFirmInfo.Custom4 AS FirmCustom4, AccountantFirmInfo.Custom5 From "
     "AccountantFirmInfo",
     " WHERE CompanyID=", "CompanyID",
     "SELECT AccountantFirmInfo.*, AccountantFirmInfo.Custom1 AS FirmCustom1, "
     "AccountantFirmInfo.Custom2 AS FirmCustom2, AccountantFirmInfo.Custom3 AS FirmCustom3, "
     "AccountantFirmInfo.Custom4 AS FirmCustom4, AccountantFirmInfo.Custom5 AS FirmCustom5 From "
     "AccountantFirmInfo",
     false},
    {"", &Merge::userID, "SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo",
     " WHERE ContactID=", nullptr, nullptr, false},
    {"AppointInfo", &Merge::appointmentID,
     "SELECT Appointments.*, Appointments.Custom1 AS ApptCustom1, Appointments.Custom2 AS "
     "ApptCustom2, Appointments.Custom3 AS ApptCustom3, Appointments.Custom4 AS ApptCustom4, "
     "Appointments.Custom5 AS ApptCustom5 From Appointments",
     " WHERE Appointments.AppointmentID=", "AppointmentID"},
    {"TaskInfo", &Merge::taskID,
     "SELECT Schedule.*, Tasks.*, Schedule.Custom1 AS ScheduleCustom1, Schedule.Custom2 AS "
     "ScheduleCustom2, Schedule.Custom3 AS ScheduleCustom3, Schedule.Custom4 AS ScheduleCustom4, "
     "Schedule.Custom5 AS ScheduleCustom5, Tasks.Custom1 AS TaskCustom1, Tasks.Custom2 AS "
     "TaskCustom2, Tasks.Custom3 AS TaskCustom3, Tasks.Custom4 AS TaskCustom4, Tasks.Custom5 AS "
     "TaskCustom5 FROM Schedule INNER JOIN Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum",
     " WHERE Tasks.TaskID=", "TaskID"},
    {"DocketInfo", &Merge::docketId,
     "SELECT Dockets.*, Dockets.Custom1 AS DocketCustom1, Dockets.Custom2 AS DocketCustom2, "
     "Dockets.Custom3 AS DocketCustom3, Dockets.Custom4 AS DocketCustom4, Dockets.Custom5 AS "
     "DocketCustom5 From Dockets",
     " WHERE Dockets.DocketID=", "DocketID"},
};

constexpr const char* softwareOfContact = " AND SoftwareInfo.ContactIDNum=";

constexpr const char* taskWithoutSchedule =
    "SELECT Tasks.*, Tasks.Custom1 AS TaskCustom1, Tasks.Custom2 AS TaskCustom2, Tasks.Custom3 AS "
    "TaskCustom3, Tasks.Custom4 AS TaskCustom4, Tasks.Custom5 AS TaskCustom5 FROM Tasks WHERE "
    "Tasks.TaskID=";

constexpr int allClients = 3;

constexpr const SourceRow& rowOf(MergeSource source) {
  return sourceRows[static_cast<std::size_t>(source)];
}

constexpr const char* accountingColumns[] = {
    "SELECT Clients.ClientID, AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, "
    "CorpTaxInfo.*, LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*, CompaniesNotes.BusinessNotes, "
    "CompaniesNotes.ContactNotes "
    "FROM ((((((Companies INNER JOIN ((ClientData INNER JOIN AccountingServices ON "
    "ClientData.ClientDataID = AccountingServices.AccountingServiceID) INNER JOIN ClientOptions ON "
    "ClientData.ClientDataID = ClientOptions.ClientOptionID) ON Companies.CompanyID = "
    "ClientData.CompanyIDNum) INNER JOIN CorpTaxInfo ON ClientData.ClientDataID = "
    "CorpTaxInfo.CorpTaxInfoID) INNER JOIN LawInfo ON ClientData.ClientDataID = "
    "LawInfo.LawInfoID) INNER JOIN OtherInfo ON ClientData.ClientDataID = OtherInfo.OtherInfoID) "
    "INNER JOIN WSIB_EHTInfo ON ClientData.ClientDataID = WSIB_EHTInfo.WSIB_EHTInfoID) INNER JOIN "
    "CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum) INNER JOIN Clients ON "
    "Companies.CompanyID = Clients.CompanyIDNum ",
    "SELECT Clients.ClientID, AccountingServices.*, ClientData.*, ClientOptions.*, Companies.*, "
    "ClientUSInfo.*, CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes "
    "FROM ((ClientUSInfo INNER JOIN (Companies INNER JOIN ((ClientData INNER JOIN "
    "AccountingServices ON ClientData.ClientDataID = AccountingServices.AccountingServiceID) INNER "
    "JOIN ClientOptions ON ClientData.ClientDataID = ClientOptions.ClientOptionID) ON "
    "Companies.CompanyID = ClientData.CompanyIDNum) ON ClientUSInfo.ClientUSInfoID = "
    "ClientData.ClientDataID) INNER JOIN CompaniesNotes ON Companies.CompanyID = "
    "CompaniesNotes.CompanyNum) INNER JOIN Clients ON Companies.CompanyID = Clients.CompanyIDNum ",
};

std::string clientFilter(bool showOnly, int statusMode) {
  constexpr const char* filters[2][3] = {
      {"WHERE ClientData.ActiveStatus=1 ", "WHERE NOT ClientData.ActiveStatus=1 ", ""},
      {"WHERE ClientData.ShowThisClient = True AND ClientData.ActiveStatus=1 ",
       "WHERE ClientData.ShowThisClient = True AND NOT ClientData.ActiveStatus=1 ",
       "WHERE ClientData.ShowThisClient = True "},
  };
  if (statusMode < 1 || statusMode > allClients) return {};
  return filters[showOnly ? 1 : 0][statusMode - 1];
}

std::string clientOrder(int listOrder) {
  switch (listOrder) {
    case 1:
      return "ORDER BY Companies.CompanyName;";
    case 2:
      return "ORDER BY Companies.CorporateName;";
    case 3:
    case 4:
      return "ORDER BY Companies.ClientIDStr, Companies.CompanyName;";
    default:
      return ";";
  }
}

}  // namespace

std::optional<MergeSource> findMergeSource(std::string_view group) {
  if (group.empty()) return std::nullopt;
  for (std::size_t i = 0; i < mergeSourceCount; ++i)
    if (sourceRows[i].group == group) return static_cast<MergeSource>(i);
  return std::nullopt;
}

std::string getMainBusinessSQLString(bool showOnly, int statusMode, Id clientDataID) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getMainBusinessSQLString", std::string{},
                   [&](Step& step, std::string& result) {
                     const int country = step.value(0, [] { return locale().getCountryCode(); });
                     const int listOrder = step.value(0, [] { return clients().getListOrder(); });
                     const std::string filter = clientFilter(showOnly, statusMode);
                     result = accountingColumns[country == countryCanada ? 0 : 1] + filter;
                     if (clientDataID >= 0) {
                       result += filter.empty() ? "WHERE " : "AND ";
                       result += "ClientData.ClientDataID=" + std::to_string(clientDataID) + " ";
                     }
                     result += clientOrder(listOrder);
                   });
}

MergeSources::MergeSources(const clsInsertFieldsInRTB& merge) : merge_(merge) {}

bool MergeSources::isOpen(Step& step, MergeSource source) {
  return step.value(false, [&] { return database().isRecordsetOpen(at(source).handle); });
}

bool MergeSources::isBulk() const {
  return merge_.get_MergeFieldListUse() == field_list_use::bulkMerging;
}

Id MergeSources::idOf(MergeSource source) const {
  return merge_.*rowOf(source).id;
}

void MergeSources::close(Step& step, RecordsetHandle handle) {
  step.run([&] { database().closeRecordset(handle); });
}

void MergeSources::closeAll(Step& step) {
  for (const Recordset& recordset : recordsets_) {
    const RecordsetHandle handle = recordset.handle;
    if (handle == noRecordset) continue;
    if (step.value(false, [&] { return database().isRecordsetOpen(handle); })) close(step, handle);
  }
}

void MergeSources::openForOneDocument(Step& step) {
  using enum MergeSource;
  const bool isUpdating = merge_.get_MergeFieldListUse() == field_list_use::updating;
  const Access access = isUpdating ? keysetUpdate : keysetRead;
  const auto open = [&](MergeSource source) {
    if (idOf(source) >= 0) openOneRow(step, source, Columns::full, access);
  };
  open(clientAccounting);
  open(company);
  if (merge_.companyID >= 0) openSoftwareOf(step, company, access);
  open(contact);
  if (merge_.contactID >= 0 && !isOpen(step, software)) openSoftwareOf(step, contact, access);
  for (const MergeSource source : {firm, employee, appointment, docket, task}) open(source);
}

void MergeSources::open(Step& step, MergeSource source, const std::string& sql, Access access,
                        Rows rows) {
  Recordset& recordset = at(source);
  step.assign(recordset.handle, [&] { return openRecordset(sql, access.cursor, access.lock); });
  recordset.rows = rows;
  recordset.hasRow = false;
  step.assign(recordset.hasRow, [&] { return database().hasRecords(recordset.handle); });
}

bool MergeSources::openOneRow(Step& step, MergeSource source, Columns columns, Access access) {
  if (source == MergeSource::clientAccounting) return openClientAccounting(step, access, false);
  const SourceRow& row = rowOf(source);
  const std::string select =
      columns == Columns::full && row.fullSelect ? row.fullSelect : row.select;
  open(step, source, statementFor(select + row.where, idOf(source)), access, Rows::one);
  // A task that has no schedule entry is missing from the join of both.
  if (source == MergeSource::task && !at(source).hasRow) {
    close(step, at(source).handle);
    open(step, source, statementFor(taskWithoutSchedule, merge_.taskID), access, Rows::one);
  }
  return true;
}

/// A company that is no client has no accounting record, and the statement for no client in
/// particular reads that of somebody else: it must not be opened for a single row.
bool MergeSources::openClientAccounting(Step& step, Access access, bool isWholeTable) {
  Id clientDataId = noId;
  if (!isWholeTable) {
    step.assign(clientDataId,
                [&] { return clients().getClientDataIDFromCompanyID(merge_.companyID); });
    if (clientDataId < 0) return false;
  }
  const std::string sql = getMainBusinessSQLString(false, allClients, clientDataId);
  if (sql.empty()) return false;  // the person has left its making
  open(step, MergeSource::clientAccounting, sql, access, Rows::one);
  return true;
}

void MergeSources::openSoftwareOf(Step& step, MergeSource owner, Access access) {
  const SourceRow& software = rowOf(MergeSource::software);
  const std::string where = owner == MergeSource::contact ? softwareOfContact : software.where;
  open(step, MergeSource::software, statementFor(software.select + where, idOf(owner)), access,
       Rows::one);
}

void MergeSources::openAllRows(Step& step, MergeSource source) {
  open(step, source, std::string(rowOf(source).select) + ";", keysetRead, Rows::all);
}

bool MergeSources::openOnDemand(Step& step, MergeSource source) {
  if (source == MergeSource::software) return openSoftwareOnDemand(step);
  if (idOf(source) < 0) return false;
  if (isOpen(step, source)) return true;
  if (source == MergeSource::clientAccounting)
    return openClientAccounting(step, isBulk() ? keysetRead : forwardRead, isBulk());

  const bool isWholeTable = isBulk() && rowOf(source).hasAllRows;
  if (isWholeTable) {
    openAllRows(step, source);
  } else {
    openOneRow(step, source, Columns::onDemand, forwardRead);
  }
  const bool ownsSoftware = source == MergeSource::company || source == MergeSource::contact;
  if (ownsSoftware && !isOpen(step, MergeSource::software)) {
    if (isWholeTable) {
      openAllRows(step, MergeSource::software);
    } else {
      openSoftwareOf(step, source, forwardRead);
    }
  }
  return true;
}

/// Software is read only when a client's record has opened it before.
bool MergeSources::openSoftwareOnDemand(Step& step) {
  if (!isOpen(step, MergeSource::software)) return false;
  const Recordset former = at(MergeSource::software);
  if (!isBulk() || former.rows == Rows::all) return true;
  openAllRows(step, MergeSource::software);
  if (at(MergeSource::software).handle != former.handle) close(step, former.handle);
  return true;
}

bool MergeSources::goToRow(Step& step, MergeSource source) {
  const Recordset& recordset = at(source);
  // Software is the reverse of the others: its whole table is read where it stands, and the one row
  // is looked for, under the company.
  const Rows readAtOnce = source == MergeSource::software ? Rows::all : Rows::one;
  if (!recordset.hasRow || recordset.rows == readAtOnce) return recordset.hasRow;
  return step.value(false, [&] {
    return findRecord(recordset.handle, rowOf(source).findColumn, std::to_string(idOf(source)));
  });
}

bool MergeSources::openForWriting(Step& step, MergeSource source) {
  const bool isNotes = source == MergeSource::companyNotes || source == MergeSource::contactNotes;
  if (source != MergeSource::software && idOf(source) < 0) return false;
  if (isOpen(step, source)) {
    if (!isNotes) return true;
    close(step, at(source).handle);
  }
  if (source == MergeSource::software) return false;
  return openOneRow(step, source, Columns::full, isNotes ? forwardUpdate : keysetUpdate);
}

}  // namespace autonotify
