// What a run did to code beyond its purpose, as the reply to the run tells it.
#pragma once

#include <functional>
#include <optional>

#include "hosts/drive/Session.h"
#include "hosts/review/RunReview.h"
#include "scanning/RunResult.h"

namespace tessel::drive {

/// Carries out what a user does in a dialog. Where that starts a run (`kind`) and the dialog is
/// gone behind it, the reply that is sent next gets "differences".
void CarryReviewed(Session& session, const forms::Surface& form,
                   std::optional<review::RunKind> kind, const std::function<void()>& action);

/// Gives the reply that is sent next the account of a run, as "run".
void TellRun(Session& session, const RunResult& run);

}  // namespace tessel::drive
