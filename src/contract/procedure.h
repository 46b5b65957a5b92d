#pragma once

#include <functional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "contract/references.h"

namespace autonotify {

// The frame of every procedure with logic, and its error protocol.
//
//   std::string nameOf(Id user) {
//     const std::string nobody = "Nobody";
//     return procedure(tagOf<"nameOf">, nobody, [&](Step& step, std::string& result) {
//       if (!isDatabaseOpen(step)) return;
//       step.assign(result, [&] { return clients().getUserNameFromID(user); });
//     });
//   }
//
// A failure (a PlatformError) never leaves the procedure. The person at the error dialog decides
// what becomes of the failed statement: 1 skips it and its target keeps its old value; 2 leaves the
// procedure with the result held so far; 3 and all else repeat it. Without an errorClass there is
// nobody to ask: the procedure is left.
//
// Rules for bodies:
//  - One effect a statement, and the effect last: a repeated statement runs from its start.
//  - All that can fail stands in a statement: host calls and conversions.
//  - A test that was skipped reads as not met, and a skipped end-of-rows test as the end, so that
//    every loop ends.
//  - Everything else (exhausted memory, programming faults) passes through the frame, which is
//  still left once.

/// Settles a failure of one statement: True to repeat it, False to skip it. Leaves the procedure by
/// throwing, which only the frame catches.
bool shallRetryAfter(const PlatformError& error);

// Code that gives an object is run by a function that the compiler does not look into: g++ 12
// otherwise stores the value of an inlined call in its target although the call has thrown, and a
// target must keep its old value then. What comes back in a register is stored afterwards anyway,
// and what has a constructor of its own is made apart.
#if defined(__clang__)
#define AUTONOTIFY_OPAQUE __attribute__((noinline))
#else
#define AUTONOTIFY_OPAQUE __attribute__((noipa))
#endif

/// How code is handed over: what fits into registers is copied.
template <class Given, class Code = std::decay_t<Given>>
using Passed =
    std::conditional_t<std::is_trivially_copyable_v<Code> && sizeof(Code) <= 2 * sizeof(void*),
                       Code, std::remove_reference_t<Given>&>;

/// Gives `code(arguments...)` as a Result, out of the optimizer's sight.
template <class Result, class Code, class... Arguments>
AUTONOTIFY_OPAQUE Result runOpaquely(Code code, Arguments&... arguments) {
  return static_cast<Result>(std::invoke(code, arguments...));
}

/// Gives `code(arguments...)` as a Result.
template <class Result, class Code, class... Arguments>
Result runCode(Code& code, Arguments&... arguments) {
  if constexpr (std::is_class_v<Result> && std::is_trivially_copyable_v<Result>) {
    return runOpaquely<Result, Passed<Code>>(code, arguments...);
  } else {
    return static_cast<Result>(std::invoke(code, arguments...));
  }
}

/// The same; what it gives goes to `target`.
template <class Code, class Target, class... Arguments>
AUTONOTIFY_OPAQUE void assignOpaquely(Code code, Target& target, Arguments&... arguments) {
  target = std::invoke(code, arguments...);
}

/// The statements of one procedure. Exists only inside a frame.
class Step {
 public:
  // A statement is a callable and its arguments, which are evaluated before it: what can fail in
  // them belongs into the callable.

  /// Runs a statement without a target.
  template <class Statement, class... Arguments>
  void run(Statement&& statement, Arguments&&... arguments) {
    attempt([&] { runCode<void>(statement, arguments...); }, [] {});
  }

  /// Stores the statement's value in `target`; when skipped, `target` keeps its old value.
  template <class Target, class Statement, class... Arguments>
  void assign(Target& target, Statement&& statement, Arguments&&... arguments) {
    using Given = std::invoke_result_t<Statement&, Arguments&...>;
    const auto store = [&] {
      if constexpr (std::is_scalar_v<Target> && std::is_scalar_v<Given>) {
        target = runCode<Given>(statement, arguments...);
      } else {
        assignOpaquely<Passed<Statement>>(statement, target, arguments...);
      }
    };
    attempt(store, [] {});
  }

  /// The statement's value, or `old` when it is skipped.
  template <class Old, class Statement, class... Arguments>
  Old value(Old old, Statement&& statement, Arguments&&... arguments) {
    return attempt([&]() -> Old { return runCode<Old>(statement, arguments...); },
                   [&]() -> Old { return std::move(old); });
  }

  /// A test; one that was skipped reads as not met.
  template <class Test, class... Arguments>
  bool holds(Test&& test, Arguments&&... arguments) {
    return value(false, test, arguments...);
  }

 private:
  /// What the statement gives, or, when it is skipped, what `skip` gives.
  template <class Attempt, class Skip>
  auto attempt(Attempt&& statement, Skip&& skip) {
    for (;;) {
      try {
        return statement();
      } catch (const PlatformError& error) {
        if (!shallRetryAfter(error)) return skip();
      }
    }
  }
};

/// Enters the procedure on the host's stack when made and leaves it when destroyed, each once.
class ProcedureFrame {
 public:
  explicit ProcedureFrame(std::string_view tag) : entered_(references().errors) {
    if (entered_) entered_->enterProcedure(tag);
  }
  ~ProcedureFrame() {
    if (entered_) entered_->leaveProcedure();
  }
  ProcedureFrame(const ProcedureFrame&) = delete;
  ProcedureFrame& operator=(const ProcedureFrame&) = delete;

 private:
  errorClass* entered_;
};

/// The person chose to leave the procedure. Thrown by shallRetryAfter, caught by the innermost
/// frame.
class LeaveProcedure {};

/// Runs `body(step, result)` in a frame and gives the result, which starts as `result`.
template <class Result, class Body>
Result procedure(std::string_view tag, Result result, Body&& body) {
  const ProcedureFrame frame(tag);
  Step step;
  try {
    runOpaquely<void, Passed<Body>>(body, step, result);
  } catch (const LeaveProcedure&) {
  }
  return result;
}

/// The same for a procedure without a result: `body(step)`.
template <class Body>
void procedure(std::string_view tag, Body&& body) {
  const ProcedureFrame frame(tag);
  Step step;
  try {
    runOpaquely<void, Passed<Body>>(body, step);
  } catch (const LeaveProcedure&) {
  }
}

/// Runs the last procedure of an object's life. What passes the frame, exhausted memory and
/// programming faults, goes no further: an end cannot report it.
template <class Procedure>
void endQuietly(Procedure&& end) noexcept {
  try {
    end();
  } catch (...) {
  }
}

}  // namespace autonotify
