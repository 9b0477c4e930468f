// What the user does in the windows of code and designers, as the messages that tools listen to.
#pragma once

#include <QObject>
#include <functional>

#include "hosts/model/WindowTable.h"
#include "hosts/workbench/window/ChildWindows.h"

class QMouseEvent;

namespace tessel::workbench {

/// Translates keys, clicks and accelerators into the messages of the environment's window table,
/// and answers for it where its windows are and which has the focus. Windows that open and close
/// tell the table by themselves. Messages are sent from the event loop: what they bring never runs
/// inside the handling of the event that they came from, nor inside an operation of the model.
class WindowMessages : public QObject {
 public:
  /// Both must outlive it.
  WindowMessages(ChildWindows& children, model::WindowTable& windows);
  ~WindowMessages() override;

  /// The user turned to a window of code or designer, be it from a dock.
  std::function<void()> OnEntered;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FocusMoved(QWidget* now);
  void KeyUp(QWidget& widget);
  void MouseDown(QWidget& widget);
  void MouseUp(QWidget& widget);
  void Shortcut();
  [[nodiscard]] QWidget* ContentOf(platform::WindowHandle window) const;
  [[nodiscard]] std::optional<platform::WindowRectangle> PlaceOf(
      platform::WindowHandle window) const;
  void Focus(platform::WindowHandle window) const;

  ChildWindows& children_;
  model::WindowTable& windows_;
};

}  // namespace tessel::workbench
