#include "wizards/wizard_channels.h"

#include "channels/modChannelNotifications.h"
#include "store/modNotifyClients.h"
#include "wizards/frmSendNotificationWizardEmail.h"
#include "wizards/frmSendNotificationWizardFax.h"
#include "wizards/frmSendNotificationWizardLetter.h"
#include "wizards/frmSendNotificationWizardPhone.h"

namespace autonotify {
namespace {

template <class Composer>
std::unique_ptr<NotificationComposer> make() {
  return std::make_unique<Composer>();
}

}  // namespace

const std::array<WizardChannel, 4> wizardChannels{{
    {nt_Email, "Email", IsEmailSelected, addNewEmailNotificationFromScheduleIDNum,
     addNewApptEmailNotification, make<frmSendNotificationWizardEmail>},
    {nt_Fax, "Fax", IsFaxSelected, addNewFaxNotificationFromScheduleIDNum,
     addNewApptFaxNotification, make<frmSendNotificationWizardFax>},
    {nt_Letter, "Letter", IsLetterSelected, addNewLetterNotificationFromScheduleIDNum,
     addNewApptLetterNotification, make<frmSendNotificationWizardLetter>},
    {nt_Phone, "Phone Call", IsPhoneSelected, addNewPhoneNotificationFromScheduleIDNum,
     addNewApptPhoneNotification, make<frmSendNotificationWizardPhone>},
}};

}  // namespace autonotify
