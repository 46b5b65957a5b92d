#include "merge/merge_host.h"

namespace autonotify::test {
namespace {

using std::string;

class AccountingSql : public MergeHost {
 protected:
  /// The statement behind its joins.
  string tail(bool showOnly, int statusMode, Id clientDataID) {
    const string sql = getMainBusinessSQLString(showOnly, statusMode, clientDataID);
    const string join = "ON Companies.CompanyID = Clients.CompanyIDNum ";
    return sql.substr(sql.find(join) + join.size());
  }
};

TEST_F(AccountingSql, JoinsTheTablesOfTheCountry) {
  host.plainClients.setListOrder(0);
  EXPECT_EQ(getMainBusinessSQLString(false, 3, 4),
            "SELECT Clients.ClientID, AccountingServices.*, ClientData.*, ClientOptions.*, "
            "Companies.*, CorpTaxInfo.*, LawInfo.*, OtherInfo.*, WSIB_EHTInfo.*, "
            "CompaniesNotes.BusinessNotes, CompaniesNotes.ContactNotes FROM ((((((Companies INNER "
            "JOIN ((ClientData INNER JOIN AccountingServices ON ClientData.ClientDataID = "
            "AccountingServices.AccountingServiceID) INNER JOIN ClientOptions ON "
            "ClientData.ClientDataID = ClientOptions.ClientOptionID) ON Companies.CompanyID = "
            "ClientData.CompanyIDNum) INNER JOIN CorpTaxInfo ON ClientData.ClientDataID = "
            "CorpTaxInfo.CorpTaxInfoID) INNER JOIN LawInfo ON ClientData.ClientDataID = "
            "LawInfo.LawInfoID) INNER JOIN OtherInfo ON ClientData.ClientDataID = "
            "OtherInfo.OtherInfoID) INNER JOIN WSIB_EHTInfo ON ClientData.ClientDataID = "
            "WSIB_EHTInfo.WSIB_EHTInfoID) INNER JOIN CompaniesNotes ON Companies.CompanyID = "
            "CompaniesNotes.CompanyNum) INNER JOIN Clients ON Companies.CompanyID = "
            "Clients.CompanyIDNum WHERE ClientData.ClientDataID=4 ;");
  host.plainLocale.settings().country = countryUnitedStates;
  EXPECT_EQ(getMainBusinessSQLString(false, 3, 4),
            "SELECT Clients.ClientID, AccountingServices.*, ClientData.*, ClientOptions.*, "
            "Companies.*, ClientUSInfo.*, CompaniesNotes.BusinessNotes, "
            "CompaniesNotes.ContactNotes FROM ((ClientUSInfo INNER JOIN (Companies INNER JOIN "
            "((ClientData INNER JOIN AccountingServices ON ClientData.ClientDataID = "
            "AccountingServices.AccountingServiceID) INNER JOIN ClientOptions ON "
            "ClientData.ClientDataID = ClientOptions.ClientOptionID) ON Companies.CompanyID = "
            "ClientData.CompanyIDNum) ON ClientUSInfo.ClientUSInfoID = ClientData.ClientDataID) "
            "INNER JOIN CompaniesNotes ON Companies.CompanyID = CompaniesNotes.CompanyNum) INNER "
            "JOIN Clients ON Companies.CompanyID = Clients.CompanyIDNum WHERE "
            "ClientData.ClientDataID=4 ;");
}

TEST_F(AccountingSql, FiltersByWhatIsShownAndByStatus) {
  host.plainClients.setListOrder(0);
  const struct {
    bool showOnly;
    int statusMode;
    Id id;
    const char* tail;
  } cases[] = {
      {true, 1, noId, "WHERE ClientData.ShowThisClient = True AND ClientData.ActiveStatus=1 ;"},
      {true, 2, noId, "WHERE ClientData.ShowThisClient = True AND NOT ClientData.ActiveStatus=1 ;"},
      {true, 3, noId, "WHERE ClientData.ShowThisClient = True ;"},
      {false, 1, noId, "WHERE ClientData.ActiveStatus=1 ;"},
      {false, 2, noId, "WHERE NOT ClientData.ActiveStatus=1 ;"},
      {false, 3, noId, ";"},
      {true, 3, 0, "WHERE ClientData.ShowThisClient = True AND ClientData.ClientDataID=0 ;"},
      {false, 3, 12, "WHERE ClientData.ClientDataID=12 ;"},
  };
  for (const auto& each : cases)
    EXPECT_EQ(tail(each.showOnly, each.statusMode, each.id), each.tail);
}

TEST_F(AccountingSql, KeepsTheOrderOfTheClientList) {
  const char* const orders[] = {
      ";",
      "ORDER BY Companies.CompanyName;",
      "ORDER BY Companies.CorporateName;",
      "ORDER BY Companies.ClientIDStr, Companies.CompanyName;",
      "ORDER BY Companies.ClientIDStr, Companies.CompanyName;",
      ";",
  };
  for (int order = 0; order < 6; ++order) {
    host.plainClients.setListOrder(order);
    EXPECT_EQ(tail(false, 3, noId), orders[order]) << order;
  }
}

}  // namespace
}  // namespace autonotify::test
