#pragma once

#include <array>
#include <string>

#include "contract/Window.h"
#include "contract/rows.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/control_array.h"
#include "wizards/wizard_channels.h"

namespace autonotify {

/// Asks through which channels a client hears of a schedule entry: now, where a click on a channel
/// leads to its composer, or on the notification date, where each tick and untick takes effect at
/// once.
///
/// The composer opens when this window has been hidden, and ends it. A closed database shows
/// nothing. A schedule entry that does not exist shows nothing either, and leaves the pointer busy
/// and the recordset open.
class frmSendNotificationWizard : public Window {
 public:
  using ClientType = enumAutoNotifyClientType;

  frmSendNotificationWizard();

  // Each fills the window and shows it until the person is done; the caller then reads cancelFlag
  // and unloads it. A type other than contact and company leaves the client without a name.
  void InitializeNotifyNow(ClientType clientType, Id entry);
  void InitializeAutoNotify(ClientType clientType, Id entry);

  /// True when the person cancelled, here or in the composer.
  bool cancelFlag() const { return cancelFlag_; }

  Label Label2{*this, "Label2"};
  Frame Frame1{*this, "Frame1"};
  std::array<CheckBox, 4> chkAutoNotify = controlArray<CheckBox, 4>(*this, "chkAutoNotify");
  Button editEmail{*this, "editEmail", "Edit Notification"};
  Button editFax{*this, "editFax", "Edit Notification"};
  Button editLetter{*this, "editLetter", "Edit Notification"};
  Button editPhone{*this, "editPhone", "Edit Notification"};
  Frame Frame2{*this, "Frame2"};
  std::array<CheckBox, 4> chkNotify = controlArray<CheckBox, 4>(*this, "chkNotify");
  Button cmdEditNotificationTemplate{*this, "cmdEditNotificationTemplate",
                                     "Edit Notification Template"};
  Button cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  enum class Face { notifyNow, autoNotify };
  /// An initializer of the composers.
  using Opening = void (NotificationComposer::*)(notificationTypes, Id, ItemKind, Id);

  void show(Step& step, Face face, ClientType clientType, Id entry);
  bool fill(Step& step, Face face, ClientType clientType);
  std::string clientName(const Row& entry, ClientType clientType) const;
  void tick(std::uint8_t bits);
  void notifyNow(Step& step, std::size_t channel);
  void changeChannel(Step& step, std::size_t channel);
  void addChannel(Step& step, std::size_t channel);
  void removeChannel(Step& step, std::size_t channel);
  bool mayRemove(Step& step);
  void editChannel(Step& step, std::size_t channel);
  void compose(Step& step, std::size_t channel, Opening open, Id row);
  void openTemplate(Step& step);
  void cancel(Step& step);

  const std::array<Button*, 4> editButtons_{&editEmail, &editFax, &editLetter, &editPhone};
  Id scheduleID_ = noId;
  Id totalNum_ = noId;
  Id scheduleNum_ = noId;
  bool suppressesClicks_ = false;
  bool cancelFlag_ = false;
};

}  // namespace autonotify
