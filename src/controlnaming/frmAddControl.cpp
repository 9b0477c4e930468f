#include "controlnaming/frmAddControl.h"

#include "insertion/mGlobals.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

constexpr int FieldIsEmpty = 4, NameIsTaken = 19;
constexpr int AnswerOK = 1, AnswerCancel = 2;

}  // namespace

frmAddControl::frmAddControl() : NamingForm("frmAddControl", u"Add Conrtol") {
  using namespace forms;
  btmOK.Default = true;
  btmCansel.Cancel = true;
  SetLayout(
      Column({Item(lblText), Row({Item(lblTextCaption), Item(txtText, 1)}),
              Row({Item(lblName), Item(txtName, 1)}), Space(),
              Row({Item(btmHelp), Item(btmStandards), Space(), Item(btmOK), Item(btmCansel)})}));
  txtText.Change = Handler(u"frmAddControl.txtText_Change",
                           [this] { txtName.SetText(Connect->ItemAddedName() + txtText.Text()); });
  btmOK.Click = [this] { OK(); };
  btmCansel.Click = Handler(u"frmAddControl.btmCansel_Click", [this] {
    Connect->SetReturnOkCancel(AnswerCancel);
    Unload();
  });
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"controlnaming.htm"); };
}

void frmAddControl::Form_Load() {
  Routine(u"frmAddControl.Form_Load", [&](const Statements& run) { RestorePlace(run); });
}

bool frmAddControl::DuplicatNameControl(StringView name) const {
  bool taken = false;
  Routine(u"frmAddControl.DuplicatNameControl", [&](const Statements& run) {
    const auto module = ModuleOf(run, NameCodeModule);
    if (!module) return;
    const auto designer = run([&] { return Need(module->Parent()).Designer(); });
    const auto controls = run([&] { return designer ? designer->VBControls() : nullptr; });
    const int count = run([&] { return controls ? controls->Count() : 0; });
    for (int at = 1; at <= count && !taken; ++at) {
      taken = run([&] { return vb::SameText(controls->Item(at)->ControlObjectName(), name); });
    }
  });
  return taken;
}

void frmAddControl::OK() {
  Routine(u"frmAddControl.btmOK_Click", [&](const Statements& run) {
    const String& name = txtName.Text();
    if (name.empty()) return run([&] { Refuse(txtName, FieldIsEmpty, name); });
    if (run([&] { return DuplicatNameControl(name); })) {
      return run([&] { Refuse(txtName, NameIsTaken, name); });
    }
    // Symbols that can't stand in a name are left to the environment, which refuses them itself.
    run([&] { Connect->SetItemAddedName(name); });
    if (txtText.Enabled()) run([&] { Connect->SetItemAddedText(txtText.Text()); });
    run([&] { Connect->SetReturnOkCancel(AnswerOK); });
    run([&] { Unload(); });
  });
}

void frmAddControl::Form_Unload() {
  Routine(u"frmAddControl.Form_Unload", [&](const Statements& run) { KeepPlace(run); });
}

}  // namespace tessel
