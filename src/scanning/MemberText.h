// A member as a piece of text: how the tools read it.
#pragma once

#include <memory>

#include "foundation/Routine.h"
#include "host/CodeModule.h"

namespace tessel {

/// Where a member lies, from its statement to its end, without the comments above it. Without text
/// when the host didn't say: what is only half known is not worked on.
struct MemberText {
  int Body = 0, Length = 0;
  String Text;
};

/// Asks for the body, the count and the start of a member, then for its text; each is a statement
/// of the calling routine.
[[nodiscard]] MemberText ReadMember(const Statements& run,
                                    const std::shared_ptr<host::CodeModule>& module,
                                    StringView name, int kind);

}  // namespace tessel
