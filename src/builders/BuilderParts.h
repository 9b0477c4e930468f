// Controls that several builders have alike, each part in the order in which it is read.
#pragma once

#include "forms/Controls.h"
#include "forms/Layout.h"
#include "forms/RichTextBox.h"

namespace tessel::builders {

struct NameBox {
  explicit NameBox(forms::Surface* form);
  forms::Label lblName;
  forms::TextBox txtName;
};

struct AccessBox {
  explicit AccessBox(forms::Surface* form);
  forms::Label lblAccessibility;
  forms::ComboBox ComAccessibility;
};

struct StaticBox {
  explicit StaticBox(forms::Surface* form);
  forms::Label lblStatic;
  forms::ComboBox ComStatic;
};

struct ModuleBox {
  explicit ModuleBox(forms::Surface* form);
  forms::Label lblModule;
  forms::ComboBox ComModule;
};

/// A list with the buttons beside it. Without a selection they change nothing.
struct ItemList {
  ItemList(forms::Surface* form, std::string_view list, std::string_view down);
  /// List and buttons in a captioned frame.
  [[nodiscard]] forms::Layout Arrange(StringView caption);
  /// Adds an item, which gets the focus and the selection.
  void Add(StringView text);
  /// Takes the selected item out; the last one is selected then.
  void DeleteSelected();
  /// Moves the selected item, which stays selected, by one place.
  void MoveSelectedUp();
  void MoveSelectedDown();

  forms::ListBox List;
  forms::Button btmAdd, btmDel, btmMoveUp, btmMoveDown;

 private:
  void Exchange(int from, int to);
};

/// What stands at the foot of every builder: the comment, the preview, the buttons.
struct LowerPart {
  LowerPart(forms::Surface* form, std::string_view preview);
  /// The row of the description.
  [[nodiscard]] forms::Layout ArrangeComment();
  /// The row of the buttons.
  [[nodiscard]] forms::Layout ArrangeButtons();

  forms::Label lblDescription;
  forms::TextBox txtDescription;
  forms::CheckBox chkHeader;
  forms::RichTextBox Preview;
  forms::Button btmHelp, btmOK, btmCancel;
};

}  // namespace tessel::builders
