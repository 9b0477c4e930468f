#include "builders/frmEnumBuilder.h"

#include "insertion/mGlobals.h"
#include "presentation/ViewTextRichtextbox.h"

namespace tessel {

frmEnumBuilder::frmEnumBuilder() : BuilderForm("frmEnumBuilder", u"Enum Builder") {
  Border = forms::BorderStyle::Sizable;
  RicViewEnumBuilder.Locked = true;
  btmOK.Default = true;
  btmCancel.Cancel = true;
  Arrange();
  Wire();
}

void frmEnumBuilder::Arrange() {
  using namespace forms;
  SetLayout(Column(
      {Row({Item(lblName), Item(txtName, 1), Item(lblAccessibility), Item(ComAccessibility)}),
       Row({Item(lblModule), Item(ComModule, 1)}),
       Group(u"Members",
             {Row({Item(ListParameters, 1), Column({Item(btmAdd), Item(btmDel), Item(btmMoveUp),
                                                    Item(btmMoveDown), Space()})},
                  1)},
             1),
       Row({Item(lblDescription), Item(txtDescription, 1), Item(chkHeader)}),
       Item(RicViewEnumBuilder, 2), Row({Item(btmHelp), Space(), Item(btmOK), Item(btmCancel)})}));
}

void frmEnumBuilder::Wire() {
  using namespace forms;
  chkHeader.Click = [this] { ViewRTF(); };
  for (ComboBox* const box : {&ComAccessibility, &ComModule}) box->Click = [this] { ViewRTF(); };
  for (TextBox* const box : {&txtDescription, &txtName}) box->Change = [this] { ViewRTF(); };
  btmAdd.Click = [this] { AddParameter(); };
  const auto change = [this](Button& button, void (*operation)(ListBox&)) {
    button.Click = [this, operation] {
      operation(ListParameters);
      ViewRTF();
    };
  };
  change(btmDel, DeleteSelected);
  change(btmMoveUp, MoveSelectedUp);
  change(btmMoveDown, MoveSelectedDown);
  btmOK.Click = [this] { OK(); };
  btmCancel.Click = [this] { Close(); };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"Create_Enum.htm"); };
}

builders::EnumChoices frmEnumBuilder::Choices() const {
  return {txtName.Text(), ComAccessibility.Text(), ListParameters.List(),
          ListParameters.ListIndex(), Comment(chkHeader, txtDescription)};
}

void frmEnumBuilder::Form_Load() {
  Routine(u"frmEnumBuilder.Form_Load", [&](const Statements& run) {
    run([&] { RicViewEnumBuilder.RightMargin = PreviewMargin; });
    RestorePlace(run);
    RestoreFont(run, RicViewEnumBuilder.Name(), RicViewEnumBuilder.Font);
    LoadParametr();
    FillModules(run, ComModule);
    ViewRTF();
  });
}

void frmEnumBuilder::LoadParametr() {
  Routine(u"frmEnumBuilder.LoadParametr", [&](const Statements& run) {
    run([&] {
      FillList(ComAccessibility, {u"", u"Public", u"Private"},
               DefaultText(u"ComAccessibilityEnum", u"Public"));
    });
    run([&] { txtDescription.SetText(DefaultText(u"txtDescriptionEnum", u"")); });
    run([&] { chkHeader.SetValue(DefaultFlag(u"chkHeaderEnum", true) ? 1 : 0); });
  });
}

void frmEnumBuilder::AddParameter() {
  Routine(u"frmEnumBuilder.btmAdd_Click", [&](const Statements& run) {
    parameter_ = std::make_shared<frmParameterEnum>();
    const auto form = parameter_;
    run([&] { form->Load(); });
    run([&] { form->Show(platform::ShowStyle::Modal); });
    if (!form->Result.empty()) run([&] { AddSelected(ListParameters, form->Result); });
    run([&] { form->Unload(); });
    parameter_.reset();
    ViewRTF();
  });
}

void frmEnumBuilder::ViewRTF() {
  Routine(u"frmEnumBuilder.ViewRTF", [&] {
    mFunctions::ViewTextRichtextbox(RicViewEnumBuilder, builders::GeneratorText(Choices()));
  });
}

void frmEnumBuilder::OK() {
  Routine(u"frmEnumBuilder.btmOK_Click", [&](const Statements& run) {
    const builders::EnumChoices choices = Choices();
    if (!run([&] { return Accept(builders::CheckField(choices)); })) return;
    if (InsertText(ComModule.Text(), builders::GeneratorText(choices), mGlobals::EndOfDeclarations,
                   host::vbext_ct_StdModule, builders::CaretOffset(choices))) {
      run([&] { Close(); });
    }
  });
}

void frmEnumBuilder::Close() {
  if (Connect != nullptr) Connect->HideEnum();
}

void frmEnumBuilder::Form_Unload() { Leave(u"frmEnumBuilder.Form_Unload"); }

}  // namespace tessel
