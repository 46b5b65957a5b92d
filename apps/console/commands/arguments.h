#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <concepts>
#include <functional>
#include <limits>
#include <optional>
#include <ranges>
#include <span>
#include <string>

#include "Arguments.h"
#include "Reply.h"
#include "host/desk/work/client_contacts.h"
#include "platform/text.h"
#include "usage.h"

namespace autonotify::console {

// Arguments that several commands share. A wrong one throws CLI::ValidationError, whose line names
// the argument: "TASK: \"abc\" is no number".

/// An argument that `read` takes as it was typed. Of an option given twice the last counts.
/// `name` begins with "--" for an option; `kind` stands for the value in the help text.
CLI::Option* addReader(CLI::App& command, const std::string& name, const char* kind,
                       const std::string& help,
                       const std::function<void(const std::string&)>& read);

CLI::Option* addText(CLI::App& command, const std::string& name, const char* kind,
                     const std::string& help, std::string& target);
CLI::Option* addDate(CLI::App& command, const std::string& name, const std::string& help,
                     std::optional<DateTime>& target);

/// What is named twice counts once.
template <class Value>
void addOnce(std::vector<Value>& known, Value value) {
  if (std::ranges::find(known, value) == known.end()) known.push_back(value);
}

/// The words of all rows: "company, contact or firm".
template <std::ranges::contiguous_range Rows>
std::string choicesOf(const Rows& rows) {
  std::string choices;
  for (const auto& row : rows) {
    const char* joint = &row == &*std::ranges::rbegin(rows) ? " or " : ", ";
    choices += (choices.empty() ? "" : joint) + std::string(row.word);
  }
  return choices;
}

/// The same for completions.
template <std::ranges::contiguous_range Rows>
void noteKnownValues(CLI::Option& option, const Rows& rows) {
  std::string words;
  for (const auto& row : rows) (words += words.empty() ? "" : " ") += row.word;
  setKnownValues(option, words);
}

/// The row whose `word` is the text, in any case.
template <std::ranges::contiguous_range Rows>
const auto& readChoice(const std::string& name, const Rows& rows, const std::string& text) {
  for (const auto& row : rows) {
    if (equalIgnoreCase(row.word, trim(text))) return row;
  }
  throw CLI::ValidationError(name, '"' + text + "\" is not " + choicesOf(rows));
}

/// An argument that is the word of one of `rows`, which must outlive the command; `take` gets the
/// row. The help text is the words and `note`.
template <std::ranges::contiguous_range Rows, class Take>
CLI::Option* addChoice(CLI::App& command, const std::string& name, const char* kind,
                       const Rows& rows, const std::string& note, Take take) {
  CLI::Option* option = addReader(command, name, kind, choicesOf(rows) + note,
                                  [name, choices = std::span(rows), take](const std::string& text) {
                                    take(readChoice(name, choices, text));
                                  });
  noteKnownValues(*option, rows);
  return option;
}

void addTask(CLI::App& command, Arguments& arguments);
/// One or more of them.
void addTasks(CLI::App& command, Arguments& arguments);
/// A kind of tasks, by its number or name.
CLI::Option* addKind(CLI::App& command, Arguments& arguments);
/// --former FILE: a template that a kind had, as `template show --rtf` gave it.
CLI::Option* addFormer(CLI::App& command, const std::string& use, Arguments& arguments);
/// Its text; unset without the option. Throws Refusal.
std::optional<std::string> readFormer(const Arguments& arguments);
void addNotification(CLI::App& command, Arguments& arguments);
/// Any number of them.
CLI::Option* addNotifications(CLI::App& command, Arguments& arguments);
/// Throws Refusal where none is named and --due is not given either.
void requireNotifications(const Arguments& arguments, const char* command);
/// --channel, once or more, or several names separated by commas.
void addChannels(CLI::App& command, Arguments& arguments);
/// The same for a command that does without.
CLI::Option* addAnyChannels(CLI::App& command, Arguments& arguments);
/// The client that --contact, or else `name`, stands for; unset without either.
void addClientNumber(CLI::App& command, const std::string& name, Arguments& arguments);
/// Throws Refusal where there is no such client.
std::optional<host::Client> clientOf(host::Desk& desk, const Arguments& arguments);
/// Throws Refusal where none is named as well.
host::Client requireClientOf(host::Desk& desk, const Arguments& arguments, const char* command);
/// --csv, for a list.
void addCsv(CLI::App& command, Arguments& arguments);
/// --force, for a change that would delete the record of a sent notification.
void addForce(CLI::App& command, Arguments& arguments);

/// The whole text as a number from `least` to `greatest`.
template <std::integral Number>
Number readNumber(const std::string& name, const std::string& text,
                  Number least = std::numeric_limits<Number>::min(),
                  Number greatest = std::numeric_limits<Number>::max()) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, fault] = std::from_chars(text.data(), end, number);
  if (stop != end || fault == std::errc::invalid_argument) {
    throw CLI::ValidationError(name, '"' + text + "\" is no number");
  }
  if (fault != std::errc{}) throw CLI::ValidationError(name, text + " is out of range");
  if (number < least || number > greatest) {
    throw CLI::ValidationError(
        name, text + " is not from " + std::to_string(least) + " to " + std::to_string(greatest));
  }
  return number;
}

template <class Target>
CLI::Option* addNumber(CLI::App& command, const std::string& name, const std::string& help,
                       Target& target) {
  return addReader(command, name, "NUMBER", help, [&target, name](const std::string& text) {
    if constexpr (std::integral<Target>) {
      target = readNumber<Target>(name, text);
    } else {
      target = readNumber<typename Target::value_type>(name, text);
    }
  });
}

}  // namespace autonotify::console
