#include "foundation/Routine.h"

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

}  // namespace tessel
