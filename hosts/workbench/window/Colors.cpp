#include "hosts/workbench/window/Colors.h"

namespace tessel::workbench {

QColor MutedText(const QPalette& palette) {
  constexpr int TextShare = 60, WholeShare = 100;
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  const QColor behind = palette.color(QPalette::Active, QPalette::Window);
  const auto mixed = [](int one, int other) {
    return (one * TextShare + other * (WholeShare - TextShare)) / WholeShare;
  };
  return {mixed(text.red(), behind.red()), mixed(text.green(), behind.green()),
          mixed(text.blue(), behind.blue())};
}

}  // namespace tessel::workbench
