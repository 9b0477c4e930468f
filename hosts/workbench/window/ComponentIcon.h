// The picture of a component in trees and frames.
#pragma once

#include <QIcon>

#include "host/Types.h"

namespace tessel::workbench {

/// The program's pictures that stand for itself, a project and a folder.
inline constexpr int ProgramPicture = 101, ProjectPicture = 125, FolderPicture = 135;

[[nodiscard]] QIcon ComponentIcon(host::vbext_ComponentType type);

}  // namespace tessel::workbench
