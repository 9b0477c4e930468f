#include "hosts/batch/MembersCommand.h"

#include <iomanip>
#include <nlohmann/json.hpp>
#include <ostream>

#include "hosts/batch/BatchPlatform.h"
#include "hosts/batch/Components.h"
#include "scanning/mFunctions.h"

namespace tessel::batch {
namespace {

using Json = nlohmann::ordered_json;

Json MemberJson(const Member& member) {
  return {
      {"name", vb::ToUtf8(member.Name)},
      {"kind", member.Kind},
      {"name-and-type", vb::ToUtf8(member.Name + String(mFunctions::MemberKindToken(member.Kind)))},
      {"start-line", member.StartLine},
      {"body-line", member.BodyLine},
      {"count-lines", member.CountLines}};
}

Json ComponentJson(const ComponentRef& one, const MemberTable& table) {
  Json members = nullptr;
  if (table) {
    members = Json::array();
    for (const Member& member : *table) members.push_back(MemberJson(member));
  }
  return {{"project", vb::ToUtf8(one.Project)},
          {"component", vb::ToUtf8(one.Name)},
          {"file", one.File},
          {"members", members}};
}

void Print(std::ostream& out, const ComponentRef& one, const MemberTable& table) {
  out << vb::ToUtf8(one.Name) << "  " << one.File << '\n';
  if (!table) return;
  for (const Member& member : *table) {
    out << std::setw(8) << member.StartLine << std::setw(8) << member.BodyLine << std::setw(8)
        << member.CountLines << "  "
        << vb::ToUtf8(member.Name + String(mFunctions::MemberKindToken(member.Kind))) << '\n';
  }
}

}  // namespace

int RunMembers(const std::vector<std::string>& files, bool json, int codePage, std::ostream& out,
               std::ostream& err) {
  BatchPlatform services(4);
  const platform::ScopedPlatform scope(services);
  Json all = Json::array();
  int exit = 0;
  for (const std::string& file : files) {
    try {
      workspace::Workspace environment(services, {codePage, true});
      environment.Open(file);
      for (const vb::Failure& problem : environment.Problems()) {
        err << "tessel: " << problem.what() << '\n';
        exit = 2;
      }
      for (const ComponentRef& one : ComponentsOf(*environment.VBE())) {
        const MemberTable table = mFunctions::AllNameProcedures(one.Module, u"");
        if (json) {
          all.push_back(ComponentJson(one, table));
        } else {
          Print(out, one, table);
        }
      }
    } catch (const std::exception& failure) {
      err << "tessel: " << failure.what() << '\n';
      exit = 2;
    }
  }
  if (json) out << all.dump(2) << '\n';
  return exit;
}

}  // namespace tessel::batch
