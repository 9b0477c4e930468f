#include "controlnaming/frmUpdateControlName.h"

#include "controlnaming/mControlName.h"
#include "scanning/mFunctions.h"

namespace tessel {
namespace {

constexpr int BadSymbols = 3, FieldIsEmpty = 4;

}  // namespace

frmUpdateControlName::frmUpdateControlName() : NamingForm("frmUpdateControlName", u"Control Name") {
  using namespace forms;
  btmYes.Default = true;
  btmNo.Cancel = true;
  SetLayout(Column({Item(lblText), Row({Item(lblOldName), Item(txtOldName, 1)}),
                    Row({Item(lblNewName), Item(cmbNewName, 1)}), Space(),
                    Row({Space(), Item(btmYes), Item(btmNo)})}));
  btmYes.Click = [this] { Yes(); };
  btmNo.Click = Handler(u"frmUpdateControlName.btmNo_Click", [this] { Unload(); });
}

void frmUpdateControlName::Form_Load() {
  Routine(u"frmUpdateControlName.Form_Load", [&](const Statements& run) { RestorePlace(run); });
}

void frmUpdateControlName::Yes() {
  Routine(u"frmUpdateControlName.btmYes_Click", [&](const Statements& run) {
    const String& oldName = txtOldName.Text();
    const String& label = txtOldName.ToolTipText();
    if (oldName.empty()) return run([&] { Refuse(txtOldName, FieldIsEmpty, label); });
    if (mFunctions::GetBadSymbols(oldName, mFunctions::BadNameSymbols)) {
      return run([&] { Refuse(txtOldName, BadSymbols, label, mFunctions::BadNameSymbols); });
    }
    const auto module = ModuleOf(run, NameComponent);
    mControlName::RunUpdateCodeName(module, oldName, cmbNewName.Text());
    run([&] { Unload(); });
  });
}

void frmUpdateControlName::Form_Unload() { KeepPlace(u"frmUpdateControlName.Form_Unload"); }

}  // namespace tessel
