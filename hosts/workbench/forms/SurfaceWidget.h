// The controls of a form or a document as widgets.
#pragma once

#include <QMenuBar>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "forms/Surface.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class ActionGate;
class ControlViews;

/// Shows one surface from its making to its end, shown or hidden. What the user does goes to the
/// surface through the gate; what changes in it is shown at the next turn of the event loop. Must
/// be destroyed with deleteLater, as a handler of the surface may run on behalf of it.
class SurfaceWidget : public QWidget, public forms::View, private ViewHost {
 public:
  SurfaceWidget(const std::shared_ptr<forms::Surface>& surface, ActionGate& gate);
  ~SurfaceWidget() override;

  /// Null once the surface is gone.
  [[nodiscard]] std::shared_ptr<forms::Surface> SurfaceOf() const { return surface_.lock(); }
  [[nodiscard]] const ControlViews& Views() const { return *views_; }
  /// The bar with the surface's visible menus, null for a surface without menus. Its place is up to
  /// the window around it.
  [[nodiscard]] QMenuBar* Menus() const { return menuBar_; }

  /// Called when caption or menus are others.
  std::function<void()> FrameChanged;

  /// Shows what has changed at once.
  void Refresh();
  /// The control with the focus, or the first that can have it.
  void FocusFirst();
  /// Ends what the user has begun and not finished, and tells of the focus.
  void Finish();
  /// Carries an action of the user through the gate.
  void Run(const std::function<void()>& action);
  /// A key that no widget took.
  void HandleKey(QKeyEvent* event) { keyPressEvent(event); }
  /// The surface goes: nothing of it is touched again, in what widgets have still to do neither.
  void Detach();

  void ControlChanged(forms::Control& control) override;
  void FocusChanged(forms::Control* control) override;
  void SurfaceChanged() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Act(ControlView& source, const std::function<void()>& action) override;
  void BuildMenuBar();
  void ShowMenuBar();
  void BuildContent();
  void PutAside(const forms::Layout& arrangement);
  void LinkKeys();
  void Settle(const ControlView* except);
  void PostRefresh();
  void ShowChanges();
  void ShowFocus();
  void AdoptFocus();
  void NoteFocus(QWidget* now);
  void DeliverFocus();
  [[nodiscard]] ControlView* KeyTarget() const;
  [[nodiscard]] bool FilterKey(ControlView& view, QKeyEvent& event);

  std::weak_ptr<forms::Surface> surface_;
  ActionGate& gate_;
  QWidget* content_ = nullptr;
  QPointer<QMenuBar> menuBar_;
  std::vector<std::pair<forms::MenuItem*, QMenu*>> menus_;
  std::unique_ptr<ControlViews> views_;
  std::set<ControlView*> changed_;
  ControlView* focusMoved_ = nullptr;  // by the user; the surface isn't told yet
  bool focusWanted_ = false, refreshPosted_ = false, syncing_ = false;
};

}  // namespace tessel::workbench
