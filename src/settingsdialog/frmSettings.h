// The dialog that writes the defaults of the builders, the author, the fonts of previews, and the
// tables of types and of control prefixes.
#pragma once

#include "forms/Controls.h"
#include "forms/RichTextBox.h"
#include "foundation/ToolForm.h"
#include "settingsdialog/RecordGrid.h"

namespace tessel {

/// Nothing but the two tables is written ahead of Save. It stands beside the tools: the guard
/// against a second dialog neither stops it nor is freed by it.
class frmSettings : public ToolForm {
 public:
  frmSettings();

  /// Caption of the page to open on; the first one for any other text. Set ahead of showing.
  String PageName;

  forms::ListBox List1{this, "List1"};
  forms::TabControl VSIndexTab1;

  // Author
  forms::Label lblAuthor{this, "lblAuthor", {.Caption = u"&Author:"}};
  forms::TextBox txtAuthor{this, "txtAuthor"};
  forms::CheckBox chkIncludeA{this, "chkIncludeA", {.Caption = u"&Include"}};
  forms::Label lblDate{this, "lblDate", {.Caption = u"Date Time:"}};
  forms::Label lblDateTime{this, "lblDateTime"};
  forms::CheckBox chkIncludeD{this, "chkIncludeD", {.Caption = u"I&nclude"}};

  // Procedure
  forms::Label lblStaticProcedure{this, "lblStaticProcedure", {.Caption = u"S&tatic:"}};
  forms::ComboBox ComStaticProcedure{this, "ComStaticProcedure"};
  forms::Label lblAccessibilityProcedure{
      this, "lblAccessibilityProcedure", {.Caption = u"&Accessibility:"}};
  forms::ComboBox ComAccessibilityProcedure{this, "ComAccessibilityProcedure"};
  forms::Label lblTypeProcedure{this, "lblTypeProcedure", {.Caption = u"T&ype:"}};
  forms::ComboBox ComTypeProcedure{this, "ComTypeProcedure"};
  forms::Label lblReturnValueTypeProcedure{
      this, "lblReturnValueTypeProcedure", {.Caption = u"&Return Value Type:"}};
  forms::ComboBox ComReturnValueTypeProcedure{this, "ComReturnValueTypeProcedure"};
  forms::Label lblTypeArgument{this, "lblTypeArgument", {.Caption = u"Type Ar&gument:"}};
  forms::ComboBox ComTypeArgument{this, "ComTypeArgument"};
  forms::Label lblDescriptionProcedure{
      this, "lblDescriptionProcedure", {.Caption = u"&Description:"}};
  forms::TextBox txtDescriptionProcedure{this, "txtDescriptionProcedure"};
  forms::CheckBox chkHeaderProcedure{this, "chkHeaderProcedure", {.Caption = u"&Header"}};
  forms::CheckBox chkOptional{this, "chkOptional", {.Caption = u"&Optional"}};
  forms::OptionButton OptByRef{this, "OptByRef", 0, {.Caption = u"&ByRef"}};
  forms::OptionButton OptByVal{this, "OptByVal", 0, {.Caption = u"By&Val"}};
  forms::Label lblViewFontProcedure{this, "lblViewFontProcedure", {.Caption = u"View &Font:"}};
  forms::TextBox txtRicViewProcedureBuilder{this, "txtRicViewProcedureBuilder"};
  forms::Button btmRicViewProcedureBuilder{this, "btmRicViewProcedureBuilder", {.Caption = u"..."}};
  forms::RichTextBox RicViewProcedureBuilder{this, "RicViewProcedureBuilder"};

  // Property
  forms::Label lblStaticProperty{this, "lblStaticProperty", {.Caption = u"S&tatic:"}};
  forms::ComboBox ComStaticProperty{this, "ComStaticProperty"};
  forms::Label lblAccessibilityProperty{
      this, "lblAccessibilityProperty", {.Caption = u"&Accessibility:"}};
  forms::ComboBox ComAccessibilityProperty{this, "ComAccessibilityProperty"};
  forms::Label lblValueTipeProperty{this, "lblValueTipeProperty", {.Caption = u"&ValueTipe:"}};
  forms::ComboBox ComValueTipeProperty{this, "ComValueTipeProperty"};
  forms::CheckBox chkGet{this, "chkGet", {.Caption = u"&Get"}};
  forms::CheckBox chkLetSet{this, "chkLetSet", {.Caption = u"&Let/Set"}};
  forms::Label lblDescriptionProperty{
      this, "lblDescriptionProperty", {.Caption = u"&Description:"}};
  forms::TextBox txtDescriptionProperty{this, "txtDescriptionProperty"};
  forms::CheckBox chkHeaderProperty{this, "chkHeaderProperty", {.Caption = u"&Header"}};
  forms::Label lblViewFontProperty{this, "lblViewFontProperty", {.Caption = u"View &Font:"}};
  forms::TextBox txtRicViewPropertyBuilder{this, "txtRicViewPropertyBuilder"};
  forms::Button btmRicViewPropertyBuilder{this, "btmRicViewPropertyBuilder", {.Caption = u"..."}};
  forms::RichTextBox RicViewPropertyBuilder{this, "RicViewPropertyBuilder"};

