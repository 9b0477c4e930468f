#include "builders/BuilderForm.h"

#include "insertion/mGlobals.h"
#include "scanning/mFunctions.h"

namespace tessel {

void FillList(forms::ComboBox& combo, const std::vector<String>& list, StringView selected) {
  mFunctions::AddListInCombobox(combo, list, String(selected));
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

void PreviewForm::WireLower(const Routines& routines, StringView helpTopic) {
  Follow(Lower->chkHeader, Lower->txtDescription);
  Lower->btmOK.Click = Handler(routines.OK, [this](const Statements& run) { Finish(run); });
  Lower->btmCancel.Click = Handler(routines.Cancel, [this] { Close(); });
  Lower->btmHelp.Click =
      Handler(routines.Help, [helpTopic] { mGlobals::RunHelpFennick(helpTopic); });
}

void PreviewForm::WireList(builders::ItemList& items, const ListRoutines& routines) {
  const auto wire = [&](forms::Button& button, StringView routine,
                        void (builders::ItemList::*operation)()) {
    button.Click = Handler(routine, [this, &items, operation] {
      (items.*operation)();
      View();
    });
  };
  wire(items.btmDel, routines.Delete, &builders::ItemList::DeleteSelected);
  wire(items.btmMoveUp, routines.MoveUp, &builders::ItemList::MoveSelectedUp);
  wire(items.btmMoveDown, routines.MoveDown, &builders::ItemList::MoveSelectedDown);
}

void PreviewForm::Prepare(const Statements& run) {
  run([&] { Lower->Preview.RightMargin = PreviewMargin; });
  RestorePlace(run);
  RestoreFont(run, Lower->Preview.Name(), Lower->Preview.Font);
}

void PreviewForm::FillModules(const Statements& run, forms::ComboBox& modules) {
  run([&] {
    FillList(modules, vb::Split(mGlobals::GetProjectComponent(VBInstance, 2), u"|"),
             mGlobals::SelectedVBComponentName(VBInstance));
  });
}

builders::HeaderChoices PreviewForm::Comment() const {
  return {Lower->chkHeader.Value() == 1, Lower->txtDescription.Text(), mFunctions::IncludeDate(),
          mFunctions::IncludeAuthor()};
}

bool PreviewForm::InsertText(StringView component, StringView text, int mode,
                             host::vbext_ComponentType newType, int caretOffset) {
  return mGlobals::InsertTextActiveVbComponent(VBInstance, component, text, mode, u"", newType,
                                               caretOffset);
}

void ComposerForm::Finish(const Statements& run,
                          const std::optional<builders::Complaint>& complaint, StringView text) {
  if (!run([&] { return Accept(complaint); })) return;
  Result = text;
  KeepPlace(run);
  run([&] { Hide(); });
}

void ComposerForm::GiveUp(const Statements& run) {
  KeepPlace(run);
  Result.clear();
  run([&] { Hide(); });
}

bool ComposerForm::Form_QueryUnload() {
  Result.clear();
  return false;
}

}  // namespace tessel
