#include "builders/frmClassBuilder.h"

#include "insertion/mGlobals.h"
#include "scanning/mFunctions.h"

namespace tessel {

const frmClassBuilder::BuilderKind frmClassBuilder::Builder{"frmClassBuilder",
                                                            u"Create Collection Class",
                                                            102,
                                                            u"frmClassBuilder.btmOK_Click",
                                                            u"frmClassBuilder.btmCancel_Click",
                                                            u"frmClassBuilder.btmHelp_Click",
                                                            u"frmClassBuilder.ViewRTF",
                                                            u"frmClassBuilder.Form_Unload",
                                                            u"builders.htm",
                                                            &IConnect::HideClassBuilder};

frmClassBuilder::frmClassBuilder() : PreviewForm(Builder) {
  Lower = &Part;
  Arrange();
  Wire();
}

void frmClassBuilder::Arrange() {
  using namespace forms;
  SetLayout(Column({Row({Item(lblBaseClass), Item(ComBaseClass, 1)}),
                    Row({Item(lblCollectionClassName), Item(txtCollectionClassName, 1)}),
                    Item(chkImplementsPublic), Part.ArrangeComment(), Item(Part.Preview, 1),
                    Part.ArrangeButtons()}));
}

void frmClassBuilder::Wire() {
  WireLower();
  Follow(chkImplementsPublic, txtCollectionClassName);
  ComBaseClass.Click = [this] { ComBaseClass_Click_Change(); };
  ComBaseClass.Change = [this] { ComBaseClass_Click_Change(); };
}

builders::CollectionChoices frmClassBuilder::Choices() const {
  return {txtCollectionClassName.Text(), ComBaseClass.Text(),
          DefaultText(u"txtPrefixClass", u"m_Col"), chkImplementsPublic.Value() == 1, Comment()};
}

void frmClassBuilder::Form_Load() {
  Routine(u"frmClassBuilder.Form_Load", [&](const Statements& run) {
    Prepare(run);
    LoadParametr();
    const auto classes = run([&] {
      return vb::Split(mGlobals::GetProjectComponentType(VBInstance, host::vbext_ct_ClassModule),
                       u"|");
    });
    if (!classes.empty()) run([&] { mFunctions::AddListInCombobox(ComBaseClass, classes); });
    View();
  });
}

void frmClassBuilder::LoadParametr() {
  Routine(u"frmClassBuilder.LoadParametr", [&](const Statements& run) {
    run([&] { txtCollectionClassName.SetText(DefaultText(u"txtCollectionClassName", u"Name")); });
    run([&] { Part.txtDescription.SetText(DefaultText(u"txtDescriptionClass", u"")); });
    run([&] { Part.chkHeader.SetValue(DefaultFlag(u"chkHeaderClass", true) ? 1 : 0); });
  });
}

void frmClassBuilder::ComBaseClass_Click_Change() {
  Routine(u"frmClassBuilder.ComBaseClass_Click_Change", [&](const Statements& run) {
    const String base = ComBaseClass.Text();
    run([&] {
      txtCollectionClassName.SetText(base + DefaultText(u"txtPrefixCollectionClassName", u"S"));
    });
    run([&] { Part.txtDescription.SetText(u"Collection Class for " + base); });
    View();
  });
}

String frmClassBuilder::Code() const { return builders::GeneratorTextClass(Choices()); }

/// One class of the pair. When it doesn't come to stand under its name, all that was made goes
/// again: what is left would be in the way of the next try.
bool frmClassBuilder::MakeClass(StringView name, StringView text, Components& made) {
  std::shared_ptr<host::VBComponent> component;
  const bool inserted =
      InsertText(name, text, mGlobals::EndOfModule, host::vbext_ct_ClassModule, 0, &component);
  String given(name);
  if (component) {
    made.push_back(component);
    ResumeNext([&] { given = component->Name(); });
  }
  if (inserted && vb::SameText(given, name)) return true;
  for (const auto& one : made) {
    ResumeNext([&] { Need(Need(Need(VBInstance).ActiveVBProject()).VBComponents()).Remove(one); });
  }
  return false;
}

void frmClassBuilder::Finish(const Statements& run) {
  const builders::CollectionChoices choices = Choices();
  if (!run([&] { return Accept(builders::CheckField(choices)); })) return;
  if (mGlobals::CheckComponentName(VBInstance, choices.ClassName)) {
    run([&] { mFunctions::myBreak(8, choices.ClassName); });
    return;
  }
  Components made;
  if (!MakeClass(choices.ClassName, builders::GeneratorTextClass(choices), made)) return;
  if (!mGlobals::CheckComponentName(VBInstance, choices.BaseClass) &&
      !MakeClass(choices.BaseClass, builders::BaseClassText(), made)) {
    return;
  }
  run([&] { Close(); });
}

}  // namespace tessel