  // Class
  forms::Label lblCollectionClassName{
      this, "lblCollectionClassName", {.Caption = u"Collection Class &Name:"}};
  forms::TextBox txtCollectionClassName{this, "txtCollectionClassName"};
  forms::Label lblPrefixCollectionClassName{
      this, "lblPrefixCollectionClassName", {.Caption = u"&Prefix Collection Name:"}};
  forms::TextBox txtPrefixCollectionClassName{this, "txtPrefixCollectionClassName"};
  forms::Label lblDescriptionClass{this, "lblDescriptionClass", {.Caption = u"&Description:"}};
  forms::TextBox txtDescriptionClass{this, "txtDescriptionClass"};
  forms::CheckBox chkHeaderClass{this, "chkHeaderClass", {.Caption = u"&Header"}};
  forms::Label lblPrefixClass{this, "lblPrefixClass", {.Caption = u"Prefix &text Class:"}};
  forms::TextBox txtPrefixClass{this, "txtPrefixClass"};
  forms::Label lblViewFontClass{this, "lblViewFontClass", {.Caption = u"View &Font:"}};
  forms::TextBox txtRicViewClassBuilder{this, "txtRicViewClassBuilder"};
  forms::Button btmRicViewClassBuilder{this, "btmRicViewClassBuilder", {.Caption = u"..."}};
  forms::RichTextBox RicViewClassBuilder{this, "RicViewClassBuilder"};

  // Enum
  forms::Label lblAccessibilityEnum{this, "lblAccessibilityEnum", {.Caption = u"&Accessibility:"}};
  forms::ComboBox ComAccessibilityEnum{this, "ComAccessibilityEnum"};
  forms::Label lblDescriptionEnum{this, "lblDescriptionEnum", {.Caption = u"&Description:"}};
  forms::TextBox txtDescriptionEnum{this, "txtDescriptionEnum"};
  forms::CheckBox chkHeaderEnum{this, "chkHeaderEnum", {.Caption = u"&Header"}};
  forms::Label lblPrefixEnum{this, "lblPrefixEnum", {.Caption = u"&Prefix:"}};
  forms::TextBox txtPrefixEnum{this, "txtPrefixEnum"};
  forms::Label lblViewFontEnum{this, "lblViewFontEnum", {.Caption = u"View &Font:"}};
  forms::TextBox txtRicViewEnumBuilder{this, "txtRicViewEnumBuilder"};
  forms::Button btmRicViewEnumBuilder{this, "btmRicViewEnumBuilder", {.Caption = u"..."}};
  forms::RichTextBox RicViewEnumBuilder{this, "RicViewEnumBuilder"};

  // Snippet Manager
  forms::Label lblCodeFont{this, "lblCodeFont", {.Caption = u"Code &Font:"}};
  forms::TextBox txtRicCodeFragmentBuilder{this, "txtRicCodeFragmentBuilder"};
  forms::Button btmRicCodeFragmentBuilder{this, "btmRicCodeFragmentBuilder", {.Caption = u"..."}};
  forms::RichTextBox RicCodeFragmentBuilder{this, "RicCodeFragmentBuilder"};
  forms::Label lblCodeObjectFont{this, "lblCodeObjectFont", {.Caption = u"Code &Object Font:"}};
  forms::TextBox txtRicCodeObjectFragmentBuilder{this, "txtRicCodeObjectFragmentBuilder"};
  forms::Button btmRicCodeObjectFragmentBuilder{
      this, "btmRicCodeObjectFragmentBuilder", {.Caption = u"..."}};
  forms::RichTextBox RicCodeObjectFragmentBuilder{this, "RicCodeObjectFragmentBuilder"};
  forms::Label lblUserCodeFont{this, "lblUserCodeFont", {.Caption = u"&User Code Font:"}};
  forms::TextBox txtRicUserCode{this, "txtRicUserCode"};
  forms::Button btmRicUserCode{this, "btmRicUserCode", {.Caption = u"..."}};
  forms::RichTextBox RicUserCode{this, "RicUserCode"};

  // Exceptions
  forms::Grid fgTable{this, "fgTable"};
  forms::Button btmAdd{this, "btmAdd", {.Caption = u"&Add..."}};
  forms::Button btmDelete{this, "btmDelete", {.Caption = u"&Delete"}};

  // Control Type
  forms::Grid fgTableControl{this, "fgTableControl"};
  forms::Button btmAddControl{this, "btmAddControl", {.Caption = u"&Add..."}};
  forms::Button btmDeleteControl{this, "btmDeleteControl", {.Caption = u"&Delete"}};

  // Explorer
  forms::CheckBox chkAutoPosition{this, "chkAutoPosition", {.Caption = u"&AutoPosition"}};

  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmSave{this, "btmSave", {.Caption = u"&Save"}};
  forms::Button btmExit{this, "btmExit", {.Caption = u"E&xit"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;

 private:
  struct FontSample;
  static const FontSample FontSamples[];
  struct StoredValue;
  static const StoredValue StoredValues[];
  enum class Choices { None, Static, Access, EnumAccess, MemberKind, TypesWithNone, Types };

  void Arrange();
  void Wire();
  void WireFonts();
  void LoadParametr();
  void LoadValue(const StoredValue& value, const Statements& run);
  void SaveParamert();
  void SaveAll(const Statements& run);
  void SaveValue(const StoredValue& value);
  [[nodiscard]] bool IsUnread(const StoredValue& value) const;
  [[nodiscard]] std::vector<String> ListOf(Choices choices) const;
  void ShowFont(const FontSample& sample);
  void ChooseFont(const FontSample& sample, const Statements& run);
  static void UpdateRTB(const forms::Font& font, forms::RichTextBox& box);
  [[nodiscard]] bool CheckDuplicateName(StringView name);
  [[nodiscard]] bool CheckDuplicateNameControls(StringView name);

  /// The rows of a grid, and the routine that tells whether a name is taken there.
  struct Table {
    RecordGrid& Records;
    bool (frmSettings::*IsDuplicate)(StringView name);
  };
  void AddRecord(const Table& table, const Statements& run);
  static void DeleteRecord(RecordGrid& records, const Statements& run);

  RecordGrid types_{fgTable}, controlTypes_{fgTableControl};
};

}  // namespace tessel
