#include "builders/frmPropertyBuilder.h"

#include <algorithm>

#include "insertion/mGlobals.h"

namespace tessel {

const frmPropertyBuilder::BuilderKind frmPropertyBuilder::Builder{
    "frmPropertyBuilder",
    u"Property Builder",
    103,
    u"frmPropertyBuilder.btmOK_Click",
    u"frmPropertyBuilder.btmCancel_Click",
    u"frmPropertyBuilder.btmHelp_Click",
    u"frmPropertyBuilder.ViewTextRichtextboxWindow",
    u"frmPropertyBuilder.Form_Unload",
    u"builders.htm",
    &IConnect::HidePropertyBuilder};

frmPropertyBuilder::frmPropertyBuilder() : PreviewForm(Builder) {
  Lower = &Part;
  Arrange();
  Wire();
}

void frmPropertyBuilder::Arrange() {
  using namespace forms;
  SetLayout(Column(
      {Row({Item(Name.lblName), Item(Name.txtName, 1)}),
       Row({Item(lblValueType), Item(ComValueType, 1)}),
       Row({Item(lblMemberVariable), Item(txtMemberVariable, 1)}),
       Row({Item(Access.lblAccessibility), Item(Access.ComAccessibility, 1), Item(Static.lblStatic),
            Item(Static.ComStatic, 1)}),
       Row({Item(Module.lblModule), Item(Module.ComModule, 1), Item(chkGet), Item(chkLetSet)}),
       Part.ArrangeComment(), Item(Part.Preview, 1), Part.ArrangeButtons()}));
}

void frmPropertyBuilder::Wire() {
  WireLower();
  Follow(txtMemberVariable, Access.ComAccessibility, Static.ComStatic, Module.ComModule, chkGet,
         chkLetSet);
  // Both take the type's prefix again, also over one that was typed.
  ComValueType.Click = [this] { TakePrefix(u"frmPropertyBuilder.ComValueType_Click"); };
  Name.txtName.Change = [this] { TakePrefix(u"frmPropertyBuilder.txtName_Change"); };
}

String frmPropertyBuilder::PrefixOfType() const {
  const auto row = static_cast<std::size_t>(std::max(ComValueType.ListIndex(), -1));
  return row < types_.size() ? types_[row].Prefix : String();
}

builders::PropertyChoices frmPropertyBuilder::Choices() const {
  builders::PropertyChoices choices;
  choices.Name = Name.txtName.Text();
  choices.ValueType = ComValueType.Text();
  choices.Prefix = PrefixOfType();
  choices.MemberVariable = txtMemberVariable.Text();
  choices.Accessibility = Access.ComAccessibility.Text();
  choices.Static = Static.ComStatic.Text();
  choices.Get = chkGet.Value() == 1;
  choices.LetSet = chkLetSet.Value() == 1;
  choices.Comment = Comment();
  // Without a type an object's parameter is named after the first one.
  if (choices.LetSet && ComValueType.ListIndex() < 0 && !types_.empty()) {
    choices.Prefix = types_.front().Prefix;
  }
  return choices;
}

void frmPropertyBuilder::Form_Load() {
  Routine(u"frmPropertyBuilder.Form_Load", [&](const Statements& run) {
    Prepare(run);
    run([&] {
      types_ =
          CSQLDataType().GetAllTypeMemberVariable(u"").value_or(std::vector<CSQLDataType::Row>());
    });
    LoadParametr();
    FillModules(run, Module.ComModule);
    View();
  });
}

void frmPropertyBuilder::LoadParametr() {
  Routine(u"frmPropertyBuilder.LoadParametr", [&](const Statements& run) {
    run([&] {
      FillList(Static.ComStatic, {u"", u"Static"}, DefaultText(u"ComStaticProperty", u""));
    });
    run([&] {
      FillList(Access.ComAccessibility, {u"", u"Public", u"Private", u"Friend"},
               DefaultText(u"ComAccessibilityProperty", u"Public"));
    });
    run([&] {
      std::vector<String> names;
      for (const auto& type : types_) names.push_back(type.Name);
      FillList(ComValueType, names, DefaultText(u"ComValueTipeProperty", u"Boolean"));
    });
    run([&] { chkGet.SetValue(DefaultFlag(u"chkGet", true) ? 1 : 0); });
    run([&] { chkLetSet.SetValue(DefaultFlag(u"chkLetSet", true) ? 1 : 0); });
    run([&] { Part.txtDescription.SetText(DefaultText(u"txtDescriptionProperty", u"")); });
    run([&] { Part.chkHeader.SetValue(DefaultFlag(u"chkHeaderProperty", true) ? 1 : 0); });
  });
}

void frmPropertyBuilder::TakePrefix(StringView routine) {
  Routine(routine, [&](const Statements& run) {
    run([&] { txtMemberVariable.SetText(PrefixOfType()); });
    View();
  });
}

String frmPropertyBuilder::Code() const {
  const builders::PropertyText text = builders::GeneratorTextProperty(Choices());
  return text.Declaration + text.Body;
}

void frmPropertyBuilder::Finish(const Statements& run) {
  const builders::PropertyChoices choices = Choices();
  if (!run([&] { return Accept(builders::CheckField(choices)); })) return;
  // Without a type the parameter would have no name.
  if (ComValueType.ListIndex() < 0 && choices.Prefix.empty()) {
    throw vb::RuntimeFailure(vb::SubscriptOutOfRange);
  }
  const builders::PropertyText text = builders::GeneratorTextProperty(choices);
  if (InsertText(Module.ComModule.Text(), text.Declaration + text.Body, mGlobals::EndOfDeclarations,
                 host::vbext_ct_StdModule, builders::CaretOffset(choices))) {
    run([&] { Close(); });
  }
}

}  // namespace tessel
