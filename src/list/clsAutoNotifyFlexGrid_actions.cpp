#include <algorithm>

#include "contract/tags.h"
#include "contract/windows.h"
#include "list/clsAutoNotifyFlexGrid.h"
#include "list/straight_email.h"
#include "store/modNotifyClients.h"
#include "wizards/documents/DocumentReport.h"
#include "wizards/wizard_channels.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsAutoNotifyFlexGrid", name>;

/// Who has this level may send and look, and no more.
constexpr std::int16_t restrictedLevel = 5;

/// From more rows than these on the person is told how a send of all goes.
constexpr int quietSends = 30;

template <notifyType channel>
void showStraight(Step& step, Id notification) {
  showDocument(step, channel, notification, noId, noId);
}

/// A channel as rows of the list name it.
struct ListChannel {
  const char* name;
  notifyType channel;
  /// Sends with no composer before; null where none goes without a person.
  void (*send)(Step& step, Id notification);
};
constexpr ListChannel listChannels[] = {
    {"Email", nt_Email, sendStraight},
    {"Fax", nt_Fax, showStraight<nt_Fax>},
    {"Letter", nt_Letter, showStraight<nt_Letter>},
    {"Phone", nt_Phone, nullptr},
};

/// What a row's cells tell about it.
struct RowKeys {
  Id notification = noId;
  Id schedule = noId;
  /// Null for a channel that nobody knows.
  const ListChannel* channel = nullptr;

  /// A composer would add a row where none is named.
  bool isNamed() const { return notification > 0; }
};

std::string textOfCell(Step& step, Grid& grid, int row, Id column) {
  return step.value(std::string{}, &Grid::get_CellText, grid, row, column);
}

Id idOfCell(Step& step, Grid& grid, int row, Id column) {
  return idOf(step, textOfCell(step, grid, row, column));
}

RowKeys keysOf(Step& step, Grid& grid, int row) {
  RowKeys keys;
  keys.notification = idOfCell(step, grid, row, list_column::notification);
  keys.schedule = idOfCell(step, grid, row, list_column::schedule);
  const std::string name = textOfCell(step, grid, row, list_column::notificationType);
  const auto found = std::ranges::find(listChannels, name, &ListChannel::name);
  if (found != std::end(listChannels)) keys.channel = found;
  return keys;
}

using Opening = void (NotificationComposer::*)(notificationTypes, Id, ItemKind, Id);

/// True when the person sent the row from its composer.
bool compose(Step& step, const RowKeys& keys, Opening open) {
  const auto composer =
      std::ranges::find(wizardChannels, keys.channel->channel, &WizardChannel::channel);
  bool isSent = false;
  withWindow(step, composer->makeComposer, [&](NotificationComposer& window) {
    (window.*open)(remittanceNotification, keys.notification, Appointments, keys.schedule);
    isSent = window.SendSuccessfulFlag();
  });
  return isSent;
}

/// What went out without a composer counts as sent, whatever became of it.
bool send(Step& step, const RowKeys& keys, bool showsComposer) {
  if (!keys.channel) return false;
  if (showsComposer || !keys.channel->send)
    return compose(step, keys, &NotificationComposer::InitializeSendAuto);
  keys.channel->send(step, keys.notification);
  return true;
}

void showTick(Step& step, Grid& grid, int row, bool isSent) {
  step.run(&Grid::put_cellChecked, grid, row, list_column::sent, isSent);
  step.run(&Grid::put_CellSortValue, grid, row, list_column::sent, isSent ? -1 : 0);
}

template <class Visit>
void forEachUnsent(Step& step, Grid& grid, Visit visit) {
  const auto isThere = [&](int row) { return step.value(0, &Grid::get_Rows, grid) > row; };
  for (int row = 0; isThere(row); ++row) {
    const bool isSent = step.value(true, &Grid::get_cellChecked, grid, row, list_column::sent);
    if (!isSent) visit(row);
  }
}

