// The common dialog for fonts.
#pragma once

#include <cstdint>

#include "forms/Control.h"

namespace tessel {

/// Failures are 0x80044471 and 0x80044472.
class CFontDialog {
 public:
  /// Puts every property back to its first value.
  void Init();

  bool CenterDialog = true;
  std::uint32_t Color = 0;
  String DialogTitle;
  std::int32_t Flags = 0;
  forms::Font Font;
  std::int32_t FontType = 0;
  std::intptr_t HWndOwner = 0;  ///< 0: none
  int Max = 0, Min = 0;         ///< sizes that can be chosen, in points; 0: no bound
  String Style;

  /// True when the user accepted; `Font` and `Style` then hold the choice. Fails with "Invalid
  /// window handle" for an owner that is no window.
  [[nodiscard]] bool Show();
};

}  // namespace tessel
