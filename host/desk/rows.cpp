#include "host/desk/rows.h"

namespace autonotify::host {

std::string Row::text(const std::string& column) const {
  const Value held = value(column);
  return held.isNull() ? std::string{} : toText(held);
}

Id Row::id(const std::string& column, Id fallback) const {
  const Value held = value(column);
  return held.isNull() ? fallback : toInteger(held);
}

bool Row::flag(const std::string& column) const {
  const Value held = value(column);
  return !held.isNull() && toFlag(held);
}

DateTime Row::date(const std::string& column) const {
  const Value held = value(column);
  return held.isNull() ? DateTime{} : toDateTime(held);
}

}  // namespace autonotify::host
