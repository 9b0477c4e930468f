// A combo box whose list is read when it is opened.
#pragma once

#include <QComboBox>
#include <functional>

namespace tessel::workbench {

class ListOnDemand : public QComboBox {
 public:
  using QComboBox::QComboBox;
  /// Called ahead of the list's opening.
  std::function<void()> BeforePopup;

  void showPopup() override {
    if (BeforePopup) BeforePopup();
    QComboBox::showPopup();
  }
};

}  // namespace tessel::workbench
