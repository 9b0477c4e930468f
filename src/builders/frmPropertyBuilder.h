// The dialog that writes a member variable with its Property procedures.
#pragma once

#include "builders/BuilderForm.h"
#include "builders/PropertyText.h"
#include "connections/CSQLDataType.h"

namespace tessel {

class frmPropertyBuilder : public BuilderForm {
 public:
  frmPropertyBuilder();

  forms::Label lblName{this, "lblName", {.Caption = u"&Name:"}};
  forms::TextBox txtName{this, "txtName", {.Text = u"Name", .ToolTipText = u"Name"}};
  forms::Label lblValueType{this, "lblValueType", {.Caption = u"&Value Type:"}};
  forms::ComboBox ComValueType{
      this, "ComValueType", forms::ComboBox::Style::List, {.ToolTipText = u"Value Type"}};
  forms::Label lblMemberVariable{this, "lblMemberVariable", {.Caption = u"M&ember Variable:"}};
  forms::TextBox txtMemberVariable{
      this, "txtMemberVariable", {.Text = u"MemberVariable", .ToolTipText = u"Member Variable"}};
  forms::Label lblAccessibility{this, "lblAccessibility", {.Caption = u"&Accessibility:"}};
  forms::ComboBox ComAccessibility{
      this, "ComAccessibility", forms::ComboBox::Style::List, {.ToolTipText = u"Accessibility"}};
  forms::Label lblStatic{this, "lblStatic", {.Caption = u"&Static:"}};
  forms::ComboBox ComStatic{
      this, "ComStatic", forms::ComboBox::Style::List, {.ToolTipText = u"Static"}};
  forms::Label lblModule{this, "lblModule", {.Caption = u"&Module:"}};
  forms::ComboBox ComModule{
      this, "ComModule", forms::ComboBox::Style::List, {.ToolTipText = u"Module"}};
  forms::CheckBox chkGet{this, "chkGet", {.Caption = u"Get"}};
  forms::CheckBox chkLetSet{this, "chkLetSet", {.Caption = u"Let/Set"}};
  forms::Label lblDescription{this, "lblDescription", {.Caption = u"&Description:"}};
  forms::TextBox txtDescription{this, "txtDescription", {.ToolTipText = u"Description"}};
  forms::CheckBox chkHeader{this, "chkHeader", {.Caption = u"Header"}};
  forms::RichTextBox RicViewPropertyBuilder{this, "RicViewPropertyBuilder"};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmOK{this, "btmOK", {.Caption = u"OK"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void Arrange();
  void Wire();
  void LoadParametr();
  void TakePrefix();
  void ViewTextRichtextboxWindow();
  void OK();
  void Close();
  /// Prefix of the chosen type; empty when there is none.
  [[nodiscard]] String PrefixOfType() const;
  [[nodiscard]] builders::PropertyChoices Choices() const;

  std::vector<CSQLDataType::Row> types_;
};

}  // namespace tessel
