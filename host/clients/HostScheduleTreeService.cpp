#include "host/clients/HostScheduleTreeService.h"

#include <algorithm>
#include <string>
#include <vector>

#include "host/clients/record_rows.h"
#include "host/clients/unreadable_rows.h"
#include "host/words/Words.h"
#include "platform/PlatformError.h"
#include "platform/controls/TreeView.h"

namespace autonotify::host {
namespace {

constexpr const char* allKinds =
    "SELECT ScheduleTypes.ScheduleTypeID, ScheduleTypes.TotalNum, ScheduleTypes.ScheduleNum, "
    "ScheduleTypes.ScheduleTypeName FROM ScheduleTypes "
    "ORDER BY ScheduleTypes.ScheduleTypeNum, ScheduleTypes.ScheduleTypeID;";
/// The number of a family's own row.
constexpr Id wholeFamily = -1;
/// Of kinds whose family has no row of its own.
constexpr const char* groupWithoutName = Words::later("Other Kinds");

struct Family {
  Id totalNum;
  std::string name;
  /// Keys and names of the kinds.
  std::vector<TreeView::Node> kinds;
};

Family& familyOf(std::vector<Family>& families, Id totalNum) {
  const auto found = std::ranges::find(families, totalNum, &Family::totalNum);
  if (found != families.end()) return *found;
  return families.emplace_back(Family{totalNum, {}, {}});
}

void addTo(std::vector<Family>& families, const Row& row) {
  const bool isFamily = row.id("ScheduleNum", 0) == wholeFamily;
  const std::string key = ScheduleTreeService::kindKey + std::to_string(row.id("ScheduleTypeID"));
  const std::string name = row.text("ScheduleTypeName");
  Family& family = familyOf(families, row.id("TotalNum"));
  if (isFamily) {
    family.name = name;
  } else {
    family.kinds.push_back({key, name});
  }
}

/// A row with a number that is none keeps nobody from the others.
std::vector<Family> readFamilies(DatabaseReference& database) {
  std::vector<Family> families;
  if (!database.isDatabaseOpen()) return families;
  forEachRow(database, allKinds, [&](const Row& row) {
    try {
      addTo(families, row);
    } catch (const UnreadableValue&) {
    }
  });
  return families;
}

}  // namespace

void HostScheduleTreeService::populateFirstScheduleTypes(TreeView& tree) {
  if (!database_) throw PlatformError(error_number::objectNotSet, "Object not set", className);
  const std::vector<Family> families = readFamilies(*database_);
  tree.clear();
  for (const Family& family : families) {
    if (family.kinds.empty()) continue;
    const std::string key = "ScheduleFamily:" + std::to_string(family.totalNum);
    const int group =
        tree.addNode(-1, key, family.name.empty() ? Words::tr(groupWithoutName) : family.name);
    for (const TreeView::Node& kind : family.kinds) tree.addNode(group, kind.key, kind.text);
  }
}

}  // namespace autonotify::host
