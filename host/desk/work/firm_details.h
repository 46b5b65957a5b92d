#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/desk/Desk.h"

namespace autonotify::host {

/// What the firm says of itself: whom its emails come from, what stands at the head of its letters.
struct FirmDetail {
  /// As people call it: "Postal Code"; for Words::tr().
  const char* name;
  /// In one word, for a program: "postal-code".
  const char* key;
  /// Of AccountantFirmInfo.
  const char* column;
};

std::span<const FirmDetail> firmDetails();

/// By position; empty where the firm says nothing. Throws DatabaseError.
std::vector<std::string> readFirmDetails(Desk& desk);

/// Why the text cannot stand for the detail, as a sentence without its end; empty when it can.
std::string faultOfFirmDetail(const FirmDetail& detail, const std::string& text);

/// Stores those that are set, by position; they must be without fault. Throws DatabaseError.
void storeFirmDetails(Desk& desk, const std::vector<std::optional<std::string>>& texts);

}  // namespace autonotify::host
