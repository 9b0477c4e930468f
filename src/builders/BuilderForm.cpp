#include "builders/BuilderForm.h"

#include "insertion/mGlobals.h"
#include "platform/Platform.h"
#include "presentation/mCodeConverter.h"
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
  if (complaint->Code != 0) {
    return mFunctions::myBreak(complaint->Code, complaint->Info1, complaint->Info2);
  }
  platform::Current().Boxes().ShowMessage(complaint->Message, u"Tessel", platform::Exclamation);
  return false;
}

PreviewForm::PreviewForm(const BuilderKind& kind)
    : BuilderForm(kind.Name, kind.Caption), kind_(kind) {
  Icon = kind.Icon;
  Border = forms::BorderStyle::Sizable;
}

void PreviewForm::View() {
  Routine(kind_.View, [&] {
    String code = Code();
    // One change of a field may bring others, each of which comes here.
    if (shown_ == code) return;
    ShowCode(code);
    shown_ = std::move(code);
  });
}

void PreviewForm::ShowCode(StringView code) {
  Lower->Preview.SetTextRTF(mCodeConverter::MakeRTF(code, Lower->Preview.Font->Charset));
}

void PreviewForm::Close() {
  if (Connect != nullptr) ((*Connect.operator->()).*kind_.Hide)();
}

void PreviewForm::Form_Unload() {
  shown_.reset();
  Leave(kind_.Unload);
}

void PreviewForm::WireLower() {
  Follow(Lower->chkHeader, Lower->txtDescription);
  Lower->btmOK.Click = Handler(kind_.OK, [this](const Statements& run) { Finish(run); });
  Lower->btmCancel.Click = Handler(kind_.Cancel, [this] { Close(); });
  Lower->btmHelp.Click =
      Handler(kind_.Help, [topic = kind_.HelpTopic] { mGlobals::RunHelpFennick(topic); });
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
                             host::vbext_ComponentType newType, int caretOffset,
                             std::shared_ptr<host::VBComponent>* made) {
  return mGlobals::InsertTextActiveVbComponent(VBInstance, component, text, mode, u"", newType,
                                               caretOffset, made);
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
