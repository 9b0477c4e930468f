// The workbench's own options.
#pragma once

#include <QDialog>

#include "hosts/workbench/window/Settings.h"

namespace tessel::workbench {

/// Shows the options and stores them on OK; true when they were stored.
bool EditOptions(QWidget* parent, Settings& settings);

}  // namespace tessel::workbench
