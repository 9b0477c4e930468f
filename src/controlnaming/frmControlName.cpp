#include "controlnaming/frmControlName.h"

#include "controlnaming/mControlName.h"

namespace tessel {

frmControlName::frmControlName() : NamingForm("frmControlName", u"Control Name  Change") {
  using namespace forms;
  btmYes.Default = true;
  btmNo.Cancel = true;
  SetLayout(Column({Item(lblText), Row({Item(lblOldCaption), Item(lblOldName, 1)}),
                    Row({Item(lblNewCaption), Item(lblNewName, 1)}), Space(),
                    Row({Space(), Item(btmYes), Item(btmNo)})}));
  btmYes.Click = [this] { Yes(); };
  btmNo.Click = Handler(u"frmControlName.btmNo_Click", [this] { Unload(); });
}

void frmControlName::Form_Load() {
  Routine(u"frmControlName.Form_Load", [&](const Statements& run) { RestorePlace(run); });
}

void frmControlName::Yes() {
  Routine(u"frmControlName.btmYes_Click", [&](const Statements& run) {
    const auto module = ModuleOf(run, NameComponent);
    mControlName::RunUpdateCodeName(module, lblOldName.Caption(), lblNewName.Caption());
    run([&] { Unload(); });
  });
}

void frmControlName::Form_Unload() {
  Routine(u"frmControlName.Form_Unload", [&](const Statements& run) { KeepPlace(run); });
}

}  // namespace tessel
