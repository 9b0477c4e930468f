// Windows of the program by their handles.
#pragma once

#include "platform/Windows.h"

namespace tessel::workbench {

/// Handles are those of Qt's widgets, classes those of their types.
class QtWindows : public platform::Windows {
 public:
  [[nodiscard]] String ClassName(platform::WindowHandle window) override;
};

}  // namespace tessel::workbench
