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
  /// It was ended because it wrote more than it may; the outputs stop there.
  bool WroteTooMuch = false;
};

/// What a program may use up; 0 for as much as it likes.
struct ChildLimits {
  /// Bytes of its address space, and of each output.
  std::uint64_t Memory = 0, Output = 0;
  /// Of the processor.
  std::uint64_t Seconds = 0;
};

/// Runs a program found on the PATH, without a shell: each argument reaches it as it stands. Its
/// standard input is empty. It ends with this process, whatever ends that, and by a signal when it
/// goes beyond its limits. `settings` ("NAME=value") stand in its environment in the place of
/// those of the same name. Fails with 53 when there is no such program, and with 5 and the system's
/// text when it can't be run.
[[nodiscard]] ChildResult RunChild(const std::string& program,
                                   const std::vector<std::string>& arguments,
                                   const std::vector<std::string>& settings = {},
                                   const ChildLimits& limits = {});

}  // namespace tessel::batch
