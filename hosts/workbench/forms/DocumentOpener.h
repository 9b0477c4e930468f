// Opening of documents, folders, programs and addresses.
#pragma once

#include "vb/Text.h"

namespace tessel::workbench {

/// Opens a target with a verb of the shell. Answers as the shell does: ShellSuccess; 2 when there
/// is no such target; 31 when the desktop has no program for it, or knows no such verb.
[[nodiscard]] int OpenTarget(StringView target, StringView verb, StringView parameters);

}  // namespace tessel::workbench
