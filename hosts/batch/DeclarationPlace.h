// Where new declarations go in a module.
#pragma once

#include "hosts/model/CodeModule.h"

namespace tessel::batch {

/// The line, from 1, ahead of which new declarations belong: that behind the last declaration.
/// Where a conditional block that begins among the declarations goes on behind them, it is the line
/// of that block's outermost "#If": the text must not depend on its condition. Comments right ahead
/// of that line stay with it, but for those on top of the module.
[[nodiscard]] int LineForDeclarations(model::CodeModule& code);

}  // namespace tessel::batch
