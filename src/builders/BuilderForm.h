// What the builders' dialogs have in common.
#pragma once

#include "builders/BuilderHeader.h"
#include "forms/Controls.h"
#include "forms/RichTextBox.h"
#include "foundation/Defaults.h"
#include "foundation/ToolForm.h"

namespace tessel {

/// Fills a list and selects a text without regard to case.
void FillList(forms::ComboBox& combo, const std::vector<String>& list, StringView selected);

/// Base of the dialogs that write code: settings, target modules, the refusal of bad fields.
class BuilderForm : public ToolForm {
 protected:
  using ToolForm::ToolForm;

  /// A statement of Form_Load: the components of the active project and "New Module", the selected
  /// one chosen.
  void FillModules(const Statements& run, forms::ComboBox& modules);
  /// Puts the focus into the field at fault and says why. True when there is nothing to complain
  /// of.
  bool Accept(const std::optional<builders::Complaint>& complaint);
  /// Lines of a preview never fold: this margin, in twips, is wider than any of them.
  static constexpr int PreviewMargin = 6 * 9000;
  /// What the comment is made of.
  [[nodiscard]] static builders::HeaderChoices Comment(const forms::CheckBox& header,
                                                       const forms::TextBox& description);
  /// Puts the text into a component; false when there is no project, or the insertion was given up.
  bool InsertText(StringView component, StringView text, int mode,
                  host::vbext_ComponentType newType, int caretOffset);
};

// The buttons beside a list. Without a selection they change nothing.

/// Takes the selected item out; the last one is selected then.
void DeleteSelected(forms::ListBox& list);
/// Moves the selected item, which stays selected, by one place.
void MoveSelectedUp(forms::ListBox& list);
void MoveSelectedDown(forms::ListBox& list);
/// Adds an item, which gets the focus and the selection.
void AddSelected(forms::ListBox& list, StringView text);

}  // namespace tessel
