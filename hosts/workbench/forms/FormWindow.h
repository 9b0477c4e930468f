// A form on the screen.
#pragma once

#include <QDialog>
#include <QPointer>
#include <memory>
#include <set>

#include "forms/Form.h"
#include "hosts/workbench/forms/ControlView.h"
#include "hosts/workbench/forms/FormPlace.h"

class QEventLoop;

namespace tessel::workbench {

class ActionGate;
class ControlViews;

/// Shows one form from its loading to its end, shown or hidden. What the user does goes to the
/// form through the gate; what changes in the form is shown at the next turn of the event loop.
/// Must be destroyed with deleteLater, as a handler of the form may run on behalf of it.
class FormWindow : public QDialog, public forms::View, private ViewHost {
 public:
  FormWindow(const std::shared_ptr<forms::Form>& form, ActionGate& gate, QWidget* parent);
  ~FormWindow() override;

  /// Null once the form is gone.
  [[nodiscard]] std::shared_ptr<forms::Form> FormOf() const { return form_.lock(); }
  [[nodiscard]] const ControlViews& Views() const { return *views_; }

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

  void ControlChanged(forms::Control& control) override;
  void FocusChanged(forms::Control* control) override;
  void SurfaceChanged() override;

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Act(ControlView& source, const std::function<void()>& action) override;
  void Run(const std::function<void()>& action);
  void ShowFrame();
  void BuildContent();
  void PutAside(const forms::Layout& arrangement);
  void LinkKeys();
  void StandInFrontOf(QWidget* behind);
  void Settle(const ControlView* except);
  void PostRefresh();
  void Refresh();
  void ShowChanges();
  void ShowFocus();
  void AdoptFocus();
  void NoteFocus(QWidget* now);
  void DeliverFocus();
  void CloseByFrame();
  void FocusFirst();
  [[nodiscard]] ControlView* KeyTarget() const;
  [[nodiscard]] bool FilterKey(ControlView& view, QKeyEvent& event);

  std::weak_ptr<forms::Form> form_;
  ActionGate& gate_;
  QWidget* content_ = nullptr;
  std::unique_ptr<ControlViews> views_;
  std::set<ControlView*> changed_;
  ControlView* focusMoved_ = nullptr;  // by the user; the form isn't told yet
  bool focusWanted_ = false, refreshPosted_ = false, syncing_ = false;
  QPointer<QEventLoop> wait_;
  FormPlace place_{*this};
};

}  // namespace tessel::workbench
