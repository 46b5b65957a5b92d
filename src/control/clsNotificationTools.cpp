#include "control/clsNotificationTools.h"

#include "contacts/modDefaultContact.h"
#include "contract/procedure.h"
#include "contract/references.h"
#include "contract/tags.h"
#include "contract/windows.h"
#include "control/component_objects.h"
#include "control/contact_tools.h"
#include "control/template_tools.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "store/column_lookup.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "wizards/documents/DocumentReport.h"
#include "wizards/frmSendNotificationWizardEmail.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsNotificationTools", name>;

constexpr ColumnLookup channelOfRow{
    tagOf<"getNotificationType">,
    {"SELECT ClientNotification.ClientNotificationID, ClientNotification.NotificationType FROM "
     "ClientNotification WHERE ClientNotificationID=",
     "NotificationType"}};

class NotificationTools final : public clsNotificationTools {
 public:
  void changeNotificationToSent(Id notificationID) override {
    procedure(tagOf<"changeNotificationToSent">,
              [&](Step& step) { markSentNow(step, notificationID); });
  }

  void cancelNotification(Id notificationID) override {
    autonotify::cancelNotification(notificationID);
  }

  bool editEmailNotification(Id notificationID) override {
    return procedure(tagOf<"editEmailNotification">, false, [&](Step& step, bool& result) {
      if (lookUpId(channelOfRow, notificationID) != nt_Email) return;
      withWindow<frmSendNotificationWizardEmail>(step, [&](auto& window) {
        window.InitializeEditAutoNotify(remittanceNotification, notificationID, Tasks);
        result = !window.cancelFlag();
      });
    });
  }

  bool makeDocument(Id notificationID) override {
    return procedure(tagOf<"makeDocument">, false, [&](Step& step, bool& result) {
      const Id channel = lookUpId(channelOfRow, notificationID);
      if (!hasDocument(channel)) return;
      const Id company = getCompanyIDFromAutoNotificationID(notificationID);
      const Id contact = getContactIDFromAutoNotificationID(notificationID);
      showDocument(step, channel, notificationID, company, contact);
      result = true;
    });
  }

  std::vector<TemplateFault> findTemplateFaults(const std::string& text, bool isRTF) override {
    return autonotify::findTemplateFaults(text, isRTF);
  }
  std::vector<TemplateField> listTemplateFields(const std::string& text, Id scheduleID) override {
    return autonotify::listTemplateFields(text, scheduleID);
  }

  std::string mergeTemplate(const std::string& templateText, Id scheduleID) override {
    return generateCommentFromTemplate(templateText, scheduleID);
  }

  DateExplanation explainNotificationDate(Id scheduleID) override {
    return autonotify::explainNotificationDate(scheduleID);
  }
  DateTime lastWorkingDay(DateTime date) override {
    return adjustDateToFridayIfWeekendOrHoliday(date);
  }

  std::string composeAddress(const AddressWish& wish) override {
    return autonotify::composeAddress(wish);
  }
  RecipientOffer listRecipients(enumAutoNotifyClientType clientType, Id clientID,
                                RecipientKind kind) override {
    return autonotify::listRecipients(clientType, clientID, kind);
  }
  Id checkForDefaultContact(Id companyID) override {
    return autonotify::checkForDefaultContact(companyID, noId);
  }
  bool setDefaultContact(Id companyID, Id contactID) override {
    return autonotify::setDefaultContact(companyID, contactID);
  }

  std::string readTemplate(Id scheduleTypeID) override {
    return autonotify::readTemplate(scheduleTypeID);
  }
  std::string composeNotification(const std::string& templateText, Id notificationID) override {
    return autonotify::composeNotification(templateText, notificationID);
  }
  void recomposeNotification(const std::string& templateText, Id notificationID) override {
    autonotify::recomposeNotification(templateText, notificationID);
  }
  void propagateTemplate(Id scheduleTypeID,
                         const std::function<void(int rowsDone, int rows)>& progress) override {
    autonotify::propagateTemplate(scheduleTypeID, progress);
  }
  std::vector<MergeFieldInfo> listMergeFields(MergeUse use) override {
    return autonotify::listMergeFields(use);
  }

 private:
  LibraryUse use_;
};

}  // namespace

std::unique_ptr<ComponentObject> makeNotificationTools() {
  return std::make_unique<NotificationTools>();
}

}  // namespace autonotify
