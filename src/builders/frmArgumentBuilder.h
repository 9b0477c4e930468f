// The dialog that composes one argument of a procedure.
#pragma once

#include "builders/ArgumentText.h"
#include "builders/BuilderForm.h"

namespace tessel {

/// Its caller loads it, sets `TableType`, shows it modally, reads `Result` and unloads it.
class frmArgumentBuilder : public BuilderForm {
 public:
  frmArgumentBuilder();

  /// The type names to offer.
  std::vector<String> TableType;
  /// The finished argument; empty after Cancel.
  String Result;

  forms::Label lblName{this, "lblName", {.Caption = u"&Name:"}};
  forms::TextBox txtName{this, "txtName", {.Text = u"N", .ToolTipText = u"Name"}};
  forms::Label lblType{this, "lblType", {.Caption = u"&Type:"}};
  forms::ComboBox ComType{this, "ComType", forms::ComboBox::Style::List, {.ToolTipText = u"Type"}};
  forms::CheckBox chkArray{this, "chkArray", {.Caption = u"Array"}};
  forms::CheckBox chkOptional{this, "chkOptional", {.Caption = u"Optional"}};
  forms::CheckBox chkParamArray{this, "chkParamArray", {.Caption = u"Param Array"}};
  forms::OptionButton OptByRef{this, "OptByRef", 0, {.Caption = u"ByRef"}};
  forms::OptionButton OptByVal{this, "OptByVal", 0, {.Caption = u"ByVal"}};
  forms::Label lblDefaultValue{this, "lblDefaultValue", {.Caption = u"&Default Value:"}};
  forms::TextBox txtDefaultValue{this, "txtDefaultValue", {.ToolTipText = u"Default Value"}};
  forms::Label lblResult{this, "lblResult", {.Caption = u"Result", .ToolTipText = u"Result"}};
  forms::Button btmOK{this, "btmOK", {.Caption = u"OK"}};
  forms::Button btmCansel{this, "btmCansel", {.Caption = u"Cancel"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;
  bool Form_QueryUnload() override;

 private:
  void LoadParametr();
  void EnableFields();
  void ShowResult();
  void OK();
  [[nodiscard]] builders::ArgumentChoices Choices() const;
};

}  // namespace tessel
