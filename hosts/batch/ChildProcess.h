// Another program that runs to its end.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessel::batch {

struct ChildResult {
  /// Exit code; the negative number of the signal that ended it.
  int Exit = 0;
  std::string Out, Err;
};

/// What a program may use; 0 for no limit.
struct ChildLimits {
  /// Bytes of memory, and seconds of the processor.
  std::uint64_t Memory = 0, Seconds = 0;
};

/// Runs a program found on the PATH, without a shell: each argument reaches it as it stands. Its
/// standard input is empty. `settings` ("NAME=value") stand in its environment in the place of
/// those of the same name. Fails with 53 when there is no such program, and with 5 and the system's
/// text when it can't be run. One that goes beyond a limit ends by what it makes of that, or by a
/// signal.
[[nodiscard]] ChildResult RunChild(const std::string& program,
                                   const std::vector<std::string>& arguments,
                                   const std::vector<std::string>& settings = {},
                                   const ChildLimits& limits = {});

}  // namespace tessel::batch
