#include "hosts/workbench/forms/WorkbenchPlatform.h"

namespace tessel::workbench {

WorkbenchPlatform::WorkbenchPlatform(const std::filesystem::path& data,
                                     const std::filesystem::path& settings)
    : registry_(settings), app_(data) {
  clock_.RunTick = [this](const std::function<void()>& tick) { desktop_.RunTick(tick); };
}

}  // namespace tessel::workbench
