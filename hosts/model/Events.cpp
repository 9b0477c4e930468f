#include "hosts/model/Events.h"

namespace tessel::model {
namespace {

/// A new sink, known to the list.
template <class Sink>
std::shared_ptr<Sink> AddSink(std::vector<std::weak_ptr<Sink>>& sinks) {
  auto sink = std::make_shared<Sink>();
  sinks.push_back(sink);
  return sink;
}

/// Calls every live sink. Works on copies, so that handlers may make and drop sinks.
template <class Sink, class F>
void ForEach(const Hook& hook, std::vector<std::weak_ptr<Sink>>& sinks, F&& call) {
  const CallsOf handlers(*hook, CallsOf::AddIn);
  std::erase_if(sinks, [](const auto& sink) { return sink.expired(); });
  for (const auto& weak : std::vector(sinks)) {
    if (const auto sink = weak.lock()) call(*sink);
  }
}

}  // namespace

std::shared_ptr<host::VBControlsEvents> Events::VBControlsEvents() {
  (*hook_)("Events.VBControlsEvents");
  return AddSink(controls_);
}

std::shared_ptr<host::VBProjectsEvents> Events::VBProjectsEvents() {
  (*hook_)("Events.VBProjectsEvents");
  return AddSink(projects_);
}

std::shared_ptr<host::VBComponentsEvents> Events::VBComponentsEvents() {
  (*hook_)("Events.VBComponentsEvents");
  return AddSink(components_);
}

std::shared_ptr<host::CommandBarEvents> Events::CommandBarEvents(
    const std::shared_ptr<host::CommandBarControl>& control) {
  (*hook_)("Events.CommandBarEvents");
  auto sink = std::make_shared<host::CommandBarEvents>();
  clicks_.push_back({control, sink});
  return sink;
}

void Events::ControlAdded(const std::shared_ptr<host::VBControl>& control) {
  ForEach(hook_, controls_, [&](auto& sink) {
    if (const auto handler = sink.ItemAdded) handler(control);
  });
}

void Events::ControlRemoved(const std::shared_ptr<host::VBControl>& control) {
  ForEach(hook_, controls_, [&](auto& sink) {
    if (const auto handler = sink.ItemRemoved) handler(control);
  });
}

void Events::ControlRenamed(const std::shared_ptr<host::VBControl>& control, StringView oldName,
                            int oldIndex) {
  ForEach(hook_, controls_, [&](auto& sink) {
    if (const auto handler = sink.ItemRenamed) handler(control, oldName, oldIndex);
  });
}

void Events::ProjectAdded(const std::shared_ptr<host::VBProject>& project) {
  ForEach(hook_, projects_, [&](auto& sink) {
    if (const auto handler = sink.ItemAdded) handler(project);
  });
}

void Events::ComponentAdded(const std::shared_ptr<host::VBComponent>& component) {
  ForEach(hook_, components_, [&](auto& sink) {
    if (const auto handler = sink.ItemAdded) handler(component);
  });
}

bool Events::Clicked(const std::shared_ptr<host::CommandBarControl>& control) {
  std::erase_if(clicks_, [](const ControlSink& one) { return one.Sink.expired(); });
  bool cancelled = false;
  const CallsOf handlers(*hook_, CallsOf::AddIn);
  for (const ControlSink& one : std::vector(clicks_)) {
    const auto sink = one.Sink.lock();
    if (!sink || one.Control.lock() != control) continue;
    bool handled = false, cancelDefault = false;
    if (const auto handler = sink->Click) handler(control, handled, cancelDefault);
    cancelled = cancelled || cancelDefault;
  }
  return cancelled;
}

}  // namespace tessel::model
