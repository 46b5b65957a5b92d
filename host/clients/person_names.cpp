#include "host/clients/person_names.h"

#include "platform/text.h"

namespace autonotify::host {
namespace {

std::string joined(const std::string& left, const char* between, const std::string& right) {
  return left.empty() || right.empty() ? left + right : left + between + right;
}

std::string spouseName(const PersonNames& names) {
  const std::string& last = names.spouseLast.empty() ? names.last : names.spouseLast;
  if (!names.spouseFirst.empty()) return joined(names.spouseFirst, " ", last);
  return names.spouse.empty() ? names.spouseLast : names.spouse;
}

bool bearOneLastName(const PersonNames& names) {
  return !names.first.empty() && !names.last.empty() && !names.spouseFirst.empty() &&
         (names.spouseLast.empty() || equalIgnoreCase(names.last, names.spouseLast));
}

}  // namespace

std::string displayName(const PersonNames& names) {
  return names.display.empty() ? joined(names.first, " ", names.last) : names.display;
}

std::string coupleName(const PersonNames& names, bool shareLastName) {
  if (shareLastName && bearOneLastName(names))
    return names.first + " & " + joined(names.spouseFirst, " ", names.last);
  const std::string spouse = spouseName(names);
  const std::string own = joined(names.first, " ", names.last);
  return spouse.empty() || own.empty() ? joined(displayName(names), " & ", spouse)
                                       : own + " & " + spouse;
}

}  // namespace autonotify::host
