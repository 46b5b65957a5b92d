#pragma once

#include <array>
#include <optional>

#include "contract/procedure.h"
#include "list/criteria_parts.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/DatePicker.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/TextBox.h"

namespace autonotify {

/// What keeps dates from being stored, and the field that it is about.
struct DateRefusal {
  const char* message;
  TextBox* field;
};

/// The fields of one criterion of dates: a box that turns it on, and four options: on a date, on or
/// after it, on or before it, between two. The first three have one date each, the last one has
/// two; each date is a text with a picker beside it.
class DateRangeGroup {
 public:
  /// Adds its controls to the window, which outlives it. `firstField` is the index of the first
  /// text and picker.
  DateRangeGroup(Form& form, const DateCriterion& criterion, const char* frameName,
                 const char* boxName, const char* optionName, int firstField);

  void show(const ListCriteria& criteria);

  /// Stores whether the criterion is on, and if it is, its dates; nothing when it refuses.
  std::optional<DateRefusal> store(Step& step, ListCriteria& criteria);

  Frame frame;
  CheckBox box;
  std::array<OptionButton, 4> options;
  std::array<TextBox, 5> texts;
  std::array<DatePicker, 5> pickers;

 private:
  void tie(std::size_t field);
  void follow();
  bool parse(Step& step, std::size_t field, DateTime& date) const;
  std::optional<DateRefusal> readDates(Step& step, DateTime& start, DateTime& end);
  void openCalendar(Step& step, std::size_t field);
  void takePicked(Step& step, std::size_t field);
  void takeTyped(Step& step, std::size_t field);

  Form& form_;
  DateCriterion criterion_;
};

}  // namespace autonotify
