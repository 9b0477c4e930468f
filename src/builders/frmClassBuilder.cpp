#include "builders/frmClassBuilder.h"

#include "insertion/mGlobals.h"
#include "presentation/mCodeConverter.h"
#include "scanning/mFunctions.h"

namespace tessel {

frmClassBuilder::frmClassBuilder() : BuilderForm("frmClassBuilder", u"Create Collection Class") {
  Icon = 102;
  Border = forms::BorderStyle::Sizable;
  RicViewClassBuilder.Locked = true;
  btmOK.Default = true;
  btmCancel.Cancel = true;
  Arrange();
  Wire();
}

void frmClassBuilder::Arrange() {
  using namespace forms;
  SetLayout(Column({Row({Item(lblBaseClass), Item(ComBaseClass, 1)}),
                    Row({Item(lblCollectionClassName), Item(txtCollectionClassName, 1)}),
                    Row({Item(lblDescription), Item(txtDescription, 1), Item(chkHeader)}),
                    Item(chkImplementsPublic), Item(RicViewClassBuilder, 1),
                    Row({Item(btmHelp), Space(), Item(btmOK), Item(btmCancel)})}));
}

void frmClassBuilder::Wire() {
  chkHeader.Click = [this] { ViewRTF(); };
  chkImplementsPublic.Click = [this] { ViewRTF(); };
  txtDescription.Change = [this] { ViewRTF(); };
  txtCollectionClassName.Change = [this] { ViewRTF(); };
  ComBaseClass.Click = [this] { ComBaseClass_Click_Change(); };
  ComBaseClass.Change = [this] { ComBaseClass_Click_Change(); };
  btmOK.Click = [this] { OK(); };
  btmCancel.Click = [this] { Close(); };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"builders.htm"); };
}

builders::CollectionChoices frmClassBuilder::Choices() const {
  return {txtCollectionClassName.Text(), ComBaseClass.Text(),
          DefaultText(u"txtPrefixClass", u"m_Col"), chkImplementsPublic.Value() == 1,
          Comment(chkHeader, txtDescription)};
}

void frmClassBuilder::Form_Load() {
  Routine(u"frmClassBuilder.Form_Load", [&](const Statements& run) {
    run([&] { RicViewClassBuilder.RightMargin = PreviewMargin; });
    RestorePlace(run);
    RestoreFont(run, RicViewClassBuilder.Name(), RicViewClassBuilder.Font);
    LoadParametr();
    const auto classes = run([&] {
      return vb::Split(mGlobals::GetProjectComponentType(VBInstance, host::vbext_ct_ClassModule),
                       u"|");
    });
    if (!classes.empty()) run([&] { mFunctions::AddListInCombobox(ComBaseClass, classes); });
    ViewRTF();
  });
}

void frmClassBuilder::LoadParametr() {
  Routine(u"frmClassBuilder.LoadParametr", [&](const Statements& run) {
    run([&] { txtCollectionClassName.SetText(DefaultText(u"txtCollectionClassName", u"Name")); });
    run([&] { txtDescription.SetText(DefaultText(u"txtDescriptionClass", u"")); });
    run([&] { chkHeader.SetValue(DefaultFlag(u"chkHeaderClass", true) ? 1 : 0); });
  });
}

void frmClassBuilder::ComBaseClass_Click_Change() {
  Routine(u"frmClassBuilder.ComBaseClass_Click_Change", [&](const Statements& run) {
    const String base = ComBaseClass.Text();
    run([&] {
      txtCollectionClassName.SetText(base + DefaultText(u"txtPrefixCollectionClassName", u"S"));
    });
    run([&] { txtDescription.SetText(u"Collection Class for " + base); });
    ViewRTF();
  });
}

void frmClassBuilder::ViewRTF() {
  Routine(u"frmClassBuilder.ViewRTF", [&] {
    RicViewClassBuilder.SetTextRTF(mCodeConverter::MakeRTF(builders::GeneratorTextClass(Choices()),
                                                           RicViewClassBuilder.Font->Charset));
  });
}

void frmClassBuilder::OK() {
  Routine(u"frmClassBuilder.btmOK_Click", [&](const Statements& run) {
    const builders::CollectionChoices choices = Choices();
    if (!run([&] { return Accept(builders::CheckField(choices)); })) return;
    if (mGlobals::CheckComponentName(VBInstance, choices.ClassName)) {
      run([&] { mFunctions::myBreak(8, choices.ClassName); });
      return;
    }
    if (!InsertText(choices.ClassName, builders::GeneratorTextClass(choices), mGlobals::EndOfModule,
                    host::vbext_ct_ClassModule, 0)) {
      return;
    }
    if (!mGlobals::CheckComponentName(VBInstance, choices.BaseClass) &&
        !InsertText(choices.BaseClass, builders::BaseClassText(), mGlobals::EndOfModule,
                    host::vbext_ct_ClassModule, 0)) {
      return;
    }
    run([&] { Close(); });
  });
}

void frmClassBuilder::Close() {
  if (Connect != nullptr) Connect->HideClassBuilder();
}

void frmClassBuilder::Form_Unload() { Leave(u"frmClassBuilder.Form_Unload"); }

}  // namespace tessel
