// What the runs over a scope have in common, whether handlers go in or out.
#pragma once

#include "errorhandlers/RunContext.h"
#include "scanning/MemberText.h"
#include "scanning/ScopeRun.h"

namespace tessel {

/// A run with a context, which knows of the walk for as long as it lasts.
class HandlersScope : public ScopeRun {
 public:
  HandlersScope(const HandlersScope&) = delete;
  HandlersScope& operator=(const HandlersScope&) = delete;

 protected:
  HandlersScope(mInsertErrorHandlerCode::RunContext& context, StringView routine, StringView title);
  ~HandlersScope() override { context_.Walk = nullptr; }

  /// Handles the member in mode 2.
  virtual void Member(const ModulePtr& module, StringView name) = 0;

  mInsertErrorHandlerCode::RunContext& context_;

 private:
  void Prepare() override;
  void InMember(const Statements& run, host::CodePane& pane, const ModulePtr& module,
                StringView target) override;
};

/// The members of a module one after the other, with its name and number shown: sets the kind and
/// calls `handle`, until that answers False or the table ends. False when there are no members or
/// it was ended.
bool ForEachMember(const Statements& run, mInsertErrorHandlerCode::RunContext& context,
                   const std::shared_ptr<host::CodeModule>& module,
                   const std::function<bool(StringView name)>& handle);

/// Puts a member's new text in the place of the old one, and tells the walk.
void ReplaceMember(const Statements& run, const mInsertErrorHandlerCode::RunContext& context,
                   const std::shared_ptr<host::CodeModule>& module, const MemberText& member,
                   StringView name, StringView text);

}  // namespace tessel
