// What the builders' dialogs have in common.
#pragma once

#include "builders/BuilderHeader.h"
#include "builders/BuilderParts.h"
#include "foundation/Defaults.h"
#include "foundation/ToolForm.h"

namespace tessel {

/// Fills a list and selects a text without regard to case.
void FillList(forms::ComboBox& combo, const std::vector<String>& list, StringView selected);

/// Base of the dialogs that compose code.
class BuilderForm : public ToolForm {
 protected:
  using ToolForm::ToolForm;

  /// Puts the focus into the field at fault and says why. True when there is nothing to complain
  /// of.
  bool Accept(const std::optional<builders::Complaint>& complaint);
};

/// Base of the builders: a preview that follows the fields, and text that goes into a component.
class PreviewForm : public BuilderForm {
 protected:
  /// What tells the builders apart. The names are those of their routines, literals.
  struct BuilderKind {
    std::string_view Name;
    StringView Caption;
    int Icon;
    StringView OK, Cancel, Help, View, Unload;
    StringView HelpTopic;
    void (IConnect::*Hide)();  ///< how the root closes the dialog
  };
  /// `kind` must outlive the dialog.
  explicit PreviewForm(const BuilderKind& kind);

  /// The whole text as the fields stand.
  [[nodiscard]] virtual String Code() const = 0;
  /// Puts a text into the preview.
  virtual void ShowCode(StringView code);
  /// What OK does, by statements of its handler.
  virtual void Finish(const Statements& run) = 0;

  /// Brings the preview up to date, as a routine of its own.
  void View();
  /// Closes the dialog by way of the root, if there is one.
  void Close();
  void Form_Unload() override;

  /// Lets the buttons do what they say, and the preview follow the comment.
  void WireLower();
  struct ListRoutines {
    StringView Delete, MoveUp, MoveDown;
  };
  /// The buttons beside a list but for Add.
  void WireList(builders::ItemList& items, const ListRoutines& routines);
  /// Every change of these fields brings the preview up to date.
  template <class... Fields>
  void Follow(Fields&... fields) {
    (FollowOne(fields), ...);
  }

  /// The first statements of Form_Load: the place, and the preview's font and margin.
  void Prepare(const Statements& run);
  /// A statement of Form_Load: the components of the active project and "New Module", the selected
  /// one chosen.
  void FillModules(const Statements& run, forms::ComboBox& modules);
  /// The items of an Add button's handler: `form` is made, loaded, prepared, shown, and its result
  /// joins the list.
  template <class Form, class Prepare>
  void Compose(const Statements& run, std::shared_ptr<Form>& holder, builders::ItemList& items,
               const Prepare& prepare) {
    holder = std::make_shared<Form>();
    const auto form = holder;
    run([&] { form->Load(); });
    prepare(*form);
    run([&] { form->Show(platform::ShowStyle::Modal); });
    if (!form->Result.empty()) run([&] { items.Add(form->Result); });
    run([&] { form->Unload(); });
    holder.reset();
    View();
  }
  /// What the comment is made of.
  [[nodiscard]] builders::HeaderChoices Comment() const;
  /// Puts the text into a component; false when there is no project, or the insertion was given up.
  /// `made` gets the component when there was none.
  bool InsertText(StringView component, StringView text, int mode,
                  host::vbext_ComponentType newType, int caretOffset,
                  std::shared_ptr<host::VBComponent>* made = nullptr);

  /// The part of the derived form, which sets it in its constructor.
  builders::LowerPart* Lower = nullptr;

 private:
  const BuilderKind& kind_;
  /// What the preview shows; nothing ahead of the first time.
  std::optional<String> shown_;
  void FollowOne(forms::CheckBox& box) {
    box.Click = [this] { View(); };
  }
  void FollowOne(forms::ComboBox& box) {
    box.Click = [this] { View(); };
  }
  void FollowOne(forms::TextBox& box) {
    box.Change = [this] { View(); };
  }
};

/// Base of a dialog in which one item of a list is composed. Its caller loads it, shows it modally,
/// reads `Result` and unloads it.
class ComposerForm : public BuilderForm {
 public:
  /// The finished text; empty after Cancel.
  String Result;

 protected:
  using BuilderForm::BuilderForm;

  /// OK: without a complaint the text is the result, the place is kept and the form hides.
  void Finish(const Statements& run, const std::optional<builders::Complaint>& complaint,
              StringView text);
  /// Cancel: the same without a result.
  void GiveUp(const Statements& run);
  /// The frame's button gives no result either, and doesn't keep the place.
  bool Form_QueryUnload() override;
};

}  // namespace tessel
