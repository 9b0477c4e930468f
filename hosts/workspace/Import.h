// Components of files on their way into a project.
#pragma once

#include <memory>

#include "hosts/model/Project.h"
#include "hosts/workspace/ComponentFile.h"
#include "hosts/workspace/ProjectPage.h"

namespace tessel::workspace {

/// Makes the component of a file, for a project that doesn't hold it yet. Its head is read now, its
/// code when somebody asks for it. Fails with a vb::Failure that names the file and the line.
[[nodiscard]] std::shared_ptr<model::VBComponent> MakeComponent(
    const model::Hook& hook, const std::shared_ptr<model::VBProject>& project,
    const std::shared_ptr<ComponentFile>& file);

/// Reads a component file in the code page of its project and puts it into the project, under a
/// free name where its own is taken. One that comes from the program's folder for temporary files
/// is taken over: it has no file of its own until the user saves it. Fails with a vb::Failure that
/// names the file; the project is as it was then.
[[nodiscard]] std::shared_ptr<model::VBComponent> ImportComponent(model::VBProject& project,
                                                                  StringView fileName,
                                                                  ProjectPage& page);

}  // namespace tessel::workspace
