// What can be drawn and used: controls, their layout, the focus, menus.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "forms/Control.h"
#include "forms/Layout.h"
#include "forms/Menu.h"
#include "platform/Screen.h"

namespace tessel::forms {

/// A renderer's side of one surface.
class View {
 public:
  virtual ~View() = default;
  virtual void ControlChanged(Control& control) = 0;
  virtual void FocusChanged(Control* control) = 0;
  /// The caption or a menu.
  virtual void SurfaceChanged() = 0;
};

/// Base of Form, which has a frame and a modal life, and of Document, which a dockable window of
/// the environment holds. Made with std::make_shared, so that a surface lives as long as a handler
/// of it runs.
class Surface : public Designs, public std::enable_shared_from_this<Surface> {
 public:
  Surface(std::string_view name, StringView caption);
  ~Surface() override;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  [[nodiscard]] const String& Name() const { return name_; }
  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(StringView caption) { caption_ = String(caption); }
  /// Whether the user can reach it.
  [[nodiscard]] virtual bool Visible() const = 0;

  /// Outlives the unloading: who opened the surface reads its answer here.
  String Tag;

  /// In the order of construction.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// By name without regard to case; null when there is none.
  [[nodiscard]] Control* Find(StringView name) const;
  [[nodiscard]] Control* ActiveControl() const { return active_; }
  [[nodiscard]] const forms::Layout& Arrangement() const { return layout_; }

  /// Runs the handler of an event. Those who know how failures are reported let none of it out.
  virtual void Carry(const std::function<void()>& handler) { handler(); }
  /// In the order of construction.
  [[nodiscard]] const std::vector<MenuItem*>& Menus() const { return menus_; }
  /// A menu or an item of one, by name without regard to case; null when there is none.
  [[nodiscard]] MenuItem* FindMenu(StringView name) const;
  /// Lets a menu of the surface pop up at a place (none: at the pointer) and comes back when it is
  /// closed. An item that the user chose has run its Click then.
  void PopupMenu(MenuItem& menu, std::optional<platform::SurfacePoint> place = std::nullopt);

  void SetView(forms::View* view) { view_ = view; }
  [[nodiscard]] forms::View* GetView() const { return view_; }

 protected:
  void SetLayout(forms::Layout layout) { layout_ = std::move(layout); }
  void Changed() override;
  /// Keeps the design of the surface and of its controls.
  void SaveWholeDesign();
  /// Puts surface and controls back to their design; no control has the focus then.
  void RestoreWholeDesign();

 private:
  friend class Control;
  friend class MenuItem;
  void Register(Control* control) { controls_.push_back(control); }
  void Register(MenuItem* menu) { menus_.push_back(menu); }
  void MoveFocus(Control* control);

  String name_;
  Designed<String> caption_;
  std::vector<Control*> controls_;
  std::vector<MenuItem*> menus_;
  forms::Layout layout_;
  Control* active_ = nullptr;
  Control* arrived_ = nullptr;  // the one whose GotFocus was the last to be raised
  forms::View* view_ = nullptr;
};

}  // namespace tessel::forms
