// The steps that windows of several kinds take towards a notice.
#pragma once

#include "foundation/Routine.h"
#include "watchers/clsEventCODE.h"

namespace tessel {

/// Waits for the master latch and takes it. False is a time-out: on the one thread nothing could
/// free the latch during the wait, so a held one is a time-out at once.
bool TakeRunEvents(clsEventCODE& watcher);

/// The environment's windows came or went: starts the notice of that, unless its latch is held. No
/// latch is taken before somebody listens.
void RenewProject(const Statements& run, const std::shared_ptr<clsEventCODE>& watcher);

/// Low and high word of a message's value.
[[nodiscard]] constexpr std::uint32_t LowWord(std::intptr_t value) {
  return static_cast<std::uint32_t>(value) & 0xFFFFU;
}
[[nodiscard]] constexpr std::uint32_t HighWord(std::intptr_t value) {
  return static_cast<std::uint32_t>(value) >> 16U & 0xFFFFU;
}

}  // namespace tessel
