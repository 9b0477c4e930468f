// The views of a form's controls.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "hosts/workbench/forms/ControlView.h"

class QButtonGroup;

namespace tessel::forms {
class Surface;
}

namespace tessel::workbench {

/// Makes a view for every control of a form, by its kind, and finds them.
class ControlViews {
 public:
  ControlViews(const forms::Surface& surface, ViewHost& host, QWidget& owner);
  ~ControlViews();

  /// In the order of construction.
  [[nodiscard]] const std::vector<std::unique_ptr<ControlView>>& All() const { return views_; }
  [[nodiscard]] ControlView& Of(const forms::Control& control) const;
  /// The view that a widget belongs to, null for none.
  [[nodiscard]] ControlView* Around(const QWidget* widget) const;
  /// The field that stands right behind a label; null where something else does. An "&" in a label
  /// that shows data, such as a file's name, thus leads nowhere and is shown.
  [[nodiscard]] ControlView* FieldBehind(const ControlView& label) const;

 private:
  [[nodiscard]] std::unique_ptr<ControlView> Make(forms::Control& control, ViewHost& host);
  [[nodiscard]] QButtonGroup& GroupOf(int number);

  QWidget& owner_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::map<const forms::Control*, ControlView*> byControl_;
  std::map<int, QButtonGroup*> groups_;
};

}  // namespace tessel::workbench
