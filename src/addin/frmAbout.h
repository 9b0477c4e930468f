// The About box.
#pragma once

#include "forms/Controls.h"
#include "foundation/GuardedForm.h"

namespace tessel {

class frmAbout : public GuardedForm {
 public:
  frmAbout();

  forms::PictureBox picIcon{this, "picIcon", 111};
  forms::Label lblTitle{this, "lblTitle"};
  forms::Label lblVersion{this, "lblVersion"};
  forms::Label lblDescription{
      this,
      "lblDescription",
      {.Caption = u"Tools for Visual Basic 6 code: formatter, statement templates, error-handler "
                  u"schemes and a library of snippets."}};
  forms::Button btmOK{this, "btmOK", {.Caption = u"OK"}};
  forms::Button btmHelp{this, "btmHelp", {.Caption = u"Help"}};

 protected:
  void Form_Load() override;
};

}  // namespace tessel
