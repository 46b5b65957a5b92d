#pragma once

#include <string>
#include <utility>

#include "contract/LocaleReference.h"
#include "contract/enumerations.h"

namespace autonotify::host {

/// A styler for hosts without windows: every operation does nothing.
class PlainStyler : public InterfaceStyler {
 public:
  void styleForm(HostObject*) override {}
  void markFocusGained(HostObject*) override {}
  void markFocusLost(HostObject*) override {}
  void handleKeyUp(HostObject*, int, int) override {}
  void organizeControls(HostObject*) override {}
};

/// What a host knows of its installation and its user.
struct LocaleSettings {
  Id userId = noId;
  std::string firmCode;
  std::string productName = "Morvane";
  countryCode country = countryCanada;
  provinceCode province = provinceOntario;
  std::int16_t accessLevel = 1;
  /// The year that staff work in.
  std::int16_t year = 0;
};

class HostLocale : public LocaleReference {
 public:
  explicit HostLocale(LocaleSettings settings) : settings_(std::move(settings)) {}

  /// The component asks anew each time: a change takes effect at once.
  LocaleSettings& settings() { return settings_; }

  Id getCurrentUserID() override { return settings_.userId; }
  std::string getFirmCode() override { return settings_.firmCode; }
  HostObject* getActiveWindow() override { return nullptr; }
  InterfaceStyler* getInterfaceStyler() override { return &styler_; }
  std::int16_t getUserAccessLevel() override { return settings_.accessLevel; }
  std::string getProductName() override { return settings_.productName; }
  int getCountryCode() override { return settings_.country; }
  int getProvinceCode() override { return settings_.province; }
  std::int16_t getCurrentYear() override { return settings_.year; }

 private:
  LocaleSettings settings_;
  PlainStyler styler_;
};

}  // namespace autonotify::host
