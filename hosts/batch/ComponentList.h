// What the commands that only read components have in common.
#pragma once

#include <functional>
#include <iosfwd>
#include <nlohmann/json_fwd.hpp>

#include "hosts/batch/Command.h"
#include "hosts/batch/Report.h"
#include "hosts/batch/Selection.h"

namespace tessel::batch {

/// A command that lists something of every component, as text or as one JSON document. A file that
/// fails is told; the others are listed all the same.
class ListingCommand : public Command {
 public:
  Selection Request;
  bool Json = false;

 protected:
  /// The command with what all listings take.
  CLI::App* DeclareListing(CLI::App& program, const char* name, const char* help);
};

/// Calls `visit` with every component that the selection means, each file once. What a component or
/// a file fails with is the report's, and the others follow. The output is flushed behind each
/// file.
void ForEachComponent(const Selection& request, Report& report, std::ostream& out,
                      const std::function<void(const ComponentRef&)>& visit);

/// Writes one document; bytes that are no text are replaced.
void PrintJson(std::ostream& out, const nlohmann::ordered_json& document);

}  // namespace tessel::batch
