// A run over a scope: which scheme a member gets, and the key comments.

#include "errorhandlers/HandlersScope.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "scanning/mFunctions.h"

namespace tessel::mInsertErrorHandlerCode {
namespace {

/// The scheme that a member gets in a mode.
String EffectiveScheme(int mode, const String& memberKey, const String& moduleKey,
                       StringView schemeName) {
  if (mode != MethodMode && !memberKey.empty()) return memberKey;
  if (mode == ProjectMode && !moduleKey.empty()) return moduleKey;
  return String(schemeName);
}

class Insertion : public HandlersScope {
 public:
  Insertion(RunContext& context, String& schemeName)
      : HandlersScope(context, u"mInsertErrorHandlerCode.RunInsertErrorHandlerCode",
                      u"Insert Error Handler Code"),
        scheme_(schemeName) {}

 private:
  void InProject(const Statements& run, host::VBComponent& component,
                 const ModulePtr& module) override {
    switch (run([&] { return component.Type(); })) {
      case host::vbext_ct_StdModule:
      case host::vbext_ct_ClassModule:  // classes go with the modules' choice
        scheme_ = context_.ModuleScheme;
        break;
      case host::vbext_ct_VBForm:
        scheme_ = context_.FormScheme;
        break;
      case host::vbext_ct_ActiveXDesigner:
        scheme_ = context_.ActiveXScheme;
        break;
      default:
        break;  // the others keep what the component before them had
    }
    if (module) RunComponentModule(context_, module, scheme_, ProjectMode);
  }
  std::optional<int> InComponent(const Statements&, const ModulePtr& module) override {
    RunComponentModule(context_, module, scheme_, ComponentMode);
    return 1;
  }
  void Member(const ModulePtr& module, StringView name) override {
    RunMemberProcedure(context_, module, name, scheme_, MethodMode);
  }

  String& scheme_;
};

}  // namespace

void RunMemberProcedure(RunContext& context, const std::shared_ptr<host::CodeModule>& codeModule,
                        StringView memberName, StringView schemeName, int mode) {
  Routine(u"mInsertErrorHandlerCode.RunMemberProcedure", [&](const Statements& run) {
    const MemberText member = ReadMember(run, codeModule, memberName, context.CurrentMemberKind);
    if (member.Body < 1) return;
    String memberKey;
    const bool marked = mFunctions::GetKEYDeclare(codeModule, member.Body, memberKey);
    const String moduleKey = mFunctions::GetKEYDeclareComponent(codeModule);
    context.MemberName = memberName;
    const String effective = EffectiveScheme(mode, memberKey, moduleKey, schemeName);
    if (effective == SkipScheme) return;
    const String text = WorkTextComponentMember(context, member.Text, effective);
    if (!text.empty()) ReplaceMember(run, context, codeModule, member, memberName, text);
    if (mode != MethodMode) return;
    const String marker = String(mFunctions::KeyCommentHead) + effective;
    if (marked) {
      run([&] { codeModule->ReplaceLine(member.Body - 1, marker); });
    } else {
      run([&] { codeModule->InsertLines(member.Body, marker); });
    }
  });
}

void RunComponentModule(RunContext& context, const std::shared_ptr<host::CodeModule>& codeModule,
                        StringView schemeName, int mode) {
  Routine(u"mInsertErrorHandlerCode.RunComponentModule", [&](const Statements& run) {
    const bool all = ForEachMember(run, context, codeModule, [&](StringView name) {
      RunMemberProcedure(context, codeModule, name, schemeName, mode);
      return context.Walk == nullptr || !context.Walk->Stopped();
    });
    if (!all) return;
    const String marker = String(mFunctions::KeyCommentHead) + String(schemeName);
    const String first = run([&] { return codeModule->Lines(1, 1); });
    if (!ContainsText(first, mFunctions::KeyCommentHead)) {
      run([&] { codeModule->InsertLines(1, marker); });
    } else if (mode == ComponentMode) {
      run([&] { codeModule->ReplaceLine(1, marker); });
    }
  });
}

RunResult RunInsertErrorHandlerCode(RunContext& context,
                                    const std::shared_ptr<host::VBComponents>& components,
                                    StringView scope, String& schemeName) {
  return Insertion(context, schemeName).Over(components, scope);
}

}  // namespace tessel::mInsertErrorHandlerCode
