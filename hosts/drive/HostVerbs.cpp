// Everything that a person does in the development environment itself.

#include "hosts/drive/Fields.h"
#include "hosts/drive/Session.h"
#include "scanning/ModuleOf.h"
#include "scanning/mFunctions.h"

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
  const int type = IntField(request, "type", host::vbext_pt_StandardExe);
  if (type < host::vbext_pt_StandardExe || type > host::vbext_pt_ActiveXControl) {
    Refuse("field \"type\": no project type has the number " + std::to_string(type));
  }
  session.Environment().NewProject(TextField(request, "name"),
                                   static_cast<host::vbext_ProjectType>(type));
  return {};
}

Json AddComponent(Session& session, const Json& request) {
  const auto component = session.Environment().AddComponent(
      TextField(request, "project", u""),
      static_cast<host::vbext_ComponentType>(IntField(request, "type")), TextField(request, "name"),
      TextField(request, "text", u""));
  return {{"name", Utf8(component->Name())}};
}

/// Values of an object's fields as the property bag has them.
std::vector<std::pair<String, String>> PropertiesField(const Json& request) {
  std::vector<std::pair<String, String>> properties;
  if (!request.contains("properties")) return properties;
  for (const auto& [name, value] : ObjectField(request, "properties").items()) {
    properties.emplace_back(
        vb::FromUtf8(name),
        vb::FromUtf8(value.is_string() ? value.get<std::string>() : value.dump()));
  }
  return properties;
}

Json AddControl(Session& session, const Json& request) {
  const auto control =
      session.Environment().AddControl(TextField(request, "component"), TextField(request, "class"),
                                       TextField(request, "name"), PropertiesField(request));
  return {{"name", Utf8(control->ControlObjectName())}};
}

Json RenameControl(Session& session, const Json& request) {
  session.Environment().RenameControl(TextField(request, "component"), TextField(request, "name"),
                                      TextField(request, "new-name"),
                                      IntField(request, "index", -1));
  return {};
}

Json RemoveControl(Session& session, const Json& request) {
  session.Environment().RemoveControl(TextField(request, "component"), TextField(request, "name"),
                                      IntField(request, "index", -1));
  return {};
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

Json ActivateProject(Session& session, const Json& request) {
  session.Environment().ActivateProject(TextField(request, "project"));
  return {};
}

Json SelectComponent(Session& session, const Json& request) {
  session.Environment().SelectComponent(TextField(request, "component", u""));
  return {};
}

Json Text(Session& session, const Json& request) {
  return {{"text", Utf8(session.Environment().Text(TextField(request, "component")))}};
}

Json SetText(Session& session, const Json& request) {
  session.Environment().SetText(TextField(request, "component"), TextField(request, "text"));
  return {};
}

Json Caret(Session& session, const Json& request) {
  host::Selection selection;
  selection.StartLine = IntField(request, "line");
  selection.StartColumn = IntField(request, "column", 1);
  selection.EndLine = IntField(request, "end-line", selection.StartLine);
  selection.EndColumn = IntField(request, "end-column", selection.StartColumn);
  if (selection.StartLine < 1 || selection.EndLine < 1) Refuse("lines count from 1");
  if (selection.StartColumn < 1 || selection.EndColumn < 1) Refuse("columns count from 1");
  session.Environment().SetCaret(TextField(request, "component"), selection);
  return {};
}

Json ClosePane(Session& session, const Json& request) {
  session.Environment().ClosePane(TextField(request, "component"));
  return {};
}

Json Pane(Session& session, const Json&) {
  const auto pane = session.Environment().VBE()->ActiveCodePane();
  if (!pane) return {{"component", nullptr}, {"selection", nullptr}, {"top-line", nullptr}};
  const host::Selection at = pane->GetSelection();
  return {{"component", Utf8(pane->CodeModule()->Name())},
          {"selection",
           {{"line", at.StartLine},
            {"column", at.StartColumn},
            {"end-line", at.EndLine},
            {"end-column", at.EndColumn}}},
          {"top-line", pane->TopLine()}};
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

Json Members(Session& session, const Json& request) {
  const auto component = session.Environment().Component(TextField(request, "component"));
  const MemberTable table = mFunctions::AllNameProcedures(ModuleOf(component), u"");
  if (!table) return {{"members", nullptr}};
  Json members = Json::array();
  for (const Member& member : *table) {
    members.push_back(
        {{"name", Utf8(member.Name)},
         {"kind", member.Kind},
         {"name-and-type", Utf8(member.Name + String(mFunctions::MemberKindToken(member.Kind)))},
         {"start-line", member.StartLine},
         {"body-line", member.BodyLine},
         {"count-lines", member.CountLines}});
  }
  return {{"members", members}};
}

Json Save(Session& session, const Json&) {
  Json files = Json::array();
  for (const auto& file : session.Environment().Save()) files.push_back(PathText(file));
  return {{"files", files}};
}

Json Windows(Session& session, const Json&) {
  Json windows = Json::array();
  for (const auto& window : session.Environment().OpenWindows()) {
    windows.push_back({{"handle", window.Handle},
                       {"class", Utf8(window.Class)},
                       {"caption", Utf8(window.Caption)},
                       {"visible", window.Visible}});
  }
  return {{"windows", windows}};
}

}  // namespace

const VerbTable& HostVerbs() {
  static const VerbTable table{{"open", Open},
                               {"new-project", NewProject},
                               {"add-component", AddComponent},
                               {"add-control", AddControl},
                               {"rename-control", RenameControl},
                               {"remove-control", RemoveControl},
                               {"remove-component", RemoveComponent},
                               {"rename-component", RenameComponent},
                               {"activate-project", ActivateProject},
                               {"select-component", SelectComponent},
                               {"text", Text},
                               {"set-text", SetText},
                               {"caret", Caret},
                               {"close-pane", ClosePane},
                               {"pane", Pane},
                               {"projects", Projects},
                               {"members", Members},
                               {"save", Save},
                               {"windows", Windows}};
  return table;
}

}  // namespace tessel::drive
