#include "hosts/batch/HandlersRun.h"

#include <algorithm>
#include <map>

#include "errorhandlers/HandlerRun.h"
#include "errorhandlers/RunContext.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "foundation/CErrorHandler.h"
#include "scanning/Scope.h"
#include "scanning/mFunctions.h"

namespace tessel::batch {
namespace {

namespace insert = mInsertErrorHandlerCode;
using ComponentPtr = std::shared_ptr<host::VBComponent>;

constexpr int DefaultTabWidth = 4;

String ComponentInHand() {
  return HandlerProgress() == nullptr ? String() : HandlerProgress()->lblMessage1.Caption();
}

/// The failure service for the length of a run. It asks by a box, which is answered with Abort.
class FailureLog {
 public:
  explicit FailureLog(memory::ScriptedDesktop& desktop)
      : desktop_(desktop),
        before_(std::exchange(gErrorHandler, std::make_shared<CErrorHandler>())) {
    gErrorHandler->Init(ActionMessageBox, u"Error Log.txt", true, false, 2, u"Tracing Log.txt");
    desktop_.OnMessage = [this](const auto& message) { Note(message.Text); };
  }
  ~FailureLog() {
    desktop_.OnMessage = nullptr;
    gErrorHandler = before_;
  }
  FailureLog(const FailureLog&) = delete;
  FailureLog& operator=(const FailureLog&) = delete;

  String Component;  ///< in hand where the run itself doesn't say it
  std::vector<HandlersFailure> Failures;

 private:
  void Note(const String& report) {
    const String shown = ComponentInHand();
    HandlersFailure failure{shown.empty() ? Component : shown, vb::ToUtf8(report)};
    // A box of the service, unless a tool has shown one of its own.
    const auto stack = gErrorHandler->CallStack();
    if (gErrorHandler->ErrorNumber() != 0 && !stack.empty()) {
      failure.Cause = vb::ToUtf8(gErrorHandler->ErrorDescription() + u" (" + stack.front() + u")");
    }
    Failures.push_back(std::move(failure));
  }

  memory::ScriptedDesktop& desktop_;
  std::shared_ptr<CErrorHandler> before_;
};

/// Body line and kind of every member of a name, topmost first.
std::map<int, host::vbext_ProcKind> KindsOf(host::CodeModule& module, StringView wanted) {
  std::map<int, host::vbext_ProcKind> found;
  for (const auto kind :
       {host::vbext_pk_Proc, host::vbext_pk_Let, host::vbext_pk_Set, host::vbext_pk_Get}) {
    const String token(mFunctions::MemberKindToken(kind));
    const bool tagged = wanted.ends_with(token);
    const StringView name = tagged ? wanted.substr(0, wanted.size() - token.size()) : wanted;
    try {
      found.emplace(module.ProcBodyLine(name, kind), kind);
    } catch (const vb::Failure&) {  // no member of that kind
    }
  }
  return found;
}

String WithoutKind(StringView wanted) {
  const std::size_t blank = wanted.find(u' ');
  return String(wanted.substr(0, blank));
}

ComponentPtr Find(host::VBProject& project, StringView name) {
  const auto components = project.VBComponents();
  for (int index = 1; index <= components->Count(); ++index) {
    auto component = components->Item(index);
    if (vb::SameText(component->Name(), name) && component->CodeModule()) return component;
  }
  return nullptr;
}

/// The steps of a begun run.
class Steps {
 public:
  Steps(workspace::Workspace& environment, host::VBProject& project, const HandlersOrder& order,
        FailureLog& log)
      : environment_(environment), project_(project), order_(order), log_(log) {
    insert::ModuleScheme = order.ModuleScheme;
    insert::FormScheme = order.FormScheme;
    insert::ActiveXScheme = order.ActiveXScheme;
    // A run depends on its project alone, not on those before it.
    insert::FirstCaseFlag = false;
    insert::MemberType.clear();
  }

  void Take() {
    if (order_.Components.empty()) Run(scope::Text(scope::Project, project_.Name()));
    for (const String& wanted : order_.Components) {
      const ComponentPtr component = Find(project_, wanted);
      if (!component) continue;
      log_.Component = component->Name();
      if (order_.Member.empty()) {
        environment_.SetCaret(log_.Component, {1, 1, 1, 1});
        Run(scope::Text(scope::Component, log_.Component));
      } else {
        Members(*component);
      }
    }
  }

 private:
  /// A property has up to three members of one name. The lines move, so each is looked up afresh.
  void Members(host::VBComponent& component) {
    const auto module = component.CodeModule();
    const String name = WithoutKind(order_.Member);
    for (const auto& [line, kind] : KindsOf(*module, order_.Member)) {
      // The line of the statement can belong to the member above as well, the next one can't.
      const int inside = module->ProcBodyLine(name, kind) + 1;
      environment_.SetCaret(log_.Component, {inside, 1, inside, 1});
      Run(scope::Text(scope::Method, name));
    }
  }

  void Run(const String& scope) {
    const auto vbe = environment_.VBE();
    FillRunContext(*vbe, nullptr);
    const auto components = project_.VBComponents();
    if (order_.Remove) {
      mRemoveErrorHandlerCode::RunRemoveErrorHandlerCode(components, scope);
    } else {
      String scheme = order_.Scheme;  // a run changes it
      insert::RunInsertErrorHandlerCode(components, scope, scheme);
    }
  }

  workspace::Workspace& environment_;
  host::VBProject& project_;
  const HandlersOrder& order_;
  FailureLog& log_;
};

}  // namespace

HandlersPlatform::HandlersPlatform() : BatchPlatform(DefaultTabWidth) {}

void HandlersPlatform::ListeningClock::DoEvents() {
  if (Heard) Heard();
  SystemClock::DoEvents();
}

bool ProjectHas(host::VBProject& project, const HandlersOrder& order) {
  if (order.Components.empty()) return true;
  bool any = false;
  for (const String& wanted : order.Components) {
    const ComponentPtr component = Find(project, wanted);
    if (!component) continue;
    any = true;
    if (order.Member.empty() || !KindsOf(*component->CodeModule(), order.Member).empty()) continue;
    throw vb::Failure(
        vb::InvalidCall,
        u"the component \"" + component->Name() + u"\" has no member \"" + order.Member + u'"',
        u"Tessel");
  }
  return any;
}

std::vector<HandlersFailure> RunOverProject(
    HandlersPlatform& services, workspace::Workspace& environment, host::VBProject& project,
    const HandlersOrder& order, const std::function<void(const std::string&)>& progress) {
  environment.ActivateProject(project.Name());
  String last;
  services.OnEvents([&] {
    const String now = ComponentInHand();
    if (now.empty() || now == last) return;
    last = now;
    progress(vb::ToUtf8(now));
  });
  FailureLog log(services.DesktopService);
  Steps(environment, project, order, log).Take();
  services.OnEvents(nullptr);
  return std::move(log.Failures);
}

}  // namespace tessel::batch
