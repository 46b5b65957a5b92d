#pragma once

#include <string>
#include <vector>

#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify::host {

/// An open recordset as a data source of a report; good until its handle is closed.
class RecordsetObject : public HostObject {
 public:
  /// The names of the result's columns in order; a name may stand there more than once.
  virtual std::vector<std::string> columnNames() const = 0;
  /// All rows as they are now, each with one value per column; the recordset's position stays.
  virtual std::vector<std::vector<Value>> allRows() = 0;
};

}  // namespace autonotify::host
