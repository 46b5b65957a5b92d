#include "host/desk/rows/readable_rows.h"

#include <fmt/format.h>

#include <bit>

#include "host/database/schema/Schema.h"

namespace autonotify::host {

std::string rowName(const char* table, const Row& row) {
  return fmt::format("{} {}", table, row.text(findTable(table)->key()));
}

std::string orNoDate(const std::string& condition, const char* column) {
  return fmt::format("({} OR NOT IsDate({}))", condition, column);
}

std::string idList(std::vector<Id> ids) {
  ids.resize(std::bit_ceil(ids.size()), ids.back());
  return fmt::format("{}", fmt::join(ids, ", "));
}

}  // namespace autonotify::host
