// The dialog that names a control that was added to a designer.
#pragma once

#include "controlnaming/NamingForm.h"

namespace tessel {

/// Takes the prefix from `Connect.ItemAddedName`. OK leaves the name there, the text in
/// `Connect.ItemAddedText` and 1 in `Connect.ReturnOkCancel`; Cancel leaves 2.
class frmAddControl : public NamingForm {
 public:
  frmAddControl();

  /// Name of the component whose designer has the control.
  String NameCodeModule;

  forms::Label lblText{this,
                       "lblText",
                       {.Caption = u"Use this feature to modify the Name and Text/Caption "
                                   u"properties of the selected control according to the naming "
                                   u"standard"}};
  forms::Label lblTextCaption{this, "lblTextCaption", {.Caption = u"&Text"}};
  forms::TextBox txtText{this, "txtText"};
  forms::Label lblName{this, "lblName", {.Caption = u"&Name"}};
  forms::TextBox txtName{this, "txtName", {.Text = u"Name", .ToolTipText = u"Name"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};
  forms::Button btmStandards{this, "btmStandards", {.Caption = u"&Standards..."}};
  forms::Button btmOK{this, "btmOK", {.Caption = u"OK"}};
  forms::Button btmCansel{this, "btmCansel", {.Caption = u"Cancel"}};

  /// Whether a control of the designer has that name, regardless of case. The one that was just
  /// added has its default name.
  [[nodiscard]] bool DuplicatNameControl(StringView name) const;

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void OK();
};

}  // namespace tessel
