// Members of a code module.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "vb/SharedText.h"

namespace tessel {

/// Member kinds 0 to 3 are the environment's procedure kinds; this one is the event procedure of a
/// control on the module's designer.
inline constexpr int MemberKindControlEvent = 99;

/// One row of the member table; lines count from 1.
struct Member {
  String Name;         ///< as `CodeModule.ProcOfLine` gives it
  int Kind = 0;        ///< 0 to 3, 99
  int StartLine = 0;   ///< `ProcStartLine`
  int BodyLine = 0;    ///< `ProcBodyLine`
  int CountLines = 0;  ///< `ProcCountLines`
  bool operator==(const Member&) const = default;
};

/// In source order; nothing for a module without members.
using MemberTable = std::optional<std::vector<Member>>;

/// Object form of one row, for the project model.
struct cNameProcedures {
  std::int16_t vbext = 0;  ///< member kind
  std::int32_t ProcCountLines = 0;
  std::int32_t ProcBodyLine = 0;
  std::int32_t ProcStartLine = 0;
  vb::SharedText NameAndType;  ///< name and `MemberKindToken`
  vb::SharedText Name;
};

}  // namespace tessel
