#include "settingsdialog/frmSettings.h"

#include <gtest/gtest.h>

#include "foundation/Defaults.h"
#include "support/DialogWorld.h"

namespace tessel {
namespace {

namespace user = forms::user;

constexpr int NameColumn = 1, PrefixColumn = 2, EnableColumn = 3;

class Settings : public test::DialogWorld {
 protected:
  Settings() { Give(*dialog_); }
  ~Settings() override {
    dialog_->Unload();
    EXPECT_EQ(gErrorHandler->CallStack(), std::vector<String>()) << "every routine was left";
  }

  void Open(StringView page = u"") {
    dialog_->PageName = page;
    dialog_->Show();
  }
  void Put(StringView key, const SettingInput& value) {
    gAppSettings->SaveSetting(DefaultsSection, key, value);
  }
  [[nodiscard]] String Get(StringView key) const {
    return gAppSettings->GetText(DefaultsSection, key, u"(none)");
  }
  [[nodiscard]] String Page() const {
    return dialog_->VSIndexTab1.Pages()
        .at(static_cast<std::size_t>(dialog_->VSIndexTab1.CurrTab()))
        .Caption;
  }
  [[nodiscard]] std::vector<String> NamesInTable(StringView table) const {
    store::Recordset records;
    records.Open(u"SELECT Name FROM " + String(table) + u" ORDER BY Name", database_.Connection);
    std::vector<String> names;
    for (; !records.Eof(); records.MoveNext()) {
      names.push_back(store::ToText(records.Field(u"Name")));
    }
    return names;
  }
  [[nodiscard]] String InTable(StringView table, StringView name, StringView field) const {
    store::Recordset records;
    records.Open(u"SELECT * FROM " + String(table) + u" WHERE Name = \"" + String(name) + u"\"",
                 database_.Connection);
    return records.Eof() ? u"(none)" : store::ToText(records.Field(field));
  }
  [[nodiscard]] static int RowOf(const forms::Grid& grid, StringView name) {
    for (int row = 1; row < grid.Rows(); ++row) {
      if (grid.TextMatrix(row, NameColumn) == name) return row;
    }
    return -1;
  }
  std::shared_ptr<frmSettings> dialog_ = std::make_shared<frmSettings>();
};

// Pages

TEST_F(Settings, ListsItsPagesAndOpensOnTheFirst) {
  Open();
  EXPECT_EQ(dialog_->Caption(), u"Settings");
  EXPECT_EQ(dialog_->List1.List(),
            (std::vector<String>{u"Author", u"Procedure", u"Property", u"Class", u"Enum",
                                 u"Snippet Manager", u"Exceptions", u"Control Type", u"Explorer"}));
  EXPECT_EQ(dialog_->List1.Text(), u"Author");
  EXPECT_EQ(Page(), u"Author");
}

TEST_F(Settings, TheListTurnsThePages) {
  Open();
  user::Pick(dialog_->List1, u"Enum");
  EXPECT_EQ(Page(), u"Enum");
}

TEST_F(Settings, OpensOnTheWantedPageWhicheverWasUsedLast) {
  Open();
  user::Pick(dialog_->List1, u"Enum");
  dialog_->Unload();
  Open(u"Control Type");
  EXPECT_EQ(Page(), u"Control Type");
  EXPECT_EQ(dialog_->List1.Text(), u"Control Type");
  dialog_->Unload();
  Open();
  EXPECT_EQ(Page(), u"Author") << "without a name the first one";
}

TEST_F(Settings, APageThatIsNotThereIsTheFirst) {
  Open(u"Nowhere");
  EXPECT_EQ(Page(), u"Author");
}

TEST_F(Settings, TheGuardAgainstASecondDialogIsLeftAlone) {
  Open();
  user::Press(dialog_->btmExit);
  EXPECT_TRUE(root_->Open) << "another dialog holds it";
}

TEST_F(Settings, HelpShowsItsTopic) {
  Open();
  user::Press(dialog_->btmHelp);
  ASSERT_FALSE(Desktop().Journal.empty());
  EXPECT_TRUE(Desktop().Journal.back().ends_with("Settings.htm")) << Desktop().Journal.back();
}

// Values

/// What the dialog shows in a control, as a text.
String Shown(const forms::Control& control) {
  if (const auto* box = dynamic_cast<const forms::TwoState*>(&control))
    return vb::Str(box->Value());
  if (const auto* option = dynamic_cast<const forms::OptionButton*>(&control)) {
    return option->Value() ? u"True" : u"False";
  }
  if (const auto* list = dynamic_cast<const forms::ComboBox*>(&control)) return list->Text();
  return dynamic_cast<const forms::TextBox&>(control).Text();
}

struct ValueCase {
  StringView Control, Key, Default, Other;
};
/// Each stored value: its control, its name, what is shown without it, and another value.
constexpr ValueCase Values[] = {
    {u"chkIncludeA", u"IncludeAutor", u"1", u"0"},
    {u"txtAuthor", u"Author", u"", u"A. Person"},
    {u"chkIncludeD", u"IncludeDateTime", u"1", u"0"},
    {u"ComStaticProcedure", u"ComStaticProcedure", u"", u"Static"},
    {u"ComAccessibilityProcedure", u"ComAccessibilityProcedure", u"Public", u"Friend"},
    {u"ComTypeProcedure", u"ComTypeProcedure", u"Sub", u"Function"},
    {u"ComReturnValueTypeProcedure", u"ComReturnValueTypeProcedure", u"(None)", u"Long"},
    {u"ComTypeArgument", u"ComTypeArgument", u"(None)", u"Date"},
    {u"txtDescriptionProcedure", u"txtDescriptionProcedure", u"", u"Does it"},
    {u"chkHeaderProcedure", u"chkHeaderProcedure", u"1", u"0"},
    {u"chkOptional", u"chkOptional", u"1", u"0"},
    {u"OptByRef", u"OptByRef", u"True", u"False"},
    {u"OptByVal", u"OptByVal", u"False", u"True"},
    {u"ComStaticProperty", u"ComStaticProperty", u"", u"Static"},
    {u"ComAccessibilityProperty", u"ComAccessibilityProperty", u"Public", u"Private"},
    {u"ComValueTipeProperty", u"ComValueTipeProperty", u"Boolean", u"String"},
    {u"chkGet", u"chkGet", u"1", u"0"},
    {u"chkLetSet", u"chkLetSet", u"1", u"0"},
    {u"txtDescriptionProperty", u"txtDescriptionProperty", u"", u"Is it"},
    {u"chkHeaderProperty", u"chkHeaderProperty", u"1", u"0"},
    {u"txtCollectionClassName", u"txtCollectionClassName", u"NameS", u"Orders"},
    {u"txtDescriptionClass", u"txtDescriptionClass", u"Collection Class for ", u"Many"},
    {u"chkHeaderClass", u"chkHeaderClass", u"1", u"0"},
    {u"txtPrefixClass", u"txtPrefixClass", u"m_Col", u"c"},
    {u"ComAccessibilityEnum", u"ComAccessibilityEnum", u"Public", u"Private"},
    {u"txtDescriptionEnum", u"txtDescriptionEnum", u"", u"Names it"},
    {u"chkHeaderEnum", u"chkHeaderEnum", u"1", u"0"},
    {u"txtPrefixEnum", u"txtPrefixEnum", u"nn_", u"e"},
    {u"chkAutoPosition", u"AutoPosition", u"1", u"0"}};

TEST_F(Settings, ShowsTheDefaultsWithoutStoredValues) {
  Open();
  for (const ValueCase& one : Values) {
    EXPECT_EQ(Shown(*dialog_->Find(one.Control)), one.Default) << vb::ToUtf8(one.Control);
  }
  EXPECT_EQ(dialog_->txtPrefixCollectionClassName.Text(), u"S");
}

TEST_F(Settings, SavesEveryValueAndShowsItAgain) {
  Open();
  for (const ValueCase& one : Values) {
    forms::Control& control = *dialog_->Find(one.Control);
    if (auto* const box = dynamic_cast<forms::TwoState*>(&control)) {
      box->SetValue(one.Other == u"1" ? 1 : 0);
    } else if (auto* const option = dynamic_cast<forms::OptionButton*>(&control)) {
      option->SetValue(one.Other == u"True");
    } else if (auto* const list = dynamic_cast<forms::ComboBox*>(&control)) {
      list->SetText(one.Other);
    } else {
      dynamic_cast<forms::TextBox&>(control).SetText(one.Other);
    }
  }
  user::Press(dialog_->btmSave);
  EXPECT_TRUE(dialog_->Visible()) << "Save leaves it open";
  for (const ValueCase& one : Values) EXPECT_EQ(Get(one.Key), one.Other) << vb::ToUtf8(one.Key);
  user::Press(dialog_->btmExit);
  Open();
  for (const ValueCase& one : Values) {
    EXPECT_EQ(Shown(*dialog_->Find(one.Control)), one.Other) << vb::ToUtf8(one.Control);
  }
}

TEST_F(Settings, StoresValuesInTheOrderOfThePages) {
  Open();
  user::Press(dialog_->btmSave);
  std::vector<String> keys;
  for (const ValueCase& one : Values) keys.emplace_back(one.Key);
  EXPECT_EQ(gAppSettings->GetAllKeys(DefaultsSection), keys);
}

TEST_F(Settings, KindsOfValuesAreStoredAsTheSettingsKnowThem) {
  Open();
  user::Press(dialog_->btmSave);
  EXPECT_EQ(gAppSettings->GetSetting(DefaultsSection, u"chkGet", u""), SettingValue(1));
  EXPECT_EQ(gAppSettings->GetSetting(DefaultsSection, u"OptByRef", u""), SettingValue(u"True"));
  EXPECT_EQ(gAppSettings->GetSetting(DefaultsSection, u"txtPrefixEnum", u""), SettingValue(u"nn_"));
}

TEST_F(Settings, TheSuffixOfCollectionsIsShownAndNeverSaved) {
  Put(u"txtPrefixCollectionClassName", u"List");
  Open();
  EXPECT_EQ(dialog_->txtPrefixCollectionClassName.Text(), u"List");
  user::Type(dialog_->txtPrefixCollectionClassName, u"Many");
  user::Press(dialog_->btmSave);
  EXPECT_EQ(Get(u"txtPrefixCollectionClassName"), u"List");
}

TEST_F(Settings, StoredChecksCountWhenTheyReadOneOrTrue) {
  Put(u"chkGet", u"True");
  Put(u"chkLetSet", u"0");
  Put(u"chkOptional", std::int32_t{1});
  Put(u"chkHeaderEnum", false);
  Open();
  EXPECT_EQ(dialog_->chkGet.Value(), 1);
  EXPECT_EQ(dialog_->chkLetSet.Value(), 0);
  EXPECT_EQ(dialog_->chkOptional.Value(), 1);
  EXPECT_EQ(dialog_->chkHeaderEnum.Value(), 0);
}

TEST_F(Settings, ListValuesMatchWithoutRegardToCase) {
  Put(u"ComAccessibilityProcedure", u"friend");
  Put(u"ComReturnValueTypeProcedure", u"LONG");
  Open();
  EXPECT_EQ(dialog_->ComAccessibilityProcedure.Text(), u"Friend");
  EXPECT_EQ(dialog_->ComReturnValueTypeProcedure.Text(), u"Long");
}

TEST_F(Settings, ListsHoldTheirItemsInOrder) {
  Open();
  const std::vector<String> access{u"", u"Public", u"Private", u"Friend"};
  EXPECT_EQ(dialog_->ComStaticProcedure.List(), (std::vector<String>{u"", u"Static"}));
  EXPECT_EQ(dialog_->ComStaticProperty.List(), (std::vector<String>{u"", u"Static"}));
  EXPECT_EQ(dialog_->ComAccessibilityProcedure.List(), access);
  EXPECT_EQ(dialog_->ComAccessibilityProperty.List(), access);
  EXPECT_EQ(dialog_->ComAccessibilityEnum.List(),
            (std::vector<String>{u"", u"Public", u"Private"}));
  EXPECT_EQ(dialog_->ComTypeProcedure.List(), (std::vector<String>{u"Function", u"Sub"}));
  EXPECT_EQ(dialog_->ComTypeArgument.List().front(), u"(None)");
  EXPECT_EQ(dialog_->ComReturnValueTypeProcedure.List().front(), u"(None)");
  EXPECT_EQ(dialog_->ComValueTipeProperty.List(), NamesInTable(u"MemberType"));
}

TEST_F(Settings, AnEmptyTableOfTypesGivesTheNoneAlone) {
  database_.Connection->Execute(u"DELETE * FROM MemberType");
  Open();
  EXPECT_EQ(dialog_->ComTypeArgument.List(), std::vector<String>{u"(None)"});
  EXPECT_EQ(dialog_->ComTypeArgument.Text(), u"(None)");
  EXPECT_TRUE(dialog_->ComValueTipeProperty.List().empty());
  user::Press(dialog_->btmDelete);
  EXPECT_TRUE(Desktop().Messages.empty()) << "no row is current";
}

TEST_F(Settings, TheDateIsThePresentOneAndNothingIsStoredOfIt) {
  Open();
  EXPECT_EQ(dialog_->lblDateTime.Caption(), vb::FormatDateTime(platform::Current().Clock().Now()));
}

TEST_F(Settings, ExitAndCancelDropWhatWasNotSaved) {
  for (forms::Button frmSettings::*button : {&frmSettings::btmExit, &frmSettings::btmCancel}) {
    Open();
    user::Type(dialog_->txtAuthor, u"Nobody");
    user::Press((*dialog_).*button);
    EXPECT_FALSE(dialog_->IsLoaded());
    EXPECT_EQ(Get(u"Author"), u"(none)");
  }
}

TEST_F(Settings, ReturnSavesAndEscapeLeaves) {
  Open();
  user::Type(dialog_->txtAuthor, u"Somebody");
  user::Key(dialog_->txtAuthor, 13);
  EXPECT_EQ(Get(u"Author"), u"Somebody");
  user::Key(dialog_->txtAuthor, 27);
  EXPECT_FALSE(dialog_->IsLoaded());
}

// Fonts

TEST_F(Settings, AFontIsShownByItsNameAndStoredBySaveAlone) {
  Desktop().OnFontDialog = [](forms::Font& font) {
    EXPECT_EQ(font.Name, u"Courier New");
    font = {.Name = u"Terminal", .Size = 11, .Bold = true, .Charset = 204, .Weight = 700};
    return true;
  };
  Open(u"Procedure");
  EXPECT_EQ(dialog_->txtRicViewProcedureBuilder.Text(), u"Courier New");
  user::Press(dialog_->btmRicViewProcedureBuilder);
  EXPECT_EQ(dialog_->txtRicViewProcedureBuilder.Text(), u"Terminal");
  EXPECT_EQ(dialog_->RicViewProcedureBuilder.Font->Size, 11);
  const StringView owner = u"Font settings\\RicViewProcedureBuilder";
  EXPECT_EQ(gAppSettings->GetText(owner, u"Name", u"(none)"), u"(none)");
  user::Press(dialog_->btmSave);
  EXPECT_EQ(gAppSettings->GetText(owner, u"Name", u""), u"Terminal");
  EXPECT_EQ(gAppSettings->GetText(owner, u"Size", u""), u"11");
  EXPECT_EQ(gAppSettings->GetText(owner, u"Bold", u""), u"1");
  EXPECT_EQ(gAppSettings->GetText(owner, u"Charset", u""), u"204");
  EXPECT_EQ(gAppSettings->GetText(owner, u"Weight", u""), u"700");
}

TEST_F(Settings, ExitAfterAChangedFontLosesIt) {
  Desktop().OnFontDialog = [](forms::Font& font) {
    font.Name = u"Terminal";
    return true;
  };
  Open(u"Enum");
  user::Press(dialog_->btmRicViewEnumBuilder);
  user::Press(dialog_->btmExit);
  Open(u"Enum");
  EXPECT_EQ(dialog_->txtRicViewEnumBuilder.Text(), u"Courier New");
}

TEST_F(Settings, ACancelledFontDialogChangesNothing) {
  Desktop().OnFontDialog = [](forms::Font& font) {
    font.Name = u"Terminal";
    return false;
  };
  Open(u"Class");
  user::Press(dialog_->btmRicViewClassBuilder);
  EXPECT_EQ(dialog_->txtRicViewClassBuilder.Text(), u"Courier New");
}

TEST_F(Settings, EachFontIsKeptUnderTheNameOfItsPreview) {
  Open();
  user::Press(dialog_->btmSave);
  for (const StringView owner :
       {u"RicViewProcedureBuilder", u"RicViewPropertyBuilder", u"RicViewClassBuilder",
        u"RicViewEnumBuilder", u"RicCodeFragmentBuilder", u"RicCodeObjectFragmentBuilder",
        u"RicUserCode"}) {
    EXPECT_EQ(gAppSettings->GetText(u"Font settings\\" + String(owner), u"Name", u"(none)"),
              u"Courier New")
        << vb::ToUtf8(owner);
  }
}

// Tables

TEST_F(Settings, TheTablesStandInTheirGridsByName) {
  Open();
  EXPECT_EQ(dialog_->fgTable.Cols(), 3);
  EXPECT_EQ(dialog_->fgTableControl.Cols(), 4);
  EXPECT_EQ(dialog_->fgTable.Rows() - 1, static_cast<int>(NamesInTable(u"MemberType").size()));
  EXPECT_EQ(dialog_->fgTableControl.Rows() - 1,
            static_cast<int>(NamesInTable(u"ControlType").size()));
  EXPECT_EQ(dialog_->fgTable.TextMatrix(1, NameColumn), u"Boolean");
  EXPECT_EQ(dialog_->fgTable.TextMatrix(1, PrefixColumn), u"b");
  EXPECT_EQ(dialog_->fgTableControl.Ticked(1, EnableColumn), true);
  EXPECT_EQ(dialog_->fgTable.ColumnWidths->at(NameColumn), 17) << "2000 twips";
  EXPECT_EQ(dialog_->fgTableControl.ColumnWidths->at(NameColumn), 12) << "1400 twips";
  EXPECT_TRUE(dialog_->fgTable.LastColumnStretches) << "so the name's stays what it is";
  EXPECT_TRUE(dialog_->fgTableControl.LastColumnStretches);
}

TEST_F(Settings, AnEditedCellIsInTheTableWithoutSave) {
  Open(u"Exceptions");
  user::EditCell(dialog_->fgTable, RowOf(dialog_->fgTable, u"Long"), PrefixColumn, u"lng");
  EXPECT_EQ(InTable(u"MemberType", u"Long", u"Prefix"), u"lng");
  user::Pick(dialog_->List1, u"Control Type");
  user::Tick(dialog_->fgTableControl, RowOf(dialog_->fgTableControl, u"Label"), false);
  EXPECT_EQ(InTable(u"ControlType", u"Label", u"Enable"), u"False");
  user::Press(dialog_->btmCancel);
  EXPECT_EQ(InTable(u"MemberType", u"Long", u"Prefix"), u"lng") << "Cancel doesn't take it back";
}

TEST_F(Settings, ANewRecordIsAddedAndCurrent) {
  Open(u"Exceptions");
  Desktop().Inputs = {u"Decimal"};
  user::Press(dialog_->btmAdd);
  EXPECT_EQ(InTable(u"MemberType", u"Decimal", u"Name"), u"Decimal");
  EXPECT_EQ(dialog_->fgTable.TextMatrix(dialog_->fgTable.Row(), NameColumn), u"Decimal");
  user::EditCell(dialog_->fgTable, dialog_->fgTable.Row(), PrefixColumn, u"dec");
  EXPECT_EQ(InTable(u"MemberType", u"Decimal", u"Prefix"), u"dec");
}

TEST_F(Settings, ANewControlTypeCountsAtOnce) {
  Open(u"Control Type");
  Desktop().Inputs = {u"Grid"};
  user::Press(dialog_->btmAddControl);
  EXPECT_EQ(InTable(u"ControlType", u"Grid", u"Enable"), u"True");
  EXPECT_EQ(dialog_->fgTableControl.Ticked(dialog_->fgTableControl.Row(), EnableColumn), true);
}

TEST_F(Settings, ANameThatIsTakenIsRefusedAndAskedForAgain) {
  Open(u"Exceptions");
  Desktop().Inputs = {u"long", u"Decimal"};
  user::Press(dialog_->btmAdd);
  ASSERT_EQ(Desktop().Messages.size(), 1U);
  EXPECT_EQ(Desktop().Messages[0].Text, u"Duplicating the names in the table. Name \"long\"");
  EXPECT_TRUE(Desktop().Inputs.empty()) << "the box came again";
  EXPECT_EQ(InTable(u"MemberType", u"Decimal", u"Name"), u"Decimal");
  user::Pick(dialog_->List1, u"Control Type");
  Desktop().Inputs = {u"LABEL", std::nullopt};
  user::Press(dialog_->btmAddControl);
  EXPECT_EQ(Desktop().Messages.back().Text, u"Duplicating the names in the table. Name \"LABEL\"");
}

TEST_F(Settings, NoNameAndACancelledBoxAddNothing) {
  Open(u"Exceptions");
  const std::vector<String> before = NamesInTable(u"MemberType");
  for (const std::optional<String>& input : {std::optional<String>(), std::optional<String>(u"")}) {
    Desktop().Inputs = {input};
    user::Press(dialog_->btmAdd);
  }
  EXPECT_EQ(NamesInTable(u"MemberType"), before);
  EXPECT_TRUE(Desktop().Messages.empty());
}

TEST_F(Settings, DeletingAsksAndNoKeepsTheRow) {
  Open(u"Exceptions");
  const int row = RowOf(dialog_->fgTable, u"Long");
  user::SelectRow(dialog_->fgTable, row, NameColumn);
  Desktop().Answers = {platform::MessageAnswer::No};
  user::Press(dialog_->btmDelete);
  ASSERT_EQ(Desktop().Messages.size(), 1U);
  EXPECT_EQ(Desktop().Messages[0].Text,
            u"Are you sure that you want to delete the record 'Long' ?");
  EXPECT_EQ(Desktop().Messages[0].Title, u"Tessel");
  EXPECT_EQ(Desktop().Messages[0].Style, 292);
  EXPECT_EQ(dialog_->fgTable.TextMatrix(row, NameColumn), u"Long");
  Desktop().Answers = {platform::MessageAnswer::Yes};
  user::Press(dialog_->btmDelete);
  EXPECT_EQ(RowOf(dialog_->fgTable, u"Long"), -1);
  EXPECT_EQ(InTable(u"MemberType", u"Long", u"Name"), u"(none)");
}

TEST_F(Settings, BehindADeletedRowTheOthersStayTheirOwnRecords) {
  Open(u"Control Type");
  forms::Grid& grid = dialog_->fgTableControl;
  user::SelectRow(grid, RowOf(grid, u"ComboBox"), NameColumn);
  Desktop().Answers = {platform::MessageAnswer::Yes};
  user::Press(dialog_->btmDeleteControl);
  user::EditCell(grid, RowOf(grid, u"CommandButton"), PrefixColumn, u"btn");
  EXPECT_EQ(InTable(u"ControlType", u"CommandButton", u"Prefix"), u"btn");
  EXPECT_EQ(InTable(u"ControlType", u"Label", u"Prefix"), u"lbl");
}

TEST_F(Settings, ARecordWithoutANameIsNotDeleted) {
  database_.Connection->Execute(u"INSERT INTO MemberType (Name, Prefix) VALUES (NULL, \"x\")");
  Open(u"Exceptions");
  user::SelectRow(dialog_->fgTable, RowOf(dialog_->fgTable, u""), NameColumn);
  user::Press(dialog_->btmDelete);
  EXPECT_TRUE(Desktop().Messages.empty());
}

}  // namespace
}  // namespace tessel
