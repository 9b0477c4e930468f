// The code of a component.
#pragma once

#include <memory>

#include "host/VBE.h"

namespace tessel {

/// The component's module; nothing, in silence, where there is none or the host refuses it, as for
/// resource files and related documents. Such a component counts as one without members.
[[nodiscard]] std::shared_ptr<host::CodeModule> ModuleOf(
    const std::shared_ptr<host::VBComponent>& component);

}  // namespace tessel
