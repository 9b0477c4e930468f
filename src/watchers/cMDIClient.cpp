#include "watchers/cMDIClient.h"

#include "platform/Platform.h"
#include "scanning/mFunctions.h"
#include "watchers/Notices.h"
#include "watchers/cVbaWindows.h"
#include "watchers/mHwnds.h"

namespace tessel {
namespace {

/// Classes of children that are watched.
constexpr StringView Watched[] = {u"VbaWindow", u"DesignerWindow"};

}  // namespace

void cMDIClient::Start(const std::shared_ptr<host::VBE>& VBInstance) {
  Routine(u"cMDIClient.Start", [&](const Statements& run) {
    const auto window = run([&] { return Need(VBInstance).MainWindow(); });
    const platform::WindowHandle main = run([&] { return window ? window->HWnd() : 0; });
    if (main == 0) return;
    const platform::WindowHandle client =
        run([&] { return platform::Current().Windows().Find(main, 0, u"MDIClient", {}); });
    run([&] { Need(eventCODE_).SetNameGlobalProcesses(mHwnds::GetFileNameProcesses(main)); });
    for (const StringView className : Watched) {
      std::vector<platform::WindowHandle> children;
      mHwnds::FindWindowLike(children, client, u"*", className, std::nullopt);
      for (const platform::WindowHandle child : children) {
        if (child > 0) Watch(run, child, className);
      }
    }
    subclass_.Subclass(client, weak_from_this());
    subclass_.AddMsg(platform::WM_ParentNotify, cSubclass::After);
  });
}

void cMDIClient::UnSubClass() {
  Routine(u"cMDIClient.UnSubClass", [&] { subclass_.UnSubClass(); });
}

void cMDIClient::iSubclass_After(std::intptr_t&, platform::WindowHandle, std::uint32_t uMsg,
                                 std::intptr_t wParam, std::intptr_t lParam) {
  Routine(u"cMDIClient.iSubclass_After", [&](const Statements& run) {
    if (uMsg != platform::WM_ParentNotify) return;
    if (LowWord(wParam) == platform::WM_Create) Opened(run, lParam);
    if (LowWord(wParam) == platform::WM_Destroy) Closed(run, lParam);
  });
}

void cMDIClient::Opened(const Statements& run, platform::WindowHandle child) {
  for (const StringView className : Watched) {
    if (mHwnds::ReturnHWNDClassName(child, className)) return Watch(run, child, className);
  }
  // A held latch spares the reading of the option.
  if (!ExplorerStarted || !eventCODE_ || !eventCODE_->RunEventsProject()) return;
  if (run([] { return mFunctions::IncludeAutoPosition(); })) renewProject();
}

void cMDIClient::Watch(const Statements& run, platform::WindowHandle child, StringView className) {
  const String key = cVbaWindows::KeyOf(child);
  if (!gVbaWindows || gVbaWindows->Find(key)) return;
  const auto window = std::make_shared<cVbaWindow>();
  run([&] { gVbaWindows->Add(window, key); });
  window->SetEventCODE(eventCODE_);
  run([&] { window->Start(child, className); });
}

void cMDIClient::Closed(const Statements& run, platform::WindowHandle child) {
  const String key = cVbaWindows::KeyOf(child);
  const auto window = gVbaWindows ? gVbaWindows->Find(key) : nullptr;
  if (!window) return;
  run([&] { window->UnSubClass(); });
  // Events have run meanwhile.
  if (gVbaWindows && gVbaWindows->Find(key) == window) gVbaWindows->Remove(key);
}

void cMDIClient::renewProject() {
  Routine(u"cMDIClient.renewProject",
          [&](const Statements& run) { RenewProject(run, eventCODE_); });
}

}  // namespace tessel
