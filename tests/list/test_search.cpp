#include "list/clsAutoNotifyFlexGrid.h"
#include "list/frmAutoNotifySearch.h"
#include "list/search_panel.h"
#include "support/HostTest.h"
#include "support/fault_walk.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

/// A field of the controller that a search sets, by its name.
struct Field {
  const char* name;
  void (*set)(clsAutoNotifyFlexGrid&, const std::string&);
  std::string (*get)(const clsAutoNotifyFlexGrid&);
};
#define FIELD(name)                                                       \
  {                                                                       \
#name,                                                                  \
        [](clsAutoNotifyFlexGrid& list, const std::string& text) {          \
          list.name = cellAs<decltype(list.name)>(text);                    \
        },                                                                  \
        [](const clsAutoNotifyFlexGrid& list) { return toText(list.name); } \
  }
const Field fields[] = {FIELD(searchCompany),
                        FIELD(searchCompanyID),
                        FIELD(searchContact),
                        FIELD(searchContactID),
                        FIELD(searchNotificationType),
                        FIELD(searchNotificationTypeNum),
                        FIELD(searchByNotificationDate),
                        FIELD(searchStartNotificationDate),
                        FIELD(searchEndNotificationDate),
                        FIELD(searchNotificationDateDirection),
                        FIELD(searchCreatedByUserID),
                        FIELD(searchCreatedByUserIDNum),
                        FIELD(searchEmployeeAssignedName),
                        FIELD(searchEmployeeAssignedNameText),
                        FIELD(searchAccountantName),
                        FIELD(searchAccountantNameText),
                        FIELD(searchPartnerName),
                        FIELD(searchPartnerNameText),
                        FIELD(searchNotificationSent),
                        FIELD(searchNotificationSentValue),
                        FIELD(searchByNotificationSentDate),
                        FIELD(searchStartNotificationSentDate),
                        FIELD(searchEndNotificationSentDate),
                        FIELD(searchNotificationSentDateDirection),
                        FIELD(searchSentByUserID),
                        FIELD(searchSentByUserIDNum),
                        FIELD(searchNotificationSentStatus),
                        FIELD(searchNotificationSentStatus_NotSent),
                        FIELD(searchNotificationSentStatus_Sent),
                        FIELD(searchNotificationSentStatus_Cancelled),
                        FIELD(autoNotifyListDisplayType),
                        FIELD(autoNotifyListShowSent)};

const Field& field(const std::string& name) {
  return *std::ranges::find(fields, name, &Field::name);
}

/// Keeps the last sentence.
struct NotedEvents : AutoNotifyFlexGridEvents {
  std::string sentence;
  void closeGridParentForm() override {}
  void setupProgressBar(int) override {}
  void incrementProgressBar(int) override {}
  void hideProgressBar() override {}
  void numberOfEntries(int) override {}
  void sortEntries(const std::array<GridSortKey, 3>&) override {}
  void changeDisplayTextString(const std::string& text) override { sentence = text; }
  void sentNotification() override {}
};

void fillSearchOffice(TableRows rows) {
  addAllTold(rows, "../list/search_cases.txt", "office");
}

/// A controller without a grid.
struct Search {
  NotedEvents events;
  std::shared_ptr<clsAutoNotifyFlexGrid> list = std::make_shared<clsAutoNotifyFlexGrid>(events);

  /// "field=value;field=value"
  void set(const std::string& told) {
    for (const std::string& each : split(told, ';'))
      field(each.substr(0, each.find('='))).set(*list, each.substr(each.find('=') + 1));
  }
  /// What differs from the criteria after a reset, in the same form.
  std::string changes() const {
    clsAutoNotifyFlexGrid fresh(const_cast<NotedEvents&>(events));
    std::string told;
    for (const Field& each : fields)
      if (each.get(*list) != each.get(fresh))
        told += (told.empty() ? "" : ";") + (each.name + ("=" + each.get(*list)));
    return told;
  }
};

class ListSearch : public HostTest {
 protected:
  ListSearch() { fillSearchOffice(*this); }
};

TEST_F(ListSearch, AsksAndTellsWhatTheCriteriaSay) {
  for (const auto& [criteria, filter, sentence] :
       casesOf<std::string, std::string, std::string>("../list/search_cases.txt", "filters")) {
    SCOPED_TRACE(criteria);
    Search search;
    search.set(criteria);
    const auto write = [&] { search.list->generateSQLStr(); };
    EXPECT_TRUE(std::ranges::is_sorted(callsOf("formatDateForSQL", write))) << "start first";
    EXPECT_EQ(search.list->generateSQLStr(), filter);
    EXPECT_EQ(search.list->SQLFilter, filter);
    EXPECT_EQ(search.events.sentence, sentence);
    EXPECT_EQ(search.list->displayText(), sentence);
  }
}

