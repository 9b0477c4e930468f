// A run over a scope: reads code from the host, formats it, writes it back.

#include <algorithm>

#include "formatter/mFormatText.h"
#include "insertion/ReplaceLines.h"
#include "scanning/MemberText.h"
#include "scanning/ScopeRun.h"
#include "scanning/mFunctions.h"

namespace tessel::mFormatText {
namespace {

using ModulePtr = std::shared_ptr<host::CodeModule>;

class FormatScope : public ScopeRun {
 public:
  explicit FormatScope(FormatRun& format)
      : ScopeRun({u"mFormatText.RunFormatText", u"Format Text", false, true}), format_(format) {}

 private:
  void Prepare() override { Init_mRecord_FormatText(format_); }

  void InProject(const Statements& run, host::VBComponent&, const ModulePtr& module) override {
    if (module) FormatBodies(run, module);
  }

  std::optional<int> InComponent(const Statements& run, const ModulePtr& module) override {
    if (!FormatBodies(run, module)) return std::nullopt;
    return std::max(1, run([&] { return module->CountOfDeclarationLines(); }));
  }

  void InMember(const Statements& run, host::CodePane&, const ModulePtr& module,
                StringView target) override {
    const MemberText member = ReadMember(run, module, target, format_.ActiveMemberKind);
    if (member.Body < 1) return;
    String key;
    const bool marked = mFunctions::GetKEYDeclare(module, member.Body, key);
    format_.MarkerFound = marked;
    const String formatted = FormatTextComponent(format_, member.Text);
    if (!formatted.empty() && ReplaceLines(run, module, {member.Body, member.Length, member.Text},
                                           member.Body, formatted)) {
      Touched(module, target);
    }
    if (marked) {
      // The host's own line end makes up the last of the blank lines.
      run([&] {
        module->InsertLines(member.Body - 1, vb::Repeat(format_.MarkerBlankLines - 1, u'\r'));
      });
    }
    ShowMemberPane(run, module, target, format_.ActiveMemberKind, !formatted.empty());
  }

  /// Formats what stands behind the declarations; true when text was written.
  bool FormatBodies(const Statements& run, const ModulePtr& module) {
    const auto bodies = ReadModuleBodies(run, module);
    if (!bodies) return false;
    const String formatted = FormatTextComponent(format_, bodies->Text);
    if (formatted.empty() || !WriteModuleBodies(run, module, *bodies, formatted)) return false;
    Touched(module, u"");
    return true;
  }

  FormatRun& format_;
};

}  // namespace

std::optional<ModuleBodies> ReadModuleBodies(const Statements& run, const ModulePtr& codeModule) {
  using Answer = std::optional<int>;
  const auto declarations = run([&] { return Answer(Need(codeModule).CountOfDeclarationLines()); });
  const auto all = run([&] { return Answer(Need(codeModule).CountOfLines()); });
  if (!declarations || !all || *all - *declarations < 1) return std::nullopt;
  ModuleBodies bodies{*declarations, *all - *declarations, {}};
  bodies.Text = run([&] { return codeModule->Lines(bodies.Declarations + 1, bodies.Count); });
  return bodies;
}

bool WriteModuleBodies(const Statements& run, const ModulePtr& codeModule,
                       const ModuleBodies& bodies, StringView formatted) {
  // Behind the only line of an empty module is its end.
  return ReplaceLines(run, codeModule, {bodies.Declarations + 1, bodies.Count, bodies.Text},
                      std::max(1, bodies.Declarations) + 1, formatted);
}

RunResult RunFormatText(FormatRun& format, const std::shared_ptr<host::VBComponents>& components,
                        StringView scope) {
  return FormatScope(format).Over(components, scope);
}

}  // namespace tessel::mFormatText
