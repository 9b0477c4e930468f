// What a control looks like: a widget bound to it.
#pragma once

#include <QWidget>
#include <functional>

#include "forms/Control.h"

namespace tessel::workbench {

class ControlView;

/// What a view needs of the window that it stands in.
class ViewHost {
 public:
  virtual ~ViewHost() = default;
  /// Carries what the user did into the model; then every view shows the model again, this one even
  /// when the model refused.
  virtual void Act(ControlView& source, const std::function<void()>& action) = 0;
};

/// Base of the views, one class for each kind of control. A view knows its control and no form.
class ControlView {
 public:
  ControlView(forms::Control& model, ViewHost& host) : model_(model), host_(host) {}
  virtual ~ControlView() = default;
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;

  [[nodiscard]] forms::Control& Model() const { return model_; }
  /// Owned by the widget that it is put into.
  [[nodiscard]] virtual QWidget* Widget() const = 0;
  /// The part that takes the keys.
  [[nodiscard]] virtual QWidget* FocusWidget() const { return Widget(); }
  /// Makes the widget show the model. Nothing of it comes back as an action.
  void Sync();
  /// Ends what the user has begun and not finished, such as the edit of a cell.
  virtual void Settle() {}
  /// The control goes: what the widget still does, in timers too, reads and tells nothing of it.
  void LetGo();
  /// A key that the control's handler put in place of another; false when the view takes no text.
  virtual bool InsertText(const QString& text);

 protected:
  virtual void Update() = 0;
  /// For a view whose widget reads the control when it likes.
  virtual void Released() {}
  /// Called by the widget's signals: carries an action, unless the view itself moves the widget.
  void Act(const std::function<void()>& action);
  [[nodiscard]] bool IsSyncing() const { return syncing_; }
  /// False once the control was let go.
  [[nodiscard]] bool IsBound() const { return bound_; }

 private:
  forms::Control& model_;
  ViewHost& host_;
  bool syncing_ = false, bound_ = true;
};

}  // namespace tessel::workbench
