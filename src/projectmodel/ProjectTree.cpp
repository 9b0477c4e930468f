#include "projectmodel/ProjectTree.h"

#include "foundation/Routine.h"
#include "projectmodel/ProjectTables.h"
#include "scanning/ModuleOf.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

void EnterMember(cComponentes& component, const Member& row) {
  const vb::SharedText key = row.Name + String(mFunctions::MemberKindToken(row.Kind));
  cNameProcedures& member = *component.item(key);
  member.Name = row.Name;
  member.NameAndType = key;
  member.vbext = static_cast<std::int16_t>(row.Kind);
  member.ProcStartLine = row.StartLine;
  member.ProcBodyLine = row.BodyLine;
  member.ProcCountLines = row.CountLines;
}

}  // namespace

ProjectFiller::ProjectFiller(StringView hostName) : hostCode_(HostByName(hostName).Code) {}

void ProjectFiller::ProjectTree(const std::shared_ptr<host::VBE>& vbe,
                                std::shared_ptr<cProjecteses>& model) const {
  const auto projects = vbe ? vbe->VBProjects() : nullptr;
  if (!projects) return;
  model = std::make_shared<cProjecteses>();
  // A listener's messages may exchange the model while it is filled.
  const auto filled = model;
  for (int index = 1; index <= projects->Count(); ++index) {
    ProjectTree_Project(*filled, projects->Item(index));
  }
}

void ProjectFiller::ProjectTree_Project(cProjecteses& model,
                                        const std::shared_ptr<host::VBProject>& project) const {
  const String caption = EnterProject(model, project);
  if (!caption.empty()) ProjectTree_TypeComponent(model, caption, project);
}

String ProjectFiller::EnterProject(cProjecteses& model,
                                   const std::shared_ptr<host::VBProject>& project) {
  const ProjectTexts texts = ProjectCaption(project);
  if (texts.Caption.empty()) return {};
  cProjectes& entry = *model.item(texts.Caption);
  entry.VBProjectName = project->Name();
  entry.FullFileName = texts.FileName;
  entry.Protection = 0;
  entry.IcoProject = ProjectPicture(project->Type());
  return texts.Caption;
}

void ProjectFiller::EnterComponent(cProjecteses& model, StringView caption,
                                   const std::shared_ptr<host::VBComponent>& component) const {
  model.item(caption)->item(component->Type())->TypeExtendProject = hostCode_;
  ProjectTree_Component(model, caption, component);
}

void ProjectFiller::ProjectTree_TypeComponent(
    cProjecteses& model, StringView caption,
    const std::shared_ptr<host::VBProject>& project) const {
  const auto components = project->VBComponents();
  if (!components) return;
  if (OnProject) OnProject(components->Count());
  for (int index = 1; index <= components->Count(); ++index) {
    EnterComponent(model, caption, components->Item(index));
    if (OnComponent) OnComponent();
  }
}

void ProjectFiller::ProjectTree_Component(cProjecteses& model, StringView caption,
                                          const std::shared_ptr<host::VBComponent>& component) {
  if (caption.empty() || !component) return;
  std::shared_ptr<cComponentes> entry;
  ResumeNext(
      [&] { entry = model.item(caption)->item(component->Type())->item(component->Name()); });
  if (!entry) return;
  const auto code = ModuleOf(component);
  if (!code) return;
  ResumeNext([&] { entry->CountOfDeclarationLines = code->CountOfDeclarationLines(); });
  ResumeNext([&] { entry->CountOfLines = code->CountOfLines(); });
  ResumeNext([&] {
    const MemberTable members = mFunctions::AllNameProcedures(code, u"");
    if (!members) return;
    if (entry->Count() == 0) entry->Reserve(members->size());
    for (const Member& row : *members) EnterMember(*entry, row);
  });
}

}  // namespace tessel
