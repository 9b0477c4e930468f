#include "forms/User.h"

#include <memory>
#include <string>

#include "vb/Failure.h"
#include "vb/OneLine.h"

namespace tessel::forms::user {
namespace {

constexpr std::int32_t Refused = 380;

[[noreturn]] void Refuse(const Control& control, StringView why) {
  throw vb::Failure(Refused, u"Control \"" + control.Name() + u"\" " + String(why));
}

String KindText(const Control& control) {
  const std::string_view kind = control.Kind();
  return String(kind.begin(), kind.end());
}

/// Keeps the surface of a control alive for the length of an action, and checks what every action
/// needs.
class Action {
 public:
  explicit Action(Control& control) : surface_(control.Owner().weak_from_this().lock()) {
    if (!control.Enabled()) Refuse(control, u"is disabled");
    if (!control.Visible() || !HoldersShow(control.Owner().Arrangement(), control)) {
      Refuse(control, u"is hidden");
    }
  }

 private:
  std::shared_ptr<Surface> surface_;
};

/// The control as the kind that an action needs.
template <class Kind>
Kind& As(Control& control, StringView action) {
  auto* const wanted = dynamic_cast<Kind*>(&control);
  if (wanted == nullptr) {
    Refuse(control, u"is a " + KindText(control) + u": it cannot be " + String(action));
  }
  return *wanted;
}

Grid& RowOf(Control& control, int row) {
  Grid& grid = As<Grid>(control, u"used by rows");
  if (row < 0 || row >= grid.Rows()) Refuse(control, u"has no row " + vb::Str(row));
  if (!grid.RowShows(row)) Refuse(control, u"does not show row " + vb::Str(row));
  return grid;
}

/// Moves the focus to the control; whether the action may go on.
bool Reach(Control& control) {
  control.SetFocus();
  return control.Enabled() && (control.HasFocus() || !control.TakesFocus());
}

bool KeepsEnter(const Control& control) {
  const auto* const box = dynamic_cast<const TextBox*>(&control);
  return box != nullptr ? box->MultiLine : dynamic_cast<const RichTextBox*>(&control) != nullptr;
}

int IndexOf(const std::vector<String>& list, StringView text) {
  for (std::size_t at = 0; at < list.size(); ++at) {
    if (list[at] == text) return static_cast<int>(at);
  }
  for (std::size_t at = 0; at < list.size(); ++at) {
    if (vb::SameText(list[at], text)) return static_cast<int>(at);
  }
  return -1;
}

Button* ButtonThat(const Surface& surface, Designed<bool> Button::*flag) {
  for (Control* control : surface.Controls()) {
    auto* const button = dynamic_cast<Button*>(control);
    if (button != nullptr && button->*flag && button->Enabled() && button->Visible()) return button;
  }
  return nullptr;
}

}  // namespace

void Type(Control& control, StringView text) {
  const Action action(control);
  if (auto* const box = dynamic_cast<TextBox*>(&control)) {
    if (box->Locked) Refuse(control, u"is read-only");
    if (Reach(*box)) box->SetText(box->MultiLine ? String(text) : vb::InOneLine(text));
  } else if (auto* const rich = dynamic_cast<RichTextBox*>(&control)) {
    if (rich->Locked) Refuse(control, u"is read-only");
    if (Reach(*rich)) rich->SetText(text);
  } else {
    ComboBox& combo = As<ComboBox>(control, u"typed into");
    if (combo.BoxStyle() == ComboBox::Style::List) Refuse(control, u"is a list: pick an item");
    if (Reach(combo)) combo.SetText(vb::InOneLine(text));
  }
}

void Pick(Control& control, StringView text) {
  const Action action(control);
  const ListControl& list = As<ListControl>(control, u"picked from");
  const int index = IndexOf(list.List(), text);
  if (index < 0) Refuse(control, u"has no item \"" + String(text) + u"\"");
  Pick(control, index);
}

void Pick(Control& control, int index) {
  const Action action(control);
  auto& list = As<ListControl>(control, u"picked from");
  if (index < 0 || index >= static_cast<int>(list.List().size())) {
    Refuse(control, u"has no item " + vb::Str(index));
  }
  if (Reach(list)) list.SetListIndex(index);
}

void Check(Control& control, int value) {
  const Action action(control);
  auto& box = As<TwoState>(control, u"ticked");
  if (value != 0 && value != 1) Refuse(control, u"takes 0 or 1");
  if (Reach(box)) box.SetValue(value);
}

void Press(Control& control) {
  const Action action(control);
  if (auto* const option = dynamic_cast<OptionButton*>(&control)) {
    if (Reach(*option)) option->SetValue(true);
  } else if (auto* const toggle = dynamic_cast<ToggleButton*>(&control)) {
    if (Reach(*toggle)) toggle->SetValue(1 - toggle->Value());
  } else if (auto* const drop = dynamic_cast<DropDownButton*>(&control)) {
    if (Reach(*drop)) Raise(*drop, drop->Click);
  } else if (auto* const picture = dynamic_cast<PictureBox*>(&control)) {
    Raise(*picture, picture->Click);
  } else {
    auto& button = As<Button>(control, u"pressed");
    if (Reach(button)) Raise(button, button.Click);
  }
}

void PressItem(Control& control, StringView key) {
  const Action action(control);
  auto& drop = As<DropDownButton>(control, u"opened");
  for (const auto& item : drop.Items()) {
    if (!item.Key.empty() && item.Key == key) {
      if (!Reach(drop)) return;
      const String chosen(key);  // the handler may clear the items
      Raise(drop, drop.DropdownItemClick, StringView(chosen));
      return;
    }
  }
  Refuse(control, u"has no item with the key \"" + String(key) + u"\"");
}

void Spin(Control& control, int value) {
  const Action action(control);
  auto& spin = As<SpinButton>(control, u"turned");
  if (Reach(spin)) spin.SetValue(value);
}

void SelectPage(Control& control, int index) {
  const Action action(control);
  auto& tabs = As<TabControl>(control, u"paged");
  if (!tabs.HasTabs()) Refuse(control, u"shows no tabs");
  if (index < 0 || index >= static_cast<int>(tabs.Pages().size())) {
    Refuse(control, u"has no page " + vb::Str(index));
  }
  if (Reach(tabs)) tabs.SetCurrTab(index);
}

void SelectRow(Control& control, int row, int col) {
  const Action action(control);
  Grid& grid = RowOf(control, row);
  if (row < grid.FixedRows()) Refuse(control, u"row " + vb::Str(row) + u" is a heading");
  if (col < 0 || col >= grid.Cols()) Refuse(control, u"has no column " + vb::Str(col));
  if (!Reach(grid)) return;
  grid.Select(row, col);
  Raise(grid, grid.Click);
}

namespace {

constexpr StringView True = u"True", False = u"False";

void CheckCell(const Grid& grid, int row, int col) {
  if (col < 0 || col >= grid.Cols() || grid.ColumnAt(col).Hidden) {
    Refuse(grid, u"has no column " + vb::Str(col));
  }
  if (row < grid.FixedRows() || col < grid.FixedCols()) {
    Refuse(grid, u"row " + vb::Str(row) + u", column " + vb::Str(col) + u" is a heading");
  }
}

/// Whether the edit may go on; asks where nobody has asked yet.
bool MayEdit(Grid& grid, int row, int col) {
  if (grid.Editing() == GridCell{row, col}) return true;
  grid.Select(row, col);
  bool cancel = false;
  Raise(grid, grid.BeforeEdit, row, col, cancel);
  return !cancel;
}

}  // namespace

void EditCell(Control& control, int row, int col, StringView text) {
  const Action action(control);
  Grid& grid = RowOf(control, row);
  CheckCell(grid, row, col);
  const bool opened = grid.Editing() == GridCell{row, col};
  if (!grid.Editable && !opened) Refuse(control, u"cannot be edited");
  if (grid.ColumnAt(col).Ticks && !grid.Ticked(row, col)) {
    Refuse(control, u"has no tick box in row " + vb::Str(row));
  }
  if (!Reach(grid)) return;
  if (!MayEdit(grid, row, col)) {
    Refuse(control, u"refuses an edit of row " + vb::Str(row) + u", column " + vb::Str(col));
  }
  grid.EndEdit();
  grid.SetTextMatrix(row, col, vb::InOneLine(text));
  Raise(grid, grid.AfterEdit, row, col);
}

void Tick(Control& control, int row, bool ticked) {
  const Action action(control);
  const Grid& grid = RowOf(control, row);
  const auto col = grid.TickColumnOf(row);
  if (!col) Refuse(control, u"has no tick box in row " + vb::Str(row));
  if (grid.Ticked(row, *col) != ticked) EditCell(control, row, *col, ticked ? True : False);
}

void PressCell(Control& control, int row, int col) {
  const Action action(control);
  Grid& grid = RowOf(control, row);
  CheckCell(grid, row, col);
  if (!grid.ColumnAt(col).Button) Refuse(control, u"has no button in column " + vb::Str(col));
  if (!Reach(grid)) return;
  grid.Select(row, col);
  Raise(grid, grid.CellButtonClick, row, col);
}

void LeaveEdit(Control& control) { As<Grid>(control, u"edited by cells").EndEdit(); }

void Scroll(Control& control, int row) {
  Grid& grid = As<Grid>(control, u"scrolled by rows");
  if (row < 0 || row >= grid.Rows()) Refuse(control, u"has no row " + vb::Str(row));
  grid.NoteTopRow(row);
}

void ResizeColumn(Control& control, int col, int chars) {
  const Action action(control);
  Grid& grid = As<Grid>(control, u"resized by columns");
  std::vector<int> widths = grid.ColumnWidths;
  if (col < 0 || col >= static_cast<int>(widths.size())) {
    Refuse(control, u"has no width for column " + vb::Str(col));
  }
  widths[static_cast<std::size_t>(col)] = chars;
  grid.ColumnWidths = widths;
}

void Expand(Control& control, int row) {
  const Action action(control);
  Grid& grid = RowOf(control, row);
  if (Reach(grid)) grid.SetCollapsed(row, false);
}

void Collapse(Control& control, int row) {
  const Action action(control);
  Grid& grid = RowOf(control, row);
  if (Reach(grid)) grid.SetCollapsed(row, true);
}

void DoubleClick(Control& control, int row) {
  const Action action(control);
  if (auto* const list = dynamic_cast<ListControl*>(&control)) {
    Pick(control, row);
    if (list->ListIndex() == row) Raise(*list, list->DblClick);
    return;
  }
  Grid& grid = RowOf(control, row);
  if (!Reach(grid)) return;
  if (row >= grid.FixedRows()) SelectRow(control, row, grid.Col());
  Raise(grid, grid.DblClick);
}

void RightClick(Control& control, int row) {
  const Action action(control);
  Grid& grid = As<Grid>(control, u"right-clicked");
  if (row != -1) RowOf(control, row);
  if (!Reach(grid)) return;
  Raise(grid, grid.MouseDown, 2, row);
}

void SelectText(Control& control, int start, int length) {
  const Action action(control);
  auto& rich = As<RichTextBox>(control, u"selected in");
  const auto size = static_cast<int>(rich.Text().size());
  if (start < 0 || length < 0 || start > size || length > size - start) {
    Refuse(control, u"has no such text: it is " + vb::Str(size) + u" long");
  }
  if (!Reach(rich)) return;
  rich.SetSelStart(start);
  rich.SetSelLength(length);
}

void Focus(Control& control) {
  const Action action(control);
  if (!control.TakesFocus()) Refuse(control, u"cannot have the focus");
  control.SetFocus();
}

void Key(Control& control, int ascii) {
  const Action action(control);
  const Surface& surface = control.Owner();
  if (!Reach(control)) return;
  int key = ascii;
  Raise(control, control.KeyPress, key);
  if (!surface.Visible()) return;
  if (key == 13 && !KeepsEnter(control)) {
    auto* const own = dynamic_cast<Button*>(&control);
    if (Button* const pressed = own != nullptr ? own : ButtonThat(surface, &Button::Default)) {
      Press(*pressed);
    }
  } else if (key == 27) {
    if (Button* const pressed = ButtonThat(surface, &Button::Cancel)) Press(*pressed);
  }
}

void Drop(Control& control, int row, const std::vector<String>& files) {
  const Action action(control);
  Grid& grid = RowOf(control, row);
  if (!grid.FilesDropped) Refuse(control, u"takes no files");
  Raise(grid, grid.FilesDropped, row, files);
}

MenuItem& ItemOf(MenuItem& menu, StringView name) {
  const auto refuse = [&](StringView why) {
    throw vb::Failure(Refused, u"Menu item \"" + String(name) + u"\" " + String(why));
  };
  MenuItem* const item = menu.Find(name);
  if (item == nullptr || item->IsSeparator()) refuse(u"is not there");
  if (!item->Items().empty()) refuse(u"is a menu of its own");
  for (MenuItem* one = item; one != nullptr && one != &menu; one = one->Above()) {
    if (!one->Visible()) refuse(u"is hidden");
    if (!one->Enabled()) refuse(u"is disabled");
  }
  return *item;
}

void ChooseFromBar(Surface& surface, StringView name) {
  const auto self = surface.weak_from_this().lock();
  for (MenuItem* menu : surface.Menus()) {
    if (!menu->Visible() || menu->Find(name) == nullptr) continue;
    if (!menu->Enabled()) break;
    menu->RaiseClick();
    ItemOf(*menu, name).RaiseClick();
    return;
  }
  throw vb::Failure(Refused, u"Form \"" + surface.Name() + u"\" has no menu item \"" +
                                 String(name) + u"\" to choose");
}

void Close(Form& form) {
  const auto self = form.weak_from_this().lock();
  if (!form.Visible()) throw vb::Failure(Refused, u"Form \"" + form.Name() + u"\" is not open");
  form.CloseByFrame();
}

}  // namespace tessel::forms::user
