// Another program that runs to its end.
#pragma once

#include <string>
#include <vector>

namespace tessel::batch {

struct ChildResult {
  /// Exit code; the negative number of the signal that ended it.
  int Exit = 0;
  std::string Out, Err;
};

/// Runs a program found on the PATH, without a shell: each argument reaches it as it stands. Its
/// standard input is empty. `settings` ("NAME=value") stand in its environment in the place of
/// those of the same name. Fails with 53 when there is no such program, and with 5 and the system's
/// text when it can't be run.
[[nodiscard]] ChildResult RunChild(const std::string& program,
                                   const std::vector<std::string>& arguments,
                                   const std::vector<std::string>& settings = {});

}  // namespace tessel::batch
