// Progress of a long run: two bars, two lines of text, a Cancel button. The caller keeps the loop.
#pragma once

#include "forms/Controls.h"
#include "foundation/GuardedForm.h"

namespace tessel {

/// The caller sets the totals, then the positions, and polls `ProgressBarStop`. A total of 0 is the
/// caller's to avoid.
class ProgressBarWindow : public GuardedForm {
 public:
  explicit ProgressBarWindow(StringView caption = u"");

  void SetMessage2(StringView text);
  [[nodiscard]] double PRBsi2() const { return position2_; }
  void SetPRBsi2(double position);
  [[nodiscard]] double PRBsi1() const { return position1_; }
  void SetPRBsi1(double position);
  [[nodiscard]] double PRBCount2() const { return count2_; }
  void SetPRBCount2(double total) { count2_ = total; }
  [[nodiscard]] double PRBCount1() const { return count1_; }
  void SetPRBCount1(double total) { count1_ = total; }
  void SetMessage1(StringView text);
  [[nodiscard]] bool ProgressBarStop() const { return stop_; }
  void SetProgressBarStop(bool value) { stop_ = value; }

  forms::Label lblMessage1{this, "lblMessage1"};
  forms::ProgressBar C1ElaProgressBar1{this, "C1ElaProgressBar1"};
  forms::Label lblMessage2{this, "lblMessage2"};
  forms::ProgressBar C1ElaProgressBar2{this, "C1ElaProgressBar2"};
  forms::Button btmCancel{this, "btmCancel", {.Caption = u"Cancel"}};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  double position1_ = 0, position2_ = 0, count1_ = 0, count2_ = 0;
  bool stop_ = false;
};

}  // namespace tessel
