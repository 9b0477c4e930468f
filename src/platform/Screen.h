// Where forms are shown.
#pragma once

#include <optional>

namespace tessel::forms {
class Form;
class MenuItem;
class Surface;
}  // namespace tessel::forms

namespace tessel::platform {

enum class ShowStyle { Modeless, Modal };

/// The restored rectangle, places and show command of a window, as WINDOWPLACEMENT holds them.
struct WindowPlacement {
  int ShowCommand = 1;
  int MinX = -1, MinY = -1, MaxX = -1, MaxY = -1;
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
};

/// A place on a surface, in pixels from its upper left corner.
struct SurfacePoint {
  int X = 0, Y = 0;
};

/// Shapes of the mouse pointer, with the environment's numbers.
enum class Pointer { Default = 0, Arrow = 1, Cross = 2, IBeam = 3, SizeAll = 5, Hourglass = 11 };

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
  /// Nothing where forms have no place. A rectangle without a size says where the corner stands.
  [[nodiscard]] virtual std::optional<WindowPlacement> GetPlacement(forms::Form& form) = 0;
  virtual void SetPlacement(forms::Form& form, const WindowPlacement& placement) = 0;
  /// The placement of the whole desktop, for centring.
  [[nodiscard]] virtual std::optional<WindowPlacement> DesktopPlacement() = 0;
  /// Opens a menu over a surface, at the pointer when no place is given, and waits for the user.
  /// The item that was chosen, null when the menu was closed without one. Raises no Click but those
  /// of submenus that open.
  [[nodiscard]] virtual forms::MenuItem* PopUp(forms::Surface& surface, forms::MenuItem& menu,
                                               std::optional<SurfacePoint> place) = 0;
  /// Shows the pointer over the whole program; gives back the one before.
  virtual Pointer SetPointer(Pointer shape) = 0;
};

}  // namespace tessel::platform
