// The dialog that composes one member of an enum.
#pragma once

#include "builders/BuilderForm.h"
#include "builders/EnumText.h"

namespace tessel {

class frmParameterEnum : public ComposerForm {
 public:
  frmParameterEnum();

  forms::Label lblPrefix{this, "lblPrefix", {.Caption = u"&Prefix:"}};
  forms::TextBox txtPrefix{this, "txtPrefix", {.Text = u"nn_", .ToolTipText = u"Prefix"}};
  forms::Label lblName{this, "lblName", {.Caption = u"&Name:"}};
  forms::TextBox txtName{this, "txtName", {.Text = u"N", .ToolTipText = u"Name"}};
  forms::Label lblDefaultValue{this, "lblDefaultValue", {.Caption = u"&Init Value:"}};
  forms::TextBox txtDefaultValue{this, "txtDefaultValue", {.ToolTipText = u"Init Value"}};
  forms::Label lblResult{this, "lblResult", {.Caption = u"nn_", .ToolTipText = u"Result"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmOK{this, "btmOK", {.Caption = u"OK"}};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;

 private:
  void ShowResult();
  [[nodiscard]] builders::EnumMemberChoices Choices() const;
};

}  // namespace tessel
