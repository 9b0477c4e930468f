// The environment's windows, without a screen.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/VBE.h"
#include "hosts/model/OperationHook.h"
#include "hosts/model/WindowTable.h"

namespace tessel::model {

/// A window lives as long as it is held.
class Window : public host::Window {
 public:
  Window(Hook hook, std::shared_ptr<WindowTable> table, std::intptr_t handle);
  ~Window() override;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  [[nodiscard]] bool Visible() override;
  void SetVisible(bool value) override;
  [[nodiscard]] String Caption() override;
  [[nodiscard]] std::intptr_t HWnd() override;
  void SetCaption(StringView caption) { table_->SetCaption(handle_, caption); }
  /// As the environment itself asks.
  [[nodiscard]] std::intptr_t Handle() const { return handle_; }
  [[nodiscard]] bool IsVisible() const { return table_->IsVisible(handle_); }
  /// False once it was closed.
  [[nodiscard]] bool IsOpen() const { return !table_->ClassName(handle_).empty(); }
  /// Lets its parent know that it is there; once, when its owner is ready for what that brings.
  void Announce() { table_->TellCreated(handle_); }
  /// Takes it off the screen, whoever holds it, and lets its parent know.
  void Close();

  /// Told of each change of `Visible`.
  std::function<void(bool visible)> VisibleChanged;

 private:
  Hook hook_;
  std::shared_ptr<WindowTable> table_;
  std::intptr_t handle_;
};

/// A dockable window and what it holds.
struct ToolWindow {
  std::weak_ptr<Window> Frame;
  std::weak_ptr<forms::Document> Document;
  String Guid;  ///< key of its place
};

/// Makes the environment's windows. Code windows, designers and tool windows lie in the client
/// area.
class Windows : public host::Windows {
 public:
  explicit Windows(Hook hook);
  host::ToolWindow CreateToolWindow(const host::DocumentFactory& documents, StringView progId,
                                    StringView caption, StringView guidPosition) override;
  /// A child of the client area, which hears of it when the window is announced.
  std::shared_ptr<Window> Create(StringView className, StringView caption);
  [[nodiscard]] std::shared_ptr<Window> Main() const { return main_; }
  [[nodiscard]] std::vector<WindowInfo> All() const { return table_->All(); }
  [[nodiscard]] WindowTable& Table() { return *table_; }
  /// The properties window turns to another object or shows a new value: it opens its field, a
  /// child of the client area, and puts it away.
  void ShowProperties();
  /// While one lives, the properties window waits; behind the last it turns once, if it has to.
  class OneTurn {
   public:
    explicit OneTurn(Windows& windows) : windows_(windows) { ++windows_.waiting_; }
    ~OneTurn();
    OneTurn(const OneTurn&) = delete;
    OneTurn& operator=(const OneTurn&) = delete;

   private:
    Windows& windows_;
  };
  /// The tool windows that are still held.
  [[nodiscard]] std::vector<ToolWindow> ToolWindows() const;

 private:
  [[nodiscard]] std::shared_ptr<Window> CreateBelow(StringView className, StringView caption,
                                                    std::intptr_t parent);
  Hook hook_;
  std::shared_ptr<WindowTable> table_;
  std::shared_ptr<Window> main_, client_, project_, properties_;
  std::vector<ToolWindow> toolWindows_;
  int waiting_ = 0;
  bool turns_ = false;  // behind the wait
};

}  // namespace tessel::model
