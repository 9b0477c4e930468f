// What a form needs that pops up over a window: no frame, and a list of a height of its own.
#pragma once

#include "forms/Controls.h"

namespace tessel::forms {

/// Base beside `Form` of forms without a frame. Such a form is as large as its controls, lies in
/// front of everything, and goes like one closed by its frame when the user clicks beside it.
class Popup {
 public:
  Popup() = default;
  virtual ~Popup() = default;
  Popup(const Popup&) = delete;
  Popup& operator=(const Popup&) = delete;
};

/// A list box whose height a form sets. It is as wide as its longest entry.
class PopupList : public ListBox {
 public:
  using ListBox::ListBox;
  /// In twips, for rows of the environment's font.
  Designed<int> Height{this};
};

}  // namespace tessel::forms
