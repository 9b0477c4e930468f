// The program's pictures and pages, which travel inside it.
#pragma once

#include <QIcon>

namespace tessel::workbench {

/// Makes the built-in files known to Qt; once, ahead of everything else.
void LoadResources();

/// The picture of that number (101 to 153), drawn sharp at any scale; empty for another number.
[[nodiscard]] QIcon Picture(int number);

}  // namespace tessel::workbench
