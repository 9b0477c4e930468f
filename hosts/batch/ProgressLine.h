// A progress bar on a terminal.
#pragma once

#include <cstddef>
#include <string>

namespace tessel::batch {

/// Draws on standard error, and only when that is a terminal. Cleared on destruction.
class ProgressLine {
 public:
  explicit ProgressLine(std::size_t total);
  ~ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// One more is done.
  void Step(const std::string& name);
  /// Takes the bar off, so that a message can be written.
  void Clear();

 private:
  std::size_t total_, done_ = 0;
  bool terminal_, drawn_ = false;
};

}  // namespace tessel::batch
