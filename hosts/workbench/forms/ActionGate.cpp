#include "hosts/workbench/forms/ActionGate.h"

#include <optional>

namespace tessel::workbench {
namespace {

/// The failure that a call ended with.
std::optional<vb::Failure> FailureOf(const ActionGate::Action& action) {
  try {
    action();
    return std::nullopt;
  } catch (...) {
    return vb::CurrentFailure();
  }
}

}  // namespace

void ActionGate::CarryOut(const Action& action, const std::function<void(const Action&)>& wrap) {
  std::optional<vb::Failure> failure;
  // The wrap sees no exception, so that it can close what it opened.
  const Action guarded = [&] { failure = FailureOf(action); };
  const auto wrapping = FailureOf([&] { wrap ? wrap(guarded) : guarded(); });
  if (!failure) failure = wrapping;
  if (failure && OnFailure) OnFailure(*failure);
}

void ActionGate::Run(const Action& action) { Run(action, std::function(Wrap)); }

void ActionGate::RunUnwrapped(const Action& action) { Run(action, {}); }

void ActionGate::Run(const Action& action, const std::function<void(const Action&)>& wrap) {
  ++depth_;
  CarryOut(action, wrap);
  if (--depth_ == 0 && OnIdle) OnIdle();
}

}  // namespace tessel::workbench
