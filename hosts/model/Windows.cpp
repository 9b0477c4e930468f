#include "hosts/model/Windows.h"

#include "vb/Failure.h"

namespace tessel::model {

Window::Window(Hook hook, std::intptr_t handle, StringView className, StringView caption)
    : hook_(std::move(hook)), info_{handle, String(className), String(caption), false} {}

bool Window::Visible() {
  (*hook_)("Window.Visible");
  return info_.Visible;
}

void Window::SetVisible(bool value) {
  (*hook_)("Window.Visible");
  info_.Visible = value;
}

String Window::Caption() {
  (*hook_)("Window.Caption");
  return info_.Caption;
}

std::intptr_t Window::HWnd() {
  (*hook_)("Window.HWnd");
  return info_.Handle;
}

Windows::Windows(Hook hook) : hook_(std::move(hook)) {
  main_ = Create(u"wndclass_desked_gsk", u"Microsoft Visual Basic [design]");
  client_ = Create(u"MDIClient", u"");
  project_ = Create(u"PROJECT", u"Project");
  properties_ = Create(u"wndclass_pbrs", u"Properties");
  for (const auto& window : {main_, client_, project_, properties_}) window->SetVisible(true);
}

std::shared_ptr<host::Window> Windows::CreateToolWindow(StringView progId, StringView caption,
                                                        StringView guidPosition) {
  (*hook_)("Windows.CreateToolWindow");
  if (progId.empty() || guidPosition.empty()) throw vb::RuntimeFailure(vb::InvalidCall);
  return Create(u"VBFloatingPalette", caption);
}

std::shared_ptr<Window> Windows::Create(StringView className, StringView caption) {
  auto window = std::make_shared<Window>(hook_, next_, className, caption);
  next_ += 0x10;
  std::erase_if(windows_, [](const auto& one) { return one.expired(); });
  windows_.push_back(window);
  return window;
}

std::vector<WindowInfo> Windows::All() const {
  std::vector<WindowInfo> all;
  for (const auto& weak : windows_) {
    if (const auto window = weak.lock()) all.push_back(window->Info());
  }
  return all;
}

}  // namespace tessel::model
