#include "builders/frmParameterEnum.h"

#include "insertion/mGlobals.h"

namespace tessel {

frmParameterEnum::frmParameterEnum()
    : BuilderForm("frmParameterEnum", u"Create Parameter for Enum") {
  using namespace forms;
  btmOK.Default = true;
  btmCancel.Cancel = true;
  SetLayout(Column(
      {Row({Item(lblPrefix), Item(txtPrefix, 1)}), Row({Item(lblName), Item(txtName, 1)}),
       Row({Item(lblDefaultValue), Item(txtDefaultValue, 1)}), Group(u"Result", {Item(lblResult)}),
       Space(), Row({Item(btmHelp), Space(), Item(btmOK), Item(btmCancel)})}));
  for (TextBox* const box : {&txtPrefix, &txtName, &txtDefaultValue}) {
    box->Change = [this] { ShowResult(); };
  }
  btmOK.Click = [this] { OK(); };
  btmCancel.Click = [this] {
    Result.clear();
    Hide();
  };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"Create_Enum.htm"); };
}

builders::EnumMemberChoices frmParameterEnum::Choices() const {
  return {txtPrefix.Text(), txtName.Text(), txtDefaultValue.Text()};
}

void frmParameterEnum::Form_Load() {
  Routine(u"frmParameterEnum.Form_Load", [&](const Statements& run) {
    RestorePlace(run);
    run([&] { txtPrefix.SetText(DefaultText(u"txtPrefixEnum", u"nn_")); });
    ShowResult();
  });
}

void frmParameterEnum::ShowResult() {
  Routine(u"frmParameterEnum.GeneratorStrok",
          [&] { lblResult.SetCaption(builders::GeneratorStrok(Choices())); });
}

void frmParameterEnum::OK() {
  Routine(u"frmParameterEnum.btmOK_Click", [&](const Statements& run) {
    if (!run([&] { return Accept(builders::CheckField(Choices())); })) return;
    Result = builders::GeneratorStrok(Choices());
    run([&] { Hide(); });
  });
}

bool frmParameterEnum::Form_QueryUnload() {
  Result.clear();  // the frame's button is a Cancel
  return false;
}

void frmParameterEnum::Form_Unload() { Leave(u"frmParameterEnum.Form_Unload"); }

}  // namespace tessel
