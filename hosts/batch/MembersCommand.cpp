#include "hosts/batch/MembersCommand.h"

#include <CLI/CLI.hpp>
#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>

#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/Report.h"
#include "hosts/drive/MemberJson.h"
#include "scanning/mFunctions.h"

namespace tessel::batch {
namespace {

using JsonText = nlohmann::ordered_json;
using Members = std::vector<Member>;

/// The names of the controls on a component's designer, in upper case.
std::set<String> ControlsOf(const ComponentRef& one) {
  std::set<String> names;
  for (const String& name :
       mFunctions::VBAArrayControlName(one.Module).value_or(std::vector<String>())) {
    names.insert(vb::UCase(name));
  }
  return names;
}

/// Each member of a module once. The table of the dialogs is another: it lists what the order of
/// its tests finds.
Members MembersOf(const ComponentRef& one) {
  const std::set<String> controls = ControlsOf(one);
  Members members;
  for (const auto& declared : one.Module->Index().Members()) {
    Member member{declared.Name, declared.Kind, declared.Lines.Start, declared.Lines.Body,
                  declared.Lines.Count};
    const std::size_t event = member.Name.rfind(u'_');
    if (member.Kind == host::vbext_pk_Proc && event != String::npos &&
        controls.contains(vb::UCase(StringView(member.Name).substr(0, event)))) {
      member.Kind = MemberKindControlEvent;
    }
    members.push_back(std::move(member));
  }
  return members;
}

JsonText ComponentJson(const ComponentRef& one, const Members& members) {
  JsonText list = nullptr;
  if (!members.empty()) {
    list = JsonText::array();
    for (const Member& member : members) list.push_back(drive::MemberJson(member));
  }
  return {{"project", vb::ToUtf8(one.Project)},
          {"component", vb::ToUtf8(one.Name)},
          {"file", one.File},
          {"members", list}};
}

void Print(std::ostream& out, const ComponentRef& one, const Members& members) {
  out << vb::ToUtf8(one.Name) << "  " << one.File << '\n';
  for (const Member& member : members) {
    out << std::setw(8) << member.StartLine << std::setw(8) << member.BodyLine << std::setw(8)
        << member.CountLines << "  " << vb::ToUtf8(drive::NameAndType(member)) << '\n';
  }
}

/// One run of the command.
class Listing {
 public:
  Listing(const Selection& request, bool json, const Streams& streams)
      : request_(request),
        json_(json),
        streams_(streams),
        report_(streams, request, delivery_, "listed"),
        exclusion_(request.Excludes) {}

  int Run() {
    const platform::ScopedPlatform scope(services_);
    for (const std::string& argument : request_.Files) {
      report_.Guard([&] {
        const auto inputs = InputsOf(argument, exclusion_);
        RequireComponents(services_, argument, inputs, request_);
        for (const std::string& file : inputs) report_.Guard([&] { File(file); });
      });
    }
    if (json_) {
      streams_.Out << all_.dump(2, ' ', false, JsonText::error_handler_t::replace) << '\n'
                   << std::flush;
    }
    return report_.Exit();
  }

 private:
  void File(const std::string& file) {
    OpenInput input(services_, file, request_, Purpose::Read);
    report_.Opened(input);
    for (const ComponentRef& one : input.Chosen()) {
      if (!seen_.Add(one)) continue;
      const Members members = MembersOf(one);
      if (json_) {
        all_.push_back(ComponentJson(one, members));
      } else {
        Print(streams_.Out, one, members);
      }
    }
    streams_.Out.flush();
  }

  const Selection& request_;
  bool json_;
  const Streams& streams_;
  BatchPlatform services_{4};
  Delivery delivery_;
  Report report_;
  Exclusion exclusion_;
  SeenFiles seen_;
  JsonText all_ = JsonText::array();
};

}  // namespace

CLI::App* MembersCommand::Declare(CLI::App& program) {
  auto* const members = program.add_subcommand("members", "List the members of components");
  AddSelection(*members, Request, "projects, groups, component files or folders");
  members->add_flag("--json", Json, "one JSON document");
  return members;
}

int MembersCommand::Run(const Streams& streams) { return Listing(Request, Json, streams).Run(); }

}  // namespace tessel::batch
