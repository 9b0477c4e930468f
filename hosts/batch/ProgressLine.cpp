#include "hosts/batch/ProgressLine.h"

#include <unistd.h>

#include <iostream>

namespace tessel::batch {
namespace {
constexpr std::size_t Width = 30;
}

ProgressLine::ProgressLine(std::size_t total)
    : total_(total), terminal_(isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() { Clear(); }

void ProgressLine::Step(const std::string& name) {
  ++done_;
  if (!terminal_ || total_ == 0) return;
  const std::size_t filled = Width * done_ / total_;
  std::cerr << "\r\033[K[" << std::string(filled, '#') << std::string(Width - filled, '.') << "] "
            << 100 * done_ / total_ << "% " << name << std::flush;
  drawn_ = true;
}

void ProgressLine::Clear() {
  if (drawn_) std::cerr << "\r\033[K" << std::flush;
  drawn_ = false;
}

}  // namespace tessel::batch
