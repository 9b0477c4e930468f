// Event sinks. A sink is alive, and its handlers are called, as long as somebody holds it.
#pragma once

#include <functional>
#include <memory>

#include "host/Types.h"

namespace tessel::host {

class VBControl;
class VBProject;
class VBComponent;
class CommandBarControl;

struct VBControlsEvents {
  std::function<void(const std::shared_ptr<VBControl>&)> ItemAdded;
  std::function<void(const std::shared_ptr<VBControl>&)> ItemRemoved;
  std::function<void(const std::shared_ptr<VBControl>&, StringView oldName, int oldIndex)>
      ItemRenamed;
};

struct VBProjectsEvents {
  std::function<void(const std::shared_ptr<VBProject>&)> ItemAdded;
};

struct VBComponentsEvents {
  std::function<void(const std::shared_ptr<VBComponent>&)> ItemAdded;
};

struct CommandBarEvents {
  /// `handled` and `cancelDefault` start false.
  std::function<void(const std::shared_ptr<CommandBarControl>&, bool& handled, bool& cancelDefault)>
      Click;
};

/// The factory. The project arguments of the original are always Nothing here: a sink hears of all.
class Events {
 public:
  virtual ~Events() = default;
  [[nodiscard]] virtual std::shared_ptr<host::VBControlsEvents> VBControlsEvents() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBProjectsEvents> VBProjectsEvents() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::VBComponentsEvents> VBComponentsEvents() = 0;
  [[nodiscard]] virtual std::shared_ptr<host::CommandBarEvents> CommandBarEvents(
      const std::shared_ptr<CommandBarControl>& control) = 0;
};

}  // namespace tessel::host
