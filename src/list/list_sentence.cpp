#include "list/list_sentence.h"

#include "contract/recordsets.h"
#include "list/criteria_parts.h"
#include "store/modNotifyClients.h"
#include "wizards/NotificationDateField.h"

namespace autonotify {
namespace {

using Clients = clientDropDownCtrlReference;

/// By direction.
constexpr std::array<const char*, 4> dateWords{"", " on and after ", " on and before ", " on "};

std::string wordsOfDates(const ListCriteria& all, const DateCriterion& dates) {
  const std::string start = longDateText(all.*dates.start);
  const int direction = all.*dates.direction;
  if (direction == date_direction::between)
    return " between " + start + " and " + longDateText(all.*dates.end);
  if (direction < date_direction::onAndAfter || direction > date_direction::on) return {};
  return dateWords[static_cast<std::size_t>(direction)] + start;
}

std::string wordsOfStates(const ListCriteria& all) {
  std::string states;
  for (const auto& [isOn, status, name] : statusCriteria)
    if (all.*isOn) states += (states.empty() ? "'" : " and '") + std::string(name) + "'";
  return states;
}

const char* wordsOfSent(const ListCriteria& all) {
  if (!all.searchNotificationSent) return "All notifications";
  return all.searchNotificationSentValue ? "All notifications sent" : "All notifications not sent";
}

std::string wordsOfChannel(const ListCriteria& all) {
  const auto channel = static_cast<std::uint8_t>(all.searchNotificationTypeNum);
  return " " + getNotificationTypeNameFromNotificationTypeNum(channel);
}

/// A sentence that grows part by part.
class SentenceWriter {
 public:
  SentenceWriter(Step& step, const ListCriteria& all, std::string& sentence)
      : step_(step), all_(all), sentence_(sentence) {}

  void add(const std::string& words) { sentence_ += words; }
  /// With the name that the host has for the number.
  void add(const NumberCriterion& number, const char* words, std::string (Clients::*name)(Id)) {
    if (!number.asks(all_)) return;
    step_.run([&] { sentence_ += words + (clients().*name)(all_.*number.number); });
  }
  void add(const NameCriterion& name, const char* words) {
    if (name.asks(all_)) add(words + all_.*name.name);
  }
  void add(const DateCriterion& dates, const char* words) {
    if (all_.*dates.isOn) add(words + wordsOfDates(all_, dates));
  }

 private:
  Step& step_;
  const ListCriteria& all_;
  std::string& sentence_;
};

}  // namespace

void writeSentence(Step& step, const ListCriteria& all, std::string& sentence) {
  sentence = wordsOfSent(all);
  SentenceWriter parts(step, all, sentence);
  if (channelCriterion.asks(all)) parts.add(wordsOfChannel(all));
  if (all.searchCompany && isListedCompany(step, all.searchCompanyID))
    parts.add(companyCriterion, " allocated to ", &Clients::getCompanyDisplayName);
  if (all.searchContact && isListedContact(step, all.searchContactID))
    parts.add(contactCriterion, " allocated to ", &Clients::getContactDisplayName);
  parts.add(notificationDateCriterion, " for the client notification dates");
  const auto user = &Clients::getUserNameFromID;
  parts.add(createdByCriterion, " where the notification was created by ", user);
  parts.add(sentByCriterion, " and was notification sent by ", user);
  parts.add(sentDateCriterion, " for the notification sent dates");
  const bool isSent = all.searchNotificationSent && all.searchNotificationSentValue;
  if (isSent && all.searchNotificationSentStatus)
    parts.add(" where the sent status is " + wordsOfStates(all));
  parts.add(employeeCriterion, " and where the employee assigned is ");
  parts.add(accountantCriterion, " and where the managing accountant is ");
  parts.add(partnerCriterion, " and where the supervising partner is ");
}

}  // namespace autonotify
