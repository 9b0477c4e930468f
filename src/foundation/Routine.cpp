#include "foundation/Routine.h"

#include "platform/Platform.h"

namespace tessel {

bool Statements::RetryAfterFailure() {
  if (!gErrorHandler) throw;
  // A handler of an inner routine may drop the service; this call keeps it.
  const auto handler = gErrorHandler;
  switch (handler->HandleError(u"", vb::CurrentFailure())) {
    case ActionRetry:
      return true;
    case ActionIgnore:
      return false;
    case ActionAbort:
      break;
  }
  handler->CallStackClear();
  throw RoutineAborted{};
}

void ShowPlainly(const vb::Failure& failure) noexcept {
  try {
    platform::Platform& services = platform::Current();
    services.Boxes().ShowMessage(failure.Description(), services.App().Title(), platform::OKOnly);
  } catch (...) {
    // Without a box there is no way left to tell it.
  }
}

void Enter(const std::function<void()>& entry) noexcept {
  try {
    const Statements run;
    run(entry);
  } catch (const RoutineAborted&) {
    // The user's answer: the entry ends here.
  } catch (...) {
    ShowPlainly(vb::CurrentFailure());
  }
}

}  // namespace tessel
