#pragma once

#include <optional>
#include <string>
#include <utility>

#include "host/desk/rows/item_names.h"
#include "host/desk/work/claiming.h"
#include "platform/PlatformError.h"

namespace autonotify::host {

/// Whom and what a notification is about, by name.
struct NotificationSubject {
  int channel = 0;
  std::string client;
  std::string item;
};

// A run through many notifications goes on whatever becomes of one: `Told` says that. It has the
// notification's id and its subject, a result and its detail; among the results are failed,
// atWorkElsewhere and notThere.

/// What `act(row)` tells of the notification as it is found.
template <class Told, class Act>
Told withNotification(Desk& desk, Id id, Act&& act) {
  using Result = decltype(Told::result);
  Told told{Result::notThere};
  std::optional<NotificationSubject> about;
  try {
    if (const auto row = findNotification(desk, id)) {
      about = {row->channel, clientName(desk, *row), itemName(desk, *row)};
      told = act(*row);
    }
  } catch (const PlatformError& error) {
    told = {Result::failed, firstLine(error.description())};
  }
  told.id = id;
  told.about = std::move(about);
  return told;
}

/// The same while no other desk works on it, with the row as it is read then.
template <class Told, class Act>
Told withClaimedNotification(Desk& desk, Id id, Act&& act) {
  using Result = decltype(Told::result);
  return withNotification<Told>(desk, id, [&](const Notification& known) -> Told {
    const auto claim = claimNotification(desk, known);
    if (!claim) return {Result::atWorkElsewhere};
    const auto row = findNotification(desk, id);
    return row ? act(*row) : Told{Result::notThere};
  });
}

}  // namespace autonotify::host
