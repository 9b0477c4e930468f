// Projects and their components.

#include "hosts/drive/Fields.h"
#include "hosts/drive/Session.h"
#include "hosts/drive/TypeNames.h"
#include "hosts/workspace/CodePages.h"
#include "hosts/workspace/Paths.h"

namespace tessel::drive {
namespace {

using host::VBComponent;
using host::VBProject;

std::filesystem::path PathOf(const String& text) { return std::filesystem::path(text); }

std::string PathText(const std::filesystem::path& path) { return Utf8(workspace::TextOf(path)); }

/// The field as a code page that files can be read with; 0 without one, which finds out.
int CodePageField(const Json& request) {
  const int page = IntField(request, "code-page", 0);
  if (page != 0 && !workspace::IsKnownCodePage(page)) {
    Refuse("field \"code-page\": there is no code page " + std::to_string(page));
  }
  return page;
}

Json ProblemJson(const workspace::Problem& problem) {
  const auto project = problem.Project.lock();
  return {{"file", PathText(problem.File)},
          {"project", project ? Json(Utf8(project->PlainName())) : Json(nullptr)},
          {"component", project ? Json(Utf8(problem.Component)) : Json(nullptr)},
          {"error", Utf8(problem.Description())}};
}

Json Open(Session& session, const Json& request) {
  const String file = TextField(request, "file");
  Json problems = Json::array(), notices = Json::array();
  for (const auto& problem : session.Environment().Open(PathOf(file), CodePageField(request))) {
    problems.push_back(ProblemJson(problem));
  }
  for (const String& notice : session.Environment().TakeNotices()) notices.push_back(Utf8(notice));
  return {{"problems", problems}, {"notices", notices}};
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

/// The project of that name; fails when there is none.
std::shared_ptr<model::VBProject> ProjectNamed(Session& session, const String& name) {
  return std::dynamic_pointer_cast<model::VBProject>(
      session.Environment().VBE()->VBProjects()->Item(name));
}

Json RemoveProject(Session& session, const Json& request) {
  session.Environment().Close(ProjectNamed(session, TextField(request, "project")));
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

Json FilesJson(const std::vector<std::filesystem::path>& written) {
  Json files = Json::array();
  for (const auto& file : written) files.push_back(PathText(file));
  return {{"files", files}};
}

bool MayOverwrite(const Json& request) {
  return request.contains("overwrite") && BoolField(request, "overwrite");
}

/// A file that another program has changed since it was read makes the whole save fail, unless it
/// may be overwritten.
Json Save(Session& session, const Json& request) {
  if (MayOverwrite(request)) {
    const auto projects = session.Environment().VBE()->VBProjects();
    for (int index = 1; index <= projects->Count(); ++index) {
      session.Environment().AcceptOutside(
          std::dynamic_pointer_cast<model::VBProject>(projects->Item(index)));
    }
  }
  return FilesJson(session.Environment().Save());
}

/// A component under another file, or a project that has none yet.
Json SaveAs(Session& session, const Json& request) {
  const auto file = PathOf(TextField(request, "file"));
  if (std::filesystem::exists(file) && !MayOverwrite(request)) {
    Refuse(PathText(file) + ": the file exists");
  }
  if (request.contains("component")) {
    session.Environment().SaveComponentAs(
        *session.Environment().Component(TextField(request, "component")), file);
    return FilesJson({file});
  }
  return FilesJson(session.Environment().SaveProjectAs(
      ProjectNamed(session, TextField(request, "project")), file));
}

Json Reload(Session& session, const Json& request) {
  session.Environment().Reload(*session.Environment().Component(TextField(request, "component")));
  return {};
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
                               {"save", Save},
                               {"save-as", SaveAs},
                               {"reload", Reload}};
  return table;
}

}  // namespace tessel::drive
