// The `tessel` command: it only reads the command line and hands on.

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "hosts/batch/FormatCommand.h"
#include "hosts/batch/FormatOptions.h"
#include "hosts/batch/HandlersCommand.h"
#include "hosts/batch/MembersCommand.h"
#include "hosts/batch/NewCommand.h"
#include "hosts/batch/SchemesCommand.h"
#include "hosts/drive/Session.h"
#include "hosts/linux/LinuxApp.h"
#include "hosts/linux/SqliteRegistry.h"

namespace {

using namespace tessel;

void AddFormat(CLI::App& app, batch::FormatRequest& request) {
  auto* format =
      app.add_subcommand("format", "Format projects, groups, component files or a module");
  format->add_option("files", request.Files, ".vbp, .vbg, component files, or - for standard input")
      ->required();
  format->add_flag("--check", request.Check, "write nothing; exit 1 when something would change");
  format->add_flag("--diff", request.Diff, "write nothing; print what would change");
  format->add_flag("--force", request.Force, "write also what changes more than layout");
  format->add_flag("--print-config", request.PrintConfig, "print the options in force and stop");
  format->add_option("--config", request.Config, "read options from this file instead of .tessel");
  format->add_option("--component", request.Components, "only this component (repeatable)");
  format->add_option("--jobs", request.Jobs, "components formatted side by side")
      ->check(CLI::Range(1, 256));
  format->add_option("--code-page", request.CodePage, "code page of the files; guessed without it");
  format->add_option("--data", request.Data, "take the format rules of this program's directory");
  for (const batch::OptionRow& row : batch::OptionTable()) {
    format->add_option_function<std::string>(
        std::string("--") + row.Name,
        [&request, &row](const std::string& value) {
          batch::FormatOptions checked;
          try {
            batch::SetOption(checked, row, value);
          } catch (const vb::Failure& failure) {
            throw CLI::ValidationError(failure.what());
          }
          request.Overrides.emplace_back(row.Name, value);
        },
        row.Help);
  }
}

struct MembersRequest {
  std::vector<std::string> Files;
  bool Json = false;
  int CodePage = 0;
};

void AddMembers(CLI::App& app, MembersRequest& request) {
  auto* members = app.add_subcommand("members", "List the members of components");
  members->add_option("files", request.Files, ".vbp, .vbg or component files")->required();
  members->add_flag("--json", request.Json, "one JSON document");
  members->add_option("--code-page", request.CodePage, "code page of the files");
}

void AddHandlersRun(CLI::App& command, batch::HandlersRequest& request) {
  command.add_option("files", request.Files, ".vbp, .vbg or component files")->required();
  auto* const component =
      command.add_option("--component", request.Components, "only this component (repeatable)");
  command.add_option("--member", request.Member, "only this member of the component")
      ->needs(component);
  auto* const check = command.add_flag("--check", request.Check,
                                       "write nothing; exit 1 when something would change");
  command.add_flag("--diff", request.Diff, "write nothing; print what would change")
      ->excludes(check);
  command.add_flag("--keep-going", request.KeepGoing,
                   "write the components that went well though others failed");
  command.add_option("--code-page", request.CodePage, "code page of the files; guessed without it");
  command.add_option("--data", request.Data, "take the schemes of this program's directory");
}

void AddHandlers(CLI::App& app, batch::HandlersRequest& request) {
  auto* const handlers = app.add_subcommand("handlers", "Put error handlers in or take them out");
  handlers->require_subcommand(1);
  auto* const insert =
      handlers->add_subcommand("insert", "Give members the error handler of a scheme");
  insert->add_option("--scheme", request.Scheme, "the scheme, see tessel schemes list")->required();
  insert->add_option("--module-scheme", request.ModuleScheme, "for modules and classes");
  insert->add_option("--form-scheme", request.FormScheme, "for forms");
  insert->add_option("--activex-scheme", request.ActiveXScheme, "for ActiveX designers");
  AddHandlersRun(*insert, request);
  auto* const remove = handlers->add_subcommand("remove", "Take error handlers out again");
  AddHandlersRun(*remove, request);
  remove->callback([&request] { request.Remove = true; });
}

void AddSchemes(CLI::App& app, batch::SchemesRequest& request) {
  using batch::SchemesVerb;
  auto* const schemes = app.add_subcommand("schemes", "Error-handler schemes as text files");
  schemes->require_subcommand(1);
  const auto add = [&](const char* name, const char* what, SchemesVerb verb) {
    auto* const command = schemes->add_subcommand(name, what);
    command->add_option("--data", request.Data, "the program's directory");
    command->callback([&request, verb] { request.Verb = verb; });
    return command;
  };
  add("list", "Name all schemes", SchemesVerb::List);
  add("show", "Print a scheme", SchemesVerb::Show)
      ->add_option("name", request.Name, "the scheme")
      ->required();
  auto* const exported =
      add("export", "Write a scheme, or all, to a folder, one file each", SchemesVerb::Export);
  auto* const all = exported->add_flag("--all")->description("every scheme");
  // The words are NAME DIR, or DIR alone behind --all.
  const auto words = std::make_shared<std::vector<std::string>>();
  exported->add_option("words", *words, "NAME DIR, or DIR with --all")->expected(1, 2)->required();
  exported->callback([&request, all, words] {
    request.Verb = SchemesVerb::Export;
    if (words->size() != (all->count() > 0 ? 1U : 2U)) {
      throw CLI::ValidationError("export takes NAME DIR, or --all DIR");
    }
    request.Folder = words->back();
    if (words->size() == 2) request.Name = words->front();
  });
  auto* const import = add("import", "Read schemes from files, all or none", SchemesVerb::Import);
  import->add_option("files", request.Files, "files that export wrote")->required();
  import->add_flag("--replace", request.Replace, "also over schemes of the same name");
}

struct DriveRequest {
  std::string Data = linux_host::DefaultDataDirectory().string();
  std::string Registry = linux_host::DefaultSettingsFile().string();
  std::string Clock = "virtual";
};

void AddDrive(CLI::App& app, DriveRequest& request) {
  auto* drive = app.add_subcommand("drive", "Run the add-in headless, one JSON request a line");
  drive->add_option("--data", request.Data, "the program's directory");
  drive->add_option("--registry", request.Registry, "the settings file");
  drive->add_option("--clock", request.Clock, "virtual or real")
      ->check(CLI::IsMember({"virtual", "real"}));
}

int RunDrive(const DriveRequest& request) {
  // A settings file that can't be used is told at once, by its name.
  static_cast<void>(linux_host::SqliteRegistry(request.Registry)
                        .ValueNames(platform::RootKey::CurrentUser, u"Software"));
  std::ios::sync_with_stdio(false);
  drive::Session session({request.Data, request.Registry, request.Clock == "real"}, std::cin,
                         std::cout);
  session.Run();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Tools for Visual Basic 6 code"};
  app.set_version_flag("--version", "tessel 1.0.0");
  app.require_subcommand(1);
  batch::FormatRequest format;
  MembersRequest members;
  batch::HandlersRequest handlers;
  batch::SchemesRequest schemes;
  batch::NewRequest making;
  DriveRequest driving;
  AddFormat(app, format);
  AddMembers(app, members);
  AddHandlers(app, handlers);
  AddSchemes(app, schemes);
  batch::AddNew(app, making);
  AddDrive(app, driving);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : batch::FormatFailed;
  }
  try {
    if (app.got_subcommand("format"))
      return batch::RunFormat(format, std::cin, std::cout, std::cerr);
    if (app.got_subcommand("members")) {
      return batch::RunMembers(members.Files, members.Json, members.CodePage, std::cout, std::cerr);
    }
    if (app.got_subcommand("handlers")) {
      return batch::RunHandlersCommand(handlers, std::cout, std::cerr);
    }
    if (app.got_subcommand("schemes")) return batch::RunSchemes(schemes, std::cout, std::cerr);
    if (app.got_subcommand("new")) return batch::RunNew(making, std::cin, std::cout, std::cerr);
    return RunDrive(driving);
  } catch (const std::exception& failure) {
    std::cerr << "tessel: " << failure.what() << '\n';
    return batch::FormatFailed;
  }
}
