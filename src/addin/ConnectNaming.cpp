// Control names: the environment's control events and the dialogs that they open.

#include <optional>

#include "addin/Connect.h"
#include "controlnaming/CSQLControlType.h"
#include "foundation/Routine.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

constexpr int AnswerOK = 1, AnswerCancel = 2;
/// So many characters of a class's name stand in for a prefix.
constexpr std::size_t ShortPrefix = 3;

/// The property that a control shows its text in, "Caption" or "Text"; the later one of both.
String TextPropertyOf(const Statements& run, const std::shared_ptr<host::Properties>& properties) {
  String found;
  const int count = run([&] { return properties->Count(); });
  for (int at = 1; at <= count; ++at) {
    const String name = run([&] { return properties->Item(at)->Name(); });
    if (vb::SameText(name, u"Caption") || vb::SameText(name, u"Text")) found = name;
  }
  return found;
}

void PutProperty(const Statements& run, const std::shared_ptr<host::VBControl>& control,
                 StringView name, StringView value) {
  run([&] { Need(control).Properties()->Item(name)->SetValue(value); });
}

/// The text that is selected on one line; empty for a selection over several.
String SelectedText(const Statements& run, host::CodePane& pane) {
  const host::Selection at = run([&] { return pane.GetSelection(); });
  if (at.StartLine != at.EndLine || at.EndColumn <= at.StartColumn || at.StartColumn < 1) return {};
  const String line = run([&] { return Need(pane.CodeModule()).Lines(at.StartLine, 1); });
  return String(vb::Mid(line, static_cast<std::size_t>(at.StartColumn),
                        static_cast<std::size_t>(at.EndColumn - at.StartColumn)));
}

}  // namespace

void Connect::BindControlEvents() {
  ctrFennickEvents_->ItemAdded = EnteringWith(&Connect::ctrFennickEvents_ItemAdded);
  ctrFennickEvents_->ItemRenamed = EnteringWith(&Connect::ctrFennickEvents_ItemRenamed);
}

/// Runs what a naming dialog is up for, unless one is up. However it ends, the commands are back
/// and no dialog stays behind.
template <class Form, class Body>
void Connect::WhileNaming(StringView routine, std::shared_ptr<Form>& reference, Body&& body) {
  const auto self = weak_from_this().lock();
  if (windowsFormFennick_) return;
  bool named = false;
  Run(routine, [&](const Statements& run) {
    SetWindowsFormFennick(true);
    reference = run([] { return std::make_shared<Form>(); });
    Adopt(reference);
    named = body(run);
  });
  if (const auto form = std::exchange(reference, nullptr)) {
    ResumeNext([&] { form->Unload(); });
  }
  SetWindowsFormFennick(false);
  if (named) RefreshTreeExplorer(false);
}

void Connect::ctrFennickEvents_ItemAdded(const ControlOnDesigner& control) {
  WhileNaming(u"Connect.ctrFennickEvents_ItemAdded", AddControl, [&](const Statements& run) {
    returnOkCancel_ = AnswerCancel;  // what a dialog leaves that is closed by its frame
    const auto className = run([&] { return std::optional(Need(control).ClassName()); });
    if (!className) return false;
    const auto properties = run([&] { return Need(control).Properties(); });
    if (!properties) return false;
    itemAddedTag_ = TextPropertyOf(run, properties);
    itemAddedText_ = run([&] { return properties->Item(u"Name")->Value(); });
    itemAddedName_ = run([&] { return CSQLControlType().GetPrefixControl(*className); });
    if (itemAddedName_.empty()) itemAddedName_ = vb::Left(*className, ShortPrefix);
    AskForName(run, control);
    if (returnOkCancel_ != AnswerOK) return false;
    PutProperty(run, control, u"Name", itemAddedName_);
    if (!itemAddedTag_.empty()) PutProperty(run, control, itemAddedTag_, itemAddedText_);
    return true;
  });
}

/// Shows the dialog over the mailbox and waits for it.
void Connect::AskForName(const Statements& run, const ControlOnDesigner& control) {
  const auto form = AddControl;
  run([&] { Need(form).Load(); });
  run([&] { Need(form).NameCodeModule = Need(Need(control).Collection()->Parent()).Name(); });
  run([&] { Need(form).txtName.SetText(itemAddedName_); });
  run([&] { Need(form).txtText.SetEnabled(!itemAddedTag_.empty()); });
  if (!itemAddedTag_.empty()) {
    run([&] { Need(form).txtText.SetToolTipText(itemAddedTag_); });
    run([&] { Need(form).txtText.SetText(itemAddedText_); });
  }
  run([&] { Need(form).Show(platform::ShowStyle::Modal); });
}

void Connect::ctrFennickEvents_ItemRenamed(const ControlOnDesigner& control, StringView oldName,
                                           int /*oldIndex*/) {
  Run(u"Connect.ctrFennickEvents_ItemRenamed", [&](const Statements& run) {
    // Without one of them the code would lose the old name, or another component get the new one.
    const auto newName =
        run([&] { return std::optional(Need(Need(control).Properties()).Item(u"Name")->Value()); });
    if (!newName) return;
    const auto component =
        run([&] { return std::optional(Need(Need(control).ControlObjectParent()).Name()); });
    if (component) ShowControlName(oldName, *newName, *component);
  });
}

void Connect::ShowControlName(StringView oldName, StringView newName, StringView componentName) {
  WhileNaming(u"Connect.ShowControlName", ControlName, [&](const Statements& run) {
    const auto form = ControlName;
    run([&] { Need(form).Load(); });
    run([&] { Need(form).lblOldName.SetCaption(oldName); });
    run([&] { Need(form).lblNewName.SetCaption(newName); });
    run([&] { Need(form).NameComponent = componentName; });
    run([&] { Need(form).Show(platform::ShowStyle::Modal); });
    return true;
  });
}

void Connect::VBAUpdateControlName() {
  Run(u"Connect.VBAUpdateControlName", [&](const Statements& run) {
    if (windowsFormFennick_) return;
    const auto pane = run([&] { return Need(vbInstance_).ActiveCodePane(); });
    if (!pane) return;
    const String oldName = SelectedText(run, *pane);
    const auto module = run([&] { return pane->CodeModule(); });
    if (!module) return;
    const auto component = run([&] { return std::optional(Need(module->Parent()).Name()); });
    if (!component) return;
    const auto names = mFunctions::VBAArrayControlName(module);
    const auto form = run([] { return std::make_shared<frmUpdateControlName>(); });
    Adopt(form);
    run([&] { Need(form).Load(); });
    run([&] { Need(form).NameComponent = *component; });
    run([&] { Need(form).txtOldName.SetText(oldName); });
    if (names) run([&] { mFunctions::AddListInCombobox(Need(form).cmbNewName, *names); });
    run([&] { Need(form).Show(platform::ShowStyle::Modal); });
    RefreshTreeExplorer(true);
  });
}

}  // namespace tessel
