// The dialog that asks whether a renamed control's new name goes into the code.
#pragma once

#include "controlnaming/NamingForm.h"

namespace tessel {

class frmControlName : public NamingForm {
 public:
  frmControlName();

  /// Name of the component whose code it is.
  String NameComponent;

  forms::Label lblText{
      this, "lblText", {.Caption = u"Update code to reflect the new control name?"}};
  forms::Label lblOldCaption{this, "lblOldCaption", {.Caption = u"Old Name:"}};
  forms::Label lblOldName{this, "lblOldName"};
  forms::Label lblNewCaption{this, "lblNewCaption", {.Caption = u"New Name:"}};
  forms::Label lblNewName{this, "lblNewName"};
  forms::Button btmYes{this, "btmYes", {.Caption = u"&Yes"}};
  forms::Button btmNo{this, "btmNo", {.Caption = u"&No"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void Yes();
};

}  // namespace tessel
