#include "hosts/memory/MemoryApp.h"

namespace tessel::memory {

String MemoryIdentity::NewGuid() {
  const std::string digits = std::to_string(++guids_);
  return vb::FromUtf8("{00000000-0000-0000-0000-" + std::string(12 - digits.size(), '0') + digits +
                      "}");
}

String MemoryApp::NativePath(StringView path) { return vb::Replace(path, u"\\", u"/"); }

String MemoryApp::TemporaryFolder() { return temporary_.Path().u16string(); }

}  // namespace tessel::memory
