#pragma once

#include <QComboBox>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlView.h"

namespace tessel::workbench {

class ComboBoxView : public ControlView {
 public:
  ComboBoxView(forms::ComboBox& box, ViewHost& host);
  [[nodiscard]] QComboBox* Widget() const override { return widget_; }
  bool InsertText(const QString& text) override;

 protected:
  void Update() override;

 private:
  void MakeEditable();
  void LineUp(const QStringList& items);
  void ShowItems();
  forms::ComboBox& box_;
  QComboBox* widget_;
  std::vector<String> shown_;
};

}  // namespace tessel::workbench
