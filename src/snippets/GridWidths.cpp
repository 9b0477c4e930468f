#include "snippets/GridWidths.h"

#include <algorithm>

#include "foundation/CAppSettings.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr int TwipsOfCharacter = 120;
/// No setting makes a column vanish or fill any screen.
constexpr int Narrowest = 1, Widest = 500;

}  // namespace

void GridWidths::Restore(forms::Grid& grid) const {
  std::vector<int> widths = Usual;
  for (std::size_t col = 0; gAppSettings && col < widths.size(); ++col) {
    const String kept = gAppSettings->GetText(Section, String(Key) + vb::Str(col), u"");
    if (!vb::IsNumeric(kept)) continue;
    widths[col] =
        static_cast<int>(std::clamp<double>(vb::Val(kept) / TwipsOfCharacter, Narrowest, Widest));
  }
  grid.ColumnWidths = widths;
}

void GridWidths::Save(const forms::Grid& grid) const {
  if (!gAppSettings) return;
  const std::vector<int>& widths = grid.ColumnWidths;
  for (std::size_t col = 0; col < widths.size(); ++col) {
    gAppSettings->SaveSetting(Section, String(Key) + vb::Str(col),
                              vb::Str(widths[col] * TwipsOfCharacter));
  }
}

}  // namespace tessel