std::string batchNotice(int count) {
  return "There are " + std::to_string(count) +
         " emails to send.  In order to prevent your email program from being overwhelmed, Morvane "
         "will send the emails in batches of 30.\r\n\r\nAfter each batch of emails has been sent, "
         "continue clicking the 'Send All Emails' button until all the emails are sent.";
}

}  // namespace

/// Keeps all other acts off the list as long as a row is at work.
class clsAutoNotifyFlexGrid::RowWork {
 public:
  RowWork(clsAutoNotifyFlexGrid& list, ListRowAtWork::Act act, int row) : list_(list) {
    list_.atWork_ = {act, row};
  }
  ~RowWork() { list_.atWork_.reset(); }
  RowWork(const RowWork&) = delete;
  RowWork& operator=(const RowWork&) = delete;

 private:
  clsAutoNotifyFlexGrid& list_;
};

/// A row that was ticked, or is sent with all others, was shown as unsent.
ListRowAtWork* clsAutoNotifyFlexGrid::rowAtWork() {
  using enum ListRowAtWork::Act;
  if (!atWork_) return nullptr;
  ListRowAtWork& work = *atWork_;
  if (work.notification != noId) return &work;
  const bool isAsTicked = work.act != sendTicked && work.act != sendOfAll;
  work.isShownSent = isAsTicked && flexGrid_->get_cellChecked(work.row, list_column::sent);
  work.notification = toInteger(flexGrid_->get_CellText(work.row, list_column::notification));
  return &work;
}

// What a click does.

void clsAutoNotifyFlexGrid::CellButtonClick(int rowNum, int colNum) {
  procedure(tagOf<"CellButtonClick">, [&](Step& step) {
    const auto alive = weak_from_this().lock();
    checkIfEditingField();
    if (isBusy() || listEmpty_) return;
    switch (columnInReach(step, colNum)) {
      case list_column::sendNow:
        return changeSendStatus(rowNum, ListRowAtWork::Act::send);
      case list_column::cancelSend:
        return cancelSendStatus(rowNum, colNum);
      case list_column::viewInfo:
        return viewAutoNotifyInfoForm(rowNum, colNum);
      default:
        return;
    }
  });
}

void clsAutoNotifyFlexGrid::CellImageClick(int, int colNum) {
  procedure(tagOf<"CellImageClick">, [&](Step& step) {
    checkIfEditingField();
    if (!isBusy() && !listEmpty_) columnInReach(step, colNum);
  });
}

/// While a row is at work no tick is toggled: it would stay so, and its row unsent.
void clsAutoNotifyFlexGrid::BeforeEdit(int, int, bool& cancelFlag) {
  if (atWork_) cancelFlag = true;
}

void clsAutoNotifyFlexGrid::AfterEdit(int rowNum, int colNum, bool& cancelFlag) {
  procedure(tagOf<"AfterEdit">, [&](Step& step) {
    const auto alive = weak_from_this().lock();
    checkIfEditingField();
    if (isBusy() || listEmpty_) return;
    switch (columnInReach(step, colNum)) {
      case list_column::clientId:
      case list_column::clientName:
        return goToCompany(rowNum, colNum);
      case list_column::sent:
        cancelFlag = triggerNotificationSentCheck(rowNum, colNum);
        return;
      default:
        return;
    }
  });
}

/// The column that was clicked; none where the person's level keeps off it.
Id clsAutoNotifyFlexGrid::columnInReach(Step& step, int colNum) {
  if (!mvarFlexGridColumns_) return noId;
  step.run(&GridColumnList::selectEntry, mvarFlexGridColumns_, colNum);
  const auto idOfEntry = [&] { return toInteger(mvarFlexGridColumns_->getItem(column_item::id)); };
  const Id column = step.value(noId, idOfEntry);
  const auto level = step.value(std::int16_t{0}, [] { return locale().getUserAccessLevel(); });
  const bool isOpenToAll = column == list_column::sendNow || column == list_column::viewInfo;
  return level == restrictedLevel && !isOpenToAll ? noId : column;
}

