#include "list/frmAutoNotifySearch.h"

#include <algorithm>

#include "contract/recordsets.h"
#include "contract/windows.h"
#include "store/modNotifyClients.h"

namespace autonotify {
namespace {

/// Pages of the panel; there is no third one.
namespace search_page {
constexpr int main = 0;
constexpr int dates = 1;
constexpr int assigned = 3;
}  // namespace search_page

/// Positions of the boxes.
namespace search_box {
constexpr std::size_t client = 0;
constexpr std::size_t channel = 1;
constexpr std::size_t sent = 2;
constexpr std::size_t status = 3;
constexpr std::size_t employee = 4;
constexpr std::size_t accountant = 5;
constexpr std::size_t partner = 6;
constexpr std::size_t createdBy = 7;
constexpr std::size_t sentBy = 8;
}  // namespace search_box

struct SearchBox {
  const char* caption;
  int page;
  /// The position of the list beside it; none for the sent options and the send status.
  int list;
};
constexpr std::array<SearchBox, 9> searchBoxes{{
    {"Search by Client", search_page::main, 0},
    {"Search by Notification Type", search_page::main, 1},
    {"Search by whether item is Sent", search_page::main, -1},
    {"Search by Sent Status (if sent)", search_page::main, -1},
    {"Search by Employee Assigned", search_page::main, 2},
    {"Search by Managing Accountant", search_page::assigned, 3},
    {"Search by Supervising Partner", search_page::assigned, 4},
    {"Search by Created By", search_page::main, 5},
    {"Search by Items Sent by", search_page::main, 6},
}};

/// In the order in which they are stored.
struct NameRow {
  std::size_t box;
  NameCriterion criterion;
};
constexpr std::array<NameRow, 3> nameRows{{
    {search_box::employee, employeeCriterion},
    {search_box::partner, partnerCriterion},
    {search_box::accountant, accountantCriterion},
}};
struct UserRow {
  std::size_t box;
  NumberCriterion criterion;
};
constexpr std::array<UserRow, 2> userRows{
    {{search_box::createdBy, createdByCriterion}, {search_box::sentBy, sentByCriterion}}};

constexpr const char* noSuchClient = "You must select a valid client from the drop down list.";
constexpr const char* noSuchChannel = "You must select a valid communication type.";
constexpr const char* noSuchEmployee = "You must select a valid employee name.";

}  // namespace

frmAutoNotifySearch::frmAutoNotifySearch()
    : Window(formHost(), "frmAutoNotifySearch", "Advanced Search (Client Auto Notifications)") {
  using Self = frmAutoNotifySearch;
  placeBoxes();
  placeGroups();
  for (std::size_t box = 0; box < chkMain.size(); ++box)
    reactAt(box, chkMain[box].onClick, "chkMain_Click", &Self::follow);
  react(cmdSearch.onClick, "cmdSearch_Click", &Self::search);
  react(cmdCancel.onClick, "cmdCancel_Click", &Self::cancel);
}

void frmAutoNotifySearch::placeBoxes() {
  SSTab1.setPages({"Main Categories", "Search Notification Dates", "", "Search by Assigned"});
  for (std::size_t box = 0; box < chkMain.size(); ++box) {
    chkMain[box].setCaption(searchBoxes[box].caption);
    chkMain[box].setContainer(SSTab1, searchBoxes[box].page);
    if (searchBoxes[box].list >= 0) listOf(box).setContainer(SSTab1, searchBoxes[box].page);
  }
  listOf(search_box::channel).setEditable(false);
  fraEmployee.setContainer(SSTab1, search_page::main);
  for (const auto& [box, criterion] : userRows) {
    chkMain[box].setContainer(fraEmployee);
    listOf(box).setContainer(fraEmployee);
  }
}

void frmAutoNotifySearch::placeGroups() {
  fraSent.setContainer(SSTab1, search_page::main);
  optSent[0].setCaption("Show only unsent items");
  optSent[1].setCaption("Show only sent items");
  for (OptionButton& option : optSent) option.setContainer(fraSent);
  chkSendStatus[0].setCaption("Auto Notifications Previously Sent");
  chkSendStatus[1].setCaption("Auto Notifications Previously Cancelled");
  for (CheckBox& box : chkSendStatus) box.setContainer(SSTab1, search_page::main);
  for (DateRangeGroup* group : {&notificationDates, &sentDates})
    group->frame.setContainer(SSTab1, search_page::dates);
  notificationDates.frame.setCaption("Search Notification Dates");
  notificationDates.box.setCaption("Search By Notification Date Range");
  sentDates.frame.setCaption("Search Sent/Cancelled Dates");
  sentDates.box.setCaption("Search By Date Range Notification was Sent or Cancelled");
}

ComboBox& frmAutoNotifySearch::listOf(std::size_t box) {
  return Combo1.at(static_cast<std::size_t>(searchBoxes[box].list));
}

bool frmAutoNotifySearch::Initialize() {
  isSearch_ = false;
  procedure(tag("Initialize"), [&](Step& step) {
    fillLists(step);
    setupForm();
    step.run(styleForm, *this);
    step.run(autonotify::showModal, *this);
  });
  return isSearch_;
}

/// Anew at each showing, for whoever has been added meanwhile; a list that cannot be read stays as
/// it was.
void frmAutoNotifySearch::fillLists(Step& step) {
  ComboBox& channels = listOf(search_box::channel);
  if (channels.listCount() == 0) populateAutoNotificationSendTypesInComboBox(channels);
  ComboBox& names = listOf(search_box::client);
  step.run([&] { generalUtilities().fillComboFromList(clients().getClientNames(), names, true); });
  ComboBox& staff = listOf(search_box::employee);
  step.run(
      [&] { generalUtilities().fillComboFromList(clients().getEmployeeNames(), staff, true); });
  for (const std::size_t box :
       {search_box::accountant, search_box::partner, search_box::createdBy, search_box::sentBy})
    step.run(&ComboBox::copyEntries, listOf(box), staff);
}

// Showing the criteria.

void frmAutoNotifySearch::setupForm() {
  procedure(tag("setupForm"), [&](Step& step) {
    showClient(step);
    showChannel(step);
    showSent();
    for (const auto& [box, criterion] : nameRows) {
      chkMain[box].setValue(criteria_->*criterion.isOn);
      listOf(box).setText(criteria_->*criterion.name);
    }
    for (const auto& [box, criterion] : userRows)
      showUser(step, box, criteria_->*criterion.isOn, criteria_->*criterion.number);
    for (DateRangeGroup* group : {&notificationDates, &sentDates}) group->show(*criteria_);
    for (std::size_t box = 0; box < chkMain.size(); ++box) follow(step, box);
    SSTab1.setTab(search_page::main);
  });
}

void frmAutoNotifySearch::showClient(Step& step) {
  const bool isCompany = criteria_->searchCompany;
  const Id client = isCompany ? criteria_->searchCompanyID : criteria_->searchContactID;
  using Clients = clientDropDownCtrlReference;
  const auto name = isCompany ? &Clients::getCompanyDisplayName : &Clients::getContactDisplayName;
  std::string text;
  if (client >= 0) step.assign(text, [&] { return (clients().*name)(client); });
  chkMain[search_box::client].setValue(isCompany || criteria_->searchContact);
  listOf(search_box::client).setText(text);
}

void frmAutoNotifySearch::showChannel(Step& step) {
  ComboBox& channels = listOf(search_box::channel);
  int place = channels.listCount() - 1;
  while (place >= 0 && channels.itemData(place) != criteria_->searchNotificationTypeNum) --place;
  chooseEntry(step, channels, place);
  chkMain[search_box::channel].setValue(criteria_->searchNotificationType);
}

void frmAutoNotifySearch::showSent() {
  chkMain[search_box::sent].setValue(criteria_->searchNotificationSent);
  optSent[criteria_->searchNotificationSentValue ? 1 : 0].setValue(true);
  chkMain[search_box::status].setValue(criteria_->searchNotificationSentStatus);
  chkSendStatus[0].setValue(criteria_->searchNotificationSentStatus_Sent);
  chkSendStatus[1].setValue(criteria_->searchNotificationSentStatus_Cancelled);
}

void frmAutoNotifySearch::showUser(Step& step, std::size_t box, bool isOn, Id user) {
  std::string name;
  if (user >= 0) step.assign(name, [&] { return clients().getUserNameFromID(user); });
  chkMain[box].setValue(isOn);
  listOf(box).setText(name);
}

// Acts.

/// What stands beside a box can be used while it is ticked.
void frmAutoNotifySearch::follow(Step&, std::size_t box) {
  const bool isOn = chkMain[box].value();
  if (searchBoxes[box].list >= 0) listOf(box).setEnabled(isOn);
  if (box == search_box::sent)
    for (OptionButton& option : optSent) option.setEnabled(isOn);
  if (box == search_box::status)
    for (CheckBox& state : chkSendStatus) state.setEnabled(isOn);
}

void frmAutoNotifySearch::search(Step&) {
  if (!saveSettings()) return;
  isSearch_ = true;
  hide();
}

void frmAutoNotifySearch::cancel(Step&) {
  isSearch_ = false;
  hide();
}

/// A person's close box cancels; the panel stays, to be shown again.
bool frmAutoNotifySearch::queryUnload(CloseReason reason) {
  if (reason != CloseReason::closeBox) return true;
  procedure(tag("cmdCancel_Click"), [&](Step& step) { cancel(step); });
  return false;
}

// Storing the fields.

bool frmAutoNotifySearch::saveSettings() {
  using Self = frmAutoNotifySearch;
  constexpr std::array parts{
      &Self::saveClient, &Self::saveChannel, &Self::saveSent,
      &Self::saveNames,  &Self::saveDates,   &Self::saveUsers,
  };
  return procedure(tag("saveSettings"), false, [&](Step& step, bool& isSaved) {
    isSaved = std::ranges::all_of(parts, [&](auto save) { return (this->*save)(step); });
  });
}

bool frmAutoNotifySearch::refuse(Step& step, const char* message, int page, Control& field) {
  step.run(showMessageAbove, this, message, message_style::inputRefused);
  SSTab1.setTab(page);
  step.run(&Control::setFocus, field);
  return false;
}

bool frmAutoNotifySearch::saveClient(Step& step) {
  ListCriteria& criteria = *criteria_;
  criteria.searchContact = criteria.searchCompany = false;
  criteria.searchContactID = criteria.searchCompanyID = noId;
  if (!chkMain[search_box::client].value()) return true;
  ComboBox& names = listOf(search_box::client);
  ListedClient found;
  if (!names.text().empty())
    step.assign(found, [&] { return clients().getClientFromName(names.text()); });
  criteria.searchCompany = found.type == enumAutoNotifyCompany && isListedCompany(step, found.id);
  criteria.searchContact = found.type == enumAutoNotifyContact && isListedContact(step, found.id);
  if (criteria.searchCompany) criteria.searchCompanyID = found.id;
  if (criteria.searchContact) criteria.searchContactID = found.id;
  return criteria.searchCompany || criteria.searchContact ||
         refuse(step, noSuchClient, search_page::main, names);
}

bool frmAutoNotifySearch::saveChannel(Step& step) {
  const bool isOn = chkMain[search_box::channel].value();
  ComboBox& channels = listOf(search_box::channel);
  const int chosen = channels.listIndex();
  if (isOn && chosen < 0) return refuse(step, noSuchChannel, search_page::main, channels);
  criteria_->searchNotificationType = isOn;
  criteria_->searchNotificationTypeNum = chosen < 0 ? noId : channels.itemData(chosen);
  return true;
}

/// The box of the send status only shows the criterion, which nothing turns on.
bool frmAutoNotifySearch::saveSent(Step&) {
  criteria_->searchNotificationSent = chkMain[search_box::sent].value();
  criteria_->searchNotificationSentValue = optSent[1].value();
  chkMain[search_box::status].setValue(criteria_->searchNotificationSentStatus);
  criteria_->searchNotificationSentStatus_Sent = chkSendStatus[0].value();
  criteria_->searchNotificationSentStatus_Cancelled = chkSendStatus[1].value();
  return true;
}

bool frmAutoNotifySearch::saveNames(Step& step) {
  for (const auto& [box, criterion] : nameRows) {
    const bool isOn = chkMain[box].value();
    ComboBox& names = listOf(box);
    if (isOn && names.text().empty())
      return refuse(step, noSuchEmployee, searchBoxes[box].page, names);
    criteria_->*criterion.isOn = isOn;
    criteria_->*criterion.name = names.text();
  }
  return true;
}

bool frmAutoNotifySearch::saveDates(Step& step) {
  for (DateRangeGroup* group : {&sentDates, &notificationDates})
    if (const auto refusal = group->store(step, *criteria_))
      return refuse(step, refusal->message, search_page::dates, *refusal->field);
  return true;
}

bool frmAutoNotifySearch::saveUsers(Step& step) {
  for (const auto& [box, criterion] : userRows) {
    const bool isOn = chkMain[box].value();
    ComboBox& names = listOf(box);
    Id user = noId;
    if (!names.text().empty())
      step.assign(user, [&] { return clients().getUserIDFromName(names.text()); });
    if (isOn && user < 0) return refuse(step, noSuchEmployee, search_page::main, names);
    criteria_->*criterion.isOn = isOn;
    criteria_->*criterion.number = user;
  }
  return true;
}

}  // namespace autonotify
