#include "hosts/drive/Session.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "hosts/drive/Fields.h"
#include "hosts/drive/Operations.h"
#include "hosts/drive/PaneKeys.h"
#include "hosts/drive/RunDifferences.h"
#include "vb/Failure.h"

namespace tessel::drive {
namespace {

/// Whose the host calls of a verb are: what a person does in the environment is none of the
/// add-in's calls.
struct Theme {
  const VerbTable& (*Verbs)();
  model::CallsOf::Caller Caller;
};
constexpr std::array Themes{Theme{&LifeVerbs, model::CallsOf::AddIn},
                            Theme{&HostVerbs, model::CallsOf::Environment},
                            Theme{&ProjectVerbs, model::CallsOf::Environment},
                            Theme{&ControlVerbs, model::CallsOf::Environment},
                            Theme{&BarVerbs, model::CallsOf::Environment},
                            Theme{&DialogVerbs, model::CallsOf::AddIn},
                            Theme{&SurroundingVerbs, model::CallsOf::AddIn}};

struct KnownVerb {
  drive::Verb Verb;
  model::CallsOf::Caller Caller;
};

KnownVerb FindVerb(const std::string& name) {
  for (const Theme& theme : Themes) {
    const auto found = theme.Verbs().find(name);
    if (found != theme.Verbs().end()) return {found->second, theme.Caller};
  }
  Refuse("unknown verb \"" + name + '"');
}

}  // namespace

SessionPlatform::SessionPlatform(const SessionOptions& options)
    : registry_(options.Registry), app_(options.Data) {
  if (options.RealClock) realClock_.emplace();
}

platform::Clock& SessionPlatform::Clock() {
  if (realClock_) return *realClock_;
  return virtualClock_;
}

void SessionPlatform::Advance(int ms) {
  if (realClock_) {
    realClock_->Wait(ms);
  } else {
    virtualClock_.Advance(ms);
  }
}

Session::Session(const SessionOptions& options, std::istream& in, std::ostream& out)
    : platform_(options),
      scope_(platform_),
      workspace_(platform_),
      channel_(
          in, out, [this](const Json& request) { return Carry(request); },
          [this] { return Desktop().Front(); }) {
  Desktop().Attach(&channel_);
  platform_.UseWindows(workspace_.OwnWindows());
  Desktop().OnKeys = [this](StringView keys) { TypeInPane(workspace_, keys); };
  workspace_.SetOperationHook([this](std::string_view operation) {
    if (failures_.empty()) return;
    const auto found = failures_.find(operation);
    if (found == failures_.end()) return;
    const vb::Failure failure = found->second;
    failures_.erase(found);
    throw failure;
  });
}

Session::~Session() = default;

Json Session::Carry(const Json& request) {
  if (!request.is_object()) Refuse("a request must be an object");
  const KnownVerb known = FindVerb(Utf8(TextField(request, "do")));
  const auto calls = workspace_.WhoseCalls(known.Caller);
  Json reply = known.Verb(*this, request);
  return reply.is_null() ? Json::object() : reply;
}

void Session::Connect() {
  if (connect_) Refuse("the add-in is connected already");
  connect_ = std::make_shared<tessel::Connect>();
  connect_->OnRunEnded = [this](const RunResult& run) {
    TellRun(*this, run);
    if (!run.Touched.empty()) workspace_.ToolHasEdited();
  };
  connect_->AddinInstance_OnConnection(workspace_.VBE());
  if (connect_) connect_->AddinInstance_OnStartupComplete();
}

void Session::Disconnect() {
  if (!connect_) return;
  const auto connect = std::exchange(connect_, nullptr);
  connect->AddinInstance_OnDisconnection();
}

void Session::RunHandler(StringView handler) {
  const auto connect = connect_;
  if (!connect) Refuse("the add-in is not connected");
  if (!connect->RunUnhooked(handler)) {
    Refuse("there is no handler \"" + Utf8(handler) + "\" without a control");
  }
}

String Session::ShowContextMenu(int codeX, int codeY) {
  const auto connect = connect_;
  if (!connect) Refuse("the add-in is not connected");
  return connect->ShowContextMenu(codeX, codeY);
}

void Session::FailNext(const std::string& operation, const vb::Failure& failure) {
  const auto known = HostOperations();
  if (std::find(known.begin(), known.end(), operation) == known.end()) {
    Refuse("no host operation is called \"" + operation + '"');
  }
  failures_.emplace(operation, failure);
}

}  // namespace tessel::drive
