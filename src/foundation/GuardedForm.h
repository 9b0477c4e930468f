// The door for what a user does on a form.
#pragma once

#include "forms/Form.h"
#include "foundation/Routine.h"

namespace tessel {

/// Base of the system's forms: an event of theirs enters the system, so no failure of its handler
/// reaches the host that raised it.
class GuardedForm : public forms::Form {
 public:
  using Form::Form;
  void Carry(const std::function<void()>& handler) override { Enter(handler); }
};

}  // namespace tessel
