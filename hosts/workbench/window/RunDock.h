// The docked list behind a run of a tool.
#pragma once

#include <QDockWidget>
#include <functional>
#include <memory>
#include <optional>

#include "hosts/review/RunReview.h"
#include "hosts/workbench/window/RunList.h"

namespace tessel::workbench {

class ChildWindows;

/// Comes up behind a run that changed more than the layout, and goes when all of it is settled.
class RunDock : public QDockWidget {
 public:
  /// Listens to the runs over `children`, which outlives this.
  RunDock(ChildWindows& children, QWidget* parent);
  [[nodiscard]] RunList& List() { return *list_; }

  /// Brings this dock to the user; must be set.
  std::function<void()> OnShow;
  /// What there is to say of a run without a list; must be set.
  std::function<void(const QString&)> OnMessage;

 private:
  void Show(const review::RunReview& run);

  RunList* list_;
};

}  // namespace tessel::workbench
