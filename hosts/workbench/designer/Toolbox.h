// The control classes to draw with.
#pragma once

#include <QListWidget>
#include <functional>

#include "vb/Text.h"

namespace tessel::workbench {

/// A pointer and the environment's own control classes as pictures, for a dock. Arrow keys choose,
/// Enter and a double click add a control at once.
class Toolbox : public QListWidget {
 public:
  explicit Toolbox(QWidget* parent = nullptr);

  /// Told of the class that is drawn with from now on; empty for the pointer.
  std::function<void(StringView className)> OnTool;
  /// Asked to add a control of a class in its own size.
  std::function<void(StringView className)> OnAdd;

  /// Goes back to the pointer, and tells when another tool was chosen.
  void Reset();
  /// The chosen class; empty for the pointer.
  [[nodiscard]] String Tool() const;

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void AddTool(const QString& className, const QString& tip);
  void DrawIcons();
  void AddChosen();
};

}  // namespace tessel::workbench
