#include "hosts/workbench/window/DefinitionJumps.h"

#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr std::size_t MostRemembered = 100;

}  // namespace

void DefinitionJumps::Go(const CodeWindow& code) {
  const auto component = code.Component();
  if (!component) return;
  const host::Selection caret = code.Editor().Selected();
  const auto found = names_->At(*component, caret.StartLine, caret.StartColumn);
  if (!found) {
    if (!OnMissing) return;
    OnMissing(
        ToQt(editing::Names::NameAt(*component->Module(), caret.StartLine, caret.StartColumn)));
    return;
  }
  begun_.push_back({component, caret});
  if (begun_.size() > MostRemembered) begun_.erase(begun_.begin());
  Show(*found);
}

void DefinitionJumps::Show(const editing::Definition& definition) {
  const editing::Declared& what = definition.What;
  const bool drawn = what.Kind == editing::DeclaredKind::Control;
  CodeWindow* const code = drawn ? nullptr : ShowCode(definition.Where);
  if (code == nullptr) return ShowDesigner(definition.Where);
  if (what.Line == 0) return code->Editor().GoToLine(1);
  code->Editor().GoToLine(what.Line);
  const int end = what.Column + static_cast<int>(what.Name.size());
  code->Editor().Select({what.Line, what.Column, what.Line, end});
}

void DefinitionJumps::Back() {
  while (!begun_.empty()) {
    const Place place = begun_.back();
    begun_.pop_back();
    const auto component = place.Where.lock();
    if (!component || !component->Project()) continue;
    if (CodeWindow* const code = ShowCode(component)) {
      code->Editor().GoToLine(place.Selected.StartLine);
      return code->Editor().Select(place.Selected);
    }
  }
}

}  // namespace tessel::workbench
