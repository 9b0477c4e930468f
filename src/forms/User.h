// The door through which a user acts on a form: renderers, tests and the automation channel alike.
#pragma once

#include <vector>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/RichTextBox.h"

namespace tessel::forms::user {

// Every action but a drop first moves the focus to the control. When a handler then keeps the focus
// elsewhere, or disables the control, the action goes no further, as a click that a message box cut
// off. Each fails, with a vb::Failure (380) whose text names the control and changes nothing, when
// the control is disabled or hidden, when it is of a kind that knows no such action, or when the
// item, row or text isn't there. The form stays alive for the length of the call.

/// Text box, editable combo box, rich text (the plain text is replaced). Where there is one line
/// alone, line ends and tabs become blanks.
void Type(Control& control, StringView text);
/// Combo box and list box, by text (exact, else without regard to case) or by index.
void Pick(Control& control, StringView text);
void Pick(Control& control, int index);
/// Check box: 0 or 1.
void Check(Control& control, int value);
/// Button, toggle button (its state becomes the other one), option button, drop-down button (its
/// own click), picture.
void Press(Control& control);
/// An item of a drop-down button by key.
void PressItem(Control& control, StringView key);
/// Value of a spin control.
void Spin(Control& control, int value);
void SelectPage(Control& control, int index);
/// Makes a cell of a grid current; raises AfterSelChange and Click.
void SelectRow(Control& control, int row, int col);
/// Edits a cell: BeforeEdit may refuse (then a failure), AfterEdit follows. The row becomes
/// current.
void EditCell(Control& control, int row, int col, StringView text);
/// The first tick box of a row, as an edit of its cell.
void Tick(Control& control, int row, bool ticked);
/// The button of a cell; the cell becomes current.
void PressCell(Control& control, int row, int col);
/// Leaves the cell that a handler has opened as it was.
void LeaveEdit(Control& control);
/// Scrolls a grid so that a row is the first in sight.
void Scroll(Control& control, int row);
/// Makes a column of a grid with set widths as wide as so many characters.
void ResizeColumn(Control& control, int col, int chars);
void Expand(Control& control, int row);
void Collapse(Control& control, int row);
void DoubleClick(Control& control, int row);
void RightClick(Control& control, int row);
/// Selects `length` characters from `start` (0-based) in rich text.
void SelectText(Control& control, int start, int length);
void Focus(Control& control);
/// Enter (13) and Escape (27) press the default and the cancel button when the control leaves them.
/// A text of several lines keeps Enter for itself.
void Key(Control& control, int ascii);
void Drop(Control& control, int row, const std::vector<String>& files);
/// An item of a menu that is open, by name. Fails when there is none, or when it is a separator, a
/// submenu, hidden or greyed.
[[nodiscard]] MenuItem& ItemOf(MenuItem& menu, StringView name);
/// Chooses an item of a surface's menu bar. Fails as `ItemOf` does.
void ChooseFromBar(Surface& surface, StringView name);
/// Closes by the frame.
void Close(Form& form);

}  // namespace tessel::forms::user
