// The dialogs: showing, hiding, the one guard.

#include "addin/Connect.h"
#include "foundation/Routine.h"
#include "platform/Platform.h"

namespace tessel {
namespace {

void DoEvents() { platform::Current().Clock().DoEvents(); }

}  // namespace

/// A guarded modal dialog: made when there is none, told whom it works for, shown until it is
/// hidden. A second one does nothing and says nothing.
template <class Form, class... Parts>
void Connect::ShowGuarded(StringView routine, std::shared_ptr<Form>& reference,
                          const Parts&... parts) {
  Run(routine, [&] {
    if (dialogOpen_) return;
    dialogOpen_ = true;
    const SilentStatements silently;
    if (!reference) {
      reference = silently([&] { return std::make_shared<Form>(parts...); });
      std::erase_if(dialogs_, [](const auto& dialog) { return dialog.expired(); });
      dialogs_.push_back(reference);
    }
    silently([&] { Need(reference).VBInstance = vbInstance_; });
    silently([&] { Need(reference).Connect = weak_from_this(); });
    if (ResumeNext([&] { Need(reference).Show(platform::ShowStyle::Modal); })) return;
    // A form that did not come up must not keep every tool shut.
    silently([&] { Need(reference).Unload(); });
    dialogOpen_ = false;
  });
}

void Connect::ShowFormatText() { ShowGuarded(u"Connect.ShowFormatText", FormatText, formatRun_); }

template <class Form>
void Connect::HideDialog(StringView routine, std::shared_ptr<Form>& reference, bool refresh) {
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
    if (refresh) RefreshTreeExplorer(false);
  });
}

void Connect::ShowProcedureBuilder() {
  ShowGuarded(u"Connect.ShowProcedureBuilder", ProcedureBuilder);
}

void Connect::HideProcedureBuilder() {
  HideDialog(u"Connect.HideProcedureBuilder", ProcedureBuilder, false);
  Run(u"Connect.HideProcedureBuilder", [&](const Statements& run) {
    run(DoEvents);
    RefreshTreeExplorer(true);
    RefreshTreeExplorer(false);
  });
}

void Connect::ShowPropertyBuilder() {
  ShowGuarded(u"Connect.ShowPropertyBuilder", PropertyBuilder);
}

void Connect::HidePropertyBuilder() {
  HideDialog(u"Connect.HidePropertyBuilder", PropertyBuilder, true);
}

void Connect::ShowClassBuilder() { ShowGuarded(u"Connect.ShowClassBuilder", ClassBuilder); }

void Connect::HideClassBuilder() { HideDialog(u"Connect.HideClassBuilder", ClassBuilder, true); }

void Connect::ShowEnum() { ShowGuarded(u"Connect.ShowEnum", EnumBuilder); }

void Connect::HideEnum() { HideDialog(u"Connect.HideEnum", EnumBuilder, true); }

void Connect::MenuFastCreadeDeclareEnum_Click() {
  ShowEnum();
  RefreshTreeExplorer(true);
}

void Connect::HideFormatText() { HideDialog(u"Connect.HideFormatText", FormatText, true); }

void Connect::ShowEditErrorHandlerScheme() {
  ShowGuarded(u"Connect.ShowEditErrorHandlerScheme", EditErrorHandlerScheme);
}

void Connect::HideEditErrorHandlerScheme() {
  HideDialog(u"Connect.HideEditErrorHandlerScheme", EditErrorHandlerScheme, false);
}

void Connect::ShowInsertErrorHandlerCode() {
  ShowGuarded(u"Connect.ShowInsertErrorHandlerCode", InsertErrorHandlerCode, handlersRun_);
}

void Connect::HideInsertErrorHandlerCode() {
  HideDialog(u"Connect.HideInsertErrorHandlerCode", InsertErrorHandlerCode, true);
}

void Connect::ShowGetFromVbCode() { ShowGuarded(u"Connect.ShowGetFromVbCode", GetFromVbCode); }

void Connect::HideGetFromVbCode() { HideDialog(u"Connect.HideGetFromVbCode", GetFromVbCode, true); }

void Connect::MenuFastGetFromVbCode_Click() {
  ShowGetFromVbCode();
  RefreshTreeExplorer(true);
}

void Connect::ShowStoreToVbCode() { ShowGuarded(u"Connect.ShowStoreToVbCode", StoreToVbCode); }

void Connect::HideStoreToVbCode() { HideDialog(u"Connect.HideStoreToVbCode", StoreToVbCode, true); }

void Connect::ShowRemoveErrorHandlerCode() {
  ShowGuarded(u"Connect.ShowRemoveErrorHandlerCode", RemoveErrorHandlerCode, handlersRun_);
}

void Connect::HideRemoveErrorHandlerCode() {
  HideDialog(u"Connect.HideRemoveErrorHandlerCode", RemoveErrorHandlerCode, true);
}

void Connect::ShowAbout() {
  Run(u"Connect.ShowAbout", [&] {
    const SilentStatements silently;
    silently(DoEvents);
    if (!About) About = silently([] { return std::make_shared<frmAbout>(); });
    silently([&] { Need(About).Show(platform::ShowStyle::Modal); });
    About.reset();
  });
}

void Connect::ShowProjectExplorer() {
  Run(u"Connect.ShowProjectExplorer", [&] {
    const SilentStatements silently;
    silently([&] { Need(explorerWindow_).SetVisible(true); });
  });
}

void Connect::HideProjectExplorer() {
  Run(u"Connect.HideProjectExplorer", [&] {
    const SilentStatements silently;
    silently([&] { Need(explorerWindow_).SetVisible(false); });
  });
}

void Connect::RefreshTreeExplorer(bool) {
  Run(u"Connect.RefreshTreeExplorer", [&] { DoEvents(); });
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
