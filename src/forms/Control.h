// What all controls have in common.
#pragma once

#include <functional>
#include <string_view>

#include "vb/Text.h"

namespace tessel::forms {

class Form;

struct Font {
  String Name = u"Courier New";
  double Size = 9;
  bool Bold = false, Italic = false, Strikethrough = false, Underline = false;
  int Charset = 0;
  int Weight = 400;
  bool operator==(const Font&) const = default;
};

/// A control of a form. It registers itself with the form in the order of construction, which is
/// the tab order. Setters raise the control's events as their originals do and tell the form's
/// view. What a user does goes through forms/User.h.
class Control {
 public:
  Control(Form* owner, std::string_view name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  [[nodiscard]] const String& Name() const { return name_; }
  /// The class's name, e.g. "TextBox".
  [[nodiscard]] virtual std::string_view Kind() const = 0;
  [[nodiscard]] Form& Owner() const { return *owner_; }

  [[nodiscard]] bool Enabled() const { return enabled_; }
  void SetEnabled(bool value);
  [[nodiscard]] bool Visible() const { return visible_; }
  void SetVisible(bool value);
  [[nodiscard]] const String& ToolTipText() const { return toolTip_; }
  void SetToolTipText(StringView text);
  /// Whether the control can hold the focus at all (a label can't).
  [[nodiscard]] virtual bool TakesFocus() const { return true; }
  /// Moves the focus here: LostFocus of the control that had it, then GotFocus. No effect on a
  /// control that can't take it.
  void SetFocus();
  [[nodiscard]] bool HasFocus() const;

  String Tag;
  std::function<void()> GotFocus;
  std::function<void()> LostFocus;
  /// ASCII code of a key; the handler may set it to 0 to swallow the key.
  std::function<void(int& keyAscii)> KeyPress;

  /// Puts the state back to that which the form's class gave it. Called by the form.
  virtual void SaveDesign();
  virtual void RestoreDesign();

 protected:
  /// Tells the view that something to see has changed.
  void Changed();

 private:
  Form* owner_;
  String name_;
  String toolTip_;
  bool enabled_ = true, visible_ = true;
  bool designEnabled_ = true, designVisible_ = true;
};

}  // namespace tessel::forms
