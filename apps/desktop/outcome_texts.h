#pragma once

#include <QString>

#include "host/desk/work/compose_email.h"

namespace autonotify::desktop {

// Outcomes as a person is told them.

QString textOf(const host::Refused& refused);
/// Empty where there is nothing to tell.
QString textOf(host::Composed composed);

/// Why a use case did nothing, or else what it did; empty where there is nothing to tell.
template <class Done>
QString textOf(const host::Outcome<Done>& outcome) {
  return outcome ? textOf(*outcome) : textOf(outcome.refused());
}

}  // namespace autonotify::desktop
