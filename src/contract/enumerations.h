#pragma once

namespace autonotify {

/// Who the client of a notification is.
enum enumAutoNotifyClientType : int {
  enumAutoNotifyContact = 1,   ///< a contact
  enumAutoNotifyCompany = 2,   ///< a company
  enumAutoNotifyCategory = 3,  ///< an address book category
  enumAutoNotifyNone = 4,      ///< no client
};

/// What a notification is about.
enum notificationTypes : int {
  appointmentNotification = 1,  ///< an appointment, a task or a time entry
  remittanceNotification = 2,   ///< a schedule entry
};

/// A channel. On `ClientNotification` exactly one value; on `Schedule.notifyType` a set of bits.
enum notifyType : int {
  nt_Email = 1,
  nt_Fax = 2,
  nt_Letter = 4,
  nt_Phone = 8,
};
/// In the order of their bits.
inline constexpr notifyType allNotifyTypes[] = {nt_Email, nt_Fax, nt_Letter, nt_Phone};

enum changeStatus : int {
  nt_AddStatus = 1,     ///< set a channel's bit
  nt_RemoveStatus = 2,  ///< clear a channel's bit
};

/// Values of `ClientNotification.NotificationSentStatus`.
enum enumNotificationSendStatus : int {
  enumNotificationSendStatus_NotSent = 1,
  enumNotificationSendStatus_Sent = 2,
  enumNotificationSendStatus_Cancelled = 3,
};

/// The kind of item behind an appointment notification.
enum CurrentDayTimerType : short {
  Appointments = 3,
  Tasks = 5,
  Dockets = 13,
};

/// Answers of `LocaleReference::getCountryCode`.
enum countryCode : int { countryCanada = 1, countryUnitedStates = 2 };

/// Answers of `LocaleReference::getProvinceCode`.
enum provinceCode : int {
  provinceAlberta = 0,
  provinceBritishColumbia = 1,
  provinceManitoba = 2,
  provinceOntario = 3,
  provinceSaskatchewan = 4,
  provinceQuebec = 8,
  provinceNovaScotia = 9,
  provinceNewBrunswick = 10,
  provinceNewfoundland = 11,
  provincePrinceEdwardIsland = 12,
};

}  // namespace autonotify
