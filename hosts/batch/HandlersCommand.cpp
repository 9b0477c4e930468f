#include "hosts/batch/HandlersCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>

#include "errorhandlers/CSQLErrorHandler.h"
#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "hosts/batch/HandlersInput.h"
#include "hosts/batch/HandlersRun.h"
#include "hosts/batch/PersonalDatabase.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

[[noreturn]] void Fail(const String& why) { throw vb::Failure(vb::InvalidCall, why, u"Tessel"); }

/// The table's spelling of a scheme's name.
String Known(const std::vector<String>& names, const std::string& given) {
  String wanted = vb::FromUtf8(given);
  if (wanted == mInsertErrorHandlerCode::SkipScheme) return wanted;
  for (const String& name : names) {
    if (vb::SameText(name, wanted)) return name;
  }
  Fail(u"there is no scheme \"" + wanted +
       (names.empty() ? u"\"; the table holds fewer than two, which counts as none"
                      : u"\"; the schemes are \"" + vb::Join(names, u"\", \"") + u'"'));
}

HandlersOrder OrderOf(const HandlersRequest& request) {
  HandlersOrder order;
  order.Remove = request.Remove;
  for (const std::string& name : request.Components) order.Components.push_back(vb::FromUtf8(name));
  order.Member = vb::FromUtf8(request.Member);
  if (!order.Member.empty() && order.Components.size() != 1) {
    Fail(u"a member needs the one component that it is in (--component)");
  }
  if (request.Remove) return order;
  const auto names = CSQLErrorHandler().GetListNameError().value_or(std::vector<String>());
  const auto chosen = [&](const std::string& own) {
    return Known(names, own.empty() ? request.Scheme : own);
  };
  order.Scheme = chosen({});
  order.ModuleScheme = chosen(request.ModuleScheme);
  order.FormScheme = chosen(request.FormScheme);
  order.ActiveXScheme = chosen(request.ActiveXScheme);
  return order;
}

void RunAll(const HandlersRequest& request, Report& report) {
  HandlersPlatform services;
  const platform::ScopedPlatform scope(services);
  const SharedDatabase shared(OpenPersonal(SchemeData(request.Data)));
  const HandlersOrder order = OrderOf(request);
  const Exclusion exclusion(request.Excludes);
  SeenFiles seen;
  for (const std::string& argument : request.Files) {
    report.Guard([&] {
      const std::vector<std::string> inputs = InputsOf(argument, exclusion);
      if (inputs.size() > 1) RequireComponents(services, argument, inputs, request);
      for (const std::string& file : inputs) {
        report.Guard([&] {
          OpenInput input(services, file, request, PurposeOf(request));
          HandlersInput(request, order, input, report, seen).Run(/*alone=*/inputs.size() == 1);
        });
      }
    });
  }
}

void AddRun(CLI::App& command, HandlersRequest& request) {
  AddSelection(command, request, "projects, groups, component files or folders");
  command.add_option("--member", request.Member, "only this member of the component")
      ->needs(command.get_option("--component"));
  AddDelivery(command, request, "write also components that would mean something else");
  command.add_flag("--keep-going", request.KeepGoing,
                   "write the components that went well though others failed");
  command.add_option("--data", request.Data, "take the schemes of this program's directory")
      ->default_str("the user's, or the delivered ones");
}

}  // namespace

CLI::App* HandlersCommand::Declare(CLI::App& program) {
  auto* const handlers =
      program.add_subcommand("handlers", "Put error handlers in or take them out");
  handlers->require_subcommand(1);
  auto* const insert =
      handlers->add_subcommand("insert", "Give members the error handler of a scheme");
  insert->add_option("--scheme", Request.Scheme, "the scheme, see tessel schemes list")->required();
  insert->add_option("--module-scheme", Request.ModuleScheme, "for modules and classes")
      ->default_str("--scheme");
  insert->add_option("--form-scheme", Request.FormScheme, "for forms")->default_str("--scheme");
  insert->add_option("--activex-scheme", Request.ActiveXScheme, "for ActiveX designers")
      ->default_str("--scheme");
  AddRun(*insert, Request);
  auto* const remove = handlers->add_subcommand("remove", "Take error handlers out again");
  AddRun(*remove, Request);
  remove->callback([this] { Request.Remove = true; });
  return handlers;
}

int HandlersCommand::Run(const Streams& streams) {
  Report report(streams, Request, Request, "changed");
  report.Guard([&] { RunAll(Request, report); });
  report.Close();
  return report.Exit();
}

}  // namespace tessel::batch
