#include "binding/qt_key_codes.h"

#include <QKeyEvent>

#include "platform/controls/key_codes.h"

namespace autonotify::desktop {
namespace {

struct KeyRow {
  int toolkit;
  int code;
};

constexpr KeyRow keys[] = {
    {Qt::Key_Backspace, key_code::backspace},
    {Qt::Key_Tab, key_code::tab},
    {Qt::Key_Backtab, key_code::tab},
    {Qt::Key_Return, key_code::enter},
    {Qt::Key_Enter, key_code::enter},
    {Qt::Key_Escape, key_code::escape},
    {Qt::Key_PageUp, key_code::pageUp},
    {Qt::Key_PageDown, key_code::pageDown},
    {Qt::Key_End, key_code::end},
    {Qt::Key_Home, key_code::home},
    {Qt::Key_Left, key_code::left},
    {Qt::Key_Up, key_code::up},
    {Qt::Key_Right, key_code::right},
    {Qt::Key_Down, key_code::down},
    {Qt::Key_Shift, key_code::shift},
    {Qt::Key_Control, key_code::control},
    {Qt::Key_Alt, key_code::alt},
    {Qt::Key_Insert, key_code::insert},
    {Qt::Key_Delete, key_code::remove},
};

constexpr KeyRow shifts[] = {
    {Qt::ShiftModifier, key_shift::shift},
    {Qt::ControlModifier, key_shift::control},
    {Qt::AltModifier, key_shift::alt},
};

bool isSpelledAlike(int key) {
  return key == Qt::Key_Space || (key >= Qt::Key_0 && key <= Qt::Key_9) ||
         (key >= Qt::Key_A && key <= Qt::Key_Z);
}

}  // namespace

int keyCodeOf(const QKeyEvent& event) {
  const int key = event.key();
  if (isSpelledAlike(key)) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return key_code::f1 + key - Qt::Key_F1;
  for (const KeyRow& row : keys) {
    if (row.toolkit == key) return row.code;
  }
  return 0;
}

int keyShiftOf(const QKeyEvent& event) {
  int held = 0;
  for (const KeyRow& row : shifts) {
    if (event.modifiers() & static_cast<Qt::KeyboardModifier>(row.toolkit)) held += row.code;
  }
  return held;
}

bool writesCharacter(const QKeyEvent& event) {
  return !event.text().isEmpty() && event.key() != Qt::Key_Delete;
}

}  // namespace autonotify::desktop
