#include "list/date_range_group.h"

#include <algorithm>

#include "contract/tags.h"
#include "contract/windows.h"
#include "platform/controls/control_array.h"
#include "platform/format.h"

namespace autonotify {
namespace {

/// The last option has two dates, each other one that of its position.
constexpr std::size_t betweenOption = 3;
constexpr std::size_t endField = 4;

/// By option.
constexpr std::array directionsOfOptions = [] {
  using namespace date_direction;
  return std::array{on, onAndAfter, onAndBefore, between};
}();
constexpr std::array<const char*, 4> captionsOfOptions{
    "Find notify entries on:", "Find notify entries on or after:",
    "Find notify entries on or before:", "Find notify entries between:"};

std::size_t rangeOptionOf(int direction) {
  const auto found = std::ranges::find(directionsOfOptions, direction);
  return found == directionsOfOptions.end()
             ? betweenOption
             : static_cast<std::size_t>(found - directionsOfOptions.begin());
}

/// The first one where none is chosen.
std::size_t chosenRangeOption(const std::array<OptionButton, 4>& options) {
  return static_cast<std::size_t>(std::max(chosenOption(options), 0));
}

std::string rangeDateText(DateTime date) {
  return date.isZero() ? std::string{} : formatDateTime(date, "mmmm d, yyyy");
}

}  // namespace

DateRangeGroup::DateRangeGroup(Form& form, const DateCriterion& criterion, const char* frameName,
                               const char* boxName, const char* optionName, int firstField)
    : frame(form, frameName),
      box(form, boxName),
      options(controlArray<OptionButton, 4>(form, optionName)),
      texts(controlArray<TextBox, 5>(form, "txtField", firstField)),
      pickers(controlArray<DatePicker, 5>(form, "dtpField", firstField)),
      form_(form),
      criterion_(criterion) {
  const auto follows = [this](const char* name) {
    return [this, tag = windowTag(form_.name(), name + std::string("_Click"))] {
      procedure(tag, [this](Step&) { follow(); });
    };
  };
  box.setContainer(frame);
  box.onClick = follows(boxName);
  for (std::size_t i = 0; i < options.size(); ++i) {
    options[i].setCaption(captionsOfOptions[i]);
    options[i].setContainer(frame);
    options[i].onClick = follows(optionName);
  }
  for (std::size_t field = 0; field < texts.size(); ++field) tie(field);
}

void DateRangeGroup::tie(std::size_t field) {
  texts[field].setContainer(frame);
  pickers[field].setContainer(frame);
  const auto run = [this, field](const char* name, auto reaction) {
    return [this, field, reaction, tag = windowTag(form_.name(), name)] {
      procedure(tag, [&](Step& step) { (this->*reaction)(step, field); });
    };
  };
  pickers[field].onDropDown = run("dtpField_DropDown", &DateRangeGroup::openCalendar);
  pickers[field].onCloseUp = run("dtpField_CloseUp", &DateRangeGroup::takePicked);
  texts[field].onValidate = [take = run("txtField_Validate", &DateRangeGroup::takeTyped)] {
    take();
    return false;
  };
}

void DateRangeGroup::show(const ListCriteria& criteria) {
  const std::string start = rangeDateText(criteria.*criterion_.start);
  for (TextBox& text : texts) text.setText(start);
  texts[endField].setText(rangeDateText(criteria.*criterion_.end));
  box.setValue(criteria.*criterion_.isOn);
  options[rangeOptionOf(criteria.*criterion_.direction)].setValue(true);
  follow();
}

/// Only what belongs to the chosen option can be used, and nothing while the box is not ticked.
void DateRangeGroup::follow() {
  const bool isOn = box.value();
  for (OptionButton& option : options) option.setEnabled(isOn);
  for (std::size_t field = 0; field < texts.size(); ++field) {
    const bool isUsed = isOn && options[std::min(field, betweenOption)].value();
    texts[field].setEnabled(isUsed);
    pickers[field].setEnabled(isUsed);
  }
}

bool DateRangeGroup::parse(Step& step, std::size_t field, DateTime& date) const {
  return step.holds([&] { return validation().parseDateText(texts[field].text(), date); });
}

std::optional<DateRefusal> DateRangeGroup::store(Step& step, ListCriteria& criteria) {
  DateTime start = criteria.*criterion_.start;
  DateTime end = criteria.*criterion_.end;
  if (box.value()) {
    if (const auto refusal = readDates(step, start, end)) return refusal;
    criteria.*criterion_.direction = directionsOfOptions[chosenRangeOption(options)];
  }
  criteria.*criterion_.isOn = box.value();
  criteria.*criterion_.start = start;
  criteria.*criterion_.end = end;
  return {};
}

std::optional<DateRefusal> DateRangeGroup::readDates(Step& step, DateTime& start, DateTime& end) {
  const std::size_t option = chosenRangeOption(options);
  const bool isBetween = option == betweenOption;
  constexpr const char* noStart = "You must select a valid start date.";
  constexpr const char* noDate = "You must select a valid date.";
  if (!parse(step, option, start)) return DateRefusal{isBetween ? noStart : noDate, &texts[option]};
  if (!isBetween) return {};
  constexpr const char* noEnd = "You must select a valid end date.";
  constexpr const char* isBefore =
      "You must select an end date that is greater than or equal to the start date.";
  if (!parse(step, endField, end)) return DateRefusal{noEnd, &texts[endField]};
  if (end < start) return DateRefusal{isBefore, &texts[endField]};
  return {};
}

void DateRangeGroup::openCalendar(Step& step, std::size_t field) {
  DateTime shown;
  if (!parse(step, field, shown)) step.assign(shown, [] { return platformClock().today(); });
  pickers[field].setValue(shown);
}

void DateRangeGroup::takePicked(Step& step, std::size_t field) {
  const DateTime picked = pickers[field].value();
  if (step.holds([&] { return validation().isDateText(toText(picked)); }))
    texts[field].setText(rangeDateText(picked));
}

void DateRangeGroup::takeTyped(Step& step, std::size_t field) {
  DateTime typed;
  if (parse(step, field, typed)) return texts[field].setText(rangeDateText(typed));
  step.run(showMessageAbove, &form_, "You must enter a valid date.", message_style::inputRefused);
}

}  // namespace autonotify
