#include "hosts/model/Windows.h"

#include <utility>

#include "forms/Document.h"
#include "vb/Failure.h"

namespace tessel::model {

Window::Window(Hook hook, std::shared_ptr<WindowTable> table, std::intptr_t handle)
    : hook_(std::move(hook)), table_(std::move(table)), handle_(handle) {}

Window::~Window() {
  try {
    table_->Destroy(handle_);
    hook_->Tell(&Observer::ToolWindowsChanged);
  } catch (...) {  // whoever listens to windows keeps none from going
  }
}

bool Window::Visible() {
  (*hook_)("Window.Visible");
  return table_->IsVisible(handle_);
}

void Window::SetVisible(bool value) {
  (*hook_)("Window.Visible");
  if (table_->IsVisible(handle_) == value) return;
  table_->SetVisible(handle_, value);
  if (const auto changed = VisibleChanged) changed(value);
}

String Window::Caption() {
  (*hook_)("Window.Caption");
  return table_->Text(handle_);
}

std::intptr_t Window::HWnd() {
  (*hook_)("Window.HWnd");
  return handle_;
}

void Window::Close() { table_->Destroy(handle_); }

Windows::Windows(Hook hook) : hook_(std::move(hook)), table_(std::make_shared<WindowTable>(hook_)) {
  main_ = CreateBelow(u"wndclass_desked_gsk", u"Microsoft Visual Basic [design]", 0);
  client_ = CreateBelow(u"MDIClient", u"", main_->Handle());
  project_ = CreateBelow(u"PROJECT", u"Project", main_->Handle());
  properties_ = CreateBelow(u"wndclass_pbrs", u"Properties", main_->Handle());
  for (const auto& window : {main_, client_, project_, properties_}) window->SetVisible(true);
}

host::ToolWindow Windows::CreateToolWindow(const host::DocumentFactory& documents,
                                           StringView progId, StringView caption,
                                           StringView guidPosition) {
  (*hook_)("Windows.CreateToolWindow");
  if (progId.empty() || guidPosition.empty()) throw vb::RuntimeFailure(vb::InvalidCall);
  auto document = documents ? documents(progId) : nullptr;
  auto window = Create(u"VBFloatingPalette", caption);
  // The window outlives nobody: whoever holds it holds the document.
  window->VisibleChanged = [document, hook = hook_](bool visible) {
    hook->Tell(&Observer::ToolWindowsChanged);
    if (!document) return;
    if (visible) {
      document->Show();
    } else {
      document->Hide();
    }
  };
  if (document) document->Initialize();
  std::erase_if(toolWindows_, [](const ToolWindow& one) { return one.Frame.expired(); });
  toolWindows_.push_back({window, document, String(guidPosition)});
  hook_->Tell(&Observer::ToolWindowsChanged);
  window->Announce();
  return {std::move(window), std::move(document)};
}

std::shared_ptr<Window> Windows::Create(StringView className, StringView caption) {
  return CreateBelow(className, caption, client_->Handle());
}

std::shared_ptr<Window> Windows::CreateBelow(StringView className, StringView caption,
                                             std::intptr_t parent) {
  return std::make_shared<Window>(hook_, table_, table_->CreateUntold(className, caption, parent));
}

Windows::OneTurn::~OneTurn() {
  if (--windows_.waiting_ > 0 || !std::exchange(windows_.turns_, false)) return;
  try {
    windows_.ShowProperties();
  } catch (...) {  // whoever listens to windows keeps no operation from its end
  }
}

void Windows::ShowProperties() {
  if (waiting_ > 0) {
    turns_ = true;
    return;
  }
  const auto field = table_->Create(u"Edit", {}, client_->Handle());
  table_->Destroy(field);
}

std::vector<ToolWindow> Windows::ToolWindows() const {
  std::vector<ToolWindow> held;
  for (const ToolWindow& one : toolWindows_) {
    if (!one.Frame.expired()) held.push_back(one);
  }
  return held;
}

}  // namespace tessel::model
