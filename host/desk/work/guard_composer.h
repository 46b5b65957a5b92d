#pragma once

#include <functional>

#include "contract/MsgboxClass.h"
#include "platform/controls/Form.h"

namespace autonotify::host {

/// Stands between a person and the buttons of a window in which a notification is written, once the
/// window shows it; other windows stay as they are. Finish waits until every email address is one,
/// and says which fields were emptied for nothing: the component stores no empty text. Cancel asks
/// first where something was changed. Gives what the close box has to ask, null for nothing.
std::function<bool()> guardComposer(Form& form, MsgboxClass& messages);

}  // namespace autonotify::host
