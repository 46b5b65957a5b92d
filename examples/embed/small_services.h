#pragma once

#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "contract/FileUtility.h"
#include "contract/GeneralUtilities.h"
#include "contract/PlatformServices.h"
#include "contract/ValidationUtilities.h"

// The services that a host without windows, files and dialogs gets by with.

class FixedClock : public autonotify::Clock {
 public:
  autonotify::DateTime now() override { return autonotify::DateTime::of(2026, 4, 15, 9, 30); }
};

class NoForms : public autonotify::FormHost {
 public:
  void pumpMessages() override {}
};

/// Prints each error and leaves the procedure.
class PrintingErrors : public autonotify::errorClass {
 public:
  void enterProcedure(std::string_view) override {}
  void leaveProcedure() override {}
  void recordError(const autonotify::PlatformError& error) override {
    std::cerr << error.number() << ": " << error.description() << '\n';
  }
  void showErrorDialog() override {}
  int getErrorChoice() override { return autonotify::error_choice::leave; }
};

class SmallGeneralUtilities : public autonotify::GeneralUtilities {
 public:
  void put_errorClass(autonotify::errorClass*) override {}
  bool isValueEmpty(const autonotify::Value& value) override {
    const std::string* text = value.getIf<std::string>();
    return value.isNull() || (text && text->empty());
  }
  autonotify::Value textOrDefault(const autonotify::Value& value, bool) override {
    return value.isNull() ? autonotify::Value("") : value;
  }
  std::string toLabelText(const std::string& text) override { return text; }
  int filterKeyPress(int keyCode) override { return keyCode; }
  bool isWholeNumber(const std::string&, int, int) override { return false; }
  void fillComboFromList(const std::vector<std::string>&, autonotify::ComboBox&, bool) override {}
  void selectComboText(autonotify::ComboBox&, const std::string&, int, int) override {}
};

class SmallValidation : public autonotify::ValidationUtilities {
 public:
  void put_errorClass(autonotify::errorClass*) override {}
  bool isWeekend(autonotify::DateTime date) override {
    return date.weekday() == 1 || date.weekday() == 7;
  }
  bool isDateText(const std::string&) override { return false; }
  bool parseDateText(const std::string&, autonotify::DateTime&) override { return false; }
  bool isValidYear(std::int16_t year) override { return year >= 1900; }
  std::string getDurationText(int minutes) override { return std::to_string(minutes) + " min"; }
};

class NoFiles : public autonotify::FileUtility {
 public:
  bool fileExists(const std::string&) override { return false; }
  void deleteFile(const std::string&) override {}
  std::string addTrailingBackslash(const std::string& folder) override { return folder + "/"; }
  std::string getUniqueFileName(const std::string& path) override { return path; }
};

class SmallRegistry : public autonotify::HostClassRegistry {
 public:
  std::unique_ptr<autonotify::HostObject> create(std::string_view name) override {
    if (name == NoFiles::className) return std::make_unique<NoFiles>();
    if (name == SmallGeneralUtilities::className) return std::make_unique<SmallGeneralUtilities>();
    if (name == SmallValidation::className) return std::make_unique<SmallValidation>();
    throw autonotify::PlatformError(autonotify::error_number::cannotCreateObject,
                                    "Cannot create object", std::string(name));
  }
};
