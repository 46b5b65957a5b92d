#pragma once

#include "merge/rewrite_list.h"

namespace autonotify {

// What a template of any age and any region goes through before it is merged, in this order.

/// Takes out the category headers of the field list that old editors left in a text.
const RewriteList& headerRemovals();

/// Brings marks, date formats and names of earlier versions up to date.
const RewriteList& generalRewrites();

/// The names of one country and province, in bare marks only. `isHarmonized` tells whether today
/// lies on or after harmonizedSince(). A country without names of its own has an empty list.
const RewriteList& regionalRewrites(int country, int province, bool isHarmonized);

}  // namespace autonotify
