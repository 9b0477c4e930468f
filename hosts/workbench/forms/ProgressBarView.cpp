#include "hosts/workbench/forms/ProgressBarView.h"

#include <cmath>

namespace tessel::workbench {
namespace {

constexpr int StepsOfPercent = 10, Columns = 60;

}  // namespace

ProgressBarView::ProgressBarView(forms::ProgressBar& bar, ViewHost& host)
    : ControlView(bar, host), bar_(bar), widget_(new QProgressBar) {
  widget_->setRange(0, 100 * StepsOfPercent);
  widget_->setMinimumWidth(Columns * widget_->fontMetrics().averageCharWidth());
}

void ProgressBarView::Update() {
  // A total of 0 makes no number of a position.
  const double percent = std::isnan(bar_.Value()) ? 0 : bar_.Value();
  widget_->setValue(static_cast<int>(percent * StepsOfPercent));
}

}  // namespace tessel::workbench
