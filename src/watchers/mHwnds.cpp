#include "watchers/mHwnds.h"

#include "platform/Platform.h"

namespace tessel::mHwnds {
namespace {

using platform::WindowHandle;

platform::Windows& Windows() { return platform::Current().Windows(); }

bool IsLike(StringView text, StringView wanted) { return wanted == u"*" || text == wanted; }

}  // namespace

int FindWindowLike(std::vector<WindowHandle>& hWndArray, WindowHandle hWndStart,
                   StringView WindowText, StringView ClassName) {
  int found = 0;
  for (WindowHandle child = Windows().Find(hWndStart, 0, {}, {}); child != 0;
       child = Windows().Find(hWndStart, child, {}, {})) {
    if (IsLike(Windows().Text(child), WindowText) &&
        IsLike(Windows().ClassName(child), ClassName)) {
      hWndArray.push_back(child);
      ++found;
    }
    found += FindWindowLike(hWndArray, child, WindowText, ClassName);
  }
  return found;
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
