// A small list at the caret of a code window, to pick one word from.
#pragma once

#include <cstdint>
#include <vector>

#include "forms/Popup.h"
#include "foundation/GuardedForm.h"

namespace tessel {

/// Whoever opens it sets the place and the entries, shows it and reads `ItemMenu`. Ctrl+Enter,
/// Escape and a double click take the selected row; any other key that gives a character closes the
/// list and types on in the code.
class frmContextMenu : public GuardedForm, public forms::Popup {
 public:
  frmContextMenu();

  /// Where the list stands in the code window, in pixels from its upper left corner.
  int CodeY = 0, CodeX = 0;
  /// The code window. Without a place of its own it counts as standing in the corner of the screen.
  std::intptr_t hwndCODE = 0;
  /// The entries, counted from 1.
  std::vector<String> ArrayMenu;
  /// The chosen text, empty when the user cancelled.
  String ItemMenu;

  forms::PopupList lstMenu{this, "lstMenu"};

 protected:
  void Form_Activate() override;
  bool Form_QueryUnload() override;

 private:
  void Fill();
  void Place();
  void TakeSelected();
  void TypeOn(int keyAscii);
};

}  // namespace tessel
