#pragma once

#include <cstdint>
#include <string>

#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

/// Gives windows and controls the host's look and its keyboard habits.
class InterfaceStyler {
 public:
  virtual ~InterfaceStyler() = default;
  virtual void styleForm(HostObject* window) = 0;
  virtual void markFocusGained(HostObject* control) = 0;
  virtual void markFocusLost(HostObject* control) = 0;
  virtual void handleKeyUp(HostObject* control, int keyCode, int shift) = 0;
  virtual void organizeControls(HostObject* window) = 0;
};

/// The installation and the person who is logged in.
class LocaleReference {
 public:
  virtual ~LocaleReference() = default;
  virtual Id getCurrentUserID() = 0;
  /// The installation's code; one value of it puts a firm's own rules in force.
  virtual std::string getFirmCode() = 0;
  /// The window that owns a modal dialog; owned by the host, null when there is none.
  virtual HostObject* getActiveWindow() = 0;
  virtual InterfaceStyler* getInterfaceStyler() = 0;
  virtual std::int16_t getUserAccessLevel() = 0;
  /// The product's display name, used inside messages.
  virtual std::string getProductName() = 0;
  /// See countryCode.
  virtual int getCountryCode() = 0;
  /// See provinceCode.
  virtual int getProvinceCode() = 0;
  virtual std::int16_t getCurrentYear() = 0;
};

}  // namespace autonotify
