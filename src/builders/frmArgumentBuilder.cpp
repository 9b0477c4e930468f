#include "builders/frmArgumentBuilder.h"

#include "insertion/mGlobals.h"
#include "scanning/mFunctions.h"

namespace tessel {

frmArgumentBuilder::frmArgumentBuilder() : BuilderForm("frmArgumentBuilder", u"Argument Builder") {
  using namespace forms;
  btmOK.Default = true;
  btmCansel.Cancel = true;
  SetLayout(Column({Row({Item(lblName), Item(txtName, 1)}), Row({Item(lblType), Item(ComType, 1)}),
                    Row({Item(chkArray), Item(chkOptional), Item(chkParamArray), Space()}),
                    Row({Item(OptByRef), Item(OptByVal), Space()}),
                    Row({Item(lblDefaultValue), Item(txtDefaultValue, 1)}),
                    Group(u"Result", {Item(lblResult)}), Space(),
                    Row({Item(btmHelp), Space(), Item(btmOK), Item(btmCansel)})}));
  for (CheckBox* const box : {&chkArray, &chkOptional, &chkParamArray}) {
    box->Click = [this] {
      EnableFields();
      ShowResult();
    };
  }
  for (OptionButton* const option : {&OptByRef, &OptByVal})
    option->Click = [this] { ShowResult(); };
  for (TextBox* const box : {&txtName, &txtDefaultValue}) box->Change = [this] { ShowResult(); };
  ComType.Click = [this] { ShowResult(); };
  btmOK.Click = [this] { OK(); };
  btmCansel.Click = [this] {
    Result.clear();
    Hide();
  };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"builders.htm"); };
}

builders::ArgumentChoices frmArgumentBuilder::Choices() const {
  return {txtName.Text(),
          ComType.Text(),
          chkArray.Value() == 1,
          chkOptional.Value() == 1,
          chkParamArray.Value() == 1,
          OptByRef.Value(),
          OptByVal.Value(),
          txtDefaultValue.Text()};
}

void frmArgumentBuilder::Form_Load() {
  Routine(u"frmArgumentBuilder.Form_Load", [&](const Statements& run) {
    RestorePlace(run);
    LoadParametr();
    ShowResult();
  });
}

void frmArgumentBuilder::Form_Activate() {
  // The types arrive between loading and showing.
  Routine(u"frmArgumentBuilder.Form_Activate", [&](const Statements& run) {
    RestorePlace(run);
    run([&] { mFunctions::AddListInCombobox(ComType, TableType); });
    ShowResult();
  });
}

void frmArgumentBuilder::LoadParametr() {
  Routine(u"frmArgumentBuilder.LoadParametr", [&](const Statements& run) {
    run([&] { chkOptional.SetValue(DefaultFlag(u"chkOptional", true) ? 1 : 0); });
    run([&] { OptByRef.SetValue(DefaultFlag(u"OptByRef", true)); });
    run([&] { OptByVal.SetValue(DefaultFlag(u"OptByVal", false)); });
    run([&] { txtDefaultValue.SetEnabled(chkOptional.Value() == 1); });
  });
}

void frmArgumentBuilder::EnableFields() {
  Routine(u"frmArgumentBuilder.EnabledField", [&] {
    const builders::ArgumentFields fields = builders::EnabledField(Choices());
    chkOptional.SetEnabled(fields.Optional);
    OptByRef.SetEnabled(fields.Passing);
    OptByVal.SetEnabled(fields.Passing);
    chkParamArray.SetEnabled(fields.ParamArray);
    txtDefaultValue.SetEnabled(fields.DefaultValue);
    ComType.SetEnabled(fields.Type);
  });
}

void frmArgumentBuilder::ShowResult() {
  Routine(u"frmArgumentBuilder.GeneratorStrok",
          [&] { lblResult.SetCaption(builders::GeneratorStrok(Choices())); });
}

void frmArgumentBuilder::OK() {
  Routine(u"frmArgumentBuilder.btmOK_Click", [&](const Statements& run) {
    if (!run([&] { return Accept(builders::CheckField(Choices())); })) return;
    Result = builders::GeneratorStrok(Choices());
    run([&] { Hide(); });
  });
}

bool frmArgumentBuilder::Form_QueryUnload() {
  Result.clear();  // the frame's button is a Cancel
  return false;
}

void frmArgumentBuilder::Form_Unload() { Leave(u"frmArgumentBuilder.Form_Unload"); }

}  // namespace tessel
