// A run over a scope: reads code from the host, formats it, writes it back.

#include <algorithm>

#include "formatter/mFormatText.h"
#include "foundation/ProgressBarWindow.h"
#include "foundation/Routine.h"
#include "insertion/ReplaceLines.h"
#include "platform/Platform.h"
#include "scanning/Scope.h"
#include "scanning/mFunctions.h"

namespace tessel::mFormatText {
namespace {

using ModulePtr = std::shared_ptr<host::CodeModule>;
using ComponentsPtr = std::shared_ptr<host::VBComponents>;

void DoEvents() { platform::Current().Clock().DoEvents(); }

/// Formats what stands behind the declarations; true when text was written.
bool FormatBodies(const Statements& run, const ModulePtr& module) {
  const auto bodies = run([&] { return ReadModuleBodies(module); });
  if (!bodies) return false;
  const String formatted = FormatTextComponent(bodies->Text);
  if (formatted.empty()) return false;
  run([&] { WriteModuleBodies(module, formatted); });
  return true;
}

void FormatProject(const Statements& run, host::VBComponents& components,
                   ProgressBarWindow& progress) {
  const int count = run([&] { return components.Count(); });
  for (int index = 1; index <= count; ++index) {
    const auto component = run([&] { return components.Item(index); });
    if (!component) continue;
    run([&] { progress.SetMessage1(Need(component).Name()); });
    run(DoEvents);
    if (const auto module = run([&] { return Need(component).CodeModule(); })) {
      FormatBodies(run, module);
    }
    if (progress.ProgressBarStop()) return;
    progress.SetPRBsi1(progress.PRBsi1() + 1);
  }
}

void FormatComponent(const Statements& run, host::VBComponents& components, StringView target,
                     ProgressBarWindow& progress) {
  const int count = run([&] { return components.Count(); });
  for (int index = 1; index <= count; ++index) {
    const auto component = run([&] { return components.Item(index); });
    if (!component || !vb::SameText(run([&] { return Need(component).Name(); }), target)) continue;
    run([&] { progress.SetMessage1(Need(component).Name()); });
    progress.SetPRBCount1(1);
    run(DoEvents);
    const auto module = run([&] { return Need(component).CodeModule(); });
    if (module && FormatBodies(run, module)) {
      run([&] {
        scope::ShowLine(Need(module), std::max(1, Need(module).CountOfDeclarationLines()));
      });
    }
    if (progress.ProgressBarStop()) return;
  }
}

void FormatMember(const Statements& run, const ModulePtr& module, StringView target) {
  const auto kind = static_cast<host::vbext_ProcKind>(Active.ActiveMemberKind);
  const int body = run([&] { return Need(module).ProcBodyLine(target, kind); });
  const int count = run([&] { return Need(module).ProcCountLines(target, kind); });
  const int start = run([&] { return Need(module).ProcStartLine(target, kind); });
  String key;
  MarkerFound = mFunctions::GetKEYDeclare(module, body, key);
  const bool marked = MarkerFound;
  const int length = count - (body - start);
  const String text = run([&] { return Need(module).Lines(body, length); });
  const String formatted = FormatTextComponent(text);
  if (!formatted.empty()) {
    run([&] { ReplaceLines(Need(module), body, length, body, formatted); });
  }
  if (marked) {
    // The host's own line end makes up the last of the blank lines.
    run([&] { Need(module).InsertLines(body - 1, vb::Repeat(MarkerBlankLines - 1, u'\r')); });
  }
  const int line = run([&] { return Need(module).ProcBodyLine(target, kind); }) + 1;
  if (!formatted.empty()) run([&] { scope::ShowLine(Need(module), line); });
}

}  // namespace

std::optional<ModuleBodies> ReadModuleBodies(const ModulePtr& codeModule) {
  const int declarations = codeModule->CountOfDeclarationLines();
  const int all = codeModule->CountOfLines();
  if (all - declarations < 1 || all < 1) return std::nullopt;
  return ModuleBodies{declarations + 1, codeModule->Lines(declarations + 1, all - declarations)};
}

void WriteModuleBodies(const ModulePtr& codeModule, StringView formatted) {
  const int declarations = codeModule->CountOfDeclarationLines();
  // Behind the only line of an empty module is its end.
  ReplaceLines(*codeModule, declarations + 1, codeModule->CountOfLines() - declarations,
               std::max(1, declarations) + 1, formatted);
}

void RunFormatText(const ComponentsPtr& components, StringView scope) {
  Routine(u"mFormatText.RunFormatText", [&](const Statements& run) {
    Init_mRecord_FormatText();
    const String target(scope::Target(scope));
    const auto progress = std::make_shared<ProgressBarWindow>(u"Format Text");
    run([&] { progress->Show(platform::ShowStyle::Modeless); });
    run([&] { progress->SetPRBCount1(Need(components).Count()); });
    progress->SetPRBsi1(0);
    progress->C1ElaProgressBar2.SetVisible(false);
    progress->lblMessage2.SetVisible(false);
    if (scope::Is(scope, scope::Project)) {
      FormatProject(run, Need(components), *progress);
    } else if (scope::Is(scope, scope::Component)) {
      FormatComponent(run, Need(components), target, *progress);
    } else if (const auto pane = run([&] { return Need(components).VBE()->ActiveCodePane(); })) {
      FormatMember(run, run([&] { return Need(pane).CodeModule(); }), target);
    }
    progress->Hide();
    progress->Unload();
  });
}

}  // namespace tessel::mFormatText
