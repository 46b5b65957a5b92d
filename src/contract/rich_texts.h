#pragma once

#include <string>

#include "contract/procedure.h"
#include "platform/Value.h"

namespace autonotify {

class RichTextBox;

/// Puts plain text into the box at a place in characters, by a RichTextUtility that lives as long
/// as this takes. Gives what the utility gives, null where a person went on without it. Each host
/// call is a statement of the caller's frame.
Value insertTextAt(Step& step, RichTextBox* box, const std::string& text, int position);

}  // namespace autonotify
