#include "merge/records/merge_sources.h"

#include "contract/enumerations.h"
#include "contract/tags.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

/// How the statements of a source are made: the select alone reads all rows, with `where` and an id
/// behind it the one row.
struct SourceRow {
  std::string_view group;
  Id MergeIds::*id;
  const char* select;
  const char* where;
  const char* findColumn;
  /// The select of a single document where it differs: it names the fifth custom column as well.
  const char* fullSelect = nullptr;
  bool hasAllRows = true;
};

// In the order of MergeSource. "ComapnyNum" is the column that the search for notes has always
// asked for.
constexpr SourceRow sourceRows[mergeSourceCount] = {
    {"ClientInfo", &MergeIds::companyID, nullptr, nullptr, "CompanyID"},
    {"CompanyInfo", &MergeIds::companyID,
     "SELECT Companies.*, Companies.Custom1 AS CompanyCustom1, Companies.Custom2 AS "
     "CompanyCustom2, Companies.Custom3 AS CompanyCustom3, Companies.Custom4 AS CompanyCustom4, "
     "Companies.Custom5 From Companies",
     " WHERE Companies.CompanyID=", "CompanyID",
     "SELECT Companies.*, Companies.Custom1 AS CompanyCustom1, Companies.Custom2 AS "
     "CompanyCustom2, Companies.Custom3 AS CompanyCustom3, Companies.Custom4 AS CompanyCustom4, "
     "Companies.Custom5 AS CompanyCustom5 From Companies"},
    {"CompanyNotes", &MergeIds::companyID, "SELECT CompaniesNotes.* From CompaniesNotes",
     " WHERE CompaniesNotes.CompanyNum=", "ComapnyNum"},
    {"ContactInfo", &MergeIds::contactID,
     "SELECT Contacts.*, Contacts.Custom1 AS ContactCustom1, Contacts.Custom2 AS ContactCustom2, "
     "Contacts.Custom3 AS ContactCustom3, Contacts.Custom4 AS ContactCustom4, Contacts.Custom5 AS "
     "ContactCustom5 From Contacts",
     " WHERE Contacts.ContactID=", "ContactID"},
    {"ContactNotes", &MergeIds::contactID, "SELECT ContactsNotes.* From ContactsNotes",
     " WHERE ContactsNotes.ContactNum=", "ContactNum"},
    {"SoftwareInfo", &MergeIds::companyID,
     "SELECT SoftwareInfo.* From SoftwareInfo WHERE SoftwareInfo.DefaultSoftware=True",
     " AND SoftwareInfo.CompanyIDNum=", "CompanyID"},
    {"FirmInfo", &MergeIds::firmID,
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
    {"", &MergeIds::userID, "SELECT AccountantEmployeeInfo.* From AccountantEmployeeInfo",
     " WHERE ContactID=", nullptr, nullptr, false},
    {"AppointInfo", &MergeIds::appointmentID,
     "SELECT Appointments.*, Appointments.Custom1 AS ApptCustom1, Appointments.Custom2 AS "
     "ApptCustom2, Appointments.Custom3 AS ApptCustom3, Appointments.Custom4 AS ApptCustom4, "
     "Appointments.Custom5 AS ApptCustom5 From Appointments",
     " WHERE Appointments.AppointmentID=", "AppointmentID"},
    {"TaskInfo", &MergeIds::taskID,
     "SELECT Schedule.*, Tasks.*, Schedule.Custom1 AS ScheduleCustom1, Schedule.Custom2 AS "
     "ScheduleCustom2, Schedule.Custom3 AS ScheduleCustom3, Schedule.Custom4 AS ScheduleCustom4, "
     "Schedule.Custom5 AS ScheduleCustom5, Tasks.Custom1 AS TaskCustom1, Tasks.Custom2 AS "
     "TaskCustom2, Tasks.Custom3 AS TaskCustom3, Tasks.Custom4 AS TaskCustom4, Tasks.Custom5 AS "
     "TaskCustom5 FROM Schedule INNER JOIN Tasks ON Schedule.ScheduleID = Tasks.ScheduleIDNum",
     " WHERE Tasks.TaskID=", "TaskID"},
    {"DocketInfo", &MergeIds::docketId,
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

Id idOf(const MergeIds& ids, MergeSource source) {
  return ids.*rowOf(source).id;
}

bool isOpenNow(RecordsetHandle handle) {
  return database().isRecordsetOpen(handle);
}

void close(RecordsetHandle handle) {
  database().closeRecordset(handle);
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

std::string accountsStatement(Step& step, const std::string& filter, Id clientDataID) {
  const int country = step.value(0, [] { return locale().getCountryCode(); });
  const int listOrder = step.value(0, [] { return clients().getListOrder(); });
  std::string statement = accountingColumns[country == countryCanada ? 0 : 1] + filter;
  if (clientDataID >= 0) {
    statement += filter.empty() ? "WHERE " : "AND ";
    statement += "ClientData.ClientDataID=" + std::to_string(clientDataID) + " ";
  }
  return statement + clientOrder(listOrder);
}

}  // namespace

std::optional<MergeSource> findMergeSource(std::string_view group) {
  if (group.empty()) return std::nullopt;
  for (std::size_t i = 0; i < mergeSourceCount; ++i)
    if (sourceRows[i].group == group) return static_cast<MergeSource>(i);
  return std::nullopt;
}

bool isReadForTasks(MergeSource source) {
  const Id MergeIds::*const id = rowOf(source).id;
  return id == &MergeIds::companyID || id == &MergeIds::contactID || id == &MergeIds::taskID;
}

std::string getMainBusinessSQLString(bool showOnly, int statusMode, Id clientDataID) {
  return procedure(
      tagOf<"getMainBusinessSQLString">, std::string{}, [&](Step& step, std::string& result) {
        result = accountsStatement(step, clientFilter(showOnly, statusMode), clientDataID);
      });
}

bool MergeSources::isOpen(Step& step, MergeSource source) {
  return step.holds(isOpenNow, at(source).handle);
}

void MergeSources::closeAll(Step& step) {
  for (const Recordset& recordset : recordsets_) {
    const RecordsetHandle handle = recordset.handle;
    if (handle == noRecordset) continue;
    if (step.holds(isOpenNow, handle)) step.run(close, handle);
  }
}

void MergeSources::openForOneDocument(Step& step, const MergeScope& scope) {
  using enum MergeSource;
  const MergeIds& ids = scope.ids;
  const Access access = scope.isUpdating ? keysetUpdate : keysetRead;
  const auto open = [&](MergeSource source) {
    if (idOf(ids, source) >= 0) openOneRow(step, ids, source, Columns::full, access);
  };
  open(clientAccounting);
  open(company);
  if (ids.companyID >= 0) openSoftwareOf(step, ids, company, access);
  open(contact);
  if (ids.contactID >= 0 && !isOpen(step, software)) openSoftwareOf(step, ids, contact, access);
  for (const MergeSource source : {firm, employee, appointment, docket, task}) open(source);
}

void MergeSources::open(Step& step, MergeSource source, const std::string& sql, Access access,
                        Extent extent) {
  Recordset& recordset = at(source);
  step.assign(recordset.handle, openRecordset, sql, access);
  recordset.extent = extent;
  recordset.hasRow = false;
  step.assign(recordset.hasRow, [&] { return database().hasRecords(recordset.handle); });
}

bool MergeSources::openOneRow(Step& step, const MergeIds& ids, MergeSource source, Columns columns,
                              Access access) {
  if (source == MergeSource::clientAccounting)
    return openClientAccounting(step, ids.companyID, access, false);
  const SourceRow& row = rowOf(source);
  std::string statement = columns == Columns::full && row.fullSelect ? row.fullSelect : row.select;
  statement += row.where;
  open(step, source, statementFor(statement, idOf(ids, source)), access, Extent::oneRow);
  // A task that has no schedule entry is missing from the join of both.
  if (source == MergeSource::task && !at(source).hasRow) {
    step.run(close, at(source).handle);
    open(step, source, statementFor(taskWithoutSchedule, ids.taskID), access, Extent::oneRow);
  }
  return true;
}

/// A company that is no client has no accounting record, and the statement for no client in
/// particular reads that of somebody else: it must not be opened for a single row.
bool MergeSources::openClientAccounting(Step& step, Id companyID, Access access, bool whole) {
  Id clientDataId = noId;
  if (!whole) {
    step.assign(clientDataId, [&] { return clients().getClientDataIDFromCompanyID(companyID); });
    if (clientDataId < 0) return false;
  }
  const std::string sql = getMainBusinessSQLString(false, allClients, clientDataId);
  if (sql.empty()) return false;  // the person has left its making
  open(step, MergeSource::clientAccounting, sql, access, Extent::oneRow);
  return true;
}

void MergeSources::openSoftwareOf(Step& step, const MergeIds& ids, MergeSource owner,
                                  Access access) {
  const SourceRow& software = rowOf(MergeSource::software);
  const std::string where = owner == MergeSource::contact ? softwareOfContact : software.where;
  open(step, MergeSource::software, statementFor(software.select + where, idOf(ids, owner)), access,
       Extent::oneRow);
}

void MergeSources::openAllRows(Step& step, MergeSource source) {
  open(step, source, std::string(rowOf(source).select) + ";", keysetRead, Extent::allRows);
}

bool MergeSources::openOnDemand(Step& step, const MergeScope& scope, MergeSource source) {
  if (source == MergeSource::software) return openSoftwareOnDemand(step, scope.isBulk);
  if (idOf(scope.ids, source) < 0) return false;
  if (isOpen(step, source)) return true;
  if (source == MergeSource::clientAccounting) {
    const Access access = scope.isBulk ? keysetRead : forwardRead;
    return openClientAccounting(step, scope.ids.companyID, access, scope.isBulk);
  }
  const bool whole = scope.isBulk && rowOf(source).hasAllRows;
  if (whole) {
    openAllRows(step, source);
  } else {
    openOneRow(step, scope.ids, source, Columns::onDemand, forwardRead);
  }
  const bool ownsSoftware = source == MergeSource::company || source == MergeSource::contact;
  if (ownsSoftware && !isOpen(step, MergeSource::software)) {
    if (whole) {
      openAllRows(step, MergeSource::software);
    } else {
      openSoftwareOf(step, scope.ids, source, forwardRead);
    }
  }
  return true;
}

/// Software is read only when a client's record has opened it before.
bool MergeSources::openSoftwareOnDemand(Step& step, bool isBulk) {
  if (!isOpen(step, MergeSource::software)) return false;
  const Recordset former = at(MergeSource::software);
  if (!isBulk || former.extent == Extent::allRows) return true;
  openAllRows(step, MergeSource::software);
  if (at(MergeSource::software).handle != former.handle) step.run(close, former.handle);
  return true;
}

bool MergeSources::goToRow(Step& step, const MergeScope& scope, MergeSource source) {
  const Recordset& recordset = at(source);
  // Software is the reverse of the others: its whole table is read where it stands, and the one row
  // is looked for, under the company.
  const Extent readAtOnce = source == MergeSource::software ? Extent::allRows : Extent::oneRow;
  if (!recordset.hasRow || recordset.extent == readAtOnce) return recordset.hasRow;
  const std::string id = std::to_string(idOf(scope.ids, source));
  return step.holds(findRecord, recordset.handle, rowOf(source).findColumn, id);
}

bool MergeSources::openForWriting(Step& step, const MergeScope& scope, MergeSource source) {
  const bool isNotes = source == MergeSource::companyNotes || source == MergeSource::contactNotes;
  if (source != MergeSource::software && idOf(scope.ids, source) < 0) return false;
  if (isOpen(step, source)) {
    if (!isNotes) return true;
    step.run(close, at(source).handle);
  }
  if (source == MergeSource::software) return false;
  return openOneRow(step, scope.ids, source, Columns::full, isNotes ? forwardUpdate : keysetUpdate);
}

}  // namespace autonotify
