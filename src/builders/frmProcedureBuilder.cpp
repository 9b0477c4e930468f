#include "builders/frmProcedureBuilder.h"

#include "insertion/mGlobals.h"
#include "presentation/mCodeConverter.h"

namespace tessel {

frmProcedureBuilder::frmProcedureBuilder()
    : BuilderForm("frmProcedureBuilder", u"Procedure Builder") {
  Icon = 104;
  Border = forms::BorderStyle::Sizable;
  RicViewProcedureBuilder.Locked = true;
  btmOK.Default = true;
  btmCancel.Cancel = true;
  Arrange();
  Wire();
}

void frmProcedureBuilder::Arrange() {
  using namespace forms;
  SetLayout(Column(
      {Row({Item(lblName), Item(txtName, 1), Item(lblType), Item(ComType)}),
       Row({Item(lblAccessibility), Item(ComAccessibility, 1), Item(lblStatic),
            Item(ComStatic, 1)}),
       Row({Item(lblReturnValueType), Item(ComReturnValueType, 1)}),
       Row({Item(lblModule), Item(ComModule, 1)}),
       Group(
           u"Arguments",
           {Row({Item(ListProcedureArguments, 1),
                 Column({Item(btmAdd), Item(btmDel), Item(btmMoveUp), Item(btmMoweDown), Space()})},
                1)},
           1),
       Row({Item(lblDescription), Item(txtDescription, 1), Item(chkHeader)}),
       Item(RicViewProcedureBuilder, 2),
       Row({Item(btmHelp), Space(), Item(btmOK), Item(btmCancel)})}));
}

void frmProcedureBuilder::Wire() {
  using namespace forms;
  chkHeader.Click = [this] { ViewRTF(); };
  for (ComboBox* const box : {&ComAccessibility, &ComModule, &ComReturnValueType, &ComStatic}) {
    box->Click = [this] { ViewRTF(); };
  }
  ComType.Click = [this] {
    EnableReturnType();
    ViewRTF();
  };
  for (TextBox* const box : {&txtDescription, &txtName}) box->Change = [this] { ViewRTF(); };
  btmAdd.Click = [this] { AddArgument(); };
  const auto change = [this](Button& button, void (*operation)(ListBox&)) {
    button.Click = [this, operation] {
      operation(ListProcedureArguments);
      ViewRTF();
    };
  };
  change(btmDel, DeleteSelected);
  change(btmMoveUp, MoveSelectedUp);
  change(btmMoweDown, MoveSelectedDown);
  btmOK.Click = [this] { OK(); };
  btmCancel.Click = [this] { Close(); };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"builders.htm"); };
}

builders::ProcedureChoices frmProcedureBuilder::Choices() const {
  return {txtName.Text(),
          ComType.Text(),
          ComAccessibility.Text(),
          ComStatic.Text(),
          ListProcedureArguments.List(),
          ComReturnValueType.Text(),
          Comment(chkHeader, txtDescription)};
}

void frmProcedureBuilder::Form_Load() {
  Routine(u"frmProcedureBuilder.Form_Load", [&](const Statements& run) {
    run([&] { RicViewProcedureBuilder.RightMargin = PreviewMargin; });
    RestorePlace(run);
    RestoreFont(run, RicViewProcedureBuilder.Name(), RicViewProcedureBuilder.Font);
    run([&] { types_ = CSQLDataType().NamesWithNone(); });
    LoadParametr();
    FillModules(run, ComModule);
    ViewRTF();
  });
}

void frmProcedureBuilder::LoadParametr() {
  Routine(u"frmProcedureBuilder.LoadParametr", [&](const Statements& run) {
    run([&] { FillList(ComStatic, {u"", u"Static"}, DefaultText(u"ComStaticProcedure", u"")); });
    run([&] {
      FillList(ComAccessibility, {u"", u"Public", u"Private", u"Friend"},
               DefaultText(u"ComAccessibilityProcedure", u"Public"));
    });
    run([&] {
      FillList(ComType, {u"Function", u"Sub"}, DefaultText(u"ComTypeProcedure", u"Sub"));
    });
    run([&] {
      FillList(ComReturnValueType, types_, DefaultText(u"ComReturnValueTypeProcedure", NoType));
    });
    run([&] { txtDescription.SetText(DefaultText(u"txtDescriptionProcedure", u"")); });
    run([&] { chkHeader.SetValue(DefaultFlag(u"chkHeaderProcedure", true) ? 1 : 0); });
    EnableReturnType();
  });
}

void frmProcedureBuilder::EnableReturnType() {
  ComReturnValueType.SetEnabled(builders::HasReturnValue(Choices()));
}

void frmProcedureBuilder::AddArgument() {
  Routine(u"frmProcedureBuilder.btmAdd_Click", [&](const Statements& run) {
    argument_ = std::make_shared<frmArgumentBuilder>();
    const auto form = argument_;
    run([&] { form->Load(); });
    form->TableType = types_;
    run([&] { form->Show(platform::ShowStyle::Modal); });
    if (!form->Result.empty()) run([&] { AddSelected(ListProcedureArguments, form->Result); });
    run([&] { form->Unload(); });
    argument_.reset();
    ViewRTF();
  });
}

void frmProcedureBuilder::ViewRTF() {
  Routine(u"frmProcedureBuilder.ViewRTF", [&] {
    RicViewProcedureBuilder.SetTextRTF(mCodeConverter::MakeRTF(
        builders::GeneratorTextMethod(Choices()), RicViewProcedureBuilder.Font->Charset));
  });
}

void frmProcedureBuilder::OK() {
  Routine(u"frmProcedureBuilder.btmOK_Click", [&](const Statements& run) {
    const builders::ProcedureChoices choices = Choices();
    if (!run([&] { return Accept(builders::CheckField(choices)); })) return;
    if (InsertText(ComModule.Text(), builders::GeneratorTextMethod(choices), mGlobals::EndOfModule,
                   host::vbext_ct_StdModule, builders::CaretOffset(choices))) {
      run([&] { Close(); });
    }
  });
}

void frmProcedureBuilder::Close() {
  if (Connect != nullptr) Connect->HideProcedureBuilder();
}

void frmProcedureBuilder::Form_Unload() { Leave(u"frmProcedureBuilder.Form_Unload"); }

}  // namespace tessel
