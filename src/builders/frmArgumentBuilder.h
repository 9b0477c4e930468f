// The dialog that composes one argument of a procedure.
#pragma once

#include "builders/ArgumentText.h"
#include "builders/BuilderForm.h"

namespace tessel {

/// Its caller sets `TableType` between loading and showing it.
class frmArgumentBuilder : public ComposerForm {
 public:
  frmArgumentBuilder();

  /// The type names to offer.
  std::vector<String> TableType;

  forms::Label lblName{this, "lblName", {.Caption = u"&Name:"}};
  forms::TextBox txtName{this, "txtName", {.Text = u"N", .ToolTipText = u"Name"}};
  forms::Label lblType{this, "lblType", {.Caption = u"&Type:"}};
  forms::ComboBox ComType{this, "ComType", forms::ComboBox::Style::List, {.ToolTipText = u"Type"}};
  forms::CheckBox chkArray{this, "chkArray", {.Caption = u"&Array"}};
  forms::CheckBox chkOptional{this, "chkOptional", {.Caption = u"&Optional"}};
  forms::CheckBox chkParamArray{this, "chkParamArray", {.Caption = u"&Param Array"}};
  forms::OptionButton OptByRef{this, "OptByRef", 0, {.Caption = u"By&Ref"}};
  forms::OptionButton OptByVal{this, "OptByVal", 0, {.Caption = u"By&Val"}};
  forms::Label lblDefaultValue{this, "lblDefaultValue", {.Caption = u"&Default Value:"}};
  forms::TextBox txtDefaultValue{this, "txtDefaultValue", {.ToolTipText = u"Default Value"}};
  forms::Label lblResult{this, "lblResult", {.Caption = u"Result", .ToolTipText = u"Result"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmOK{this, "btmOK", {.Caption = u"OK"}};
  forms::Button btmCansel{this, "btmCansel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Activate() override;

 private:
  void LoadParametr();
  /// The handler of a box on which other fields depend.
  [[nodiscard]] std::function<void()> Checking(StringView routine);
  void EnableFields();
  void ShowResult();
  [[nodiscard]] builders::ArgumentChoices Choices() const;
};

}  // namespace tessel
