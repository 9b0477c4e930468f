// What a run over a scope has in common, whether handlers go in or out.
#pragma once

#include <functional>
#include <memory>

#include "foundation/ProgressBarWindow.h"
#include "host/VBE.h"

namespace tessel {

/// The window of the present run; null when none is under way.
[[nodiscard]] ProgressBarWindow* HandlerProgress();
/// Whether the user asked the run to stop.
[[nodiscard]] bool HandlerRunStopped();

/// The steps of a run.
struct HandlerRun {
  String Title;
  /// Handles a component of a project run; called also for the choice of its scheme.
  std::function<void(host::VBComponent&)> InProject;
  std::function<void(const std::shared_ptr<host::CodeModule>&)> Component;
  std::function<void(const std::shared_ptr<host::CodeModule>&, StringView member)> Member;
};

/// Walks the scope with the progress window up.
void RunHandlers(StringView routine, const HandlerRun& steps,
                 const std::shared_ptr<host::VBComponents>& components, StringView scope);

/// Where a member lies, from its statement to its end.
struct MemberLines {
  int Body = 0, Length = 0;
  String Text;
};
[[nodiscard]] MemberLines ReadMember(host::CodeModule& module, StringView name, int kind);

/// Repaints the window for the member in hand.
void ShowHandlerMember(StringView name, int index);

}  // namespace tessel
