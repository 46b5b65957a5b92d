#pragma once

#include <string>

#include "merge/templates/merge_tokens.h"

namespace autonotify {

/// Takes out every token, the first in the text first, with all that are spelled like it. A token
/// reaches from an opening mark to the next closing one; an opening mark without a closing one ends
/// the search. True when there was a token.
bool removeTokens(std::string& text, const MergeMarks& marks);

}  // namespace autonotify
