#include "hosts/model/Component.h"

#include <utility>

#include "hosts/model/Project.h"
#include "hosts/model/Vbe.h"
#include "vb/Failure.h"

namespace tessel::model {

VBComponent::VBComponent(Hook hook, const std::shared_ptr<VBProject>& project,
                         host::vbext_ComponentType type, StringView name)
    : hook_(std::move(hook)), project_(project), type_(type), name_(name) {}

std::shared_ptr<Vbe> VBComponent::Environment() const {
  const auto project = project_.lock();
  return project ? project->Environment() : nullptr;
}

void VBComponent::AddModule(std::function<LineBuffer()> load) {
  module_ = std::make_shared<model::CodeModule>(hook_, shared_from_this(), std::move(load));
}

void VBComponent::AddDesigner(std::shared_ptr<DesignerTree> tree) {
  designer_ = std::make_shared<model::Designer>(hook_, shared_from_this(), std::move(tree));
}

String VBComponent::Name() {
  (*hook_)("VBComponent.Name");
  return name_;
}

void VBComponent::SetName(StringView name) {
  (*hook_)("VBComponent.Name");
  const auto project = project_.lock();
  if (!project) throw vb::RuntimeFailure(vb::ObjectNotSet);
  if (name_ == name) return;
  project->Components().CheckName(name, this);
  project->Components().Renamed(*this, name);
  name_ = name;
  if (designer_ && designer_->Tree().Root() != nullptr) {
    designer_->Tree().Rename(*designer_->Tree().Root(), name);
  }
  if (storage_) storage_->Renamed(*this);
  CaptionWindows();
  hook_->Tell(&Observer::ProjectsChanged);
  if (const auto vbe = Environment()) vbe->OwnWindows().ShowProperties();
}

void VBComponent::CaptionWindows() {
  if (designerWindow_) designerWindow_->SetCaption(name_);
  const auto pane = module_ ? module_->OpenPane() : nullptr;
  if (pane) pane->OwnWindow().SetCaption(CodePane::CaptionOf(*this));
}

host::vbext_ComponentType VBComponent::Type() {
  (*hook_)("VBComponent.Type");
  return type_;
}

std::shared_ptr<host::CodeModule> VBComponent::CodeModule() {
  (*hook_)("VBComponent.CodeModule");
  return module_;
}

std::shared_ptr<host::Designer> VBComponent::Designer() {
  (*hook_)("VBComponent.Designer");
  return designer_;
}

std::shared_ptr<host::VBE> VBComponent::VBE() {
  (*hook_)("VBComponent.VBE");
  return Environment();
}

std::shared_ptr<host::Properties> VBComponent::Properties() {
  (*hook_)("VBComponent.Properties");
  std::vector<model::Properties::Entry> entries;
  const auto self = shared_from_this();
  entries.push_back(
      {u"Name", [self] { return self->name_; }, [self](StringView v) { self->SetName(v); }});
  if (designer_ && designer_->Tree().Root() != nullptr) {
    AddBlockEntries(entries, designer_->SharedTree(), designer_->Tree().Root());
  }
  return std::make_shared<model::Properties>(hook_, std::move(entries));
}

void VBComponent::Activate() {
  (*hook_)("VBComponent.Activate");
  if (!designer_) {
    if (module_) module_->OwnPane()->Show();
    return;
  }
  DesignerWindow().SetVisible(true);
  if (const auto vbe = Environment()) vbe->Select(shared_from_this());
  hook_->Tell(&Observer::DesignerShown, *this);
}

Window& VBComponent::DesignerWindow() {
  if (designerWindow_) return *designerWindow_;
  const auto vbe = Environment();
  if (!vbe) throw vb::RuntimeFailure(vb::ObjectNotSet);
  const auto window = vbe->OwnWindows().Create(u"DesignerWindow", name_);
  designerWindow_ = window;
  window->Announce();
  // Who heard of it may have closed it.
  return designerWindow_ ? *designerWindow_ : DesignerWindow();
}

void VBComponent::MakeWindow() {
  if (designer_) {
    (void)DesignerWindow();
  } else if (module_) {
    (void)module_->OwnPane();
  }
}

void VBComponent::CloseDesigner() {
  if (const auto window = std::exchange(designerWindow_, nullptr)) window->Close();
}

std::vector<std::shared_ptr<Window>> VBComponent::TakeWindows() {
  std::vector<std::shared_ptr<Window>> windows;
  const auto vbe = Environment();
  if (module_ && vbe) windows.push_back(vbe->TakePane(*module_));
  windows.push_back(std::exchange(designerWindow_, nullptr));
  std::erase(windows, nullptr);
  return windows;
}

void VBComponent::SaveAs(StringView fileName) {
  (*hook_)("VBComponent.SaveAs");
  const auto project = project_.lock();
  if (!storage_ && project && project->Exporter) return project->Exporter(*this, fileName);
  if (!storage_) {
    throw vb::Failure(vb::PathFileAccess, u"This environment keeps no files: " + String(fileName),
                      u"VBIDE");
  }
  storage_->SaveAs(*this, fileName);
}

String VBComponent::FileName() {
  (*hook_)("VBComponent.FileName");
  return storage_ ? storage_->FileName() : String();
}

}  // namespace tessel::model
