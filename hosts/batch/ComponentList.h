// What the commands that only read components have in common.
#pragma once

#include <functional>
#include <iosfwd>
#include <nlohmann/json_fwd.hpp>

#include "hosts/batch/Report.h"

namespace tessel::batch {

/// Calls `visit` with every component that the selection means, each file once. What a component or
/// a file fails with is the report's, and the others follow. The output is flushed behind each
/// file.
void ForEachComponent(const Selection& request, Report& report, std::ostream& out,
                      const std::function<void(const ComponentRef&)>& visit);

/// Writes one document; bytes that are no text are replaced.
void PrintJson(std::ostream& out, const nlohmann::ordered_json& document);

}  // namespace tessel::batch
