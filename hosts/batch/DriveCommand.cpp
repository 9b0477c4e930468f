#include "hosts/batch/DriveCommand.h"

#include <CLI/CLI.hpp>

#include "hosts/drive/Session.h"
#include "hosts/linux/LinuxApp.h"
#include "hosts/linux/SqliteRegistry.h"

namespace tessel::batch {

DriveCommand::DriveCommand()
    : Data(linux_host::DefaultDataDirectory().string()),
      Registry(linux_host::DefaultSettingsFile().string()) {}

CLI::App* DriveCommand::Declare(CLI::App& program) {
  auto* const drive =
      program.add_subcommand("drive", "Run the add-in headless, one JSON request a line");
  drive->add_option("--data", Data, "the program's directory")->capture_default_str();
  drive->add_option("--registry", Registry, "the settings file")->capture_default_str();
  drive->add_option("--clock", Clock, "virtual or real")
      ->check(CLI::IsMember({"virtual", "real"}))
      ->capture_default_str();
  return drive;
}

int DriveCommand::Run(const Streams& streams) {
  // A settings file that can't be used is told at once, by its name.
  static_cast<void>(
      linux_host::SqliteRegistry(Registry).ValueNames(platform::RootKey::CurrentUser, u"Software"));
  drive::Session session({Data, Registry, Clock == "real"}, streams.In, streams.Out);
  session.Run();
  return Done;
}

}  // namespace tessel::batch
