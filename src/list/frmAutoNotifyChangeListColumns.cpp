#include "list/frmAutoNotifyChangeListColumns.h"

#include "contract/windows.h"
#include "list/clsAutoNotifyFlexGrid.h"

namespace autonotify {
namespace {

/// A group of columns, up to the last one of it.
struct ChooserGroup {
  const char* caption;
  Id last;
};
constexpr std::array<ChooserGroup, 4> chooserGroups{{
    {"Notify Information Columns", list_column::partner},
    {"Sent Information", list_column::sentBy},
    {"Company Information", list_column::companyEmail},
    {"Default Contact Info", list_column::defaultContactEmail},
}};

}  // namespace

frmAutoNotifyChangeListColumns::frmAutoNotifyChangeListColumns()
    : Window(formHost(), "frmAutoNotifyChangeListColumns",
             "View/Hide Columns (Client Notifications List)") {
  using Self = frmAutoNotifyChangeListColumns;
  std::size_t field = 0;
  for (std::size_t group = 0; group < chooserGroups.size(); ++group) {
    fraGroup[group].setCaption(chooserGroups[group].caption);
    for (; firstField + static_cast<Id>(field) <= chooserGroups[group].last; ++field) {
      chkField[field].setCaption(listColumns[firstField + field].heading);
      chkField[field].setContainer(fraGroup[group]);
    }
  }
  react(cmdOk.onClick, "cmdOk_Click", &Self::accept);
  react(cmdReset.onClick, "cmdReset_Click", &Self::reset);
  react(cmdCancel.onClick, "cmdCancel_Click", &Self::cancel);
}

bool frmAutoNotifyChangeListColumns::Initialize(clsAutoNotifyFlexGrid& list) {
  list_ = &list;
  procedure(tag("Initialize"), [&](Step& step) {
    showColumns(step);
    chkWordWrap.setValue(list.GridWordWrap);
    step.run(styleForm, *this);
    step.run(autonotify::showModal, *this);
  });
  return isChanged_;
}

void frmAutoNotifyChangeListColumns::showColumns(Step& step) {
  GridColumnList* columns = list_->columns();
  if (!columns || !step.holds([&] { return columns->moveFirst(); })) return;
  while (!step.value(true, [&] { return columns->isAtEnd(); })) {
    Id id = noId;
    step.assign(id, [&] { return toInteger(columns->getItem(column_item::id)); });
    if (id >= firstField && id <= list_column::lastData)
      step.run([&] {
        chkField[static_cast<std::size_t>(id - firstField)].setValue(
            toFlag(columns->getItem(column_item::visible)));
      });
    step.run([&] { columns->moveNext(); });
  }
}

void frmAutoNotifyChangeListColumns::accept(Step&) {
  list_->GridWordWrap = chkWordWrap.value();
  for (std::size_t field = 0; field < fieldCount; ++field) {
    bool isDone = false;
    list_->columnVisible(firstField + static_cast<Id>(field), chkField[field].value(), isDone);
  }
  isChanged_ = true;
  hide();
}

void frmAutoNotifyChangeListColumns::reset(Step&) {
  list_->resetTaskListToDefault();
  hide();
}

void frmAutoNotifyChangeListColumns::cancel(Step&) {
  hide();
}

}  // namespace autonotify
