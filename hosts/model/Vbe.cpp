#include "hosts/model/Vbe.h"

#include <algorithm>

#include "vb/Failure.h"

namespace tessel::model {
namespace {

[[noreturn]] void Missing(StringView name) {
  throw vb::Failure(vb::SubscriptOutOfRange, u"There is no project \"" + String(name) + u"\"",
                    u"VBIDE");
}

}  // namespace

int VBProjects::Count() {
  (*hook_)("VBProjects.Count");
  return static_cast<int>(items_.size());
}

std::shared_ptr<host::VBProject> VBProjects::Item(int index) {
  (*hook_)("VBProjects.Item");
  if (index < 1 || index > static_cast<int>(items_.size())) Missing(vb::Str(index));
  return items_[static_cast<std::size_t>(index) - 1];
}

std::shared_ptr<host::VBProject> VBProjects::Item(StringView name) {
  (*hook_)("VBProjects.Item");
  auto found = Find(name);
  if (!found) Missing(name);
  return found;
}

std::shared_ptr<VBProject> VBProjects::Find(StringView name) const {
  for (const auto& project : items_) {
    if (vb::SameText(project->PlainName(), name)) return project;
  }
  return nullptr;
}

String VBProjects::FreeName() const {
  for (int number = 1;; ++number) {
    String name = u"Project" + vb::Str(number);
    if (!Find(name)) return name;
  }
}

std::shared_ptr<host::VBE> VBProjects::VBE() {
  (*hook_)("VBProjects.VBE");
  return vbe_->shared_from_this();
}

std::shared_ptr<host::VBE> VBProjects::Parent() {
  (*hook_)("VBProjects.Parent");
  return vbe_->shared_from_this();
}

Vbe::Vbe(platform::Platform& services)
    : hook_(std::make_shared<OperationHook>()),
      events_(std::make_shared<model::Events>(hook_)),
      windows_(std::make_shared<model::Windows>(hook_)),
      bars_(std::make_shared<model::CommandBars>(BarContext{hook_, &services, events_})),
      projects_(std::make_shared<model::VBProjects>(hook_, this)) {
  windows_->Table().ChildPressed = [this](std::intptr_t window) { DesignerPressed(window); };
}

/// Whoever holds a window holds the table.
Vbe::~Vbe() { windows_->Table().ChildPressed = nullptr; }

String Vbe::Version() {
  (*hook_)("VBE.Version");
  return u"6.00";
}

std::shared_ptr<host::VBProjects> Vbe::VBProjects() {
  (*hook_)("VBE.VBProjects");
  return {shared_from_this(), projects_.get()};
}

std::shared_ptr<host::CommandBars> Vbe::CommandBars() {
  (*hook_)("VBE.CommandBars");
  return bars_;
}

std::shared_ptr<host::Windows> Vbe::Windows() {
  (*hook_)("VBE.Windows");
  return windows_;
}

std::shared_ptr<host::Events> Vbe::Events() {
  (*hook_)("VBE.Events");
  return events_;
}

std::shared_ptr<host::VBProject> Vbe::ActiveVBProject() {
  (*hook_)("VBE.ActiveVBProject");
  return active_.lock();
}

std::shared_ptr<host::VBComponent> Vbe::SelectedVBComponent() {
  (*hook_)("VBE.SelectedVBComponent");
  return selected_.lock();
}

std::shared_ptr<host::Window> Vbe::MainWindow() {
  (*hook_)("VBE.MainWindow");
  return windows_->Main();
}

std::shared_ptr<host::CodePane> Vbe::ActiveCodePane() {
  (*hook_)("VBE.ActiveCodePane");
  return shown_.empty() ? nullptr : shown_.back();
}

void Vbe::BringToFront(const std::shared_ptr<CodePane>& pane) {
  pane->Reopen();
  std::erase(shown_, pane);
  shown_.push_back(pane);
  pane->OwnWindow().SetVisible(true);
  if (const auto component = pane->Module()->Component()) Select(component);
  hook_->Tell(&Observer::PaneShown, pane);
}

void Vbe::Activate(const std::shared_ptr<VBProject>& project) {
  if (active_.lock() == project) return;
  active_ = project;
  hook_->Tell(&Observer::ChoiceChanged);
}

void Vbe::Select(const std::shared_ptr<VBComponent>& component) {
  if (const auto project = component ? component->Project() : nullptr) Activate(project);
  if (selected_.lock() == component) return;
  selected_ = component;
  hook_->Tell(&Observer::ChoiceChanged);
}

/// A click on a form is one on its component.
void Vbe::DesignerPressed(std::intptr_t window) {
  for (const auto& project : projects_->All()) {
    for (const auto& component : project->Components().All()) {
      if (component->DesignerHandle() == window) return Select(component);
    }
  }
}

void Vbe::ClosePane(const CodeModule& module) {
  if (const auto window = TakePane(module)) window->Close();
}

std::shared_ptr<Window> Vbe::TakePane(const CodeModule& module) {
  const auto isOf = [&](const auto& pane) { return pane->Module().get() == &module; };
  hook_->Tell(&Observer::PaneClosed, module);
  const auto kept = std::find_if(kept_.begin(), kept_.end(), isOf);
  auto window = kept == kept_.end() ? nullptr : (*kept)->SharedWindow();
  std::erase_if(shown_, isOf);
  std::erase_if(kept_, isOf);
  return window;
}

}  // namespace tessel::model
