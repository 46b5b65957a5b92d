#pragma once

namespace autonotify {

/// Keys as onKeyUp is told of them. Letters and digits are their capital characters; a key that is
/// not named here is 0.
namespace key_code {
inline constexpr int backspace = 8;
inline constexpr int tab = 9;
inline constexpr int enter = 13;
inline constexpr int shift = 16;
inline constexpr int control = 17;
inline constexpr int alt = 18;
inline constexpr int escape = 27;
inline constexpr int space = 32;
inline constexpr int pageUp = 33;
inline constexpr int pageDown = 34;
inline constexpr int end = 35;
inline constexpr int home = 36;
inline constexpr int left = 37;
inline constexpr int up = 38;
inline constexpr int right = 39;
inline constexpr int down = 40;
inline constexpr int insert = 45;
inline constexpr int remove = 46;
inline constexpr int f1 = 112;  ///< F2 to F12 follow
}  // namespace key_code

/// The keys held down meanwhile, added up.
namespace key_shift {
inline constexpr int shift = 1;
inline constexpr int control = 2;
inline constexpr int alt = 4;
}  // namespace key_shift

}  // namespace autonotify
