#include "hosts/drive/Session.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "hosts/drive/Fields.h"
#include "hosts/drive/Operations.h"
#include "vb/Failure.h"

namespace tessel::drive {
namespace {

constexpr std::array Tables{&LifeVerbs, &HostVerbs, &BarVerbs, &DialogVerbs, &SurroundingVerbs};

Verb FindVerb(const std::string& name) {
  for (const auto& table : Tables) {
    const auto found = table().find(name);
    if (found != table().end()) return found->second;
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
  const Verb verb = FindVerb(Utf8(TextField(request, "do")));
  Json reply = verb(*this, request);
  return reply.is_null() ? Json::object() : reply;
}

void Session::Connect() {
  if (connect_) Refuse("the add-in is connected already");
  connect_ = std::make_shared<tessel::Connect>();
  connect_->AddinInstance_OnConnection(workspace_.VBE());
  if (connect_) connect_->AddinInstance_OnStartupComplete();
}

void Session::Disconnect() {
  if (!connect_) return;
  const auto connect = std::exchange(connect_, nullptr);
  connect->AddinInstance_OnDisconnection();
}

void Session::FailNext(const std::string& operation, const vb::Failure& failure) {
  const auto known = HostOperations();
  if (std::find(known.begin(), known.end(), operation) == known.end()) {
    Refuse("no host operation is called \"" + operation + '"');
  }
  failures_.emplace(operation, failure);
}

}  // namespace tessel::drive
