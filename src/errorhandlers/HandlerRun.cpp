#include "errorhandlers/HandlerRun.h"

#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "foundation/Routine.h"
#include "platform/Platform.h"
#include "scanning/Scope.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

std::shared_ptr<ProgressBarWindow> progressWindow;

void DoEvents() { platform::Current().Clock().DoEvents(); }

void OverProject(const Statements& run, const HandlerRun& steps, host::VBComponents& components) {
  ProgressBarWindow& progress = *progressWindow;
  const int count = run([&] { return components.Count(); });
  for (int index = 1; index <= count; ++index) {
    const auto component = run([&] { return components.Item(index); });
    if (!component) continue;
    run([&] { progress.SetMessage1(component->Name()); });
    progress.SetMessage2(u"");
    run(DoEvents);
    run([&] { steps.InProject(*component); });
    if (progress.ProgressBarStop()) return;
    progress.SetPRBsi1(progress.PRBsi1() + 1);
  }
}

void OverComponent(const Statements& run, const HandlerRun& steps, host::VBComponents& components,
                   StringView target) {
  ProgressBarWindow& progress = *progressWindow;
  const int count = run([&] { return components.Count(); });
  for (int index = 1; index <= count; ++index) {
    const auto component = run([&] { return components.Item(index); });
    if (!component || !vb::SameText(run([&] { return component->Name(); }), target)) continue;
    run([&] { progress.SetMessage1(component->Name()); });
    progress.SetMessage2(u"");
    progress.SetPRBCount1(1);
    const auto module = run([&] { return component->CodeModule(); });
    if (module) {
      steps.Component(module);
      run([&] { scope::ShowLine(*module, 1); });
    }
    if (progress.ProgressBarStop()) return;
  }
}

void OverMember(const Statements& run, const HandlerRun& steps, host::VBComponents& components,
                StringView target) {
  using mInsertErrorHandlerCode::CurrentMemberKind;
  const auto pane = run([&] { return Need(components.VBE()).ActiveCodePane(); });
  if (!pane) return;
  progressWindow->SetMessage1(u"");
  progressWindow->SetMessage2(target);
  progressWindow->SetPRBCount1(1);
  const host::Selection at = run([&] { return pane->GetSelection(); });
  const auto module = run([&] { return pane->CodeModule(); });
  if (!target.empty()) {
    CurrentMemberKind = mFunctions::MemberKindAtLine(module, target, at.StartLine, false);
  }
  steps.Member(module, target);
  const auto kind = static_cast<host::vbext_ProcKind>(CurrentMemberKind);
  const int line = run([&] { return Need(module).ProcBodyLine(target, kind); }) + 1;
  run([&] { scope::ShowLine(Need(module), line); });
}

}  // namespace

ProgressBarWindow* HandlerProgress() { return progressWindow.get(); }

bool HandlerRunStopped() { return progressWindow && progressWindow->ProgressBarStop(); }

void ShowHandlerMember(StringView name, int index) {
  if (!progressWindow) return;
  progressWindow->SetMessage2(name);
  progressWindow->SetPRBsi2(index);
  DoEvents();
}

MemberLines ReadMember(host::CodeModule& module, StringView name, int kind) {
  const auto procKind = static_cast<host::vbext_ProcKind>(kind);
  MemberLines member;
  member.Body = module.ProcBodyLine(name, procKind);
  const int count = module.ProcCountLines(name, procKind);
  const int start = module.ProcStartLine(name, procKind);
  member.Length = count - (member.Body - start);
  member.Text = module.Lines(member.Body, member.Length);
  return member;
}

void RunHandlers(StringView routine, const HandlerRun& steps,
                 const std::shared_ptr<host::VBComponents>& components, StringView scope) {
  Routine(routine, [&](const Statements& run) {
    mInsertErrorHandlerCode::Init_mRecord_ErrorHandlerScheme();
    const String target(scope::Target(scope));
    const auto window = std::make_shared<ProgressBarWindow>(steps.Title);
    progressWindow = window;
    run([&] { window->Show(platform::ShowStyle::Modeless); });
    run([&] { window->SetPRBCount1(Need(components).Count()); });
    window->SetPRBsi1(0);
    window->SetPRBCount2(1);
    window->SetPRBsi2(0);
    run([&] {
      if (scope::Is(scope, scope::Project)) {
        OverProject(run, steps, Need(components));
      } else if (scope::Is(scope, scope::Component)) {
        OverComponent(run, steps, Need(components), target);
      } else if (scope::Is(scope, scope::Method)) {
        OverMember(run, steps, Need(components), target);
      }
    });
    window->Hide();
    window->Unload();
  });
  // Also a run that was aborted takes its window down.
  if (const auto window = std::exchange(progressWindow, nullptr)) window->Unload();
}

}  // namespace tessel
