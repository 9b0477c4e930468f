// The pattern of every routine of the system: it stands on the call stack while it runs, and a
// statement of it that fails is retried, ignored, or ends it, as the failure service answers.
#pragma once

#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

#include "foundation/CErrorHandler.h"

namespace tessel {

/// Thrown by a statement that was answered with Abort; caught by the routine that holds it.
struct RoutineAborted {};

/// Runs the statements of one routine.
class Statements {
 public:
  /// Runs one statement and hands back its value; a default one when its failure was ignored.
  /// Without a failure service the failure goes on to the caller.
  template <class F>
  std::invoke_result_t<F> operator()(F&& statement) const {
    for (;;) {
      try {
        return statement();
      } catch (const RoutineAborted&) {
        throw;
      } catch (...) {
        if (!RetryAfterFailure()) {
          if constexpr (std::is_void_v<std::invoke_result_t<F>>) {
            return;
          } else {
            return {};
          }
        }
      }
    }
  }

 private:
  /// Inside a catch block: asks the failure service. True: again; false: go on behind it. Abort
  /// throws RoutineAborted.
  static bool RetryAfterFailure();
};

/// The statements of a stretch at resume-next: a failure of one is passed over in silence, its
/// value is then a default one.
class SilentStatements {
 public:
  template <class F>
  std::invoke_result_t<F> operator()(F&& statement) const {
    try {
      return statement();
    } catch (const RoutineAborted&) {
      throw;
    } catch (...) {
      if constexpr (std::is_void_v<std::invoke_result_t<F>>) {
        return;
      } else {
        return {};
      }
    }
  }
};

namespace detail {
/// Pushes a routine, and pops it at the normal end only.
class StackEntry {
 public:
  explicit StackEntry(StringView routine) {
    if (gErrorHandler) gErrorHandler->CallStackPushLiteral(routine);
  }
  static void Leave() {
    if (gErrorHandler) gErrorHandler->CallStackPop();
  }
};
}  // namespace detail

/// Runs `body` as the routine "Tessel." + `name`; `name` is a literal. The body gets the
/// Statements; a failure that leaves it outside any of them counts as that of its last statement,
/// the body as a whole, so a body of one effect needs no `run`. Abort clears the call stack and
/// leaves.
template <class Body>
void Routine(StringView name, Body&& body) {
  const detail::StackEntry entry(name);
  const Statements run;
  try {
    if constexpr (std::is_invocable_v<Body, const Statements&>) {
      run([&] { body(run); });
    } else {
      run([&] { body(); });
    }
  } catch (const RoutineAborted&) {
    return;
  }
  detail::StackEntry::Leave();
}

/// The one door through which a host, a user, a timer or a message enters the system; nothing is
/// thrown out of it. A failure that no routine took is the failure service's, and where there is
/// none, or it fails itself, it is told in a plain box.
void Enter(const std::function<void()>& entry) noexcept;

/// Tells a failure in a message box with one button, where the failure service can't be asked.
void ShowPlainly(const vb::Failure& failure) noexcept;

/// The object behind a reference; fails with 91 when there is none, as after a statement whose
/// failure was ignored.
template <class T>
[[nodiscard]] T& Need(const std::shared_ptr<T>& reference) {
  if (!reference) throw vb::RuntimeFailure(vb::ObjectNotSet);
  return *reference;
}

/// Runs `statement` and passes over its failure in silence; true when there was none.
template <class F>
bool ResumeNext(F&& statement) {
  try {
    statement();
    return true;
  } catch (const RoutineAborted&) {
    throw;
  } catch (...) {
    return false;
  }
}

}  // namespace tessel
