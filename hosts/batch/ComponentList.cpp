#include "hosts/batch/ComponentList.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>
#include <ostream>

#include "hosts/batch/BatchPlatform.h"

namespace tessel::batch {
namespace {

constexpr int TabWidth = 4;

}  // namespace

CLI::App* ListingCommand::DeclareListing(CLI::App& program, const char* name, const char* help) {
  auto* const command = program.add_subcommand(name, help);
  AddSelection(*command, Request, "projects, groups, component files or folders");
  command->add_flag("--json", Json, "one JSON document");
  return command;
}

void ForEachComponent(const Selection& request, Report& report, std::ostream& out,
                      const std::function<void(const ComponentRef&)>& visit) {
  BatchPlatform services(TabWidth);
  const platform::ScopedPlatform scope(services);
  const Exclusion exclusion(request.Excludes);
  SeenFiles seen;
  const auto readFile = [&](const std::string& file) {
    OpenInput input(services, file, request, Purpose::Read);
    report.Opened(input);
    for (const ComponentRef& one : input.Chosen()) {
      if (seen.Add(one)) visit(one);
    }
    out.flush();
  };
  for (const std::string& argument : request.Files) {
    report.Guard([&] {
      const auto inputs = InputsOf(argument, exclusion);
      RequireComponents(services, argument, inputs, request);
      for (const std::string& file : inputs) report.Guard([&] { readFile(file); });
    });
  }
}

void PrintJson(std::ostream& out, const nlohmann::ordered_json& document) {
  out << document.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n'
      << std::flush;
}

}  // namespace tessel::batch
