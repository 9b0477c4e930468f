#include "hosts/model/UserInput.h"

namespace tessel::model {
namespace {

using platform::WindowHandle;
using platform::WindowMessage;

constexpr std::intptr_t FromAccelerator = 1 << 16;  // in the high word

WindowMessage ButtonDownBelow(WindowHandle window) {
  return {window, platform::WM_ParentNotify, platform::WM_LButtonDown};
}

}  // namespace

void ButtonDown(WindowTable& windows, WindowHandle window) {
  windows.Post({ButtonDownBelow(windows.Parent(window)), {window, platform::WM_LButtonDown}});
}

void ButtonUp(WindowTable& windows, WindowHandle window) {
  windows.Post({{window, platform::WM_LButtonUp}});
}

void Click(WindowTable& windows, WindowHandle window) {
  ButtonDown(windows, window);
  ButtonUp(windows, window);
}

void ClickChild(WindowTable& windows, WindowHandle window) {
  windows.Post({ButtonDownBelow(windows.Parent(window)), ButtonDownBelow(window)});
}

void Key(WindowTable& windows, WindowHandle window) {
  windows.Post({{window, platform::WM_KeyUp}});
}

void Accelerator(WindowTable& windows, WindowHandle window) {
  windows.Post({{window, platform::WM_Command, FromAccelerator}});
}

}  // namespace tessel::model
