// Any bytes as the text of a list of grid columns: what is read must be written so that it reads
// back, and each entry must be found by its key.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/require.h"
#include "host/services/HostGridColumnList.h"
#include "host/services/grid_column_text.h"

namespace {

using namespace autonotify;
using namespace autonotify::host;

bool isNumber(const Value& value) {
  const double* number = value.getIf<double>();
  return !number || *number == *number;
}

void checkText(const std::string& text) {
  const auto entries = parseGridColumnText(text);
  if (!entries) return;
  const std::string written = gridColumnText(*entries);
  require(gridColumnText(parseGridColumnText(written).value()) == written);
}

void checkList(const std::string& text) {
  HostGridColumnList list;
  const auto entries = parseGridColumnText(text);
  require(list.fromText(text) == entries.has_value());
  require(list.getEntryCount() == (entries ? static_cast<int>(entries->size()) : 0));
  for (bool isThere = list.moveFirst(); isThere && !list.isAtEnd(); list.moveNext()) {
    HostGridColumnList sought = list;
    const Value key = list.getEntryKey();
    if (isNumber(key)) require(sought.selectEntry(key) && sought.getEntryKey() == key);
  }
  HostGridColumnList copy;
  copy.fromText(list.toText());
  require(copy.toText() == list.toText());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  checkText(text);
  if (size < 4096) checkList(text);
  return 0;
}
