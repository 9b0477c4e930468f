// The error dialog.
#pragma once

#include "forms/Controls.h"
#include "foundation/GuardedForm.h"

namespace tessel {

/// Shows a report and lets the user choose. `Tag` says the choice: "ABORT" (also when the frame
/// closes it), "RETRY" or "IGNORE".
class frmErrorMessage : public GuardedForm {
 public:
  frmErrorMessage();

  /// The report; the program's version goes behind it.
  void SetErrorMessage(StringView report);
  /// Address that the Send button writes to; it stays off without one.
  void SetSupportMail(StringView address) { supportMail_ = address; }

  forms::Label elaTitleCaption{this, "elaTitleCaption"};
  forms::TextBox txtErrorMessage{this, "txtErrorMessage"};
  forms::Button btnSend{this, "btnSend", {.Caption = u"&Send"}};
  forms::Button btnAbort{this, "btnAbort", {.Caption = u"&Abort"}};
  forms::Button btnRetry{this, "btnRetry", {.Caption = u"&Retry"}};
  forms::Button btnIgnore{this, "btnIgnore", {.Caption = u"&Ignore"}};

 protected:
  void Form_Activate() override;

 private:
  void Answer(StringView word);
  void Send();
  String supportMail_;
};

}  // namespace tessel
