// Forms as windows of Qt.
#pragma once

#include <QPointer>
#include <map>

#include "hosts/workbench/forms/ActionGate.h"
#include "hosts/workbench/forms/FormWindow.h"
#include "hosts/workbench/forms/FrontWindow.h"
#include "platform/Screen.h"

namespace tessel::workbench {

class QtScreen : public platform::Screen {
 public:
  QtScreen(ActionGate& gate, const FrontWindow& front) : gate_(gate), front_(front) {}
  ~QtScreen() override;
  QtScreen(const QtScreen&) = delete;
  QtScreen& operator=(const QtScreen&) = delete;

  /// The window of a form, null for none.
  [[nodiscard]] FormWindow* WindowOf(const forms::Form& form) const;
  /// Lets the windows have input again that took it all for the length of an action.
  void StopBlocking();

  /// A form that a tool shows without waiting for it takes all input until the tool is through: the
  /// rest of the program must not change under its hands.
  void Show(forms::Form& form, platform::ShowStyle style) override;
  void Hidden(forms::Form& form) override;
  void Gone(forms::Form& form) override;
  void SetForeground(forms::Form& form) override;
  [[nodiscard]] std::optional<platform::WindowPlacement> GetPlacement(forms::Form& form) override;
  /// A form never opens minimized: nothing would show that it waits.
  void SetPlacement(forms::Form& form, const platform::WindowPlacement& placement) override;
  [[nodiscard]] std::optional<platform::WindowPlacement> DesktopPlacement() override;
  [[nodiscard]] forms::MenuItem* PopUp(forms::Surface& surface, forms::MenuItem& menu,
                                       std::optional<platform::SurfacePoint> place) override;
  platform::Pointer SetPointer(platform::Pointer shape) override;

 private:
  /// The window of a form, made when there is none.
  [[nodiscard]] FormWindow& Window(forms::Form& form);

  ActionGate& gate_;
  const FrontWindow& front_;
  std::map<const forms::Form*, QPointer<FormWindow>> windows_;
  platform::Pointer pointer_ = platform::Pointer::Default;
};

}  // namespace tessel::workbench
