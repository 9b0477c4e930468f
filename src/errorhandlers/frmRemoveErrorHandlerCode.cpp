#include "errorhandlers/frmRemoveErrorHandlerCode.h"

#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "foundation/Routine.h"
#include "insertion/mGlobals.h"
#include "scanning/Scope.h"

namespace tessel {

frmRemoveErrorHandlerCode::frmRemoveErrorHandlerCode(
    std::shared_ptr<mInsertErrorHandlerCode::RunContext> context)
    : ToolForm("frmRemoveErrorHandlerCode", u"Remove Error Handler Code"),
      context_(std::move(context)) {
  using namespace forms;
  Icon = 110;
  btmBegin.Default = true;
  btmCancel.Cancel = true;
  SetLayout(Column({Row({Item(lblRemoveFrom), Item(ComRemoveFrom, 1)}), Space(),
                    Row({Item(btmHelp), Space(), Item(btmBegin), Item(btmCancel)})}));
  btmBegin.Click = [this] { Begin(); };
  btmCancel.Click = Handler(u"frmRemoveErrorHandlerCode.btmCancel_Click", [this] {
    if (Connect != nullptr) Connect->HideRemoveErrorHandlerCode();
  });
  btmHelp.Click = Handler(u"frmRemoveErrorHandlerCode.btmHelp_Click",
                          [] { mGlobals::RunHelpFennick(u"errorhandlers.htm"); });
}

void frmRemoveErrorHandlerCode::Form_Load() {
  Routine(u"frmRemoveErrorHandlerCode.Form_Load", [&](const Statements& run) {
    RestorePlace(run);
    scope::ActiveMember unused;
    scope::ListScopes(run, ComRemoveFrom, VBInstance, unused);
    if (ComRemoveFrom.Text().empty()) btmBegin.SetEnabled(false);
  });
}

void frmRemoveErrorHandlerCode::Begin() {
  RunAndLeave(u"frmRemoveErrorHandlerCode.btmBegin_Click", [&](const Statements& run) {
    FillNames(run, *context_, VBInstance);
    const String scope = ComRemoveFrom.Text();
    run([&] { Hide(); });
    if (const auto components = ActiveComponents(run)) {
      Tell(run, mRemoveErrorHandlerCode::RunRemoveErrorHandlerCode(*context_, components, scope));
    }
    if (Connect != nullptr) Connect->HideRemoveErrorHandlerCode();
  });
}

void frmRemoveErrorHandlerCode::Form_Unload() { Leave(u"frmRemoveErrorHandlerCode.Form_Unload"); }

}  // namespace tessel
