#include "contextmenu/frmContextMenu.h"

#include "platform/Platform.h"

namespace tessel {
namespace {

constexpr int LineFeedKey = 10, EscapeKey = 27;

/// Heights of a row in twips, by the number of rows: the more there are, the less is to spare.
struct RowHeight {
  int Below, Twips;
};
constexpr RowHeight RowHeights[] = {{9, 225}, {13, 215}, {25, 205}};
constexpr int LeastRowHeight = 200;

int HeightOfRow(int upperBound) {
  for (const RowHeight& one : RowHeights) {
    if (upperBound < one.Below) return one.Twips;
  }
  return LeastRowHeight;
}

/// A typed character as the keys that type it again.
String KeysOf(int keyAscii) {
  constexpr StringView Signs = u"+^%~(){}[]";
  switch (keyAscii) {
    case 8:
      return u"{BACKSPACE}";
    case 9:
      return u"{TAB}";
    case 13:
      return u"{ENTER}";
    default:
      break;
  }
  const auto unit = static_cast<char16_t>(keyAscii);
  return Signs.find(unit) == StringView::npos ? String(1, unit) : u"{" + String(1, unit) + u"}";
}

}  // namespace

frmContextMenu::frmContextMenu() : GuardedForm("frmContextMenu", u"") {
  SetLayout(forms::Column({forms::Item(lstMenu)}));
  lstMenu.DblClick = [this] {
    Routine(u"frmContextMenu.lstMenu_DblClick", [&] { TakeSelected(); });
  };
  lstMenu.KeyPress = [this](int& keyAscii) {
    Routine(u"frmContextMenu.lstMenu_KeyPress", [&](const Statements& run) {
      if (keyAscii == LineFeedKey || keyAscii == EscapeKey) return TakeSelected();
      ItemMenu.clear();
      run([&] { TypeOn(keyAscii); });
    });
  };
}

void frmContextMenu::Form_Activate() {
  Routine(u"frmContextMenu.Form_Activate", [&](const Statements& run) {
    run([&] { Fill(); });
    run([&] { Place(); });
  });
}

void frmContextMenu::Fill() {
  lstMenu.Clear();
  for (const String& entry : ArrayMenu) lstMenu.AddItem(entry);
  const auto upperBound = static_cast<int>(ArrayMenu.size());
  lstMenu.Height = upperBound * HeightOfRow(upperBound);
}

void frmContextMenu::Place() {
  const auto window =
      platform::Current().Windows().Rectangle(hwndCODE).value_or(platform::WindowRectangle());
  platform::WindowPlacement corner;
  corner.Left = corner.Right = window.Left + CodeX;
  corner.Top = corner.Bottom = window.Top + CodeY;
  platform::Current().Screen().SetPlacement(*this, corner);
}

bool frmContextMenu::Form_QueryUnload() {
  ItemMenu.clear();  // a list that is clicked away was cancelled
  return false;
}

void frmContextMenu::TakeSelected() {
  ItemMenu = lstMenu.Text();
  Hide();
}

/// The list is out of the way before the key comes, which goes to what is in front.
void frmContextMenu::TypeOn(int keyAscii) {
  Hide();
  platform::Current().Shell().SendKeys(KeysOf(keyAscii));
}

}  // namespace tessel
