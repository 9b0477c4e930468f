// Whether the model of what is open still says what the environment says: any difference that the
// rows of the tree would show.
#pragma once

#include <memory>

#include "host/VBE.h"
#include "projectmodel/cProjecteses.h"

namespace tessel::explorer {

/// Other projects than in the model: captions, file names, kinds, their order.
[[nodiscard]] bool ProjectsDiffer(const cProjecteses& model, host::VBProjects& projects);
/// Other components of one project: names, types, numbers of lines, then members. A project whose
/// components can't be read has none.
[[nodiscard]] bool ComponentsDiffer(const cProjectes& model, host::VBProject& project);
/// Other members: their number, names, kinds and first lines.
[[nodiscard]] bool MembersDiffer(const cComponentes& model,
                                 const std::shared_ptr<host::CodeModule>& module);
/// Other numbers of lines than at the last reading.
[[nodiscard]] bool LinesDiffer(const cComponentes& model,
                               const std::shared_ptr<host::CodeModule>& module);

// Look-ups that make nothing; null for what isn't there.
[[nodiscard]] std::shared_ptr<cProjectes> FindProject(const cProjecteses& model,
                                                      StringView caption);
[[nodiscard]] std::shared_ptr<cTypeComponentes> FindGroup(const cProjectes& model,
                                                          std::int32_t type);
[[nodiscard]] std::shared_ptr<cComponentes> FindComponent(const cTypeComponentes& model,
                                                          StringView name);

}  // namespace tessel::explorer
