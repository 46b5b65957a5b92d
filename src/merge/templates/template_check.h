#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "contract/merge_fields.h"
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

  /// All faults, each once, as long as there are not more than a thousand. Behind a faulty
  /// expression it goes on at the last mark that opens within it. A date without a format is a
  /// fault here, not an error.
  std::vector<TemplateFault> allFaults(std::string_view text, const MergeMarks& marks);

 private:
  /// Without a message there is none.
  struct FoundFault {
    std::string message = {};
    std::string_view expression = {};
    std::size_t end = 0;  ///< where to go on
  };
  FoundFault findFault(std::string_view text, const MergeMarks& marks);
  std::string faultOf(const std::string& element);
  std::string faultOfForm(const std::string& element);
  std::string faultOfUnknownName();

  Step& step_;
  std::function<bool(const std::string&)> isFieldName_;
  /// A date without a format is an error of the procedure.
  bool failsWithoutFormat_ = true;
  // What is read of one element; kept from one to the next, as a reading that failed and was passed
  // over leaves what was there.
  std::string name_;
  std::string format_;
};

}  // namespace autonotify
