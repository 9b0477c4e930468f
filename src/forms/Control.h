// What all controls have in common.
#pragma once

#include <functional>
#include <string_view>

#include "forms/Designed.h"
#include "vb/Text.h"

namespace tessel::forms {

class Surface;

struct Font {
  String Name = u"Courier New";
  double Size = 9;
  bool Bold = false, Italic = false, Strikethrough = false, Underline = false;
  int Charset = 0;
  int Weight = 400;
  bool operator==(const Font&) const = default;
};

/// A control of a surface. It registers itself with the surface in the order of construction, which
/// is the tab order. Setters raise the control's events as their originals do and tell the
/// surface's view. What a user does goes through forms/User.h.
class Control : public Designs {
 public:
  Control(Surface* owner, std::string_view name);
  ~Control() override;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] const String& Name() const { return name_; }
  /// The class's name, e.g. "TextBox".
  [[nodiscard]] virtual std::string_view Kind() const = 0;
  [[nodiscard]] Surface& Owner() const { return *owner_; }

  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool value) { enabled_ = value; }
  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool value) { visible_ = value; }
  [[nodiscard]] const String& ToolTipText() const { return toolTip_; }
  void SetToolTipText(StringView text) { toolTip_ = String(text); }
  /// Whether the control can hold the focus at all (a label can't).
  [[nodiscard]] virtual bool TakesFocus() const { return true; }
  /// Runs an event handler by way of the surface.
  void Carry(const std::function<void()>& handler) const;
  /// Moves the focus here: LostFocus of the control that had it, then GotFocus. No effect on a
  /// control that can't take it.
  void SetFocus();
  [[nodiscard]] bool HasFocus() const;

  Designed<String> Tag{this};
  std::function<void()> GotFocus;
  std::function<void()> LostFocus;
  /// ASCII code of a key; the handler may set it to 0 to swallow the key.
  std::function<void(int& keyAscii)> KeyPress;

 protected:
  /// Tells the view that something to see has changed.
  void Changed() override;

 private:
  Surface* owner_;
  String name_;
  Designed<String> toolTip_{this};
  Designed<bool> enabled_{this, true}, visible_{this, true};
};

/// Raises an event of a control. The handler runs on a copy: it may replace itself or drop the
/// surface.
template <class... Parameters, class... Values>
void Raise(const Control& control, const std::function<void(Parameters...)>& event,
           Values&&... values) {
  if (const auto handler = event) control.Carry([&] { handler(values...); });
}

}  // namespace tessel::forms