/// "press cmdSearch", "page 1", "write Combo1(1) Birch Ltd.", "choose Combo1(7) Fax", "pick
/// dtpField(0) 2026-04-20", "shut", "look txtField(0)"
void act(WindowInUse& panel, const std::string& told, std::string& seen) {
  const std::vector<std::string> words = split(told, ' ');
  const std::string rest =
      words.size() > 2 ? told.substr(words[0].size() + words[1].size() + 2) : "";
  if (words[0] == "press") panel.click(words[1]);
  if (words[0] == "page") panel.choose("SSTab1", std::stoi(words[1]));
  if (words[0] == "write") panel.type(words[1], rest);
  if (words[0] == "choose") panel.choose(words[1], rest);
  if (words[0] == "pick") panel.pickDate(words[1], cellAs<DateTime>(rest));
  if (words[0] == "shut" && panel.closeBox()) seen += "gone";
  if (words[0] == "look") seen += panel.read(words[1]) + (panel.canUse(words[1]) ? ";" : "-;");
}

/// Shows the panel on the criteria; gives what was looked at, where a refusal has led, and whether
/// it was left to search.
std::string usePanel(TestHost& host, frmAutoNotifySearch& panel, Search& search,
                     const std::string& acts) {
  std::string seen;
  host.screen.expectWindow(panel.name(), [&](WindowInUse& window) {
    for (const std::string& each : split(acts, ';')) act(window, each, seen);
    if (!window.form().isVisible()) return;
    seen += window.focus() + " on " + std::to_string(panel.SSTab1.tab());
    window.click("cmdCancel");
  });
  panel.PassedClassRef(search.list.get());
  return panel.Initialize() ? seen + "search" : seen;
}

TEST_F(ListSearch, StoresWhatThePanelHoldsUpToWhatItRefuses) {
  frmAutoNotifySearch panel;
  for (const auto& [acts, refusals, seen, before, after] :
       casesOf<std::string, std::string, std::string, std::string, std::string>(
           "../list/search_cases.txt", "panel")) {
    SCOPED_TRACE(acts);
    Search search;
    search.set(before);
    for (const std::string& each : split(refusals, ';'))
      screen.expectMessage(each, message_style::inputRefused, panel.name());
    EXPECT_EQ(usePanel(*this, panel, search, acts), seen);
    EXPECT_EQ(search.changes(), after);
    EXPECT_TRUE(panel.isLoaded());
  }
  addRow("Contacts", {{"ContactID", 4}, {"DisplayName", "New Client"}});
  addRow("AccountantEmployeeInfo", {{"ContactID", 9}, {"DisplayName", "New Hand"}});
  Search search;
  EXPECT_EQ(usePanel(*this, panel, search,
                     "press chkMain(1);choose Combo1(1) New Client;page 3;press chkMain(15);"
                     "choose Combo1(8) New Hand;press cmdSearch"),
            "search");
  panel.unload();
}

TEST_F(ListSearch, KeepsOnePanelWithTheHostUntilItIsGivenBack) {
  procedure("test", [&](Step& step) {
    const auto first = keptSearchPanel(step);
    EXPECT_EQ(keptSearchPanel(step), first);
    EXPECT_EQ(plainClients.getPanel(searchPanelKey), first);
    first->unload();
    EXPECT_NE(keptSearchPanel(step), first) << "one that the host has unloaded cannot be shown";
  });
  giveBackSearchPanel();
  EXPECT_EQ(plainClients.getPanel(searchPanelKey), nullptr);
  EXPECT_EQ(callsOf("registerPanel", giveBackSearchPanel).size(), 0u);
}

WalkedOperation walkedPanel(const char* name, const char* acts) {
  return {name,
          [acts](TestHost& host) {
            frmAutoNotifySearch panel;
            Search search;
            host.screen.answerAll(true);
            const std::string seen = usePanel(host, panel, search, acts);
            search.list->generateSQLStr();
            return seen + search.changes() + search.list->SQLFilter + search.list->displayText();
          },
          "NotificationSent = FalseAll notifications not sent"};
}

class SearchFaults : public testing::TestWithParam<WalkedOperation> {};
TEST_P(SearchFaults, LeaveNothingHalfDone) {
  EXPECT_GT(walkFaults(GetParam(), {fillSearchOffice}), 10);
}
INSTANTIATE_TEST_SUITE_P(
    Panel, SearchFaults,
    testing::Values(
        walkedPanel("Client", "press chkMain(1);write Combo1(1) Birch Ltd.;press cmdSearch"),
        walkedPanel("Dates",
                    "page 1;press chkDate;pick dtpField(3) 2026-04-20;page 0;press chkMain(2);"
                    "write Combo1(0) Jo Park;press cmdSearch")),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace autonotify::test
