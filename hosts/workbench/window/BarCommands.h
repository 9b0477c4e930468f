// Clicks on the commands of the environment's bars.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "hosts/model/Vbe.h"
#include "hosts/workbench/forms/QtDesktop.h"

namespace tessel::workbench {

/// Runs a command as an action of the user, and tells of the components that it brings.
class BarCommands {
 public:
  /// `desktop` is not owned and outlives this.
  BarCommands(QtDesktop& desktop, std::shared_ptr<model::Vbe> vbe)
      : desktop_(desktop), vbe_(std::move(vbe)) {}
  void Execute(host::CommandBarControl& control);
  /// By the bar's name and captions from the outside in; false when the command isn't there or is
  /// greyed. Fails as the bars of the environment do.
  bool Click(StringView bar, const std::vector<String>& path);

  /// Told of every component that a command added; must be set.
  std::function<void(const std::shared_ptr<model::VBComponent>&)> OnNew;

 private:
  QtDesktop& desktop_;
  std::shared_ptr<model::Vbe> vbe_;
};

}  // namespace tessel::workbench
