#include "hosts/model/Environment.h"

#include <algorithm>

#include "forms/Document.h"
#include "hosts/model/ControlText.h"
#include "hosts/model/UserInput.h"
#include "hosts/model/Vbe.h"
#include "vb/Failure.h"

namespace tessel::model {
namespace {

[[noreturn]] void Missing(StringView what, StringView name) {
  throw vb::Failure(vb::SubscriptOutOfRange,
                    u"There is no " + String(what) + u" \"" + String(name) + u"\"", u"VBIDE");
}

std::shared_ptr<VBProject> ProjectNamed(Vbe& vbe, StringView name) {
  auto project = name.empty() ? vbe.Active() : vbe.Projects().Find(name);
  if (!project && name.empty()) Missing(u"open project", u"");
  if (!project) Missing(u"project", name);
  return project;
}

std::shared_ptr<VBComponent> ComponentNamed(Vbe& vbe, StringView project, StringView name) {
  auto component = ProjectNamed(vbe, project)->Components().Find(name);
  if (!component) Missing(u"component", name);
  return component;
}

/// By name in the active project, else in any other.
std::shared_ptr<VBComponent> ComponentAnywhere(Vbe& vbe, StringView name) {
  if (const auto active = vbe.Active()) {
    if (auto component = active->Components().Find(name)) return component;
  }
  for (const auto& project : vbe.Projects().All()) {
    if (auto component = project->Components().Find(name)) return component;
  }
  Missing(u"component", name);
}

CodeModule& ModuleAnywhere(Vbe& vbe, StringView name) {
  const auto component = ComponentAnywhere(vbe, name);
  if (!component->Module()) Missing(u"code module in", name);
  return *component->Module();
}

using Values = std::vector<std::pair<String, String>>;

/// A new control shows its name, unless it is to show something else.
Values WithText(StringView className, StringView name, Values values) {
  const StringView property = TextPropertyOf(className);
  const auto isThat = [&](const auto& one) { return vb::SameText(one.first, property); };
  if (!property.empty() && std::none_of(values.begin(), values.end(), isThat)) {
    values.emplace_back(property, name);
  }
  return values;
}

constexpr StringView Menus[] = {u"&File",    u"&Edit",   u"&View",  u"&Project", u"F&ormat",
                                u"&Debug",   u"&Run",    u"Q&uery", u"D&iagram", u"&Tools",
                                u"&Add-Ins", u"&Window", u"&Help"};

struct AddingCommand {
  StringView Caption;
  host::vbext_ComponentType Type;
  StringView BaseName;  ///< empty: the type's own
};
/// The adding commands of the Project menu.
constexpr AddingCommand AddingCommands[] = {
    {u"Add &Form", host::vbext_ct_VBForm, u""},
    {u"Add MD&I Form", host::vbext_ct_VBMDIForm, u""},
    {u"Add &Module", host::vbext_ct_StdModule, u""},
    {u"Add &Class Module", host::vbext_ct_ClassModule, u""},
    {u"Add &User Control", host::vbext_ct_UserControl, u""},
    {u"Add Pr&operty Page", host::vbext_ct_PropPage, u""},
    {u"Add User &Document", host::vbext_ct_DocObject, u""},
    {u"Add &WebClass", host::vbext_ct_ActiveXDesigner, u"WebClass"},
    {u"Add Data &Report", host::vbext_ct_ActiveXDesigner, u"DataReport"},
    {u"Add &HTML Page", host::vbext_ct_ActiveXDesigner, u"DHTMLPage"},
    {u"Add Data &Environment", host::vbext_ct_ActiveXDesigner, u"DataEnvironment"}};

/// A project holds one MDI form; documents, web classes and HTML pages belong into servers.
bool CanAdd(Vbe& vbe, const AddingCommand& command) {
  const auto project = vbe.Active();
  if (!project) return false;
  const bool server = project->ProjectType == host::vbext_pt_ActiveXExe ||
                      project->ProjectType == host::vbext_pt_ActiveXDll;
  if (command.Type == host::vbext_ct_VBMDIForm) {
    for (const auto& component : project->Components().All()) {
      if (component->PlainType() == host::vbext_ct_VBMDIForm) return false;
    }
    return project->ProjectType != host::vbext_pt_ActiveXControl;
  }
  if (command.Type == host::vbext_ct_DocObject || command.BaseName == u"DHTMLPage") return server;
  if (command.BaseName == u"WebClass") return project->ProjectType == host::vbext_pt_ActiveXDll;
  return true;
}

void AddByMenu(Vbe& vbe, const AddingCommand& command) {
  const auto project = ProjectNamed(vbe, {});
  auto& components = project->Components();
  const String name = command.BaseName.empty() ? String() : components.FreeName(command.BaseName);
  const auto component = components.Make(command.Type, name);
  vbe.Select(component);
  components.Tell(component);
  // The environment's own doing, whoever pressed the command.
  const CallsOf environment(*vbe.OwnHook(), CallsOf::Environment);
  component->Activate();
}

void BuildMenuBar(const std::shared_ptr<Vbe>& vbe) {
  auto& menus = vbe->OwnBars().AddOwn(u"Menu Bar")->OwnControls();
  for (const StringView caption : Menus) {
    const auto menu = menus.AddOwn(host::msoControlPopup, caption);
    if (caption != u"&Project") continue;
    auto& items = dynamic_cast<CommandBarControls&>(*menu->Controls());
    // The bars belong to the environment: a strong reference here would keep it alive for ever.
    Vbe* const owner = vbe.get();
    for (const AddingCommand& command : AddingCommands) {
      const auto item = items.AddOwn(host::msoControlButton, command.Caption);
      item->IsUsable = [owner, &command] { return CanAdd(*owner, command); };
      item->Command = [owner, &command] { AddByMenu(*owner, command); };
    }
    const auto file = items.AddOwn(host::msoControlButton, u"&Add File...");
    file->IsUsable = [owner] { return owner->Active() && owner->Active()->Importer; };
  }
}

}  // namespace

Environment::Environment(platform::Platform& platform) : vbe_(std::make_shared<Vbe>(platform)) {
  BuildMenuBar(vbe_);
  Vbe* const owner = vbe_.get();
  auto& project = dynamic_cast<CommandBarControls&>(
      *vbe_->OwnBars().Item(u"Menu Bar")->Controls()->Item(u"Project")->Controls());
  auto& file = dynamic_cast<CommandBarControl&>(*project.Item(u"Add File..."));
  file.Command = [owner, &platform] {
    const auto chosen = platform.Boxes().FileDialog(
        {.Title = u"Add File",
         .Filter = u"VB Files (*.frm;*.ctl;*.pag;*.bas;*.cls;*.dob;*.dsr)|*.frm;*.ctl;*.pag;*.bas;"
                   u"*.cls;*.dob;*.dsr|All Files (*.*)|*.*"});
    if (!chosen.empty()) ProjectNamed(*owner, {})->Components().Import(chosen.front());
  };
}

Environment::~Environment() = default;

std::shared_ptr<host::VBE> Environment::VBE() const { return vbe_; }

std::shared_ptr<host::VBProject> Environment::NewProject(StringView name,
                                                         host::vbext_ProjectType type) {
  if (name.empty()) return NewProject(vbe_->Projects().FreeName(), type);
  if (!IsName(name)) {
    throw vb::Failure(vb::InvalidCall, u"\"" + String(name) + u"\" is not a valid name", u"VBIDE");
  }
  if (vbe_->Projects().Find(name)) {
    throw vb::Failure(vb::InvalidCall, u"There is a project \"" + String(name) + u"\" already",
                      u"VBIDE");
  }
  auto project = std::make_shared<VBProject>(vbe_->OwnHook(), vbe_, name, type);
  ProjectMade(*project);
  vbe_->Projects().All().push_back(project);
  vbe_->OwnHook()->Tell(&Observer::ProjectsChanged);
  vbe_->Activate(project);
  vbe_->OwnEvents().ProjectAdded(project);
  vbe_->OwnWindows().ShowProperties();
  return project;
}

void Environment::RemoveProject(StringView name) { RemoveProject(ProjectNamed(*vbe_, name)); }

void Environment::RemoveProject(const std::shared_ptr<VBProject>& project) {
  std::vector<std::shared_ptr<Window>> windows;
  for (const auto& component : project->Components().All()) {
    const auto more = component->TakeWindows();
    windows.insert(windows.end(), more.begin(), more.end());
  }
  auto& all = vbe_->Projects().All();
  std::erase(all, project);
  if (const auto selected = vbe_->Selected(); selected && selected->Project() == project) {
    vbe_->Select(nullptr);
  }
  vbe_->OwnHook()->Tell(&Observer::ProjectsChanged);
  if (vbe_->Active() == project) vbe_->Activate(all.empty() ? nullptr : all.front());
  for (const auto& window : windows) window->Close();
  if (windows.empty()) vbe_->OwnWindows().ShowProperties();
}

void Environment::ActivateProject(StringView name) {
  const auto project = ProjectNamed(*vbe_, name);
  if (vbe_->Active() == project) return;
  vbe_->Activate(project);
  vbe_->OwnWindows().ShowProperties();
}

std::shared_ptr<host::VBComponent> Environment::AddComponent(StringView project,
                                                             host::vbext_ComponentType type,
                                                             StringView name, StringView text) {
  return AddComponent(ProjectNamed(*vbe_, project), type, name, text);
}

std::shared_ptr<host::VBComponent> Environment::AddComponent(
    const std::shared_ptr<VBProject>& project, host::vbext_ComponentType type, StringView name,
    StringView text) {
  auto component = project->Components().Make(type, name);
  if (!text.empty()) SetText(*component->Module(), text);
  vbe_->Select(component);
  project->Components().Tell(component);
  return component;
}

void Environment::RemoveComponent(StringView project, StringView name) {
  RemoveComponent(project.empty() ? ComponentAnywhere(*vbe_, name)
                                  : ComponentNamed(*vbe_, project, name));
}

void Environment::RemoveComponent(const std::shared_ptr<VBComponent>& component) {
  component->Project()->Components().TakeOut(component);
}

void Environment::RenameComponent(StringView project, StringView name, StringView newName) {
  const auto component =
      project.empty() ? ComponentAnywhere(*vbe_, name) : ComponentNamed(*vbe_, project, name);
  component->SetName(newName);
}

void Environment::SelectComponent(StringView name) {
  const auto component = name.empty() ? nullptr : ComponentAnywhere(*vbe_, name);
  if (vbe_->Selected() == component) return;
  vbe_->Select(component);
  vbe_->OwnWindows().ShowProperties();
}

std::shared_ptr<host::VBComponent> Environment::Component(StringView name) const {
  return ComponentAnywhere(*vbe_, name);
}

std::shared_ptr<host::VBControl> Environment::AddControl(
    StringView component, StringView className, StringView name,
    const std::vector<std::pair<String, String>>& properties) {
  const auto designer = TurnToDesigner(component);
  auto control = designer->AddControl(className, name, WithText(className, name, properties));
  ClickDesigner(*designer);
  return control;
}

/// Ahead of what is done there: who hears of that asks for the active project.
std::shared_ptr<Designer> Environment::TurnToDesigner(StringView component) {
  const auto owner = ComponentAnywhere(*vbe_, component);
  if (!owner->OwnDesigner()) Missing(u"designer of", component);
  vbe_->Select(owner);
  return owner->OwnDesigner();
}

/// Who works on a form has its designer open and clicks in it.
void Environment::ClickDesigner(const Designer& designer) {
  const auto owner = designer.Component();
  if (!owner || !owner->Project()) return;
  owner->MakeWindow();
  ClickChild(OwnWindows(), owner->DesignerHandle());
}

void Environment::RenameControl(StringView component, StringView name, StringView newName,
                                int index) {
  const auto designer = TurnToDesigner(component);
  designer->RenameControl(designer->Find(name, index), newName);
  ClickDesigner(*designer);
}

void Environment::RemoveControl(StringView component, StringView name, int index) {
  const auto designer = TurnToDesigner(component);
  designer->TakeControl(*designer->Find(name, index)->Node());
  ClickDesigner(*designer);
}

String Environment::Text(StringView component) const {
  const LineBuffer& buffer = ModuleAnywhere(*vbe_, component).Buffer();
  return buffer.Count() == 0 ? String() : buffer.Text(1, buffer.Count());
}

void Environment::SetText(CodeModule& module, StringView text) {
  const int count = module.Buffer().Count();
  if (count > 0) module.DeleteLines(1, count);
  if (!text.empty()) module.InsertLines(1, text);
}

void Environment::SetText(StringView component, StringView text) {
  CodeModule& module = ModuleAnywhere(*vbe_, component);
  SetText(module, text);
  const auto pane = module.OpenPane();
  if (pane && pane->OwnWindow().IsVisible()) Key(OwnWindows(), pane->OwnWindow().Handle());
}

void Environment::SetCaret(StringView component, const host::Selection& selection) {
  const auto pane = ModuleAnywhere(*vbe_, component).OwnPane();
  vbe_->BringToFront(pane);
  pane->SetSelection(selection);
  OwnWindows().FocusMoved(pane->OwnWindow().Handle());
  Click(OwnWindows(), pane->OwnWindow().Handle());
}

void Environment::ToolHasEdited() { vbe_->OwnWindows().ShowProperties(); }

void Environment::ClosePane(StringView component) {
  vbe_->ClosePane(ModuleAnywhere(*vbe_, component));
}

std::vector<WindowInfo> Environment::OpenWindows() const { return vbe_->OwnWindows().All(); }

std::vector<std::shared_ptr<forms::Document>> Environment::OpenDocuments() const {
  std::vector<std::shared_ptr<forms::Document>> open;
  for (const ToolWindow& one : vbe_->OwnWindows().ToolWindows()) {
    auto document = one.Document.lock();
    if (document && document->Visible()) open.push_back(std::move(document));
  }
  return open;
}

WindowTable& Environment::OwnWindows() const { return vbe_->OwnWindows().Table(); }

void Environment::SetOperationHook(std::function<void(std::string_view)> hook) {
  vbe_->OwnHook()->Before = std::move(hook);
}

CallsOf Environment::WhoseCalls(CallsOf::Caller caller) const { return {*vbe_->OwnHook(), caller}; }

}  // namespace tessel::model
