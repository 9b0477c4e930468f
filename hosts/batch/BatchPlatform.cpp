#include "hosts/batch/BatchPlatform.h"

namespace tessel::batch {

BatchPlatform::BatchPlatform(int tabWidth) {
  RegistryService.SetValue(platform::RootKey::CurrentUser, u"Software\\Microsoft\\VBA\\6.0\\Common",
                           u"TabWidth", static_cast<std::uint32_t>(tabWidth));
}

}  // namespace tessel::batch
