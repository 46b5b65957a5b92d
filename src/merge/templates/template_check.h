#pragma once

#include <functional>
#include <string>

#include "contract/procedure.h"
#include "merge/templates/merge_tokens.h"

namespace autonotify {

/// Looks for the faults of templates whose names are up to date.
///
/// Serves one procedure: what can fail is a statement of it.
class TemplateCheck {
 public:
  /// `isFieldName` tells the names that a template may hold; without it any name passes.
  TemplateCheck(Step& step, std::function<bool(const std::string& name)> isFieldName);

  /// The message of the first fault; empty when there is none. `marks` are those looked for.
  std::string firstFault(const std::string& text, const MergeMarks& marks);

 private:
  std::string faultOf(const std::string& element);
  std::string faultOfForm(const std::string& element);
  std::string faultOfUnknownName();

  Step& step_;
  std::function<bool(const std::string&)> isFieldName_;
  // What is read of one element; kept from one to the next, as a reading that failed and was passed
  // over leaves what was there.
  std::string name_;
  std::string format_;
};

}  // namespace autonotify
