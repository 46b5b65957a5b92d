#pragma once

#include <QString>

#include "host/clients/unreadable_rows.h"
#include "host/desk/work/compose_email.h"
#include "host/desk/work/deliver_by_hand.h"
#include "host/desk/work/note_call.h"
#include "host/desk/work/open_notification_list.h"
#include "host/desk/work/send_notification.h"

namespace autonotify::desktop {

// Outcomes as a person is told them.

QString textOf(const host::Refused& refused);
/// Empty where there is nothing to tell.
QString textOf(host::Composed composed);
QString textOf(const host::NotedCall& call);
QString textOf(const host::RefusedRow& row);
QString textOf(host::HandFate fate);
/// What came of it where all went well.
QString textOf(const host::SendOutcome& outcome);
/// What went wrong; empty for nothing.
QString faultOf(const host::SendOutcome& outcome);

/// How many rows were left out, and which they are; empty for none.
QString textOf(const host::UnreadableRows& rows);
/// What is wrong with each of them, as rich text with a line for each; empty for none.
QString detailsOf(const host::UnreadableRows& rows);

/// Why a use case did nothing, or else what it did; empty where there is nothing to tell.
template <class Done>
QString textOf(const host::Outcome<Done>& outcome) {
  return outcome ? textOf(*outcome) : textOf(outcome.refused());
}

}  // namespace autonotify::desktop
