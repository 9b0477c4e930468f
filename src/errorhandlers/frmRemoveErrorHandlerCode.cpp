#include "errorhandlers/frmRemoveErrorHandlerCode.h"

#include "errorhandlers/RunContext.h"
#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "foundation/Routine.h"
#include "insertion/mGlobals.h"
#include "scanning/Scope.h"
#include "scanning/mFunctions.h"

namespace tessel {

frmRemoveErrorHandlerCode::frmRemoveErrorHandlerCode()
    : Form("frmRemoveErrorHandlerCode", u"Remove Error Handler Code") {
  using namespace forms;
  Icon = 110;
  btmBegin.Default = true;
  btmCancel.Cancel = true;
  SetLayout(Column({Row({Item(lblRemoveFrom), Item(ComRemoveFrom, 1)}), Space(),
                    Row({Item(btmHelp), Space(), Item(btmBegin), Item(btmCancel)})}));
  btmBegin.Click = [this] { Begin(); };
  btmCancel.Click = [this] {
    if (Connect != nullptr) Connect->HideRemoveErrorHandlerCode();
  };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"errorhandlers.htm"); };
}

void frmRemoveErrorHandlerCode::Form_Load() {
  Routine(u"frmRemoveErrorHandlerCode.Form_Load", [&](const Statements& run) {
    run([&] {
      if (!gAppSettings) return;
      restore_.Init(gAppSettings, u"Windows settings");
      restore_.GetPosition(*this);
    });
    scope::ActiveMember unused;
    const String scopes = scope::GetProjectForFormated(VBInstance, unused);
    run([&] { mFunctions::AddListInCombobox(ComRemoveFrom, vb::Split(scopes, u"|")); });
    if (ComRemoveFrom.Text().empty()) btmBegin.SetEnabled(false);
  });
}

void frmRemoveErrorHandlerCode::Begin() {
  Routine(u"frmRemoveErrorHandlerCode.btmBegin_Click", [&](const Statements& run) {
    run([&] { FillRunContext(Need(VBInstance), nullptr); });
    const String scope = ComRemoveFrom.Text();
    run([&] { Hide(); });
    const auto project = run([&] { return Need(VBInstance).ActiveVBProject(); });
    mRemoveErrorHandlerCode::RunRemoveErrorHandlerCode(
        run([&] { return Need(project).VBComponents(); }), scope);
    if (Connect != nullptr) Connect->HideRemoveErrorHandlerCode();
  });
}

void frmRemoveErrorHandlerCode::Form_Unload() {
  Routine(u"frmRemoveErrorHandlerCode.Form_Unload", [&](const Statements& run) {
    if (Connect != nullptr) Connect->SetDialogOpen(false);
    run([&] {
      if (gAppSettings && restore_.AppSettings()) restore_.SavePosition(*this);
    });
  });
}

}  // namespace tessel
