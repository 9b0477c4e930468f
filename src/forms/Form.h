// A dialog as data: its controls, its layout, its life.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "forms/Control.h"
#include "forms/Layout.h"
#include "platform/Desktop.h"

namespace tessel::forms {

/// A renderer's side of one form.
class View {
 public:
  virtual ~View() = default;
  virtual void ControlChanged(Control& control) = 0;
  virtual void FocusChanged(Control* control) = 0;
  virtual void FormChanged() = 0;
};

/// What the frame looks like.
enum class BorderStyle { Dialog, Sizable, ToolWindow };

/// Base of all dialogs, made with std::make_shared so that a form lives as long as a handler of it
/// runs. Life: loaded on first `Show` or `Load` (Form_Load), shown (Form_Activate), hidden,
/// unloaded (Form_Unload; the controls then go back to their design, and a later Show loads
/// afresh).
class Form : public std::enable_shared_from_this<Form> {
 public:
  Form(std::string_view name, StringView caption);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  [[nodiscard]] const String& Name() const { return name_; }
  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(StringView caption);
  [[nodiscard]] bool IsLoaded() const { return loaded_; }
  [[nodiscard]] bool Visible() const { return visible_; }
  [[nodiscard]] bool IsModal() const { return modal_; }

  void Load();
  /// Modal: comes back when the form was hidden or unloaded. Fails with 400 when it already shows
  /// and is asked to be modal.
  void Show(platform::ShowStyle style = platform::ShowStyle::Modeless);
  void Hide();
  void Unload();
  /// The user closes the form by its frame: Form_QueryUnload may refuse, else Unload.
  void CloseByFrame();

  String Tag;
  BorderStyle Border = BorderStyle::Dialog;
  /// Number of the program's picture in the frame, 0 for none.
  int Icon = 0;

  /// In the order of construction.
  [[nodiscard]] const std::vector<Control*>& Controls() const { return controls_; }
  /// By name without regard to case; null when there is none.
  [[nodiscard]] Control* Find(StringView name) const;
  [[nodiscard]] Control* ActiveControl() const { return active_; }
  [[nodiscard]] const forms::Layout& Arrangement() const { return layout_; }

  void SetView(forms::View* view) { view_ = view; }
  [[nodiscard]] forms::View* GetView() const { return view_; }

 protected:
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  /// True refuses the closing.
  virtual bool Form_QueryUnload() { return false; }
  virtual void Form_Unload() {}
  void SetLayout(forms::Layout layout) { layout_ = std::move(layout); }

 private:
  friend class Control;
  void Register(Control* control) { controls_.push_back(control); }
  void MoveFocus(Control* control);
  void SaveDesign();
  void RestoreDesign();

  String name_, caption_, designCaption_;
  std::vector<Control*> controls_;
  forms::Layout layout_;
  Control* active_ = nullptr;
  Control* arrived_ = nullptr;  // the one whose GotFocus was the last to be raised
  forms::View* view_ = nullptr;
  bool loaded_ = false, visible_ = false, modal_ = false, designed_ = false;
};

}  // namespace tessel::forms
