// Types of components and projects, which a request gives by number or by name.
#pragma once

#include "host/Types.h"
#include "hosts/drive/Channel.h"

namespace tessel::drive {

// Each fails, naming the field and what it may be, for a number or a name (in any case) that no
// type has.
[[nodiscard]] host::vbext_ComponentType ComponentTypeField(const Json& request, const char* field);
[[nodiscard]] host::vbext_ProjectType ProjectTypeField(const Json& request, const char* field);

}  // namespace tessel::drive
