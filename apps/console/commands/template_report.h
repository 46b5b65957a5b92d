#pragma once

#include <string>
#include <utility>

#include "outcome_words.h"
#include "platform/Value.h"

namespace autonotify::console {

/// Tells of each fault of the template and of the fields that stay empty, those that the client of
/// the task has no value for apart. Refuses where there are faults. False then.
bool reportTemplate(host::Desk& desk, const std::string& text, Id task, Reply& reply);

/// What was done to the template of a kind. Throws Refusal, with the way to the list where there is
/// no such kind.
template <class Done>
Done doneToKind(host::Outcome<Done> outcome) {
  if (!outcome && outcome.refused().why == host::Refused::Why::notThere)
    throw Refusal(wordsOf(outcome.refused()) + " (see the list: hvnotify template list)");
  return doneOrRefuse(std::move(outcome));
}

/// "the message (at «(Task Due Date, yyyy»)"
std::string faultLine(const TemplateFault& fault);

}  // namespace autonotify::console
