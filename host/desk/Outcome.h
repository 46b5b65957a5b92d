#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "host/desk/Desk.h"

namespace autonotify::host {

/// Why a use case did nothing.
struct Refused {
  enum class Why {
    /// There is no such thing.
    notThere,
    /// Another desk works on it and did not let go in time.
    atWorkElsewhere,
    /// The component met errors.
    failed,
  };

  Why why = Why::failed;
  /// What it is about: "task 12".
  std::string subject;
  /// The errors that the component met, as one line.
  std::string errors = {};
};

/// What came of a use case: what it did or found, or why it did nothing. Whoever shows it to a
/// person words it; what can be different though all went well stands in `Done`.
template <class Done>
class [[nodiscard]] Outcome {
 public:
  Outcome(Done done) : held_(std::move(done)) {}
  Outcome(Refused refused) : held_(std::move(refused)) {}

  explicit operator bool() const { return held_.index() == 0; }
  // All but refused() require that it is done.
  const Done& operator*() const& { return std::get<0>(held_); }
  Done&& operator*() && { return std::get<0>(std::move(held_)); }
  const Done* operator->() const { return &**this; }
  const Refused& refused() const { return std::get<1>(held_); }

 private:
  std::variant<Done, Refused> held_;
};

/// What the component met while `act` ran; unset when all went well.
template <class Act>
std::optional<Refused> tellComponent(Desk& desk, std::string subject, Act&& act) {
  std::string errors = desk.errorsOf(act);
  if (errors.empty()) return std::nullopt;
  return Refused{Refused::Why::failed, std::move(subject), std::move(errors)};
}

/// What the component gives when asked; refused when it met errors.
template <class Ask>
auto askComponent(Desk& desk, std::string subject, Ask&& ask) -> Outcome<decltype(ask())> {
  decltype(ask()) answer{};
  const auto store = [&] { answer = ask(); };
  if (auto refused = tellComponent(desk, std::move(subject), store)) return *std::move(refused);
  return answer;
}

}  // namespace autonotify::host
