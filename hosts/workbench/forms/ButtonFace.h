// What stands on a button.
#pragma once

#include <QAbstractButton>

#include "forms/Controls.h"

namespace tessel::workbench {

/// The caption, or a picture whose caption is its tip.
void ShowFace(QAbstractButton& button, const forms::CaptionedControl& control);

}  // namespace tessel::workbench
