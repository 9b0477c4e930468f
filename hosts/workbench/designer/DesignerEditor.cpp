#include "hosts/workbench/designer/DesignerEditor.h"

#include <QUndoCommand>
#include <algorithm>
#include <optional>

#include "hosts/workbench/designer/Selection.h"
#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"

namespace tessel::workbench {
namespace {

using Steps = std::vector<std::unique_ptr<EditStep>>;
using Attempt = std::function<bool(const std::function<void()>&)>;

/// Steps done and undone together. A step that fails takes those ahead of it back. The command goes
/// on the stack done; when it fails later on, the stack drops it.
class EditCommand : public QUndoCommand {
 public:
  EditCommand(const QString& text, int kind, Steps steps, Attempt attempt)
      : QUndoCommand(text), kind_(kind), steps_(std::move(steps)), attempt_(std::move(attempt)) {}

  [[nodiscard]] bool Do();
  [[nodiscard]] int id() const override { return kind_; }
  void redo() override;
  void undo() override;
  bool mergeWith(const QUndoCommand* later) override;

 private:
  using Direction = void (EditStep::*)();
  template <class Iterator>
  static void RunAll(Iterator first, Iterator last, Direction on, Direction back);

  int kind_;
  Steps steps_;
  Attempt attempt_;
  bool pushed_ = false;
};

template <class Iterator>
void EditCommand::RunAll(Iterator first, Iterator last, Direction on, Direction back) {
  Iterator at = first;
  try {
    for (; at != last; ++at) ((**at).*on)();
  } catch (...) {
    while (at != first) ((**--at).*back)();
    throw;
  }
}

bool EditCommand::Do() {
  return attempt_([this] { RunAll(steps_.begin(), steps_.end(), &EditStep::Do, &EditStep::Undo); });
}

void EditCommand::redo() {
  if (pushed_ && !Do()) setObsolete(true);
  pushed_ = true;
}

void EditCommand::undo() {
  const bool undone =
      attempt_([this] { RunAll(steps_.rbegin(), steps_.rend(), &EditStep::Undo, &EditStep::Do); });
  if (!undone) setObsolete(true);
}

bool EditCommand::mergeWith(const QUndoCommand* later) {
  const auto* const other = dynamic_cast<const EditCommand*>(later);
  if (other == nullptr || other->steps_.size() != steps_.size()) return false;
  const bool same =
      std::equal(steps_.begin(), steps_.end(), other->steps_.begin(),
                 [](const auto& one, const auto& two) { return one->SetsSame(*two); });
  for (std::size_t at = 0; same && at < steps_.size(); ++at) steps_[at]->TakeIn(*other->steps_[at]);
  return same;
}

}  // namespace

DesignerEditor::DesignerEditor(std::shared_ptr<model::VBComponent> component)
    : component_(std::move(component)) {}

model::DesignerNode* DesignerEditor::Root() const {
  const auto& designer = component_->OwnDesigner();
  return designer ? designer->Tree().Root() : nullptr;
}

bool DesignerEditor::Try(const std::function<void()>& action) {
  std::optional<String> failure;
  const auto attempt = [&] {
    try {
      action();
    } catch (...) {
      failure = vb::CurrentFailure().Description();
    }
  };
  if (const auto around = RunTool) {
    around(attempt);
  } else {
    attempt();
  }
  if (failure && OnFailure) OnFailure(*failure);
  return !failure;
}

bool DesignerEditor::Push(const QString& text, int kind,
                          std::vector<std::unique_ptr<EditStep>> steps) {
  auto command = std::make_unique<EditCommand>(
      text, kind, std::move(steps),
      [this](const std::function<void()>& action) { return Try(action); });
  if (!command->Do()) return false;
  stack_.push(command.release());
  return true;
}

model::DesignerNode* DesignerEditor::Add(StringView className, StringView name,
                                         model::DesignerNode& container,
                                         std::vector<NamedValue> properties) {
  Steps steps;
  auto step = std::make_unique<AddStep>(component_->OwnDesigner(), container, className, name,
                                        std::move(properties));
  const AddStep& added = *step;
  steps.push_back(std::move(step));
  if (!Push(QStringLiteral("Add %1").arg(ToQt(name)), -1, std::move(steps))) return nullptr;
  return added.Added().get();
}

bool DesignerEditor::Remove(const std::vector<model::DesignerNode*>& nodes) {
  Steps steps;
  for (model::DesignerNode* node : OutermostOf(nodes)) {
    steps.push_back(std::make_unique<RemoveStep>(component_->OwnDesigner(), *node));
  }
  if (steps.empty()) return false;
  const QString text = steps.size() == 1 ? QStringLiteral("Delete")
                                         : QStringLiteral("Delete %1 Controls").arg(steps.size());
  return Push(text, -1, std::move(steps));
}

bool DesignerEditor::Rename(model::DesignerNode& node, StringView name) {
  if (node.Name == name) return true;
  Steps steps;
  steps.push_back(std::make_unique<RenameStep>(
      component_, node, name, [this](auto& component, const String& before, const String& after) {
        return OnTakeBack && OnTakeBack(component, before, after);
      }));
  return Push(QStringLiteral("Rename %1").arg(ToQt(node.Name)), -1, std::move(steps));
}

bool DesignerEditor::SetValues(const std::vector<PropertyEdits>& edits, const QString& text,
                               int kind) {
  Steps steps;
  for (const PropertyEdits& edit : edits) {
    for (const auto& [property, raw] : edit.Values) {
      steps.push_back(
          std::make_unique<PropertyStep>(component_->OwnDesigner(), *edit.Node, property, raw));
    }
  }
  return steps.empty() || Push(text, kind, std::move(steps));
}

void DesignerEditor::Undo() { stack_.undo(); }

void DesignerEditor::Redo() { stack_.redo(); }

}  // namespace tessel::workbench
