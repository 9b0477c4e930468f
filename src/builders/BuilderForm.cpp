#include "builders/BuilderForm.h"

#include "insertion/mGlobals.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

/// The list with the items at two places exchanged, the second one selected.
void Exchange(forms::ListBox& list, int from, int to) {
  auto items = list.List();
  std::swap(items[static_cast<std::size_t>(from)], items[static_cast<std::size_t>(to)]);
  list.Clear();
  for (const String& item : items) list.AddItem(item);
  list.SetListIndex(to);
}

}  // namespace

void FillList(forms::ComboBox& combo, const std::vector<String>& list, StringView selected) {
  mFunctions::AddListInCombobox(combo, list, String(selected));
}

void BuilderForm::FillModules(const Statements& run, forms::ComboBox& modules) {
  run([&] {
    FillList(modules, vb::Split(mGlobals::GetProjectComponent(VBInstance, 2), u"|"),
             mGlobals::SelectedVBComponentName(VBInstance));
  });
}

bool BuilderForm::Accept(const std::optional<builders::Complaint>& complaint) {
  if (!complaint) return true;
  if (forms::Control* const field = Find(complaint->Field)) {
    field->SetFocus();
    if (auto* const list = dynamic_cast<forms::ListBox*>(field); list && complaint->Item >= 0) {
      list->SetListIndex(complaint->Item);
    }
  }
  return mFunctions::myBreak(complaint->Code, complaint->Info1, complaint->Info2);
}

builders::HeaderChoices BuilderForm::Comment(const forms::CheckBox& header,
                                             const forms::TextBox& description) {
  return {header.Value() == 1, description.Text(), mFunctions::IncludeDate(),
          mFunctions::IncludeAuthor()};
}

bool BuilderForm::InsertText(StringView component, StringView text, int mode,
                             host::vbext_ComponentType newType, int caretOffset) {
  return mGlobals::InsertTextActiveVbComponent(VBInstance, component, text, mode, u"", newType,
                                               caretOffset);
}

void DeleteSelected(forms::ListBox& list) {
  if (list.ListIndex() < 0) return;
  list.RemoveItem(list.ListIndex());
  list.SetListIndex(static_cast<int>(list.List().size()) - 1);
}

void MoveSelectedUp(forms::ListBox& list) {
  const int at = list.ListIndex();
  if (at > 0) Exchange(list, at, at - 1);
}

void MoveSelectedDown(forms::ListBox& list) {
  const int at = list.ListIndex();
  if (at >= 0 && at + 1 < static_cast<int>(list.List().size())) Exchange(list, at, at + 1);
}

void AddSelected(forms::ListBox& list, StringView text) {
  list.AddItem(text);
  list.SetFocus();
  list.SetListIndex(static_cast<int>(list.List().size()) - 1);
}

}  // namespace tessel
