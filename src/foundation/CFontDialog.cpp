#include "foundation/CFontDialog.h"

#include <algorithm>

#include "foundation/ServiceClass.h"
#include "platform/Platform.h"

namespace tessel {
namespace {

constexpr std::uint32_t InvalidWindow = 0x80044471, ComponentFailure = 0x80044472;
constexpr ServiceClass Service{u"CFontDialog", InvalidWindow, ComponentFailure,
                               u"CFontDialog component failure"};

String StyleOf(const forms::Font& font) {
  if (font.Bold && font.Italic) return u"Bold Italic";
  if (font.Bold) return u"Bold";
  return font.Italic ? u"Italic" : u"Regular";
}

}  // namespace

void CFontDialog::Init() { *this = CFontDialog(); }

bool CFontDialog::Show() {
  return Service.Guard([&] {
    platform::Platform& services = platform::Current();
    if (HWndOwner != 0 && services.Windows().ClassName(HWndOwner).empty()) {
      throw Service.Own(InvalidWindow, u"Invalid window handle");
    }
    forms::Font chosen = Font;
    if (!services.Boxes().FontDialog(chosen, DialogTitle)) return false;
    if (Min > 0) chosen.Size = std::max(chosen.Size, static_cast<double>(Min));
    if (Max > 0) chosen.Size = std::min(chosen.Size, static_cast<double>(Max));
    Font = chosen;
    Style = StyleOf(chosen);
    return true;
  });
}

}  // namespace tessel
