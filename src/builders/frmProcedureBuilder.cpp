#include "builders/frmProcedureBuilder.h"

#include "insertion/mGlobals.h"

namespace tessel {

const frmProcedureBuilder::BuilderKind frmProcedureBuilder::Builder{
    "frmProcedureBuilder",
    u"Procedure Builder",
    104,
    u"frmProcedureBuilder.btmOK_Click",
    u"frmProcedureBuilder.btmCancel_Click",
    u"frmProcedureBuilder.btmHelp_Click",
    u"frmProcedureBuilder.ViewRTF",
    u"frmProcedureBuilder.Form_Unload",
    u"builders.htm",
    &IConnect::HideProcedureBuilder};

frmProcedureBuilder::frmProcedureBuilder() : PreviewForm(Builder) {
  Lower = &Part;
  Arrange();
  Wire();
}

void frmProcedureBuilder::Arrange() {
  using namespace forms;
  SetLayout(Column({Row({Item(Name.lblName), Item(Name.txtName, 1), Item(lblType), Item(ComType)}),
                    Row({Item(Access.lblAccessibility), Item(Access.ComAccessibility, 1),
                         Item(Static.lblStatic), Item(Static.ComStatic, 1)}),
                    Row({Item(lblReturnValueType), Item(ComReturnValueType, 1)}),
                    Row({Item(Module.lblModule), Item(Module.ComModule, 1)}),
                    ListProcedureArguments.Arrange(u"Arguments"), Part.ArrangeComment(),
                    Item(Part.Preview, 2), Part.ArrangeButtons()}));
}

void frmProcedureBuilder::Wire() {
  WireLower();
  Follow(Name.txtName, Access.ComAccessibility, Static.ComStatic, ComReturnValueType,
         Module.ComModule);
  ComType.Click = Handler(u"frmProcedureBuilder.ComType_Click", [this] {
    EnableReturnType();
    View();
  });
  WireList(ListProcedureArguments,
           {u"frmProcedureBuilder.btmDel_Click", u"frmProcedureBuilder.btmMoveUp_Click",
            u"frmProcedureBuilder.btmMoweDown_Click"});
  ListProcedureArguments.btmAdd.Click =
      Handler(u"frmProcedureBuilder.btmAdd_Click", [this](const Statements& run) {
        Compose(run, argument_, ListProcedureArguments,
                [this](frmArgumentBuilder& form) { form.TableType = types_; });
      });
}

builders::ProcedureChoices frmProcedureBuilder::Choices() const {
  return {Name.txtName.Text(),
          ComType.Text(),
          Access.ComAccessibility.Text(),
          Static.ComStatic.Text(),
          ListProcedureArguments.List.List(),
          ComReturnValueType.Text(),
          Comment()};
}

void frmProcedureBuilder::Form_Load() {
  Routine(u"frmProcedureBuilder.Form_Load", [&](const Statements& run) {
    Prepare(run);
    run([&] { types_ = CSQLDataType().NamesWithNone(); });
    LoadParametr();
    FillModules(run, Module.ComModule);
    View();
  });
}

void frmProcedureBuilder::LoadParametr() {
  Routine(u"frmProcedureBuilder.LoadParametr", [&](const Statements& run) {
    run([&] {
      FillList(Static.ComStatic, {u"", u"Static"}, DefaultText(u"ComStaticProcedure", u""));
    });
    run([&] {
      FillList(Access.ComAccessibility, {u"", u"Public", u"Private", u"Friend"},
               DefaultText(u"ComAccessibilityProcedure", u"Public"));
    });
    run([&] {
      FillList(ComType, {u"Function", u"Sub"}, DefaultText(u"ComTypeProcedure", u"Sub"));
    });
    run([&] {
      FillList(ComReturnValueType, types_, DefaultText(u"ComReturnValueTypeProcedure", NoType));
    });
    run([&] { Part.txtDescription.SetText(DefaultText(u"txtDescriptionProcedure", u"")); });
    run([&] { Part.chkHeader.SetValue(DefaultFlag(u"chkHeaderProcedure", true) ? 1 : 0); });
    EnableReturnType();
  });
}

void frmProcedureBuilder::EnableReturnType() {
  ComReturnValueType.SetEnabled(builders::HasReturnValue(Choices()));
}

String frmProcedureBuilder::Code() const { return builders::GeneratorTextMethod(Choices()); }

void frmProcedureBuilder::Finish(const Statements& run) {
  const builders::ProcedureChoices choices = Choices();
  if (!run([&] { return Accept(builders::CheckField(choices)); })) return;
  if (InsertText(Module.ComModule.Text(), builders::GeneratorTextMethod(choices),
                 mGlobals::EndOfModule, host::vbext_ct_StdModule, builders::CaretOffset(choices))) {
    run([&] { Close(); });
  }
}

}  // namespace tessel
