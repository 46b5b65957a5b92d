#pragma once

#include <string>
#include <variant>
#include <vector>

#include "contract/Window.h"
#include "contract/rows.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/RichTextBox.h"
#include "platform/controls/TextBox.h"
#include "wizards/NotificationDateField.h"
#include "wizards/composer_channel.h"

namespace autonotify {

struct HeadingParts;

/// What the composers of the four channels share: a window on one row of `ClientNotification`,
/// which is the message. The fields are a working copy of it; Finish does what the mode requires.
///
/// A channel derives from it, adds its fields, binds them to their columns and says what Finish
/// does. The initializers block until the person is done; the caller then reads cancelFlag and
/// SendSuccessfulFlag and unloads the window. Failures are settled at the error dialog.
class NotificationComposer : public Window {
 public:
  // Each takes what the notification is about, its row (below 1: the composer may add one), the
  // kind of diary item, and the schedule entry, -1 for none.
  void InitializeNotifyNow(notificationTypes type, Id row, ItemKind kind, Id entry = noId) {
    initialize("InitializeNotifyNow", {ComposerMode::notifyNow, type, kind}, row, entry);
  }
  void InitializeEditAutoNotify(notificationTypes type, Id row, ItemKind kind, Id entry = noId) {
    initialize("InitializeEditAutoNotify", {ComposerMode::editAuto, type, kind}, row, entry);
  }
  void InitializeNewAutoNotify(notificationTypes type, Id row, ItemKind kind, Id entry = noId) {
    initialize("InitializeNewAutoNotify", {ComposerMode::newAuto, type, kind}, row, entry);
  }
  void InitializeSendAuto(notificationTypes type, Id row, ItemKind kind, Id entry = noId) {
    initialize("InitializeSendAuto", {ComposerMode::sendAuto, type, kind}, row, entry);
  }

  /// True when the person cancelled.
  bool cancelFlag() const { return cancelFlag_; }
  /// True when the send reached its end without an error.
  bool SendSuccessfulFlag() const { return sendSuccessfulFlag_; }
  /// The row on show.
  Id notifyID() const { return notifyID_; }

  RichTextBox rtbText{*this, "rtbText"};
  CheckBox chkAddAddress;
  Label lblScheduled{*this, "lblScheduled"};
  Button cmdRefreshComment{*this, "cmdRefreshComment", "Refresh Comment"};
  NotificationDateField notificationDate{*this};
  Button cmdFinish{*this, "cmdFinish", "Finish"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 protected:
  explicit NotificationComposer(const ComposerChannel& channel);

  // The channel's part.

  using TextField = std::variant<TextBox*, ComboBox*>;
  /// Binds the fields to the columns "Field1" and on, in this order.
  void bindFields(std::vector<TextField> fields) { fields_ = std::move(fields); }
  /// Fills the lists of the fields, before they take their texts from the row.
  virtual void populateLists() {}
  /// What Finish does; the caller's frame is that of the click.
  virtual void finish(Step& step) = 0;
  /// Controls besides the shared ones and the fields that a sent row disables.
  virtual std::vector<Control*> furtherInputs() { return {}; }

  // What Finish is made of.

  /// Stores the fields; texts that are empty leave their columns alone.
  void saveFields();
  /// Stores the date of the picker, if there is one.
  void saveDate();
  /// Turns the channel on for the item and confirms it when the person wants that.
  void arm(Step& step);
  /// The modes that end without a send: fields, date, and for a new notification the arming.
  void saveForLater(Step& step);
  void hideAndRepaint(Step& step);
  void noteSent() { sendSuccessfulFlag_ = true; }

  // What an initializer is made of.

  /// Takes up the purpose; the flags go down.
  void open(const ComposerPurpose& purpose);
  /// The row to show.
  void takeRow(Id notifyID) { notifyID_ = notifyID; }
  /// Fills the window from the row and shows it until it is hidden.
  void fillAndShow(Step& step);

  ComposerMode mode() const { return purpose_.mode; }
  /// True when the message is to go now, not on its date.
  bool sendsAtOnce() const;
  Id companyID() const { return companyID_; }
  Id contactID() const { return contactID_; }

  std::string tag(const std::string& procedureName) const override;
  bool queryUnload(CloseReason reason) override;

 private:
  void clickFinish(Step& step);
  bool isGone(Step& step) const;
  void initialize(const char* procedureName, const ComposerPurpose& purpose, Id row, Id entry);
  bool addsRow(Id scheduleID) const;
  void populateInfo();
  void fill(Step& step);
  void readRow(const Row& row);
  void showSentState(const Row& row);
  void lock();
  FieldTexts fieldTexts() const;
  void edit(ItemKind kind, const FieldTexts& fields, const std::string& memo);
  void confirm(Step& step);
  void cancel(Step& step);
  void refreshComment(Step& step);
  void changeAddress(Step& step);
  bool isCompany(Step& step, Id id) const;
  bool isContact(Step& step, Id id) const;
  void putBusinessAddress(Step& step, Id id);
  void putPersonalAddress(Step& step, Id id, bool canTakeOut);
  DateTime addressDate(Step& step) const;
  HeadingParts headingParts(Step& step) const;

  const ComposerChannel& channel_;
  std::vector<TextField> fields_;
  ComposerPurpose purpose_;
  Id notifyID_ = noId;
  Id companyID_ = noId;
  Id contactID_ = noId;
  bool isSent_ = false;
  bool cancelFlag_ = false;
  bool sendSuccessfulFlag_ = false;
};

}  // namespace autonotify
