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
  Routine(routine, [&] {
    if (dialogOpen_) return;
    dialogOpen_ = true;
    ResumeNext([&] {
      if (!reference) reference = std::make_shared<Form>(parts...);
    });
    ResumeNext([&] { reference->VBInstance = vbInstance_; });
    ResumeNext([&] { reference->Connect = this; });
    ResumeNext([&] { reference->Show(platform::ShowStyle::Modal); });
  });
}

void Connect::ShowFormatText() { ShowGuarded(u"Connect.ShowFormatText", FormatText, formatRun_); }

template <class Form>
void Connect::HideDialog(StringView routine, std::shared_ptr<Form>& reference, bool refresh) {
  Routine(routine, [&](const Statements& run) {
    const auto form = reference;  // this runs inside a handler of the form
    if (!form) return;
    run([&] { form->Hide(); });
    run([&] { form->Unload(); });
    reference.reset();
    if (refresh) RefreshTreeExplorer(false);
  });
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

void Connect::ShowRemoveErrorHandlerCode() {
  ShowGuarded(u"Connect.ShowRemoveErrorHandlerCode", RemoveErrorHandlerCode, handlersRun_);
}

void Connect::HideRemoveErrorHandlerCode() {
  HideDialog(u"Connect.HideRemoveErrorHandlerCode", RemoveErrorHandlerCode, true);
}

void Connect::ShowAbout() {
  Routine(u"Connect.ShowAbout", [&] {
    ResumeNext(DoEvents);
    ResumeNext([&] {
      if (!About) About = std::make_shared<frmAbout>();
      About->Show(platform::ShowStyle::Modal);
    });
    About.reset();
  });
}

void Connect::ShowProjectExplorer() {
  Routine(u"Connect.ShowProjectExplorer", [&] {
    ResumeNext([&] {
      if (explorerWindow_) explorerWindow_->SetVisible(true);
    });
  });
}

void Connect::HideProjectExplorer() {
  Routine(u"Connect.HideProjectExplorer", [&] {
    ResumeNext([&] {
      if (explorerWindow_) explorerWindow_->SetVisible(false);
    });
  });
}

void Connect::RefreshTreeExplorer(bool) {
  Routine(u"Connect.RefreshTreeExplorer", [&] { DoEvents(); });
}

void Connect::RunEnded(const RunResult& result) {
  if (OnRunEnded) OnRunEnded(result);
}

void Connect::SetWindowsFormFennick(bool value) {
  Routine(u"Connect.WindowsFormFennick", [&] {
    windowsFormFennick_ = value;
    EnableDisableCmd(!value);
  });
}

}  // namespace tessel
