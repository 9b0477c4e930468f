// Finding and telling windows of the environment.
#pragma once

#include <optional>
#include <vector>

#include "platform/Windows.h"

namespace tessel::mHwnds {

/// Fills `hWndArray` with the windows below `hWndStart`, at any depth, that have the text, the
/// class and the number among their parent's children; "*" stands for any text or class, nothing
/// for any number. How many these are.
int FindWindowLike(std::vector<platform::WindowHandle>& hWndArray, platform::WindowHandle hWndStart,
                   StringView WindowText, StringView ClassName, std::optional<int> ID);
/// Whether a window is of the class.
[[nodiscard]] bool ReturnHWNDClassName(platform::WindowHandle hWnd, StringView ClassName);
/// Name of the program whose window it is, without its extension, e.g. "VB6".
[[nodiscard]] String GetFileNameProcesses(platform::WindowHandle hWnd);
/// The same as the system lists it, e.g. "VB6.EXE".
[[nodiscard]] String GetWTSProcessesName(platform::WindowHandle hWnd);

}  // namespace tessel::mHwnds
