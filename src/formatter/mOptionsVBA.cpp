#include "formatter/mOptionsVBA.h"

#include "foundation/Routine.h"
#include "platform/Platform.h"

namespace tessel::mOptionsVBA {
namespace {

/// The code of the first byte of a value: only the low byte of a stored number counts.
struct FirstByte {
  int operator()(const String& text) const { return text.empty() ? -1 : text.front() & 0xFF; }
  int operator()(std::uint32_t number) const { return static_cast<int>(number & 0xFF); }
  int operator()(const std::vector<std::byte>& bytes) const {
    return bytes.empty() ? -1 : std::to_integer<int>(bytes.front());
  }
};

}  // namespace

int GetVBEEditorTabWidth() {
  int width = -1;
  ResumeNext([&] {
    const auto stored = platform::Current().Registry().GetValue(
        platform::RootKey::CurrentUser, u"Software\\Microsoft\\VBA\\6.0\\Common", u"TabWidth");
    if (stored) width = std::visit(FirstByte{}, *stored);
  });
  return width;
}

}  // namespace tessel::mOptionsVBA
