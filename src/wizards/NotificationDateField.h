#pragma once

#include <string>

#include "contract/procedure.h"
#include "platform/DateTime.h"
#include "platform/controls/DatePicker.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/TextBox.h"

namespace autonotify {

/// Such as "Thursday, April 30, 2026".
std::string longDateText(DateTime date);

/// The date field that all composers share: a text and a picker for the same date.
///
/// A date chosen or typed that falls on a weekend may be moved to the Friday before, on a question.
/// A typed text that is no date is refused when the field shall be left: the text as it stood at
/// the last loss of focus comes back, and the focus stays.
class NotificationDateField {
 public:
  /// Adds its controls to the window, which outlives it.
  explicit NotificationDateField(Form& form);

  /// The date that was taken last; the zero date before the first.
  DateTime date() const { return date_; }
  /// Takes the date and shows it in both controls; none for the zero date.
  void show(DateTime date);
  /// True when the picker holds a date. Otherwise the person is told; the focus stays where it is,
  /// since an empty text would keep it.
  bool requireDate(Step& step);

  Frame picNotificationDate;
  Label lblNotificationDate;
  TextBox txtNotificationField;
  DatePicker dtpNotification;

 private:
  void openCalendar(Step& step);
  void takePicked(Step& step);
  void takeTyped(Step& step, bool& keepsFocus);
  void rememberText(Step& step);
  bool parseText(Step& step, DateTime& date) const;
  void offerFriday(Step& step);

  DateTime date_;
  std::string previousText_;
};

}  // namespace autonotify
