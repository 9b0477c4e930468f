// Blank lines around text that enters a module.
#pragma once

#include "host/CodeModule.h"

namespace tessel::blanklines {

/// The text without the line ends that it ends in.
[[nodiscard]] StringView WithoutLineEnds(StringView text);
/// Whether a line of the module (from 1) holds nothing but blanks and tabs; false for a line that
/// isn't there. Failures are the host's.
[[nodiscard]] bool IsBlank(host::CodeModule& module, int line);
/// `text` as it is to stand ahead of `line`: where it ends in a line end, exactly one blank line
/// follows it, whatever it ends in and whatever stands there. Blank lines behind that one stay.
[[nodiscard]] StringView FollowedByOne(StringView text, host::CodeModule& module, int line);
/// `text` as it is to stand ahead of `line`: where code stands right above, a blank line comes
/// between.
[[nodiscard]] String PrecededByOne(String text, host::CodeModule& module, int line);

}  // namespace tessel::blanklines
