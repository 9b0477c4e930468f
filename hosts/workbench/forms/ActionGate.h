// The way from a user's action into the model.
#pragma once

#include <functional>

#include "vb/Failure.h"

namespace tessel::workbench {

/// Carries actions one inside the other, as a dialog that a handler opens brings its own. A failure
/// ends its own action only.
class ActionGate {
 public:
  using Action = std::function<void()>;

  /// Called around each action, which it must call once; it may be called inside itself. None: the
  /// action is just called.
  std::function<void(const Action&)> Wrap;
  /// Told of the failure of an action once that action, wrap and all, is over.
  std::function<void(const vb::Failure&)> OnFailure;
  /// Told when the outermost action is over.
  std::function<void()> OnIdle;

  /// Never throws what an action throws.
  void Run(const Action& action);
  /// The same without the wrap, for what no user asked for: it is no step of anybody's history, and
  /// what the user is typing meanwhile is left alone.
  void RunUnwrapped(const Action& action);
  /// Whether an action is under way.
  [[nodiscard]] bool IsBusy() const { return depth_ > 0; }

 private:
  void Run(const Action& action, const std::function<void(const Action&)>& wrap);
  void CarryOut(const Action& action, const std::function<void(const Action&)>& wrap);
  int depth_ = 0;
};

}  // namespace tessel::workbench
