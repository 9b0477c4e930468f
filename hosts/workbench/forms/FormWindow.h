// A form on the screen.
#pragma once

#include <QDialog>
#include <QPointer>
#include <memory>

#include "forms/Form.h"
#include "hosts/workbench/forms/FormPlace.h"
#include "hosts/workbench/forms/SurfaceWidget.h"

class QEventLoop;

namespace tessel::workbench {

/// The frame of one form from its loading to its end, shown or hidden. Must be destroyed with
/// deleteLater, as a handler of the form may run on behalf of it.
class FormWindow : public QDialog {
 public:
  FormWindow(const std::shared_ptr<forms::Form>& form, ActionGate& gate, QWidget* parent);

  /// Null once the form is gone.
  [[nodiscard]] std::shared_ptr<forms::Form> FormOf() const { return form_.lock(); }
  [[nodiscard]] const ControlViews& Views() const { return surface_->Views(); }

  /// Opens the window in front of another one (null: of none). One that blocks takes all input of
  /// the program.
  void Open(bool blocks, QWidget* behind);
  /// Lets the other windows have input again.
  void StopBlocking();
  /// Comes back when the window is hidden or destroyed.
  void WaitUntilHidden();
  /// The form was hidden.
  void Leave();
  /// The form was unloaded, or is being destroyed: nothing of it is touched again.
  void Detach();

  [[nodiscard]] FormPlace& Place() { return place_; }

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void ShowFrame();
  void StandInFrontOf(QWidget* behind);
  void CloseByFrame();

  std::weak_ptr<forms::Form> form_;
  SurfaceWidget* surface_;
  QPointer<QEventLoop> wait_;
  FormPlace place_{*this};
};

}  // namespace tessel::workbench
