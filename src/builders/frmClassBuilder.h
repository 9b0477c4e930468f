// The dialog that writes a collection class.
#pragma once

#include "builders/BuilderForm.h"
#include "builders/CollectionText.h"

namespace tessel {

class frmClassBuilder : public BuilderForm {
 public:
  frmClassBuilder();

  forms::Label lblBaseClass{this, "lblBaseClass", {.Caption = u"&Base Class:"}};
  forms::ComboBox ComBaseClass{this,
                               "ComBaseClass",
                               forms::ComboBox::Style::Editable,
                               {.Text = u"ComBaseClass", .ToolTipText = u"Base Class"}};
  forms::Label lblCollectionClassName{
      this, "lblCollectionClassName", {.Caption = u"Collection Class &Name:"}};
  forms::TextBox txtCollectionClassName{
      this, "txtCollectionClassName", {.Text = u"Name", .ToolTipText = u"Collection Class Name"}};
  forms::Label lblDescription{this, "lblDescription", {.Caption = u"&Description:"}};
  forms::TextBox txtDescription{this, "txtDescription", {.ToolTipText = u"Description"}};
  forms::CheckBox chkHeader{this, "chkHeader", {.Caption = u"Header"}};
  forms::CheckBox chkImplementsPublic{
      this,
      "chkImplementsPublic",
      {.Caption = u"Implements public item existence checker (the 'Exists' function)"}};
  forms::RichTextBox RicViewClassBuilder{this, "RicViewClassBuilder"};
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
  void ComBaseClass_Click_Change();
  void ViewRTF();
  void OK();
  void Close();
  [[nodiscard]] builders::CollectionChoices Choices() const;
};

}  // namespace tessel
