// The factory of event sinks, and the raising of the events.
#pragma once

#include <memory>
#include <vector>

#include "host/CommandBars.h"
#include "host/Events.h"
#include "hosts/model/OperationHook.h"

namespace tessel::model {

/// Holds sinks weakly: a sink hears events as long as somebody else holds it.
class Events : public host::Events {
 public:
  explicit Events(Hook hook = std::make_shared<OperationHook>()) : hook_(std::move(hook)) {}
  [[nodiscard]] std::shared_ptr<host::VBControlsEvents> VBControlsEvents() override;
  [[nodiscard]] std::shared_ptr<host::VBProjectsEvents> VBProjectsEvents() override;
  [[nodiscard]] std::shared_ptr<host::VBComponentsEvents> VBComponentsEvents() override;
  [[nodiscard]] std::shared_ptr<host::CommandBarEvents> CommandBarEvents(
      const std::shared_ptr<host::CommandBarControl>& control) override;

  void ControlAdded(const std::shared_ptr<host::VBControl>& control);
  void ControlRemoved(const std::shared_ptr<host::VBControl>& control);
  void ControlRenamed(const std::shared_ptr<host::VBControl>& control, StringView oldName,
                      int oldIndex);
  void ProjectAdded(const std::shared_ptr<host::VBProject>& project);
  void ComponentAdded(const std::shared_ptr<host::VBComponent>& component);
  /// Whether a handler asked that the control's own command doesn't run.
  bool Clicked(const std::shared_ptr<host::CommandBarControl>& control);

 private:
  template <class Sink>
  using Sinks = std::vector<std::weak_ptr<Sink>>;
  struct ControlSink {
    std::weak_ptr<host::CommandBarControl> Control;
    std::weak_ptr<host::CommandBarEvents> Sink;
  };

  Hook hook_;
  Sinks<host::VBControlsEvents> controls_;
  Sinks<host::VBProjectsEvents> projects_;
  Sinks<host::VBComponentsEvents> components_;
  std::vector<ControlSink> clicks_;
};

}  // namespace tessel::model
