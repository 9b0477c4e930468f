// Projects and their components.

#include "hosts/drive/Fields.h"
#include "hosts/drive/Session.h"
#include "hosts/drive/TypeNames.h"

namespace tessel::drive {
namespace {

using host::VBComponent;
using host::VBProject;

std::filesystem::path PathOf(const String& text) { return std::filesystem::path(text); }

std::string PathText(const std::filesystem::path& path) { return Utf8(path.u16string()); }

Json Open(Session& session, const Json& request) {
  session.Environment().Open(PathOf(TextField(request, "file")));
  return {};
}

Json NewProject(Session& session, const Json& request) {
  const auto type =
      request.contains("type") ? ProjectTypeField(request, "type") : host::vbext_pt_StandardExe;
  session.Environment().NewProject(TextField(request, "name"), type);
  return {};
}

Json ActivateProject(Session& session, const Json& request) {
  session.Environment().ActivateProject(TextField(request, "project"));
  return {};
}

Json RemoveProject(Session& session, const Json& request) {
  session.Environment().RemoveProject(TextField(request, "project"));
  return {};
}

Json AddComponent(Session& session, const Json& request) {
  const auto component = session.Environment().AddComponent(
      TextField(request, "project", u""), ComponentTypeField(request, "type"),
      TextField(request, "name"), TextField(request, "text", u""));
  return {{"name", Utf8(component->Name())}};
}

Json RemoveComponent(Session& session, const Json& request) {
  const String name =
      request.contains("component") ? TextField(request, "component") : TextField(request, "name");
  session.Environment().RemoveComponent(TextField(request, "project", u""), name);
  return {};
}

Json RenameComponent(Session& session, const Json& request) {
  const String name =
      request.contains("component") ? TextField(request, "component") : TextField(request, "name");
  session.Environment().RenameComponent(TextField(request, "project", u""), name,
                                        TextField(request, "new-name"));
  return {};
}

Json ComponentJson(VBComponent& component) {
  return {{"name", Utf8(component.Name())},
          {"type", static_cast<int>(component.Type())},
          {"file", Utf8(component.FileName())}};
}

Json ProjectJson(VBProject& project) {
  Json components = Json::array();
  const auto all = project.VBComponents();
  for (int index = 1; index <= all->Count(); ++index) {
    components.push_back(ComponentJson(*all->Item(index)));
  }
  return {{"name", Utf8(project.Name())},
          {"type", static_cast<int>(project.Type())},
          {"file", Utf8(project.FileName())},
          {"components", components}};
}

Json Projects(Session& session, const Json&) {
  Json projects = Json::array();
  const auto all = session.Environment().VBE()->VBProjects();
  for (int index = 1; index <= all->Count(); ++index) {
    projects.push_back(ProjectJson(*all->Item(index)));
  }
  return {{"projects", projects}};
}

Json Save(Session& session, const Json&) {
  Json files = Json::array();
  for (const auto& file : session.Environment().Save()) files.push_back(PathText(file));
  return {{"files", files}};
}

}  // namespace

const VerbTable& ProjectVerbs() {
  static const VerbTable table{{"open", Open},
                               {"new-project", NewProject},
                               {"activate-project", ActivateProject},
                               {"remove-project", RemoveProject},
                               {"close-project", RemoveProject},
                               {"add-component", AddComponent},
                               {"remove-component", RemoveComponent},
                               {"rename-component", RenameComponent},
                               {"projects", Projects},
                               {"save", Save}};
  return table;
}

}  // namespace tessel::drive
