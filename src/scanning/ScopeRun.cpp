#include "scanning/ScopeRun.h"

#include <algorithm>

#include "foundation/FailureWatch.h"
#include "platform/Platform.h"
#include "scanning/ModuleOf.h"
#include "scanning/Scope.h"

namespace tessel {
namespace {

void DoEvents() { platform::Current().Clock().DoEvents(); }

/// Takes the window of a run down, however the run ends.
class WindowGuard {
 public:
  explicit WindowGuard(std::shared_ptr<ProgressBarWindow> window) : window_(std::move(window)) {}
  ~WindowGuard() {
    ResumeNext([&] { window_->Unload(); });
  }
  WindowGuard(const WindowGuard&) = delete;
  WindowGuard& operator=(const WindowGuard&) = delete;

 private:
  std::shared_ptr<ProgressBarWindow> window_;
};

}  // namespace

ScopeRun::ScopeRun(const Traits& traits)
    : traits_(traits), progress_(std::make_shared<ProgressBarWindow>(traits.Title)) {}

RunResult ScopeRun::Over(const std::shared_ptr<host::VBComponents>& components, StringView scope) {
  result_ = {};
  result_.Title = traits_.Title;
  result_.Aborted = true;
  const FailureWatch hearing([this](const vb::Failure& failure) {
    const auto stack = gErrorHandler->CallStack();
    result_.Failures.push_back({component_, member_, failure.Number(), failure.Description(),
                                stack.empty() ? String() : stack.front()});
  });
  const WindowGuard window(progress_);
  Routine(traits_.Routine, [&](const Statements& run) {
    Walk(run, components, scope);
    result_.Cancelled = Stopped();
    result_.Aborted = false;
    run([&] { progress_->Hide(); });
  });
  return std::move(result_);
}

void ScopeRun::Walk(const Statements& run, const std::shared_ptr<host::VBComponents>& components,
                    StringView scope) {
  Prepare();
  run([&] { progress_->Show(platform::ShowStyle::Modeless); });
  // A total of 0 would be divided by.
  progress_->SetPRBCount1(std::max(1, run([&] { return Need(components).Count(); })));
  progress_->SetPRBsi1(0);
  progress_->SetPRBCount2(1);
  progress_->SetPRBsi2(0);
  progress_->C1ElaProgressBar2.SetVisible(traits_.SecondBar);
  progress_->lblMessage2.SetVisible(traits_.SecondBar);
  if (!components) return;
  const StringView target = scope::Target(scope);
  if (scope::Is(scope, scope::Project)) {
    OverProject(run, *components);
  } else if (scope::Is(scope, scope::Component)) {
    OverComponent(run, *components, target);
  } else if (traits_.OtherIsMember || scope::Is(scope, scope::Method)) {
    OverMember(run, *components, target);
  }
}

void ScopeRun::Begin(StringView name) {
  component_ = name;
  member_.clear();
  progress_->SetMessage1(name);
  progress_->SetMessage2(u"");
  if (OnComponent) OnComponent(name);
}

void ScopeRun::OverProject(const Statements& run, host::VBComponents& components) {
  const int count = run([&] { return components.Count(); });
  for (int index = 1; index <= count; ++index) {
    const auto component = run([&] { return components.Item(index); });
    if (!component) continue;
    Begin(run([&] { return component->Name(); }));
    run(DoEvents);
    const ModulePtr module = ModuleOf(component);
    if (module) ++result_.Components;
    InProject(run, *component, module);
    if (Stopped()) return;
    progress_->SetPRBsi1(progress_->PRBsi1() + 1);
  }
}

void ScopeRun::OverComponent(const Statements& run, host::VBComponents& components,
                             StringView target) {
  const int count = run([&] { return components.Count(); });
  for (int index = 1; index <= count; ++index) {
    const auto component = run([&] { return components.Item(index); });
    if (!component) continue;
    const String name = run([&] { return component->Name(); });
    if (!vb::SameText(name, target)) continue;
    progress_->SetPRBCount1(1);
    Begin(name);
    if (const ModulePtr module = ModuleOf(component)) {
      ++result_.Components;
      const auto line = InComponent(run, module);
      if (line) scope::ShowLine(run, module, *line);
    }
    if (Stopped()) return;
  }
}

void ScopeRun::OverMember(const Statements& run, host::VBComponents& components,
                          StringView target) {
  const auto pane = run([&] { return Need(components.VBE()).ActiveCodePane(); });
  if (!pane) return;
  progress_->SetPRBCount1(1);
  progress_->SetMessage1(u"");
  progress_->SetMessage2(target);
  member_ = target;
  const ModulePtr module = run([&] { return pane->CodeModule(); });
  if (!module) return;
  ++result_.Components;
  InMember(run, *pane, module, target);
}

void ScopeRun::ShowMemberPane(const Statements& run, const ModulePtr& module, StringView target,
                              int kind, bool show) {
  const auto procKind = static_cast<host::vbext_ProcKind>(kind);
  const int body = run([&] { return Need(module).ProcBodyLine(target, procKind); });
  if (show && body > 0) scope::ShowLine(run, module, body + 1);
}

void ScopeRun::MembersAhead(std::size_t count) {
  progress_->SetPRBCount2(std::max(1.0, static_cast<double>(count)));
}

void ScopeRun::ShowMember(const Statements& run, StringView name, int index) {
  member_ = name;
  progress_->SetMessage2(name);
  progress_->SetPRBsi2(index);
  run(DoEvents);
}

void ScopeRun::Touched(const ModulePtr& module, StringView member) {
  result_.Touched.push_back({module, component_, String(member)});
}

}  // namespace tessel
