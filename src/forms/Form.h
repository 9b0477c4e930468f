// A dialog as data: a surface with a frame and a life of its own.
#pragma once

#include "forms/Surface.h"
#include "platform/Screen.h"

namespace tessel::forms {

/// What the frame looks like.
enum class BorderStyle { Dialog, Sizable, ToolWindow };

/// Base of all dialogs. Life: loaded on first `Show` or `Load` (Form_Load), shown (Form_Activate),
/// hidden, unloaded (Form_Unload; the controls then go back to their design, and a later Show loads
/// afresh).
class Form : public Surface {
 public:
  Form(std::string_view name, StringView caption);
  ~Form() override;

  [[nodiscard]] bool IsLoaded() const { return loaded_; }
  [[nodiscard]] bool Visible() const override { return visible_; }
  [[nodiscard]] bool IsModal() const { return modal_; }

  void Load();
  /// Modal: comes back when the form was hidden or unloaded. Fails with 400 when it already shows
  /// and is asked to be modal. A form whose activation or showing fails is hidden again.
  void Show(platform::ShowStyle style = platform::ShowStyle::Modeless);
  void Hide();
  void Unload();
  /// The user closes the form by its frame: Form_QueryUnload may refuse, else Unload.
  void CloseByFrame();

  BorderStyle Border = BorderStyle::Dialog;
  /// Number of the program's picture in the frame, 0 for none.
  int Icon = 0;

  // As those of the surface, with the form's own type.
  [[nodiscard]] std::shared_ptr<Form> shared_from_this();
  [[nodiscard]] std::weak_ptr<Form> weak_from_this();

 protected:
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  /// True refuses the closing.
  virtual bool Form_QueryUnload() { return false; }
  virtual void Form_Unload() {}

 private:
  void ShowLoaded(platform::ShowStyle style);

  bool loaded_ = false, visible_ = false, modal_ = false, designed_ = false;
};

}  // namespace tessel::forms
