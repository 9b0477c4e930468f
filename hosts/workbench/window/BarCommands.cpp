#include "hosts/workbench/window/BarCommands.h"

#include <set>

namespace tessel::workbench {
namespace {

std::set<std::shared_ptr<model::VBComponent>> AllComponents(model::Vbe& vbe) {
  std::set<std::shared_ptr<model::VBComponent>> all;
  for (const auto& project : vbe.Projects().All()) {
    all.insert(project->Components().All().begin(), project->Components().All().end());
  }
  return all;
}

}  // namespace

void BarCommands::Execute(host::CommandBarControl& control) {
  const auto before = AllComponents(*vbe_);
  desktop_.RunAction([&] { control.Execute(); });
  for (const auto& component : AllComponents(*vbe_)) {
    if (!before.contains(component)) OnNew(component);
  }
}

bool BarCommands::Click(StringView bar, const std::vector<String>& path) {
  auto controls = vbe_->OwnBars().Item(bar)->Controls();
  std::shared_ptr<host::CommandBarControl> control;
  for (const String& caption : path) {
    control = controls->Item(caption);
    controls = control->Controls();
  }
  const bool clicked = control && control->Enabled();
  if (clicked) Execute(*control);
  return clicked;
}

}  // namespace tessel::workbench
