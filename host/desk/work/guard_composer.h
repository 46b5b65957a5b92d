#pragma once

#include <functional>
#include <string>

#include "contract/MsgboxClass.h"
#include "host/desk/work/composer_outlook.h"

namespace autonotify::host {

/// What is to be asked about the dates of what the window writes, with a "yes" for going on; empty
/// for nothing.
using DateQuestion = std::function<std::string(const Form& form)>;

/// Stands between a person and the buttons of a window in which a notification is written, or those
/// of a year are addressed, once the window shows it; other windows stay as they are. Finish waits
/// until every email address is one, says which fields were emptied for nothing, since the
/// component stores no empty text, and asks what there is to ask about the date, whoever proposed
/// it. Cancel asks first where something was changed. Gives what the close box has to ask, null for
/// nothing.
std::function<bool()> guardComposer(Form& form, MsgboxClass& messages, DateQuestion askOfDate);

}  // namespace autonotify::host
