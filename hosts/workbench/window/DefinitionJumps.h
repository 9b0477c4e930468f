// From a name to where it is declared, and back.
#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <vector>

#include "hosts/editing/Names.h"
#include "hosts/workbench/window/CodeWindow.h"

namespace tessel::workbench {

/// Remembers where each jump began.
class DefinitionJumps {
 public:
  explicit DefinitionJumps(std::shared_ptr<editing::Names> names) : names_(std::move(names)) {}

  /// Brings the code, or the designer, of a component to the front; the code's is null without any.
  std::function<CodeWindow*(const std::shared_ptr<model::VBComponent>&)> ShowCode;
  std::function<void(const std::shared_ptr<model::VBComponent>&)> ShowDesigner;
  /// Told of a name that isn't declared in the project; empty where there is no name.
  std::function<void(const QString& name)> OnMissing;

  /// Goes to the declaration of the name at the caret.
  void Go(const CodeWindow& code);
  /// Goes back to where the last jump began; no effect when none is left.
  void Back();

 private:
  struct Place {
    std::weak_ptr<model::VBComponent> Where;
    host::Selection Selected;
  };
  void Show(const editing::Definition& definition);
  std::shared_ptr<editing::Names> names_;
  std::vector<Place> begun_;
};

}  // namespace tessel::workbench
