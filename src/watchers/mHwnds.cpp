#include "watchers/mHwnds.h"

#include <functional>

#include "platform/Platform.h"

namespace tessel::mHwnds {
namespace {

using platform::WindowHandle;

platform::Windows& Windows() { return platform::Current().Windows(); }

bool IsLike(StringView text, StringView wanted) { return wanted == u"*" || text == wanted; }

/// The place of a window among the children of its parent, from 1 on.
int NumberOf(WindowHandle window) {
  const WindowHandle parent = Windows().Parent(window);
  int number = 1;
  for (WindowHandle child = Windows().Find(parent, 0, {}, {}); child != 0 && child != window;
       child = Windows().Find(parent, child, {}, {})) {
    ++number;
  }
  return number;
}

void CollectBelow(WindowHandle parent, const std::function<bool(WindowHandle)>& isWanted,
                  std::vector<WindowHandle>& found) {
  for (WindowHandle child = Windows().Find(parent, 0, {}, {}); child != 0;
       child = Windows().Find(parent, child, {}, {})) {
    if (isWanted(child)) found.push_back(child);
    CollectBelow(child, isWanted, found);
  }
}

}  // namespace

int FindWindowLike(std::vector<WindowHandle>& hWndArray, WindowHandle hWndStart,
                   StringView WindowText, StringView ClassName, std::optional<int> ID) {
  hWndArray.clear();
  const auto isWanted = [&](WindowHandle window) {
    return IsLike(Windows().Text(window), WindowText) &&
           IsLike(Windows().ClassName(window), ClassName) && (!ID || NumberOf(window) == *ID);
  };
  CollectBelow(hWndStart, isWanted, hWndArray);
  return static_cast<int>(hWndArray.size());
}

bool ReturnHWNDClassName(WindowHandle hWnd, StringView ClassName) {
  return Windows().ClassName(hWnd) == ClassName;
}

String GetFileNameProcesses(WindowHandle hWnd) {
  const String file = GetWTSProcessesName(hWnd);
  return file.substr(0, file.rfind(u'.'));
}

String GetWTSProcessesName(WindowHandle hWnd) { return Windows().ProcessName(hWnd); }

}  // namespace tessel::mHwnds
