#include "errorhandlers/HandlersScope.h"

#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "insertion/ReplaceLines.h"
#include "scanning/mFunctions.h"

namespace tessel {

using mInsertErrorHandlerCode::RunContext;

HandlersScope::HandlersScope(RunContext& context, StringView routine, StringView title)
    : ScopeRun({routine, title, true, false}), context_(context) {
  context_.Walk = this;
  OnComponent = context.OnComponent;
}

void HandlersScope::Prepare() {
  mInsertErrorHandlerCode::Init_mRecord_ErrorHandlerScheme(context_);
}

void HandlersScope::InMember(const Statements& run, host::CodePane& pane, const ModulePtr& module,
                             StringView target) {
  const host::Selection at = run([&] { return pane.GetSelection(); });
  if (!target.empty()) {
    context_.CurrentMemberKind = mFunctions::MemberKindAtLine(module, target, at.StartLine, false);
  }
  Member(module, target);
  ShowMemberPane(run, module, target, context_.CurrentMemberKind, true);
}

bool ForEachMember(const Statements& run, RunContext& context,
                   const std::shared_ptr<host::CodeModule>& module,
                   const std::function<bool(StringView name)>& handle) {
  const MemberTable members = mFunctions::AllNameProcedures(module, u"");
  if (!members) return false;
  if (context.Walk != nullptr) context.Walk->MembersAhead(members->size());
  int index = 0;
  for (const Member& member : *members) {
    if (context.Walk != nullptr) context.Walk->ShowMember(run, member.Name, index++);
    context.CurrentMemberKind = member.Kind == MemberKindControlEvent ? 0 : member.Kind;
    if (!handle(member.Name)) return false;
  }
  return true;
}

void ReplaceMember(const Statements& run, const RunContext& context,
                   const std::shared_ptr<host::CodeModule>& module, const MemberText& member,
                   StringView name, StringView text) {
  const OldLines old{member.Body, member.Length, member.Text};
  if (ReplaceLines(run, module, old, member.Body, text) && context.Walk != nullptr) {
    context.Walk->Touched(module, name);
  }
}

}  // namespace tessel
