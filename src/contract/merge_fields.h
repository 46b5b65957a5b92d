#pragma once

#include <string>

namespace autonotify {

/// What a template with merge fields is for; each gives its own fields.
enum class MergeUse : int { client = 2, appointment = 5, timeEntry = 6, task = 8 };

/// A field that a template can be filled with.
struct MergeFieldInfo {
  /// As it stands in a template: "«Task Name»", or "«(Task Due Date, mmmm d yyyy)»" for a date.
  std::string token;
  /// The record that it is read from, such as "TaskInfo".
  std::string group;
  /// 1 text, 2 date, 3 time, 4 currency, 5 yes or no, 6 duration in hours, 7 a list of documents
  /// and instructions.
  int dataType = 0;
  /// What the field prints when a template is tried.
  std::string sample;
};

/// A fault of a template.
struct TemplateFault {
  std::string message;
  /// What stands between the marks there; of a mark without another one, what is near it.
  std::string expression;
};

/// What becomes of a field of a template in a notification.
enum class FieldFate {
  filled,
  /// The record that it is read from has no value.
  withoutValue,
  /// Notifications do not read its record, or it is a date without a format.
  neverFilled,
};

struct TemplateField {
  /// As it stands in the template, with its marks.
  std::string token;
  FieldFate fate = FieldFate::filled;
};

}  // namespace autonotify
