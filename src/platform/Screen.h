// Where forms are shown.
#pragma once

#include <optional>

namespace tessel::forms {
class Form;
}

namespace tessel::platform {

enum class ShowStyle { Modeless, Modal };

/// The restored rectangle, places and show command of a window, as WINDOWPLACEMENT holds them.
struct WindowPlacement {
  int ShowCommand = 1;
  int MinX = -1, MinY = -1, MaxX = -1, MaxY = -1;
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
};

class Screen {
 public:
  virtual ~Screen() = default;
  /// Shows a form. Modal: returns when the form was hidden or unloaded.
  virtual void Show(forms::Form& form, ShowStyle style) = 0;
  /// A form that showed, or was to be shown, is hidden and may show again.
  virtual void Hidden(forms::Form& form) = 0;
  /// The form was unloaded or is being destroyed: what the screen keeps of it must go. Told at the
  /// end of every form, also of one that the screen never saw.
  virtual void Gone(forms::Form& form) = 0;
  virtual void SetForeground(forms::Form& form) = 0;
  /// Nothing where forms have no place.
  [[nodiscard]] virtual std::optional<WindowPlacement> GetPlacement(forms::Form& form) = 0;
  virtual void SetPlacement(forms::Form& form, const WindowPlacement& placement) = 0;
  /// The placement of the whole desktop, for centring.
  [[nodiscard]] virtual std::optional<WindowPlacement> DesktopPlacement() = 0;
};

}  // namespace tessel::platform
