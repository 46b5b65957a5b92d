#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/desk/Outcome.h"
#include "host/desk/rows/ScheduleKind.h"
#include "host/desk/work/one_notification.h"

namespace autonotify::host {

enum class CarryResult {
  changes,
  /// The template gives it the text that it has.
  alike,
  /// It would change too, but a person has edited the text.
  edited,
  /// It is for a personal client: those keep their texts.
  personal,
  /// It was sent or cancelled meanwhile.
  settled,
  failed,
  atWorkElsewhere,
  notThere,
};

/// What becomes of the text of one notification.
struct CarriedText {
  CarryResult result = CarryResult::failed;
  std::string detail = {};
  Id id = noId;
  std::optional<NotificationSubject> about = {};
};

struct CarryWish {
  /// The template that the texts were composed by; without it no edit can be told.
  std::optional<std::string> former;
  /// Writes nothing.
  bool dryRun = false;
};

struct CarriedTexts {
  ScheduleKind kind;
  std::vector<CarriedText> texts;
};

/// Carries the template of the kind into those of its unsent notifications whose texts no person
/// has edited, each while no other desk works on it. A text counts as edited unless the former
/// template or the present one gives it, for the day on which it was composed or changed last.
Outcome<CarriedTexts> carryTemplate(Desk& desk, const std::string& kind, const CarryWish& wish,
                                    const std::function<void(int done, int rows)>& progress);

}  // namespace autonotify::host
