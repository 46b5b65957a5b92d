#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/controls/Report.h"

namespace autonotify::host {

/// What a report prints, which stays when the report goes.
class PrintedReport {
 public:
  explicit PrintedReport(const Report& report);

  /// The class name, such as "drFax".
  const std::string& name() const { return name_; }
  /// In points, 72 to the inch. A margin that the report leaves open is that of the opposite edge;
  /// none is so narrow that a printer would cut it off, or leaves too little room for text.
  const Report::Margins& margins() const { return margins_; }
  /// The text of the label; empty when there is none of this name.
  const std::string& text(const std::string& label) const;
  /// All labels with their texts, in the order of the report.
  const std::vector<std::pair<std::string, std::string>>& texts() const { return texts_; }

 private:
  std::string name_;
  Report::Margins margins_;
  std::vector<std::pair<std::string, std::string>> texts_;
};

}  // namespace autonotify::host
