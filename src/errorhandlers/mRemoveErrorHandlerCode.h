// Takes out what the insertion wrote: blocks, line numbers, jumps to a label.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "errorhandlers/RunContext.h"
#include "scanning/RunResult.h"

namespace tessel::mRemoveErrorHandlerCode {

/// The lines without blocks, numbers, blank lines and their common margin; nothing when none is
/// left. `labelName`, when it isn't empty, is the label whose jumps become "On Error GoTo 0".
[[nodiscard]] std::optional<std::vector<String>> RemoveErrorHandlerScheme(StringView text,
                                                                          StringView labelName);
/// Takes a line number off and lowers `leftMost` to the line's margin.
[[nodiscard]] String ModifyWorkString(String line, int& leftMost);
/// Drops blank lines and takes the common margin off the others; nothing when none is left.
[[nodiscard]] std::optional<std::vector<String>> DeleteNullLinesAndMoveText(
    std::vector<String> lines, int leftMost);

void RunRemoveMemberProcedure(mInsertErrorHandlerCode::RunContext& context,
                              const std::shared_ptr<host::CodeModule>& codeModule,
                              StringView memberName, StringView schemeName, int mode);
void RunRemoveComponentModule(mInsertErrorHandlerCode::RunContext& context,
                              const std::shared_ptr<host::CodeModule>& codeModule);
RunResult RunRemoveErrorHandlerCode(mInsertErrorHandlerCode::RunContext& context,
                                    const std::shared_ptr<host::VBComponents>& components,
                                    StringView scope);

}  // namespace tessel::mRemoveErrorHandlerCode
