#pragma once

class QKeyEvent;

namespace autonotify::desktop {

/// The key as reactions are told of it: see platform/controls/key_codes.h.
int keyCodeOf(const QKeyEvent& event);
int keyShiftOf(const QKeyEvent& event);
/// True for a key that is told of as a character: letters, Enter, Escape, Backspace and the like.
bool writesCharacter(const QKeyEvent& event);

}  // namespace autonotify::desktop
