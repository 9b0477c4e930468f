#include "hosts/batch/MembersCommand.h"

#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>

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

}  // namespace

CLI::App* MembersCommand::Declare(CLI::App& program) {
  return DeclareListing(program, "members", "List the members of components");
}

int MembersCommand::Run(const Streams& streams) {
  const Delivery delivery;
  Report report(streams, Request, delivery, "listed");
  JsonText all = JsonText::array();
  ForEachComponent(Request, report, streams.Out, [&](const ComponentRef& one) {
    const Members members = MembersOf(one);
    if (Json) {
      all.push_back(ComponentJson(one, members));
    } else {
      Print(streams.Out, one, members);
    }
  });
  if (Json) PrintJson(streams.Out, all);
  return report.Exit();
}

}  // namespace tessel::batch
