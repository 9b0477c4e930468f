// The dialog that carries a control's new name into the code by hand.
#pragma once

#include "controlnaming/NamingForm.h"

namespace tessel {

class frmUpdateControlName : public NamingForm {
 public:
  frmUpdateControlName();

  /// Name of the component whose code it is.
  String NameComponent;

  forms::Label lblText{
      this, "lblText", {.Caption = u"Update code to reflect the new control name?"}};
  forms::Label lblOldName{this, "lblOldName", {.Caption = u"&Old Name"}};
  forms::TextBox txtOldName{this, "txtOldName", {.ToolTipText = u"Old Name"}};
  forms::Label lblNewName{this, "lblNewName", {.Caption = u"N&ew Name"}};
  forms::ComboBox cmbNewName{
      this, "cmbNewName", forms::ComboBox::Style::Editable, {.ToolTipText = u"New Name"}};
  forms::Button btmYes{this, "btmYes", {.Caption = u"&Yes"}};
  forms::Button btmNo{this, "btmNo", {.Caption = u"&No"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void Yes();
};

}  // namespace tessel
