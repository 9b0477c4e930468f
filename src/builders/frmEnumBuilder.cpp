#include "builders/frmEnumBuilder.h"

#include "insertion/mGlobals.h"
#include "presentation/ViewTextRichtextbox.h"

namespace tessel {

const frmEnumBuilder::BuilderKind frmEnumBuilder::Builder{"frmEnumBuilder",
                                                          u"Enum Builder",
                                                          0,
                                                          u"frmEnumBuilder.btmOK_Click",
                                                          u"frmEnumBuilder.btmCancel_Click",
                                                          u"frmEnumBuilder.btmHelp_Click",
                                                          u"frmEnumBuilder.ViewRTF",
                                                          u"frmEnumBuilder.Form_Unload",
                                                          u"Create_Enum.htm",
                                                          &IConnect::HideEnum};

frmEnumBuilder::frmEnumBuilder() : PreviewForm(Builder) {
  Lower = &Part;
  Arrange();
  Wire();
}

void frmEnumBuilder::Arrange() {
  using namespace forms;
  SetLayout(Column({Row({Item(Name.lblName), Item(Name.txtName, 1), Item(Access.lblAccessibility),
                         Item(Access.ComAccessibility)}),
                    Row({Item(Module.lblModule), Item(Module.ComModule, 1)}),
                    ListParameters.Arrange(u"Members"), Part.ArrangeComment(),
                    Item(Part.Preview, 2), Part.ArrangeButtons()}));
}

void frmEnumBuilder::Wire() {
  WireLower();
  Follow(Name.txtName, Access.ComAccessibility, Module.ComModule);
  WireList(ListParameters, {u"frmEnumBuilder.btmDel_Click", u"frmEnumBuilder.btmMoveUp_Click",
                            u"frmEnumBuilder.btmMoveDown_Click"});
  ListParameters.btmAdd.Click =
      Handler(u"frmEnumBuilder.btmAdd_Click", [this](const Statements& run) {
        Compose(run, parameter_, ListParameters, [](frmParameterEnum&) {});
      });
}

builders::EnumChoices frmEnumBuilder::Choices() const {
  return {Name.txtName.Text(), Access.ComAccessibility.Text(), ListParameters.List.List(),
          ListParameters.List.ListIndex(), Comment()};
}

void frmEnumBuilder::Form_Load() {
  Routine(u"frmEnumBuilder.Form_Load", [&](const Statements& run) {
    Prepare(run);
    LoadParametr();
    FillModules(run, Module.ComModule);
    View();
  });
}

void frmEnumBuilder::LoadParametr() {
  Routine(u"frmEnumBuilder.LoadParametr", [&](const Statements& run) {
    run([&] {
      FillList(Access.ComAccessibility, {u"", u"Public", u"Private"},
               DefaultText(u"ComAccessibilityEnum", u"Public"));
    });
    run([&] { Part.txtDescription.SetText(DefaultText(u"txtDescriptionEnum", u"")); });
    run([&] { Part.chkHeader.SetValue(DefaultFlag(u"chkHeaderEnum", true) ? 1 : 0); });
  });
}

String frmEnumBuilder::Code() const { return builders::GeneratorText(Choices()); }

void frmEnumBuilder::ShowCode(StringView code) {
  mFunctions::ViewTextRichtextbox(Part.Preview, code);
}

void frmEnumBuilder::Finish(const Statements& run) {
  const builders::EnumChoices choices = Choices();
  if (!run([&] { return Accept(builders::CheckField(choices)); })) return;
  if (InsertText(Module.ComModule.Text(), builders::GeneratorText(choices),
                 mGlobals::EndOfDeclarations, host::vbext_ct_StdModule,
                 builders::CaretOffset(choices))) {
    run([&] { Close(); });
  }
}

}  // namespace tessel
