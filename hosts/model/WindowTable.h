// The windows of an environment that has none of a window system.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "hosts/model/OperationHook.h"
#include "platform/Windows.h"

namespace tessel::model {

/// One window that the environment has open.
struct WindowInfo {
  std::intptr_t Handle = 0;
  String Class;  ///< "VbaWindow", "DesignerWindow", "wndclass_desked_gsk", ...
  String Caption;
  bool Visible = false;
  std::intptr_t Parent = 0;
};

/// Windows by their handles, in the order of their making. A window's own procedure tells of a
/// press in a child and answers 0; what else listens to it are the hooks.
class WindowTable : public platform::Windows {
 public:
  using Handle = platform::WindowHandle;

  /// The calls that callbacks make to `calls` are those of the add-in; nothing where nobody asks.
  explicit WindowTable(model::Hook calls = nullptr) : calls_(std::move(calls)) {}

  /// Makes a window and tells its parent.
  Handle Create(StringView className, StringView caption, Handle parent);
  /// Makes a window that its parent hears of by `TellCreated`, when the caller is ready for what
  /// that brings.
  Handle CreateUntold(StringView className, StringView caption, Handle parent);
  void TellCreated(Handle window);
  /// Tells the parent and forgets the window with its children and hooks.
  void Destroy(Handle window);
  void SetCaption(Handle window, StringView caption);
  void SetVisible(Handle window, bool visible);
  [[nodiscard]] bool IsVisible(Handle window) const;
  [[nodiscard]] std::vector<WindowInfo> All() const;
  /// Lets a message go through the hooks of its window to the own procedure and back; the answer. 0
  /// for a handle that is no window.
  std::intptr_t Send(const platform::WindowMessage& message);
  /// Sends messages whose answers nobody waits for, by `Deliver`. One to a window whose hook is
  /// being called waits for the end of that call, where it would pass the hook by.
  void Post(std::vector<platform::WindowMessage> messages);

  /// How posted messages reach their windows; at once when it isn't set. A host whose operations
  /// are not to be entered again from inside puts them off.
  std::function<void(std::function<void()> send)> Deliver;
  /// The user pressed a child of a window.
  std::function<void(Handle)> ChildPressed;
  /// Where a window stands, for an environment that draws its windows.
  std::function<std::optional<platform::WindowRectangle>(Handle)> PlaceOf;
  /// A tool wants a window to have the focus.
  std::function<void(Handle)> FocusWanted;

  [[nodiscard]] Handle Find(Handle parent, Handle behind, StringView className,
                            StringView text) override;
  [[nodiscard]] String ClassName(Handle window) override;
  [[nodiscard]] String Text(Handle window) override;
  [[nodiscard]] std::optional<platform::WindowRectangle> Rectangle(Handle window) override;
  [[nodiscard]] Handle Parent(Handle window) override;
  [[nodiscard]] Handle Focus() override { return focus_; }
  void SetFocus(Handle window) override;
  /// The user gave a window the focus; 0 for one that is none of these.
  void FocusMoved(Handle window) { focus_ = InfoOf(window) == nullptr ? 0 : window; }
  [[nodiscard]] String ProcessName(Handle window) override;
  bool Hook(Handle window, const std::shared_ptr<platform::WindowHook>& hook) override;
  void Unhook(Handle window, const platform::WindowHook& hook) override;
  std::intptr_t CallPrevious(const platform::WindowHook& hook,
                             const platform::WindowMessage& message) override;

 private:
  using WeakHook = std::weak_ptr<platform::WindowHook>;
  /// The hooks that a message still has to pass, the next one last.
  using Chain = std::vector<WeakHook>;

  [[nodiscard]] bool IsCalling(Handle window) const;
  void SendWhenFree(const platform::WindowMessage& message);
  void SendWaiting();
  [[nodiscard]] const WindowInfo* InfoOf(Handle window) const;
  [[nodiscard]] WindowInfo* InfoOf(Handle window);
  void TellParent(const WindowInfo& window, std::uint32_t event);
  std::intptr_t Pass(Chain rest, const platform::WindowMessage& message);
  [[nodiscard]] std::intptr_t OwnProcedure(const platform::WindowMessage& message) const;
  std::intptr_t PassHook(platform::WindowHook& hook, Chain rest,
                         const platform::WindowMessage& message);
  /// Calls back unless a callback of the hook is under way.
  void CallBack(platform::WindowHook& hook, const std::function<void()>& callback);

  model::Hook calls_;
  std::vector<WindowInfo> windows_;
  std::map<Handle, Chain> hooks_;
  std::vector<const platform::WindowHook*> calling_;
  std::vector<platform::WindowMessage> waiting_;
  Handle next_ = 0x10010, focus_ = 0;
};

/// What a platform answers for its windows: those of an environment, once there is one.
class WindowService {
 public:
  [[nodiscard]] platform::Windows& Get() const { return *inForce_; }
  /// Not owned.
  void Use(platform::Windows& windows) { inForce_ = &windows; }

 private:
  WindowTable none_;
  platform::Windows* inForce_ = &none_;
};

}  // namespace tessel::model
