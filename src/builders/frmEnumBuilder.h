// The dialog that writes an enum.
#pragma once

#include <memory>

#include "builders/BuilderForm.h"
#include "builders/EnumText.h"
#include "builders/frmParameterEnum.h"

namespace tessel {

class frmEnumBuilder : public BuilderForm {
 public:
  frmEnumBuilder();

  forms::Label lblName{this, "lblName", {.Caption = u"&Name:"}};
  forms::TextBox txtName{this, "txtName", {.Text = u"Name", .ToolTipText = u"Name"}};
  forms::Label lblAccessibility{this, "lblAccessibility", {.Caption = u"&Accessibility:"}};
  forms::ComboBox ComAccessibility{
      this, "ComAccessibility", forms::ComboBox::Style::List, {.ToolTipText = u"Accessibility"}};
  forms::Label lblModule{this, "lblModule", {.Caption = u"&Module:"}};
  forms::ComboBox ComModule{
      this, "ComModule", forms::ComboBox::Style::List, {.ToolTipText = u"Module"}};
  forms::ListBox ListParameters{this, "ListParameters"};
  forms::Button btmAdd{this, "btmAdd", {.Caption = u"A&dd...", .ToolTipText = u"Add"}};
  forms::Button btmDel{this, "btmDel", {.Caption = u"De&lete", .ToolTipText = u"Delete"}};
  forms::Button btmMoveUp{this, "btmMoveUp", {.Caption = u"&Up", .ToolTipText = u"Move Up"}};
  forms::Button btmMoveDown{
      this, "btmMoveDown", {.Caption = u"Do&wn", .ToolTipText = u"Move Down"}};
  forms::Label lblDescription{this, "lblDescription", {.Caption = u"Des&cription:"}};
  forms::TextBox txtDescription{this, "txtDescription", {.ToolTipText = u"Description"}};
  forms::CheckBox chkHeader{this, "chkHeader", {.Caption = u"Header"}};
  forms::RichTextBox RicViewEnumBuilder{this, "RicViewEnumBuilder"};
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
  void AddParameter();
  void ViewRTF();
  void OK();
  void Close();
  [[nodiscard]] builders::EnumChoices Choices() const;

  std::shared_ptr<frmParameterEnum> parameter_;
};

}  // namespace tessel
