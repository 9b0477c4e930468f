// The dialogs: showing, hiding, the one guard.

#include "addin/Connect.h"
#include "contextmenu/mMenuList.h"
#include "foundation/Routine.h"
#include "platform/Platform.h"

namespace tessel {
namespace {

void DoEvents() { platform::Current().Clock().DoEvents(); }

}  // namespace

using platform::ShowStyle;

/// A guarded dialog: made when there is none, told whom it works for and shown, a modal one
/// until it is hidden. A second one does nothing and says nothing.
template <class Form, class... Parts>
void Connect::ShowGuarded(StringView routine, std::shared_ptr<Form>& reference, ShowStyle style,
                          const Parts&... parts) {
  Run(routine, [&] {
    if (dialogOpen_) return;
    dialogOpen_ = true;
    const SilentStatements silently;
    if (!reference) reference = silently([&] { return std::make_shared<Form>(parts...); });
    Adopt(reference);
    if (ResumeNext([&] { Need(reference).Show(style); })) return;
    // A form that did not come up must not keep every tool shut.
    silently([&] { Need(reference).Unload(); });
    dialogOpen_ = false;
  });
}

void Connect::Adopt(const std::shared_ptr<ToolForm>& form) {
  if (!form) return;
  form->VBInstance = vbInstance_;
  form->Connect = weak_from_this();
  std::erase_if(dialogs_, [&](const auto& one) { return one.expired() || one.lock() == form; });
  dialogs_.push_back(form);
}

void Connect::ShowFormatText() {
  ShowGuarded(u"Connect.ShowFormatText", FormatText, ShowStyle::Modal, formatRun_);
}

template <class Form>
void Connect::HideDialog(StringView routine, std::shared_ptr<Form>& reference, Refresh refresh) {
  Run(routine, [&](const Statements& run) {
    const auto form = reference;  // this runs inside a handler of the form
    if (!form) return;
    reference.reset();
    try {
      run([&] { form->Hide(); });
      run([&] { form->Unload(); });
    } catch (const RoutineAborted&) {
      // Half a closing would keep every tool shut.
      ResumeNext([&] { form->Unload(); });
      dialogOpen_ = false;
      throw;
    }
    if (refresh == Refresh::None) return;
    if (refresh == Refresh::WithTwitch) {
      run(DoEvents);
      RefreshTreeExplorer(true);
    }
    RefreshTreeExplorer(false);
  });
}

void Connect::ShowProjectFragment() {
  const bool shows = !dialogOpen_;
  ShowGuarded(u"Connect.ShowProjectFragment", FragmentBuilder, ShowStyle::Modeless);
  if (shows) RefreshTreeExplorer(true);
}

void Connect::HideProjectFragment() {
  HideDialog(u"Connect.HideProjectFragment", FragmentBuilder, Refresh::Once);
}

void Connect::ShowProcedureBuilder() {
  ShowGuarded(u"Connect.ShowProcedureBuilder", ProcedureBuilder, ShowStyle::Modal);
}

void Connect::HideProcedureBuilder() {
  HideDialog(u"Connect.HideProcedureBuilder", ProcedureBuilder, Refresh::WithTwitch);
}

void Connect::ShowPropertyBuilder() {
  ShowGuarded(u"Connect.ShowPropertyBuilder", PropertyBuilder, ShowStyle::Modal);
}

void Connect::HidePropertyBuilder() {
  HideDialog(u"Connect.HidePropertyBuilder", PropertyBuilder, Refresh::Once);
}

void Connect::ShowClassBuilder() {
  ShowGuarded(u"Connect.ShowClassBuilder", ClassBuilder, ShowStyle::Modal);
}

void Connect::HideClassBuilder() {
  HideDialog(u"Connect.HideClassBuilder", ClassBuilder, Refresh::Once);
}

void Connect::ShowEnum() { ShowGuarded(u"Connect.ShowEnum", EnumBuilder, ShowStyle::Modal); }

void Connect::HideEnum() { HideDialog(u"Connect.HideEnum", EnumBuilder, Refresh::Once); }

void Connect::MenuFastCreadeDeclareEnum_Click() {
  ShowEnum();
  RefreshTreeExplorer(true);
}

void Connect::HideFormatText() { HideDialog(u"Connect.HideFormatText", FormatText, Refresh::Once); }

void Connect::ShowEditErrorHandlerScheme() {
  ShowGuarded(u"Connect.ShowEditErrorHandlerScheme", EditErrorHandlerScheme, ShowStyle::Modal);
}

void Connect::HideEditErrorHandlerScheme() {
  HideDialog(u"Connect.HideEditErrorHandlerScheme", EditErrorHandlerScheme, Refresh::None);
}

void Connect::ShowInsertErrorHandlerCode() {
  ShowGuarded(u"Connect.ShowInsertErrorHandlerCode", InsertErrorHandlerCode, ShowStyle::Modal,
              handlersRun_);
}

void Connect::HideInsertErrorHandlerCode() {
  HideDialog(u"Connect.HideInsertErrorHandlerCode", InsertErrorHandlerCode, Refresh::Once);
}

void Connect::ShowGetFromVbCode() {
  ShowGuarded(u"Connect.ShowGetFromVbCode", GetFromVbCode, ShowStyle::Modal);
}

void Connect::HideGetFromVbCode() {
  HideDialog(u"Connect.HideGetFromVbCode", GetFromVbCode, Refresh::Once);
}

void Connect::MenuFastGetFromVbCode_Click() {
  ShowGetFromVbCode();
  RefreshTreeExplorer(true);
}

void Connect::ShowStoreToVbCode() {
  ShowGuarded(u"Connect.ShowStoreToVbCode", StoreToVbCode, ShowStyle::Modal);
}

void Connect::HideStoreToVbCode() {
  HideDialog(u"Connect.HideStoreToVbCode", StoreToVbCode, Refresh::Once);
}

void Connect::ShowRemoveErrorHandlerCode() {
  ShowGuarded(u"Connect.ShowRemoveErrorHandlerCode", RemoveErrorHandlerCode, ShowStyle::Modal,
              handlersRun_);
}

void Connect::HideRemoveErrorHandlerCode() {
  HideDialog(u"Connect.HideRemoveErrorHandlerCode", RemoveErrorHandlerCode, Refresh::Once);
}

String Connect::ShowContextMenu(int codeX, int codeY) {
  String chosen;
  Enter([&] {
    Run(u"Connect.ShowContextMenu",
        [&] { chosen = mMenuList::ShowMembers(vbInstance_, codeX, codeY); });
  });
  return chosen;
}

void Connect::ShowSettings(StringView pageName) {
  Run(u"Connect.ShowSettings", [&] {
    const SilentStatements silently;
    if (!SettingsDialog) SettingsDialog = silently([] { return std::make_shared<frmSettings>(); });
    Adopt(SettingsDialog);
    silently([&] { Need(SettingsDialog).PageName = pageName; });
    silently(DoEvents);
    silently([&] { Need(SettingsDialog).Show(ShowStyle::Modal); });
  });
}

void Connect::MenuHandlerSetttings_Click() { ShowSettings(u""); }

void Connect::ShowAbout() {
  Run(u"Connect.ShowAbout", [&] {
    const SilentStatements silently;
    silently(DoEvents);
    if (!About) About = silently([] { return std::make_shared<frmAbout>(); });
    silently([&] { Need(About).Show(ShowStyle::Modal); });
    About.reset();
  });
}

void Connect::ShowProjectExplorer() {
  Run(u"Connect.ShowProjectExplorer", [&] {
    const SilentStatements silently;
    silently([&] { Need(explorerDocument_).VBInstance = vbInstance_; });
    silently([&] { Need(explorerDocument_).SetTreeVBA(gEventCODE); });
    silently([&] { Need(explorerDocument_).Connect = weak_from_this(); });
    ExplorerStarted = true;
    silently([&] { Need(explorerWindow_).SetVisible(true); });
  });
}

void Connect::MenuHandlerProjectExplorer_Click() {
  explorerOpenedByUser_ = true;
  ShowProjectExplorer();
}

void Connect::HideProjectExplorer() {
  Run(u"Connect.HideProjectExplorer", [&] {
    const SilentStatements silently;
    silently([&] { Need(explorerWindow_).SetVisible(false); });
  });
}

void Connect::RunEnded(const RunResult& result) {
  if (OnRunEnded) OnRunEnded(result);
}

void Connect::SetWindowsFormFennick(bool value) {
  Run(u"Connect.WindowsFormFennick", [&] {
    windowsFormFennick_ = value;
    EnableDisableCmd(!value);
  });
}

}  // namespace tessel
