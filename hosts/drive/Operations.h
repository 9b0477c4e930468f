// The host operations that can be made to fail.
#pragma once

#include <span>
#include <string_view>

namespace tessel::drive {

/// Names as the environment's operation hook gives them, e.g. "CodeModule.InsertLines".
[[nodiscard]] std::span<const std::string_view> HostOperations();

}  // namespace tessel::drive
