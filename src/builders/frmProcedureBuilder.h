// The dialog that writes a new procedure.
#pragma once

#include <memory>

#include "builders/BuilderForm.h"
#include "builders/ProcedureText.h"
#include "builders/frmArgumentBuilder.h"
#include "connections/CSQLDataType.h"

namespace tessel {

class frmProcedureBuilder : public BuilderForm {
 public:
  frmProcedureBuilder();

  forms::Label lblName{this, "lblName", {.Caption = u"&Name:"}};
  forms::TextBox txtName{this, "txtName", {.Text = u"Name", .ToolTipText = u"Name"}};
  forms::Label lblType{this, "lblType", {.Caption = u"&Type:"}};
  forms::ComboBox ComType{this, "ComType", forms::ComboBox::Style::List, {.ToolTipText = u"Type"}};
  forms::Label lblAccessibility{this, "lblAccessibility", {.Caption = u"&Accessibility:"}};
  forms::ComboBox ComAccessibility{
      this, "ComAccessibility", forms::ComboBox::Style::List, {.ToolTipText = u"Accessibility"}};
  forms::Label lblStatic{this, "lblStatic", {.Caption = u"&Static:"}};
  forms::ComboBox ComStatic{
      this, "ComStatic", forms::ComboBox::Style::List, {.ToolTipText = u"Static"}};
  forms::Label lblReturnValueType{this, "lblReturnValueType", {.Caption = u"&Return Value Type:"}};
  forms::ComboBox ComReturnValueType{this,
                                     "ComReturnValueType",
                                     forms::ComboBox::Style::List,
                                     {.ToolTipText = u"Return Value Type"}};
  forms::Label lblModule{this, "lblModule", {.Caption = u"&Module:"}};
  forms::ComboBox ComModule{
      this, "ComModule", forms::ComboBox::Style::List, {.ToolTipText = u"Module"}};
  forms::ListBox ListProcedureArguments{this, "ListProcedureArguments"};
  forms::Button btmAdd{this, "btmAdd", {.Caption = u"A&dd...", .ToolTipText = u"Add"}};
  forms::Button btmDel{this, "btmDel", {.Caption = u"De&lete", .ToolTipText = u"Delete"}};
  forms::Button btmMoveUp{this, "btmMoveUp", {.Caption = u"&Up", .ToolTipText = u"Move Up"}};
  forms::Button btmMoweDown{
      this, "btmMoweDown", {.Caption = u"Do&wn", .ToolTipText = u"Move Down"}};
  forms::Label lblDescription{this, "lblDescription", {.Caption = u"Des&cription:"}};
  forms::TextBox txtDescription{this, "txtDescription", {.ToolTipText = u"Description"}};
  forms::CheckBox chkHeader{this, "chkHeader", {.Caption = u"Header"}};
  forms::RichTextBox RicViewProcedureBuilder{this, "RicViewProcedureBuilder"};
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
  void EnableReturnType();
  void AddArgument();
  void ViewRTF();
  void OK();
  void Close();
  [[nodiscard]] builders::ProcedureChoices Choices() const;

  std::vector<String> types_;
  std::shared_ptr<frmArgumentBuilder> argument_;
};

}  // namespace tessel
