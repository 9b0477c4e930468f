#include "foundation/ProgressBarWindow.h"

namespace tessel {

ProgressBarWindow::ProgressBarWindow(StringView caption)
    : GuardedForm("ProgressBarWindow", caption) {
  using namespace forms;
  btmCancel.Cancel = true;
  SetLayout(Column({Item(lblMessage1), Item(C1ElaProgressBar1), Item(lblMessage2),
                    Item(C1ElaProgressBar2), Row({Space(), Item(btmCancel), Space()})}));
  btmCancel.Click = [this] { stop_ = true; };
}

void ProgressBarWindow::SetMessage1(StringView text) { lblMessage1.SetCaption(text); }

void ProgressBarWindow::SetMessage2(StringView text) { lblMessage2.SetCaption(text); }

void ProgressBarWindow::SetPRBsi1(double position) {
  position1_ = position;
  C1ElaProgressBar1.SetValue(position / count1_ * 100);
}

void ProgressBarWindow::SetPRBsi2(double position) {
  position2_ = position;
  C1ElaProgressBar2.SetValue(position / count2_ * 100);
}

void ProgressBarWindow::Form_Load() { stop_ = false; }

// Closing by the frame comes here too, and counts as Cancel.
void ProgressBarWindow::Form_Unload() { stop_ = true; }

}  // namespace tessel
