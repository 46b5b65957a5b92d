#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "contract/ProgressDialog.h"
#include "contract/Window.h"
#include "platform/Value.h"
#include "platform/controls/Button.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TreeView.h"
#include "platform/controls/control_array.h"

namespace autonotify {

class clsAutoNotifyTemplate;
class clsInsertFieldsInRTB;

/// Edits the firm's templates: a tree of the kinds of schedule entry, the text of the chosen one
/// and the merge fields that it can hold.
///
/// Moving on to another kind saves the text of the one before, without a question. What could not
/// be saved, as with the database closed, stays on show, with its question on closing.
class frmTaskAutoNotification : public Window {
 public:
  frmTaskAutoNotification();
  ~frmTaskAutoNotification() override;

  // Each shows the window until the person is done; the caller unloads it.
  /// On the kind with this id; below 0, on the fallback kind.
  void Initialize(Id scheduleTypeID);
  /// On the kind, or the fallback kind where there is no such one.
  void InitializeWithTotalNumAndScheduleNum(Id totalNum, Id scheduleNum);

  Label lblHeading{*this, "lblHeading", "Customize Your Notification Template"};
  Label lblExplanation{*this, "lblExplanation"};
  TreeView tvwTasks{*this, "tvwTasks"};
  Label lblTaskName{*this, "lblTaskName"};
  /// Shown while there is something to save.
  Label lblChanged{*this, "lblChanged", "Not saved"};
  autonotify::RichTextBox RichTextBox{*this, "RichTextBox"};
  /// The merge fields under their headers.
  ListBox FieldList{*this, "FieldList"};
  /// Save, test, reset to the default, carry into what is unsent.
  std::array<Button, 4> cmdNotifyComment = controlArray<Button, 4>(*this, "cmdNotifyComment");
  Button cmdClose{*this, "cmdClose", "&Close"};

 protected:
  bool queryUnload(CloseReason reason) override;
  void onUnload() override;

 private:
  class Work;
  using Command = void (frmTaskAutoNotification::*)(Step& step);
  /// The template being carried into what is unsent.
  struct Reset {
    /// Null where the host has none.
    std::unique_ptr<ProgressDialog> dialog;
    bool isDone = false;
    bool isCancelled = false;
  };

  void createTemplate();
  void show(Step& step, bool isOpen);
  void createMergeFields();
  void setupForm();
  void fillTree(Step& step);
  void selectKindOnShow(Step& step);
  void openKindOnShow();
  void populateScheduleTypeInformation();
  void setChanged(bool isChanged);

  bool isKindSelected() const;
  void clickTree(Step& step);
  void clickCommand(Step& step, std::size_t command);
  void clickField(Step& step);
  void noteKey(Step& step, int& accepted, int keyCode);
  void close(Step& step);

  bool saveInfo();
  void keepId(Id scheduleTypeID);
  void save(Step& step);
  bool hasFault();
  void showFault(Step& step, const std::string& message);
  void test(Step& step);
  void restoreDefault(Step& step);
  void resetUnsent(Step& step);
  void verifyTableInformation();
  void carry(Step& step);
  void showProgress(Step& step);
  void runReset(Step& step);
  void startReset(Step& step, std::int32_t rowCount);
  void countReset();

  std::unique_ptr<clsAutoNotifyTemplate> template_;
  std::unique_ptr<clsInsertFieldsInRTB> mergeFields_;
  Id scheduleTypeID_ = noId;
  Reset reset_;
  bool isBusy_ = false;
  bool isChanged_ = false;
};

}  // namespace autonotify
