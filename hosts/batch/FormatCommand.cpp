#include "hosts/batch/FormatCommand.h"

#include <CLI/CLI.hpp>
#include <iterator>
#include <ostream>

#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/FormatJobs.h"
#include "hosts/batch/FormatOptions.h"
#include "hosts/batch/FormatRules.h"
#include "hosts/batch/Report.h"
#include "vb/ByteText.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

constexpr const char* StandardInput = "-";

/// The folder from which a configuration file is looked for, upward.
fs::path ConfigFolder(const std::string& file) {
  if (file.empty()) return fs::current_path();
  const fs::path full = fs::absolute(file).lexically_normal();
  std::error_code unreadableIsAFile;
  return fs::is_directory(full, unreadableIsAFile) ? full : full.parent_path();
}

/// The options for one file: the delivered ones, the configuration file's, the command line's.
FormatOptions OptionsFor(const FormatRequest& request, const std::string& file) {
  FormatOptions options;
  options.Rules = LoadRules(request.Data);
  const fs::path config = !request.Config.empty() ? request.Config : FindConfig(ConfigFolder(file));
  if (!config.empty()) ReadConfig(options, config);
  for (const auto& [name, value] : request.Overrides) {
    for (const OptionRow& row : OptionTable()) {
      if (name == row.Name) SetOption(options, row, value);
    }
  }
  return options;
}

/// The services for one file; the editor's tab is as wide as its options say.
struct Services {
  explicit Services(const FormatOptions& options) : Platform(options.TabWidth), Scope(Platform) {}
  BatchPlatform Platform;
  platform::ScopedPlatform Scope;
};

/// One run of the command.
class Formatting {
 public:
  Formatting(const FormatRequest& request, const Streams& streams)
      : request_(request),
        streams_(streams),
        report_(streams, request, request, "formatted"),
        exclusion_(request.Excludes) {}

  int Run() {
    for (const std::string& argument : request_.Files) {
      report_.Guard([&] { Argument(argument); });
    }
    if (!request_.PrintConfig) report_.Close();
    return report_.Exit();
  }

 private:
  void Argument(const std::string& argument) {
    const bool standard = argument == StandardInput;
    if (request_.PrintConfig) {
      WriteConfig(OptionsFor(request_, standard ? request_.StdinName : argument), streams_.Out);
      return;
    }
    if (standard) {
      Text();
      return;
    }
    const std::vector<std::string> inputs = InputsOf(argument, exclusion_);
    if (!request_.Components.empty()) {
      Services services{FormatOptions()};
      RequireComponents(services.Platform, argument, inputs, request_);
    }
    for (const std::string& file : inputs) report_.Guard([&] { File(file); });
  }

  /// Opens a file, formats it and writes it, or tells what it would write.
  void File(const std::string& file) {
    const FormatOptions options = OptionsFor(request_, file);
    Services services(options);
    OpenInput input(services.Platform, file, request_, PurposeOf(request_));
    report_.Opened(input);
    std::vector<ComponentRef> components = input.Chosen();
    std::erase_if(components, [&](const ComponentRef& one) { return !seen_.Add(one); });
    for (const FormatJob& job : FormatAll(std::move(components), options, request_.Jobs)) {
      if (PutBack(input, job)) {
        report_.Deliver(input, job.Component, input.StoredBytes(job.Component),
                        input.Bytes(job.Component));
      }
    }
  }

  /// Formats the text of a module, in the form of the file that it comes from.
  void Text() {
    const FormatOptions options = OptionsFor(request_, request_.StdinName);
    Services services(options);
    const std::string name = request_.StdinName.empty() ? "<standard input>" : request_.StdinName;
    const std::string before{std::istreambuf_iterator<char>(streams_.In),
                             std::istreambuf_iterator<char>()};
    OpenInput input(services.Platform, name, before, request_);
    std::vector<ComponentRef> components = input.Components();
    const ComponentRef component = components.at(0);
    if (!input.IsChosen(component)) {
      throw vb::Failure(vb::InvalidCall,
                        vb::FromBytes(name + ": is the component \"" + vb::ToUtf8(component.Name) +
                                      "\", not \"" + request_.Components.front() + '"'),
                        u"Tessel");
    }
    for (const FormatJob& job : FormatAll(std::move(components), options, 1)) PutBack(input, job);
    const std::string after = input.Bytes(component);
    if (request_.Writes()) {
      streams_.Out << after << std::flush;
      report_.Passed(after != before);
    } else {
      report_.Deliver(input, component, before, after);
    }
  }

  /// Tells what came of a component; true when its new text stands in the module.
  bool PutBack(OpenInput& input, const FormatJob& job) {
    if (!job.Failure.empty()) {
      report_.FailIn(job.Component.File, input.Typed(job.Failure));
      return false;
    }
    report_.TellDifferences(input, job.Component, job.Differences, job.Bodies.Declarations + 1);
    if (!job.Differences.empty() && !request_.Force) return false;
    try {
      WriteBack(job);
      return true;
    } catch (...) {
      report_.FailIn(job.Component.File, input.Typed(vb::CurrentFailure().what()));
      return false;
    }
  }

  const FormatRequest& request_;
  const Streams& streams_;
  Report report_;
  Exclusion exclusion_;
  SeenFiles seen_;
};

/// Reads an option's value once for its own sake, so that the command line's error names it.
void AddOption(CLI::App& command, FormatRequest& request, const OptionRow& row) {
  command
      .add_option_function<std::string>(
          std::string("--") + row.Name,
          [&request, &row](const std::string& value) {
            FormatOptions checked;
            try {
              SetOption(checked, row, value);
            } catch (const vb::Failure& failure) {
              throw CLI::ValidationError(failure.what());
            }
            request.Overrides.emplace_back(row.Name, value);
          },
          row.Help)
      ->default_str(ValueOf(FormatOptions(), row));
}

}  // namespace

CLI::App* FormatCommand::Declare(CLI::App& program) {
  auto* const format = program.add_subcommand(
      "format", "Format projects, groups, component files, folders or a text");
  AddSelection(*format, Request,
               "projects, groups, component files, folders, or - for standard input");
  AddDelivery(*format, Request, "write also what changes more than layout");
  format->add_option("--stdin-filename", Request.StdinName,
                     "name of standard input, for messages and the configuration that holds");
  format->add_flag("--print-config", Request.PrintConfig, "print the options in force and stop");
  format->add_option("--config", Request.Config, "read options from this file")
      ->default_str("the nearest .tessel");
  format->add_option("--jobs", Request.Jobs, "components formatted side by side")
      ->check(CLI::Range(1, 256))
      ->default_str("the number of cores");
  format->add_option("--data", Request.Data, "take the format rules of this program's directory")
      ->default_str("the delivered ones");
  for (const OptionRow& row : OptionTable()) AddOption(*format, Request, row);
  return format;
}

int FormatCommand::Run(const Streams& streams) { return Formatting(Request, streams).Run(); }

}  // namespace tessel::batch
