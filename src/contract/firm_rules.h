#pragma once

#include "contract/references.h"

namespace autonotify {

/// The installation code of the firm whose own rules the library carries: the period of a
/// notification goes by the payment method in `Schedule.Custom2`, and an email's subject names the
/// in-house due date. A host puts them in force by answering this code in
/// LocaleReference::getFirmCode; every other code keeps the ordinary rules.
inline constexpr const char* firmSpecificCode = "FIRM01";

/// True when the firm's own rules are in force. One host call, which may throw PlatformError.
inline bool hasFirmRules() {
  return locale().getFirmCode() == firmSpecificCode;
}

}  // namespace autonotify
