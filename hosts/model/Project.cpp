#include "hosts/model/Project.h"

#include <algorithm>

#include "hosts/model/Vbe.h"
#include "vb/Failure.h"

namespace tessel::model {
namespace {

constexpr std::int32_t NameInUse = 32813;

/// What a new component of each type begins as.
struct Kind {
  host::vbext_ComponentType Type;
  StringView BaseName;
  StringView DesignerClass;  ///< empty: no designer
  StringView Properties;     ///< lines inside the outermost block
};
constexpr Kind Kinds[] = {
    {host::vbext_ct_StdModule, u"Module", u"", u""},
    {host::vbext_ct_ClassModule, u"Class", u"", u""},
    {host::vbext_ct_VBForm, u"Form", u"VB.Form",
     u"   ClientHeight    =   3090\r\n   ClientLeft      =   60\r\n   ClientTop       =   450\r\n"
     u"   ClientWidth     =   4680\r\n   LinkTopic       =   \"Form1\"\r\n   ScaleHeight     =   "
     u"3090\r\n   ScaleWidth      =   4680\r\n   StartUpPosition =   3  'Windows Default\r\n"},
    {host::vbext_ct_VBMDIForm, u"MDIForm", u"VB.MDIForm",
     u"   ClientHeight    =   3090\r\n   ClientLeft      =   165\r\n   ClientTop       =   "
     u"735\r\n   ClientWidth     =   4680\r\n   LinkTopic       =   \"MDIForm1\"\r\n"
     u"   StartUpPosition =   3  'Windows Default\r\n"},
    {host::vbext_ct_PropPage, u"PropertyPage", u"VB.PropertyPage",
     u"   ClientHeight    =   3600\r\n   ClientLeft      =   0\r\n   ClientTop       =   0\r\n"
     u"   ClientWidth     =   4800\r\n   PaletteMode     =   0  'Halftone\r\n   ScaleHeight     =  "
     u" "
     u"3600\r\n   ScaleWidth      =   4800\r\n"},
    {host::vbext_ct_UserControl, u"UserControl", u"VB.UserControl",
     u"   ClientHeight    =   3600\r\n   ClientLeft      =   0\r\n   ClientTop       =   0\r\n"
     u"   ClientWidth     =   4800\r\n   ScaleHeight     =   3600\r\n   ScaleWidth      =   "
     u"4800\r\n"},
    {host::vbext_ct_DocObject, u"UserDocument", u"VB.UserDocument",
     u"   ClientHeight    =   3600\r\n   ClientLeft      =   0\r\n   ClientTop       =   0\r\n"
     u"   ClientWidth     =   4800\r\n   HScrollSmallChange=   225\r\n   ScaleHeight     =   "
     u"3600\r\n   ScaleWidth      =   4800\r\n   VScrollSmallChange=   225\r\n"},
    {host::vbext_ct_ActiveXDesigner, u"DataReport", u"{78E93846-85FD-11D0-8487-00A0C90DC8A9}",
     u"   Caption         =   \"DataReport1\"\r\n"},
};

const Kind& KindOf(host::vbext_ComponentType type) {
  for (const Kind& kind : Kinds) {
    if (kind.Type == type) return kind;
  }
  throw vb::Failure(vb::InvalidCall,
                    u"A component of type " + vb::Str(static_cast<int>(type)) + u" can't be added",
                    u"VBIDE");
}

[[noreturn]] void Missing(StringView name) {
  throw vb::Failure(vb::SubscriptOutOfRange, u"There is no component \"" + String(name) + u"\"",
                    u"VBIDE");
}

}  // namespace

int VBComponents::Count() {
  (*hook_)("VBComponents.Count");
  return static_cast<int>(items_.size());
}

std::shared_ptr<host::VBComponent> VBComponents::Item(int index) {
  (*hook_)("VBComponents.Item");
  if (index < 1 || index > static_cast<int>(items_.size())) Missing(vb::Str(index));
  return items_[static_cast<std::size_t>(index) - 1];
}

std::shared_ptr<host::VBComponent> VBComponents::Item(StringView name) {
  (*hook_)("VBComponents.Item");
  auto found = Find(name);
  if (!found) Missing(name);
  return found;
}

std::shared_ptr<VBComponent> VBComponents::Find(StringView name) const {
  const auto found = byName_.find(vb::LCase(name));
  return found == byName_.end() ? nullptr : found->second;
}

void VBComponents::CheckName(StringView name, const VBComponent* except) const {
  if (!IsName(name)) {
    throw vb::Failure(NameInUse, u"\"" + String(name) + u"\" is not a valid name", u"VBIDE");
  }
  const auto other = Find(name);
  if ((other && other.get() != except) || vb::SameText(project_->PlainName(), name)) {
    throw vb::Failure(
        NameInUse,
        u"Name conflicts with existing module, project, or object library: " + String(name),
        u"VBIDE");
  }
}

void VBComponents::Renamed(VBComponent& component, StringView newName) {
  Forget(component);
  byName_[vb::LCase(newName)] = component.shared_from_this();
}

/// Its name goes to the next that has it.
void VBComponents::Forget(const VBComponent& component) {
  const auto named = byName_.find(vb::LCase(component.PlainName()));
  if (named == byName_.end() || named->second.get() != &component) return;
  const auto next = std::find_if(items_.begin(), items_.end(), [&](const auto& other) {
    return other.get() != &component && vb::SameText(other->PlainName(), component.PlainName());
  });
  if (next == items_.end()) {
    byName_.erase(named);
  } else {
    named->second = *next;
  }
}

String VBComponents::FreeName(StringView base) const {
  for (int number = 1;; ++number) {
    String name = String(base) + vb::Str(number);
    if (!Find(name) && !vb::SameText(project_->PlainName(), name)) return name;
  }
}

void VBComponents::Insert(const std::shared_ptr<VBComponent>& component) {
  items_.push_back(component);
  // Two files may say the same name; the first one answers to it.
  byName_.try_emplace(vb::LCase(component->PlainName()), component);
  hook_->Tell(&Observer::ProjectsChanged);
}

void VBComponents::Remove(const std::shared_ptr<host::VBComponent>& component) {
  (*hook_)("VBComponents.Remove");
  for (const auto& item : items_) {
    if (item == component) return TakeOut(std::shared_ptr(item));
  }
  throw vb::RuntimeFailure(vb::SubscriptOutOfRange);
}

void VBComponents::TakeOut(const std::shared_ptr<VBComponent>& component) {
  const auto windows = component->TakeWindows();
  std::erase(items_, component);
  Forget(*component);
  const auto vbe = project_->Environment();
  if (vbe && vbe->Selected() == component) vbe->Select(nullptr);
  hook_->Tell(&Observer::ProjectsChanged);
  if (project_->OnRemoved) project_->OnRemoved(component);
  for (const auto& window : windows) window->Close();
  // A window that closes is told of by itself.
  if (vbe && windows.empty()) vbe->OwnWindows().ShowProperties();
}

std::shared_ptr<VBComponent> VBComponents::Make(host::vbext_ComponentType type, StringView name) {
  const Kind& kind = KindOf(type);
  const String full = name.empty() ? FreeName(kind.BaseName) : String(name);
  CheckName(full, nullptr);
  auto component = std::make_shared<VBComponent>(hook_, project_->shared_from_this(), type, full);
  component->AddModule({});
  if (!kind.DesignerClass.empty()) {
    component->AddDesigner(std::make_shared<DesignerTree>(
        u"VERSION 5.00\r\nBegin " + String(kind.DesignerClass) + u" " + full + u" \r\n" +
        String(kind.Properties) + u"End\r\n"));
  }
  Insert(component);
  if (project_->OnAdded) project_->OnAdded(component);
  return component;
}

std::shared_ptr<host::VBComponent> VBComponents::Add(host::vbext_ComponentType type) {
  (*hook_)("VBComponents.Add");
  auto component = Make(type, {});
  Tell(component);
  return component;
}

std::shared_ptr<host::VBComponent> VBComponents::Import(StringView fileName) {
  (*hook_)("VBComponents.Import");
  if (!project_->Importer) {
    throw vb::Failure(vb::PathFileAccess, u"This environment keeps no files: " + String(fileName),
                      u"VBIDE");
  }
  auto component = project_->Importer(fileName);
  Tell(component);
  return component;
}

void VBComponents::Tell(const std::shared_ptr<VBComponent>& component) {
  const auto vbe = project_->Environment();
  if (!vbe) return;
  vbe->OwnEvents().ComponentAdded(component);
  // A handler may have taken it out again.
  if (std::count(items_.begin(), items_.end(), component) > 0) component->MakeWindow();
}

std::shared_ptr<host::VBE> VBComponents::VBE() {
  (*hook_)("VBComponents.VBE");
  return project_->Environment();
}

VBProject::VBProject(Hook hook, const std::shared_ptr<Vbe>& vbe, StringView name,
                     host::vbext_ProjectType type)
    : ProjectType(type),
      hook_(std::move(hook)),
      vbe_(vbe),
      name_(name),
      components_(std::make_shared<model::VBComponents>(hook_, this)) {}

String VBProject::Name() {
  (*hook_)("VBProject.Name");
  return name_;
}

String VBProject::FileName() {
  (*hook_)("VBProject.FileName");
  return File;
}

std::shared_ptr<host::VBE> VBProject::VBE() {
  (*hook_)("VBProject.VBE");
  return vbe_.lock();
}

host::vbext_ProjectType VBProject::Type() {
  (*hook_)("VBProject.Type");
  return ProjectType;
}

String VBProject::SourceText(std::string_view bytes) {
  return Decoder ? Decoder(bytes) : host::VBProject::SourceText(bytes);
}

std::optional<std::string> VBProject::SourceBytes(StringView text, std::size_t& at) {
  return Encoder ? Encoder(text, at) : host::VBProject::SourceBytes(text, at);
}

std::shared_ptr<host::VBComponents> VBProject::VBComponents() {
  (*hook_)("VBProject.VBComponents");
  // The collection lives in its project.
  return {shared_from_this(), components_.get()};
}

}  // namespace tessel::model
