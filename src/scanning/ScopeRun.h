// The one walk over a scope: all components of a project, one of them, or the member at the caret.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "foundation/ProgressBarWindow.h"
#include "foundation/Routine.h"
#include "host/VBE.h"
#include "scanning/RunResult.h"

namespace tessel {

/// A run of a tool: the walk, with the progress window up, and the account of it. Tools say what is
/// done at each stop.
class ScopeRun {
 public:
  using ModulePtr = std::shared_ptr<host::CodeModule>;

  virtual ~ScopeRun() = default;
  ScopeRun(const ScopeRun&) = delete;
  ScopeRun& operator=(const ScopeRun&) = delete;

  /// Walks the scope (a text of `scope::GetProjectForFormated`). However it ends, the window goes.
  /// Without a failure service a failure goes on to the caller.
  [[nodiscard]] RunResult Over(const std::shared_ptr<host::VBComponents>& components,
                               StringView scope);
  /// Told of each component ahead of its turn; may be empty.
  std::function<void(StringView component)> OnComponent;

  // For the routines of a stop.

  /// A module of so many members comes.
  void MembersAhead(std::size_t count);
  /// Shows the member in hand and lets events run.
  void ShowMember(const Statements& run, StringView name, int index);
  /// Whether the user asked the run to stop.
  [[nodiscard]] bool Stopped() const { return progress_->ProgressBarStop(); }
  /// Notes code that has been written anew.
  void Touched(const ModulePtr& module, StringView member);

 protected:
  /// What tells one tool from another.
  struct Traits {
    StringView Routine;  ///< a literal: the run on the call stack
    StringView Title;    ///< of the progress window
    bool SecondBar;      ///< shows members as well
    bool OtherIsMember;  ///< an unknown scope stands for the member at the caret
  };
  explicit ScopeRun(const Traits& traits);

  /// Reads the tool's table.
  virtual void Prepare() = 0;
  /// A component of a project; the module is null where it has none.
  virtual void InProject(const Statements& run, host::VBComponent& component,
                         const ModulePtr& module) = 0;
  /// The one component of a scope. Hands back the line that its pane then shows, if any.
  virtual std::optional<int> InComponent(const Statements& run, const ModulePtr& module) = 0;
  /// The member at the caret.
  virtual void InMember(const Statements& run, host::CodePane& pane, const ModulePtr& module,
                        StringView target) = 0;
  /// Brings the pane to the line behind a member's statement, when it is to `show`.
  static void ShowMemberPane(const Statements& run, const ModulePtr& module, StringView target,
                             int kind, bool show);

 private:
  void Walk(const Statements& run, const std::shared_ptr<host::VBComponents>& components,
            StringView scope);
  void OverProject(const Statements& run, host::VBComponents& components);
  void OverComponent(const Statements& run, host::VBComponents& components, StringView target);
  void OverMember(const Statements& run, host::VBComponents& components, StringView target);
  void Begin(StringView name);

  Traits traits_;
  std::shared_ptr<ProgressBarWindow> progress_;
  RunResult result_;
  String component_, member_;
};

}  // namespace tessel
