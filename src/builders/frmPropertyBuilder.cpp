#include "builders/frmPropertyBuilder.h"

#include <algorithm>

#include "insertion/mGlobals.h"
#include "presentation/mCodeConverter.h"

namespace tessel {

frmPropertyBuilder::frmPropertyBuilder() : BuilderForm("frmPropertyBuilder", u"Property Builder") {
  Icon = 103;
  Border = forms::BorderStyle::Sizable;
  RicViewPropertyBuilder.Locked = true;
  btmOK.Default = true;
  btmCancel.Cancel = true;
  Arrange();
  Wire();
}

void frmPropertyBuilder::Arrange() {
  using namespace forms;
  SetLayout(Column({Row({Item(lblName), Item(txtName, 1)}),
                    Row({Item(lblValueType), Item(ComValueType, 1)}),
                    Row({Item(lblMemberVariable), Item(txtMemberVariable, 1)}),
                    Row({Item(lblAccessibility), Item(ComAccessibility, 1), Item(lblStatic),
                         Item(ComStatic, 1)}),
                    Row({Item(lblModule), Item(ComModule, 1), Item(chkGet), Item(chkLetSet)}),
                    Row({Item(lblDescription), Item(txtDescription, 1), Item(chkHeader)}),
                    Item(RicViewPropertyBuilder, 1),
                    Row({Item(btmHelp), Space(), Item(btmOK), Item(btmCancel)})}));
}

void frmPropertyBuilder::Wire() {
  using namespace forms;
  for (CheckBox* const box : {&chkGet, &chkHeader, &chkLetSet}) {
    box->Click = [this] { ViewTextRichtextboxWindow(); };
  }
  for (ComboBox* const box : {&ComAccessibility, &ComModule, &ComStatic}) {
    box->Click = [this] { ViewTextRichtextboxWindow(); };
  }
  for (TextBox* const box : {&txtDescription, &txtMemberVariable}) {
    box->Change = [this] { ViewTextRichtextboxWindow(); };
  }
  // Both take the type's prefix again, also over one that was typed.
  ComValueType.Click = [this] { TakePrefix(); };
  txtName.Change = [this] { TakePrefix(); };
  btmOK.Click = [this] { OK(); };
  btmCancel.Click = [this] { Close(); };
  btmHelp.Click = [] { mGlobals::RunHelpFennick(u"builders.htm"); };
}

String frmPropertyBuilder::PrefixOfType() const {
  const auto row = static_cast<std::size_t>(std::max(ComValueType.ListIndex(), -1));
  return row < types_.size() ? types_[row].Prefix : String();
}

builders::PropertyChoices frmPropertyBuilder::Choices() const {
  builders::PropertyChoices choices;
  choices.Name = txtName.Text();
  choices.ValueType = ComValueType.Text();
  choices.Prefix = PrefixOfType();
  choices.MemberVariable = txtMemberVariable.Text();
  choices.Accessibility = ComAccessibility.Text();
  choices.Static = ComStatic.Text();
  choices.Get = chkGet.Value() == 1;
  choices.LetSet = chkLetSet.Value() == 1;
  choices.Comment = Comment(chkHeader, txtDescription);
  // Without a type an object's parameter is named after the first one.
  if (choices.LetSet && ComValueType.ListIndex() < 0 && !types_.empty()) {
    choices.Prefix = types_.front().Prefix;
  }
  return choices;
}

void frmPropertyBuilder::Form_Load() {
  Routine(u"frmPropertyBuilder.Form_Load", [&](const Statements& run) {
    run([&] { RicViewPropertyBuilder.RightMargin = PreviewMargin; });
    RestorePlace(run);
    RestoreFont(run, RicViewPropertyBuilder.Name(), RicViewPropertyBuilder.Font);
    run([&] {
      types_ =
          CSQLDataType().GetAllTypeMemberVariable(u"").value_or(std::vector<CSQLDataType::Row>());
    });
    LoadParametr();
    FillModules(run, ComModule);
    ViewTextRichtextboxWindow();
  });
}

void frmPropertyBuilder::LoadParametr() {
  Routine(u"frmPropertyBuilder.LoadParametr", [&](const Statements& run) {
    run([&] { FillList(ComStatic, {u"", u"Static"}, DefaultText(u"ComStaticProperty", u"")); });
    run([&] {
      FillList(ComAccessibility, {u"", u"Public", u"Private", u"Friend"},
               DefaultText(u"ComAccessibilityProperty", u"Public"));
    });
    run([&] {
      std::vector<String> names;
      for (const auto& type : types_) names.push_back(type.Name);
      FillList(ComValueType, names, DefaultText(u"ComValueTipeProperty", u"Boolean"));
    });
    run([&] { chkGet.SetValue(DefaultFlag(u"chkGet", true) ? 1 : 0); });
    run([&] { chkLetSet.SetValue(DefaultFlag(u"chkLetSet", true) ? 1 : 0); });
    run([&] { txtDescription.SetText(DefaultText(u"txtDescriptionProperty", u"")); });
    run([&] { chkHeader.SetValue(DefaultFlag(u"chkHeaderProperty", true) ? 1 : 0); });
  });
}

void frmPropertyBuilder::TakePrefix() {
  Routine(u"frmPropertyBuilder.ComValueType_Click", [&](const Statements& run) {
    run([&] { txtMemberVariable.SetText(PrefixOfType()); });
    ViewTextRichtextboxWindow();
  });
}

void frmPropertyBuilder::ViewTextRichtextboxWindow() {
  Routine(u"frmPropertyBuilder.ViewTextRichtextboxWindow", [&] {
    const builders::PropertyText text = builders::GeneratorTextProperty(Choices());
    RicViewPropertyBuilder.SetTextRTF(mCodeConverter::MakeRTF(
        text.Declaration + text.Body, RicViewPropertyBuilder.Font->Charset));
  });
}

void frmPropertyBuilder::OK() {
  Routine(u"frmPropertyBuilder.btmOK_Click", [&](const Statements& run) {
    const builders::PropertyChoices choices = Choices();
    if (!run([&] { return Accept(builders::CheckField(choices)); })) return;
    // Without a type the parameter would have no name.
    if (ComValueType.ListIndex() < 0 && (!choices.LetSet || types_.empty())) {
      throw vb::RuntimeFailure(vb::SubscriptOutOfRange);
    }
    const builders::PropertyText text = builders::GeneratorTextProperty(choices);
    if (InsertText(ComModule.Text(), text.Declaration + text.Body, mGlobals::EndOfDeclarations,
                   host::vbext_ct_StdModule, builders::CaretOffset(choices))) {
      run([&] { Close(); });
    }
  });
}

void frmPropertyBuilder::Close() {
  if (Connect != nullptr) Connect->HidePropertyBuilder();
}

void frmPropertyBuilder::Form_Unload() { Leave(u"frmPropertyBuilder.Form_Unload"); }

}  // namespace tessel
