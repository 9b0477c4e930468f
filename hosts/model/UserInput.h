// What a window hears when a user acts in it: these messages, and no others.
#pragma once

#include "hosts/model/WindowTable.h"

namespace tessel::model {

// A window that isn't there hears nothing.

/// The left button went down in the window itself; its parent is told as well.
void ButtonDown(WindowTable& windows, platform::WindowHandle window);
void ButtonUp(WindowTable& windows, platform::WindowHandle window);
/// Both, one behind the other.
void Click(WindowTable& windows, platform::WindowHandle window);
/// A click in a child of the window, such as a list above the code or a control on a form.
void ClickChild(WindowTable& windows, platform::WindowHandle window);
/// A key was pressed in the window and let go.
void Key(WindowTable& windows, platform::WindowHandle window);
/// A command of the environment was chosen by its key while the window was in front.
void Accelerator(WindowTable& windows, platform::WindowHandle window);

}  // namespace tessel::model
