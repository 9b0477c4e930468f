// What the dialog shows and stores: the values with their defaults, the fonts, the tables.

#include <variant>

#include "connections/CSQLDataType.h"
#include "foundation/CFontDialog.h"
#include "foundation/Defaults.h"
#include "platform/GroupedChanges.h"
#include "platform/Platform.h"
#include "presentation/mCodeConverter.h"
#include "scanning/mFunctions.h"
#include "settingsdialog/frmSettings.h"

namespace tessel {
namespace {

constexpr StringView TypesStatement = u"SELECT * FROM MemberType ORDER BY MemberType.Name",
                     ControlTypesStatement = u"SELECT * FROM ControlType ORDER BY ControlType.Name";
constexpr RecordGrid::Column TypeColumns[] = {{u"Name", 2000}, {u"Prefix", 1200}};
constexpr RecordGrid::Column ControlTypeColumns[] = {
    {u"Name", 1400}, {u"Prefix", 1200}, {u"Enable", 960, true}};

/// What the fonts are shown on.
constexpr StringView SampleCode =
    u"Public Function Total(Count As Long) As Double\r\n   Total = Count * 1.5   ' 0Oo 1lI\r\n"
    u"End Function";

}  // namespace

/// A control whose value is stored.
struct frmSettings::StoredValue {
  using AnyControl =
      std::variant<forms::CheckBox frmSettings::*, forms::TextBox frmSettings::*,
                   forms::ComboBox frmSettings::*, forms::OptionButton frmSettings::*>;
  AnyControl Control;
  StringView Key, Default;
  Choices List = Choices::None;
  bool Saved = true;
};

/// In the order of storing.
const frmSettings::StoredValue frmSettings::StoredValues[] = {
    // The misspelt name is the value's true name.
    {&frmSettings::chkIncludeA, u"IncludeAutor", u"1"},
    {&frmSettings::txtAuthor, u"Author", u""},
    {&frmSettings::chkIncludeD, u"IncludeDateTime", u"1"},
    {&frmSettings::ComStaticProcedure, u"ComStaticProcedure", u"", Choices::Static},
    {&frmSettings::ComAccessibilityProcedure, u"ComAccessibilityProcedure", u"Public",
     Choices::Access},
    {&frmSettings::ComTypeProcedure, u"ComTypeProcedure", u"Sub", Choices::MemberKind},
    {&frmSettings::ComReturnValueTypeProcedure, u"ComReturnValueTypeProcedure", NoType,
     Choices::TypesWithNone},
    {&frmSettings::ComTypeArgument, u"ComTypeArgument", NoType, Choices::TypesWithNone},
    {&frmSettings::txtDescriptionProcedure, u"txtDescriptionProcedure", u""},
    {&frmSettings::chkHeaderProcedure, u"chkHeaderProcedure", u"1"},
    {&frmSettings::chkOptional, u"chkOptional", u"1"},
    {&frmSettings::OptByRef, u"OptByRef", u"1"},
    {&frmSettings::OptByVal, u"OptByVal", u"0"},
    {&frmSettings::ComStaticProperty, u"ComStaticProperty", u"", Choices::Static},
    {&frmSettings::ComAccessibilityProperty, u"ComAccessibilityProperty", u"Public",
     Choices::Access},
    {&frmSettings::ComValueTipeProperty, u"ComValueTipeProperty", u"Boolean", Choices::Types},
    {&frmSettings::chkGet, u"chkGet", u"1"},
    {&frmSettings::chkLetSet, u"chkLetSet", u"1"},
    {&frmSettings::txtDescriptionProperty, u"txtDescriptionProperty", u""},
    {&frmSettings::chkHeaderProperty, u"chkHeaderProperty", u"1"},
    {&frmSettings::txtCollectionClassName, u"txtCollectionClassName", u"NameS"},
    // Shown only: the suffix can't be changed from here.
    {&frmSettings::txtPrefixCollectionClassName, u"txtPrefixCollectionClassName", u"S",
     Choices::None, false},
    {&frmSettings::txtDescriptionClass, u"txtDescriptionClass", u"Collection Class for "},
    {&frmSettings::chkHeaderClass, u"chkHeaderClass", u"1"},
    {&frmSettings::txtPrefixClass, u"txtPrefixClass", u"m_Col"},
    {&frmSettings::ComAccessibilityEnum, u"ComAccessibilityEnum", u"Public", Choices::EnumAccess},
    {&frmSettings::txtDescriptionEnum, u"txtDescriptionEnum", u""},
    {&frmSettings::chkHeaderEnum, u"chkHeaderEnum", u"1"},
    {&frmSettings::txtPrefixEnum, u"txtPrefixEnum", u"nn_"},
    {&frmSettings::chkAutoPosition, u"AutoPosition", u"1"}};

/// The sample bears the name of the preview whose font it shows, under which that is kept.
struct frmSettings::FontSample {
  forms::RichTextBox frmSettings::*Box;
  forms::TextBox frmSettings::*Name;
  forms::Button frmSettings::*Choose;
  StringView Routine;
};

const frmSettings::FontSample frmSettings::FontSamples[] = {
    {&frmSettings::RicViewProcedureBuilder, &frmSettings::txtRicViewProcedureBuilder,
     &frmSettings::btmRicViewProcedureBuilder, u"frmSettings.btmRicViewProcedureBuilder_Click"},
    {&frmSettings::RicViewPropertyBuilder, &frmSettings::txtRicViewPropertyBuilder,
     &frmSettings::btmRicViewPropertyBuilder, u"frmSettings.btmRicViewPropertyBuilder_Click"},
    {&frmSettings::RicViewClassBuilder, &frmSettings::txtRicViewClassBuilder,
     &frmSettings::btmRicViewClassBuilder, u"frmSettings.btmRicViewClassBuilder_Click"},
    {&frmSettings::RicViewEnumBuilder, &frmSettings::txtRicViewEnumBuilder,
     &frmSettings::btmRicViewEnumBuilder, u"frmSettings.btmRicViewEnumBuilder_Click"},
    {&frmSettings::RicCodeFragmentBuilder, &frmSettings::txtRicCodeFragmentBuilder,
     &frmSettings::btmRicCodeFragmentBuilder, u"frmSettings.btmRicCodeFragmentBuilder_Click"},
    {&frmSettings::RicCodeObjectFragmentBuilder, &frmSettings::txtRicCodeObjectFragmentBuilder,
     &frmSettings::btmRicCodeObjectFragmentBuilder,
     u"frmSettings.btmRicCodeObjectFragmentBuilder_Click"},
    {&frmSettings::RicUserCode, &frmSettings::txtRicUserCode, &frmSettings::btmRicUserCode,
     u"frmSettings.btmRicUserCode_Click"}};

std::vector<String> frmSettings::ListOf(Choices choices) const {
  switch (choices) {
    case Choices::Static:
      return {u"", u"Static"};
    case Choices::Access:
      return {u"", u"Public", u"Private", u"Friend"};
    case Choices::EnumAccess:
      return {u"", u"Public", u"Private"};
    case Choices::MemberKind:
      return {u"Function", u"Sub"};
    case Choices::TypesWithNone:
      return CSQLDataType().NamesWithNone();
    case Choices::Types:
      return CSQLDataType().GetAllType(u"").value_or(std::vector<String>());
    case Choices::None:
      break;
  }
  return {};
}

void frmSettings::LoadValue(const StoredValue& value, const Statements& run) {
  struct Load {
    frmSettings& Form;
    const StoredValue& Value;
    [[nodiscard]] bool IsOn() const { return DefaultFlag(Value.Key, Value.Default == u"1"); }
    [[nodiscard]] String Text() const { return DefaultText(Value.Key, Value.Default); }
    void operator()(forms::CheckBox frmSettings::*box) const {
      (Form.*box).SetValue(IsOn() ? 1 : 0);
    }
    void operator()(forms::OptionButton frmSettings::*option) const {
      (Form.*option).SetValue(IsOn());
    }
    void operator()(forms::TextBox frmSettings::*box) const { (Form.*box).SetText(Text()); }
    void operator()(forms::ComboBox frmSettings::*box) const {
      mFunctions::AddListInCombobox(Form.*box, Form.ListOf(Value.List), Text());
    }
  };
  run([&] { std::visit(Load{*this, value}, value.Control); });
}

/// A list without a choice couldn't be filled, or lacks what is stored; neither is the user's word.
bool frmSettings::IsUnread(const StoredValue& value) const {
  const auto* const list = std::get_if<forms::ComboBox frmSettings::*>(&value.Control);
  return list != nullptr && (this->**list).ListIndex() < 0;
}

void frmSettings::SaveValue(const StoredValue& value) {
  if (!value.Saved || IsUnread(value)) return;
  struct Read {
    const frmSettings& Form;
    SettingInput operator()(forms::CheckBox frmSettings::*box) const { return (Form.*box).Value(); }
    SettingInput operator()(forms::OptionButton frmSettings::*option) const {
      return (Form.*option).Value();
    }
    SettingInput operator()(forms::TextBox frmSettings::*box) const { return (Form.*box).Text(); }
    SettingInput operator()(forms::ComboBox frmSettings::*box) const { return (Form.*box).Text(); }
  };
  gAppSettings->SaveSetting(DefaultsSection, value.Key, std::visit(Read{*this}, value.Control));
}

void frmSettings::LoadParametr() {
  Routine(u"frmSettings.LoadParametr", [&](const Statements& run) {
    for (const StoredValue& value : StoredValues) LoadValue(value, run);
    run([&] { lblDateTime.SetCaption(vb::FormatDateTime(platform::Current().Clock().Now())); });
    for (const FontSample& sample : FontSamples) {
      RestoreFont(run, (this->*sample.Box).Name(), (this->*sample.Box).Font);
      run([&] { ShowFont(sample); });
    }
    run([&] { types_.Open(TypesStatement, TypeColumns); });
    run([&] { controlTypes_.Open(ControlTypesStatement, ControlTypeColumns); });
  });
}

void frmSettings::SaveParamert() {
  Routine(u"frmSettings.SaveParamert", [&](const Statements& run) {
    if (!gAppSettings) return;
    bool aborted = false;
    platform::ChangeTogether(platform::Current().Registry(), [&] {
      try {
        SaveAll(run);
      } catch (const RoutineAborted&) {
        aborted = true;  // what was stored ahead of it stays stored
      }
    });
    if (aborted) throw RoutineAborted();
  });
}

void frmSettings::SaveAll(const Statements& run) {
  for (const StoredValue& value : StoredValues) run([&] { SaveValue(value); });
  for (const FontSample& sample : FontSamples) {
    KeepFont(run, (this->*sample.Box).Name(), (this->*sample.Box).Font);
  }
}

void frmSettings::ShowFont(const FontSample& sample) {
  forms::RichTextBox& box = this->*sample.Box;
  (this->*sample.Name).SetText(box.Font->Name);
  box.SetTextRTF(mCodeConverter::MakeRTF(SampleCode, box.Font->Charset));
}

void frmSettings::WireFonts() {
  for (const FontSample& sample : FontSamples) {
    (this->*sample.Box).Locked = true;
    (this->*sample.Name).Locked = true;
    (this->*sample.Choose).SetToolTipText(u"Change font settings");
    (this->*sample.Choose).Click = [this, &sample] {
      Routine(sample.Routine, [&](const Statements& run) { ChooseFont(sample, run); });
    };
  }
}

/// Nothing is stored ahead of Save.
void frmSettings::ChooseFont(const FontSample& sample, const Statements& run) {
  CFontDialog dialog;
  dialog.DialogTitle = u"Change font settings";
  dialog.Font = (this->*sample.Box).Font;
  if (!run([&] { return dialog.Show(); })) return;
  UpdateRTB(dialog.Font, this->*sample.Box);
  ShowFont(sample);
}

void frmSettings::UpdateRTB(const forms::Font& font, forms::RichTextBox& box) {
  Routine(u"frmSettings.UpdateRTB", [&] { box.Font = font; });
}

}  // namespace tessel
