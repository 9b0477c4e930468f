#include "foundation/Defaults.h"

#include "foundation/CAppSettings.h"
#include "vb/Numbers.h"

namespace tessel {

String DefaultText(StringView name, StringView standard) {
  return gAppSettings ? gAppSettings->GetText(DefaultsSection, name, standard) : String(standard);
}

bool DefaultFlag(StringView name, bool standard) {
  const String stored = DefaultText(name, standard ? u"1" : u"0");
  return vb::Val(stored) == 1 || vb::SameText(stored, u"True");
}

}  // namespace tessel
