// What a run of the formatter or of the error handlers did beyond what it is for.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/review/RunReview.h"

namespace tessel::workbench {

/// "one module", "3 modules".
[[nodiscard]] QString CountOfModules(std::size_t count);

/// The list behind a run: each place is a jump, and the run as a whole can be kept or taken back.
class RunList : public QWidget {
 public:
  explicit RunList(QWidget* parent);

  /// Asked to go to a line of a component's code.
  std::function<void(const std::shared_ptr<model::VBComponent>&, int line)> OnJump;
  /// Asked to give a component the text that it had; false when it wasn't done, as the text has
  /// been changed since.
  std::function<bool(const std::shared_ptr<model::VBComponent>&, const String& before,
                     const String& after)>
      OnTakeBack;
  /// The user has decided.
  std::function<void()> OnDone;

  /// Shows a run in the place of the last one; false when there is nothing to be looked at.
  bool Show(const review::RunReview& run);
  /// Forgets the run.
  void Clear();

 private:
  struct Change {
    std::weak_ptr<model::VBComponent> Component;
    String Before, After;
  };
  void Build();
  void AddItem(const review::ReviewItem& item);
  void Jump(QTreeWidgetItem& item);
  void TakeBack();

  QLabel* head_;
  QTreeWidget* list_;
  QPushButton* takeBack_;
  std::vector<Change> changes_;
  std::vector<review::ReviewItem> items_;
};

}  // namespace tessel::workbench
