#include "hosts/workbench/window/EditorShelf.h"

#include "hosts/model/Component.h"
#include "hosts/model/Project.h"

namespace tessel::workbench {
namespace {

bool IsGone(const model::CodeModule& module) {
  const auto component = module.Component();
  const auto project = component ? component->Project() : nullptr;
  return !project || project->Components().Find(component->PlainName()) != component;
}

}  // namespace

EditorShelf::EditorShelf() : room_(std::make_unique<QWidget>()) {}

EditorShelf::~EditorShelf() = default;

CodeEditor* EditorShelf::Find(const model::CodeModule& module) const {
  const auto found = editors_.find(&module);
  return found == editors_.end() ? nullptr : found->second;
}

void EditorShelf::ForEach(const std::function<void(CodeEditor&)>& visit) const {
  for (const auto& [module, editor] : editors_) visit(*editor);
}

void EditorShelf::Put(const std::shared_ptr<model::CodeModule>& module,
                      const EditorOptions& options) {
  if (editors_.size() >= MostKept || Find(*module) != nullptr) return;
  editors_[module.get()] = new CodeEditor(module, options, room_.get());
}

CodeEditor* EditorShelf::Take(const model::CodeModule& module) {
  const auto found = editors_.find(&module);
  if (found == editors_.end()) return nullptr;
  CodeEditor* const editor = found->second;
  editors_.erase(found);
  return editor;
}

void EditorShelf::DropGone() {
  std::erase_if(editors_, [](const auto& one) {
    if (!IsGone(*one.first)) return false;
    delete one.second;
    return true;
  });
}

}  // namespace tessel::workbench
