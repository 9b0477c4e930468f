// Several changes of the registry as one.
#pragma once

#include <functional>

#include "platform/Registry.h"

namespace tessel::platform {

/// What a registry is as well when it can take back what an unfinished group of changes did.
class GroupedChanges {
 public:
  virtual ~GroupedChanges() = default;
  /// Runs `changes`; what they write is there for others at its end, all of it, or never when they
  /// fail or the process ends. A group within a group is a part of that.
  virtual void Together(const std::function<void()>& changes) = 0;
};

/// As one where the registry can, else one by one.
inline void ChangeTogether(Registry& registry, const std::function<void()>& changes) {
  if (auto* const grouped = dynamic_cast<GroupedChanges*>(&registry)) {
    grouped->Together(changes);
  } else {
    changes();
  }
}

}  // namespace tessel::platform
