#include "errorhandlers/frmRemoveErrorHandlerCode.h"

#include "errorhandlers/RunContext.h"
#include "errorhandlers/mRemoveErrorHandlerCode.h"
#include "foundation/Routine.h"
#include "insertion/mGlobals.h"
#include "scanning/Scope.h"
#include "scanning/mFunctions.h"

namespace tessel {

frmRemoveErrorHandlerCode::frmRemoveErrorHandlerCode()
    : ToolForm("frmRemoveErrorHandlerCode", u"Remove Error Handler Code") {
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
    RestorePlace(run);
    scope::ActiveMember unused;
    const String scopes = scope::GetProjectForFormated(VBInstance, unused);
    run([&] { mFunctions::AddListInCombobox(ComRemoveFrom, vb::Split(scopes, u"|")); });
    if (ComRemoveFrom.Text().empty()) btmBegin.SetEnabled(false);
  });
}

void frmRemoveErrorHandlerCode::Begin() {
  RunAndLeave(u"frmRemoveErrorHandlerCode.btmBegin_Click", [&](const Statements& run) {
    run([&] { FillRunContext(Need(VBInstance), nullptr); });
    const String scope = ComRemoveFrom.Text();
    run([&] { Hide(); });
    const auto project = run([&] { return Need(VBInstance).ActiveVBProject(); });
    mRemoveErrorHandlerCode::RunRemoveErrorHandlerCode(
        run([&] { return Need(project).VBComponents(); }), scope);
    if (Connect != nullptr) Connect->HideRemoveErrorHandlerCode();
  });
}

void frmRemoveErrorHandlerCode::Form_Unload() { Leave(u"frmRemoveErrorHandlerCode.Form_Unload"); }

}  // namespace tessel
