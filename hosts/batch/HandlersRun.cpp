#include "hosts/batch/HandlersRun.h"

#include <algorithm>
#include <map>

#include "errorhandlers/RunContext.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "foundation/CErrorHandler.h"
#include "hosts/model/Vbe.h"
#include "scanning/ModuleOf.h"
#include "scanning/Scope.h"
#include "scanning/mFunctions.h"

namespace tessel::batch {
namespace {

namespace insert = mInsertErrorHandlerCode;
using ComponentPtr = std::shared_ptr<host::VBComponent>;

constexpr int DefaultTabWidth = 4;

/// The failure service for the length of a run. It asks by a box, which nobody sees and which is
/// answered with Abort.
class FailureService {
 public:
  FailureService() : before_(std::exchange(gErrorHandler, std::make_shared<CErrorHandler>())) {
    gErrorHandler->Init(ActionMessageBox, u"Error Log.txt", true, false, 2, u"Tracing Log.txt");
  }
  ~FailureService() { gErrorHandler = before_; }
  FailureService(const FailureService&) = delete;
  FailureService& operator=(const FailureService&) = delete;

 private:
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
    if (vb::SameText(component->Name(), name) && ModuleOf(component)) return component;
  }
  return nullptr;
}

/// The steps of a begun run.
class Steps {
 public:
  Steps(workspace::Workspace& environment, host::VBProject& project, const HandlersOrder& order,
        const std::function<void(const std::string&)>& progress)
      : environment_(environment), project_(project), order_(order) {
    context_.OnComponent = [&progress](StringView name) { progress(vb::ToUtf8(name)); };
    context_.ModuleScheme = order.ModuleScheme;
    context_.FormScheme = order.FormScheme;
    context_.ActiveXScheme = order.ActiveXScheme;
  }

  std::vector<HandlersFailure> Take() {
    if (order_.Components.empty()) Run(scope::Text(scope::Project, project_.Name()));
    for (const String& wanted : order_.Components) {
      const ComponentPtr component = Find(project_, wanted);
      if (!component) continue;
      inHand_ = component->Name();
      if (order_.Member.empty()) {
        environment_.SetCaret(inHand_, {1, 1, 1, 1});
        Run(scope::Text(scope::Component, inHand_));
      } else {
        Members(*ModuleOf(component));
      }
    }
    return std::move(failures_);
  }

 private:
  /// A property has up to three members of one name. The lines move, so each is looked up afresh.
  void Members(host::CodeModule& module) {
    const String name = WithoutKind(order_.Member);
    for (const auto& [line, kind] : KindsOf(module, order_.Member)) {
      // The line of the statement can belong to the member above as well, the next one can't.
      const int inside = module.ProcBodyLine(name, kind) + 1;
      environment_.SetCaret(inHand_, {inside, 1, inside, 1});
      Run(scope::Text(scope::Method, name));
    }
  }

  void Run(const String& scope) {
    FillNames(Statements(), context_, environment_.VBE());
    const auto components = project_.VBComponents();
    const FailureService service;
    if (order_.Remove) {
      Note(mRemoveErrorHandlerCode::RunRemoveErrorHandlerCode(context_, components, scope));
    } else {
      String scheme = order_.Scheme;  // a run changes it
      Note(insert::RunInsertErrorHandlerCode(context_, components, scope, scheme));
    }
  }

  void Note(const RunResult& result) {
    for (const RunFailure& failure : result.Failures) {
      failures_.push_back({failure.Component.empty() ? inHand_ : failure.Component,
                           vb::ToUtf8(failure.Description + u" (" + failure.Routine + u")")});
    }
  }

  workspace::Workspace& environment_;
  host::VBProject& project_;
  const HandlersOrder& order_;
  insert::RunContext context_;  // a run depends on its project alone, not on those before it
  String inHand_;               // where the run itself doesn't say it
  std::vector<HandlersFailure> failures_;
};

}  // namespace

HandlersPlatform::HandlersPlatform() : BatchPlatform(DefaultTabWidth) {}

bool ProjectHas(host::VBProject& project, const HandlersOrder& order) {
  if (order.Components.empty()) return true;
  bool any = false;
  for (const String& wanted : order.Components) {
    const ComponentPtr component = Find(project, wanted);
    if (!component) continue;
    any = true;
    if (order.Member.empty() || !KindsOf(*ModuleOf(component), order.Member).empty()) continue;
    throw vb::Failure(
        vb::InvalidCall,
        u"the component \"" + component->Name() + u"\" has no member \"" + order.Member + u'"',
        u"Tessel");
  }
  return any;
}

std::vector<HandlersFailure> RunOverProject(
    workspace::Workspace& environment, const std::shared_ptr<model::VBProject>& project,
    const HandlersOrder& order, const std::function<void(const std::string&)>& progress) {
  // Another project may have the same name.
  project->Environment()->Activate(project);
  return Steps(environment, *project, order, progress).Take();
}

}  // namespace tessel::batch