void clsAutoNotifyFlexGrid::goToCompany(int rowNum, int colNum) {
  procedure(tagOf<"goToCompany">, [&](Step& step) {
    for (const Id column : {list_column::company, list_column::contact})
      textOfCell(step, *flexGrid_, rowNum, column);
    if (listEmpty_) return;
    lastClickedRow_ = rowNum;
    lastClickedCol_ = colNum;
    if (hiddenCtrlBox) step.run(&Control::setVisible, hiddenCtrlBox, false);
  });
}

/// The grid has toggled the tick already. A row that was sent stays ticked.
bool clsAutoNotifyFlexGrid::triggerNotificationSentCheck(int rowNum, int) {
  return procedure(tagOf<"triggerNotificationSentCheck">, false, [&](Step& step, bool&) {
    if (step.holds(&Grid::get_cellChecked, flexGrid_, rowNum, list_column::sent))
      return changeSendStatus(rowNum, ListRowAtWork::Act::sendTicked);
    showTick(step, *flexGrid_, rowNum, true);
    step.run(showMessage, "This notification has already been sent.", message_style::alreadySent);
  });
}

// Sending, cancelling, looking.

void clsAutoNotifyFlexGrid::changeSendStatus(int rowNum, ListRowAtWork::Act act) {
  procedure(tagOf<"changeSendStatus">, [&](Step& step) {
    const RowWork work(*this, act, rowNum);
    if (!isDatabaseOpen(step)) return;
    const RowKeys keys = keysOf(step, *flexGrid_, rowNum);
    if (!keys.isNamed()) return showTick(step, *flexGrid_, rowNum, false);
    if (!send(step, keys, showMVPreview)) return untick(step, keys.notification);
    markSentNow(step, keys.notification, false);
    changeVisualStatus(keys.notification);
    raise(&AutoNotifyFlexGridEvents::sentNotification);
  });
}

void clsAutoNotifyFlexGrid::cancelSendStatus(int rowNum, int) {
  procedure(tagOf<"cancelSendStatus">, [&](Step& step) {
    const RowWork work(*this, ListRowAtWork::Act::cancel, rowNum);
    if (!isDatabaseOpen(step)) return;
    const Id notification = idOfCell(step, *flexGrid_, rowNum, list_column::notification);
    cancelNotification(notification);
    changeVisualStatus(notification);
    raise(&AutoNotifyFlexGridEvents::sentNotification);
  });
}

/// By its key: while it was at work the rows may have been sorted or read anew.
void clsAutoNotifyFlexGrid::changeVisualStatus(Id notification) {
  procedure(tagOf<"changeVisualStatus">, [&](Step&) {
    constexpr Id allColumns = -1;
    refreshRowInfo(notification, allColumns);
  });
}

void clsAutoNotifyFlexGrid::untick(Step& step, Id notification) {
  const int row = getRowNumFromScheduleID(notification);
  if (row >= 0) showTick(step, *flexGrid_, row, false);
}

void clsAutoNotifyFlexGrid::viewAutoNotifyInfoForm(int rowNum, int) {
  procedure(tagOf<"viewAutoNotifyInfoForm">, [&](Step& step) {
    const RowWork work(*this, ListRowAtWork::Act::look, rowNum);
    if (!isDatabaseOpen(step)) return;
    const RowKeys keys = keysOf(step, *flexGrid_, rowNum);
    if (!keys.channel || !keys.isNamed()) return;
    compose(step, keys, &NotificationComposer::InitializeEditAutoNotify);
    changeVisualStatus(keys.notification);
  });
}

void clsAutoNotifyFlexGrid::sendAll() {
  procedure(tagOf<"sendAll">, [&](Step& step) {
    const auto alive = weak_from_this().lock();
    checkIfEditingField();
    if (atWork_) return;
    isSendingAll_ = true;
    int count = 0;
    forEachUnsent(step, *flexGrid_, [&](int) { ++count; });
    if (count > quietSends) {
      step.run([&] { showMessage(batchNotice(count), message_style::batchNotice); });
    }
    forEachUnsent(step, *flexGrid_, [&](int row) {
      if (isSendingAll_) changeSendStatus(row, ListRowAtWork::Act::sendOfAll);
    });
    isSendingAll_ = false;
  });
}

}  // namespace autonotify
