#include "host/desk/work/open_notification_list.h"

#include <algorithm>

#include "contract/AutoNotifyListForm.h"
#include "contract/ProgressDialog.h"
#include "host/database/dialect/DatabaseError.h"
#include "host/desk/unfinished_rows.h"
#include "host/desk/work/claiming.h"
#include "platform/controls/Form.h"

namespace autonotify::host {
namespace {

using Act = ListRowAtWork::Act;

/// Stands at the database and claims each row of the list when an act on it begins.
class ListGate {
 public:
  ListGate(Desk& desk, const ListListener& listener) : desk_(desk), listener_(listener) {}

  void pass() {
    AutoNotifyListForm* list = openList();
    ListRowAtWork* work = list ? list->rowAtWork() : nullptr;
    if (!work || work->hold) return;
    // What is asked meanwhile belongs to the same act.
    work->hold = std::make_shared<bool>();
    try {
      work->hold = claimed(*list, *work);
    } catch (...) {
      work->hold.reset();
      throw;
    }
  }

 private:
  AutoNotifyListForm* openList() {
    const std::vector<Form*> forms = desk_.openForms();
    const auto found = std::ranges::find(forms, AutoNotifyListForm::formName, &Form::name);
    return found == forms.end() ? nullptr : dynamic_cast<AutoNotifyListForm*>(*found);
  }

  std::shared_ptr<void> claimed(AutoNotifyListForm& list, const ListRowAtWork& work) {
    try {
      auto row = claimNotification(desk_, work.notification);
      if (!row) {
        const bool isThere = row.refused().why == Refused::Why::atWorkElsewhere;
        using enum RefusedRow::Why;
        refuse(list, work, isThere ? atWorkElsewhere : notThere);
      }
      if (isSettled(row->row, work)) refuse(list, work, RefusedRow::Why::settled);
      listener_.begun(row->row);
      return std::move(*std::move(row)).claim;
    } catch (const DatabaseError&) {
      list.endSendAll();
      throw;
    }
  }

  /// Otherwise than the person saw it, or not to go out. What is looked at shows itself.
  static bool isSettled(const Notification& row, const ListRowAtWork& work) {
    if (work.act == Act::look) return false;
    if (stateOf(row) == NotificationState::unfinished) return true;
    const bool isUnsent =
        work.act == Act::sendOfAll ? stateOf(row) == NotificationState::pending : !row.sent;
    return isUnsent == work.isShownSent;
  }

  [[noreturn]] void refuse(AutoNotifyListForm& list, const ListRowAtWork& work,
                           RefusedRow::Why why) {
    list.refreshAutoNotificationRowByAutoNotificationID(work.notification);
    RefusedRow refused{why, work.notification};
    if (const auto row = findNotification(desk_, work.notification)) {
      refused.client = clientName(desk_, *row);
      refused.state = stateOf(*row);
    }
    const bool isSeen = work.act == Act::sendOfAll && why == RefusedRow::Why::settled;
    if (!isSeen) listener_.refused(refused);
    throw PlatformError(ProgressDialog::cancelled, "Nothing was done with the row", "Desk");
  }

  Desk& desk_;
  const ListListener& listener_;
};

/// The gate is open again afterwards.
struct GateOfDesk {
  GateOfDesk(Desk& onDesk, ListGate& gate) : desk(onDesk) {
    desk.setGate([&gate] { gate.pass(); });
  }
  ~GateOfDesk() { desk.setGate(nullptr); }
  GateOfDesk(const GateOfDesk&) = delete;
  GateOfDesk& operator=(const GateOfDesk&) = delete;

  Desk& desk;
};

}  // namespace

void openNotificationList(Desk& desk, const ListListener& listener) {
  removeUnfinished(desk);
  ListGate gate(desk, listener);
  const GateOfDesk standing(desk, gate);
  desk.control().cls_openSendAutoNotifyListForm();
}

}  // namespace autonotify::host
