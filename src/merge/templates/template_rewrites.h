#pragma once

#include <compare>

#include "contract/enumerations.h"
#include "merge/templates/rewrite_list.h"

namespace autonotify {

// What a template of any age and any region goes through before it is merged, in this order.

/// Takes out the category headers of the field list that old editors left in a text.
const RewriteList& headerRemovals();

/// Brings marks, date formats and names of earlier versions up to date.
const RewriteList& generalRewrites();

/// What decides the names of a region.
struct Region {
  int country = 0;
  int province = provinceOntario;  ///< of Canada alone
  bool isHarmonized = false;       ///< today lies on or after harmonizedSince(); of Canada alone
  friend auto operator<=>(const Region&, const Region&) = default;
};

/// The names of the region, in bare marks only. A country without names of its own has an empty
/// list.
const RewriteList& regionalRewrites(const Region& region);

}  // namespace autonotify
