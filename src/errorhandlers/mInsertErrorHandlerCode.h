// Gives members the header, footer, line numbers and label of an error-handler scheme.
#pragma once

#include <cstdint>
#include <memory>

#include "errorhandlers/RunContext.h"
#include "scanning/RunResult.h"

namespace tessel::mInsertErrorHandlerCode {

/// Marker lines, searched for without regard to case.
inline constexpr StringView HeaderStart = u"'<errHeader>", HeaderEnd = u"'</errHeader>",
                            FooterStart = u"'<errFooter>", FooterEnd = u"'</errFooter>";
/// Whether a text holds another, without regard to case.
[[nodiscard]] bool ContainsText(StringView text, StringView what);
/// The scheme name that leaves a member as it stands, compared exactly.
inline constexpr StringView SkipScheme = u"Skip";
/// The index that stands for no scheme.
inline constexpr int NoScheme = 9999;

/// Mode numbers of the three scopes.
enum RunMode : int { ProjectMode = 0, ComponentMode = 1, MethodMode = 2 };

/// Reads the schemes; fewer than two leave the array as it was.
void Init_mRecord_ErrorHandlerScheme(RunContext& context);
/// Index of a scheme without regard to case, `NoScheme` without one.
[[nodiscard]] int ReturnIndexErrorHandlerScheme(const RunContext& context, StringView name);
/// The scheme itself, null without one.
[[nodiscard]] const ErrorHandlerScheme* FindScheme(const RunContext& context, StringView name);
/// The header block, each line ended by CR LF; a single CR LF for an empty header.
[[nodiscard]] String ReturnHeader(RunContext& context, StringView header, StringView prefix,
                                  StringView projectName, StringView componentName,
                                  StringView memberName, StringView memberType,
                                  StringView controlName);
[[nodiscard]] String ReturnFooter(RunContext& context, StringView footer, StringView prefix,
                                  StringView projectName, StringView componentName,
                                  StringView memberName, StringView memberType,
                                  StringView controlName);
/// "Sub", "Function" or "Property" by the first line of a member, else empty.
[[nodiscard]] String GetMemberType(StringView text);
/// The label of a scheme with its placeholders filled in, empty where the scheme changes no jump.
[[nodiscard]] String LabelOf(const RunContext& context, const ErrorHandlerScheme& scheme);

/// What a code line is to the tool.
enum LineKind : std::int32_t {
  HeadLine = 0,
  EndLine = 1,
  LabelLine = 2,
  PaddedLine = 4,
  NumberedLine = 5
};
/// Sorts a line; trims it. Moves `FirstCaseFlag`.
[[nodiscard]] std::int32_t ReturnTypeProcessing(RunContext& context, String& line);
/// The same for a line that is trimmed already.
[[nodiscard]] std::int32_t LineKindOf(RunContext& context, StringView trimmed);

/// The new text of one member.
[[nodiscard]] String WorkTextComponentMember(RunContext& context, StringView text,
                                             StringView schemeName);
void RunMemberProcedure(RunContext& context, const std::shared_ptr<host::CodeModule>& codeModule,
                        StringView memberName, StringView schemeName, int mode);
/// Handles all members; a cancelled run ends behind the member in hand.
void RunComponentModule(RunContext& context, const std::shared_ptr<host::CodeModule>& codeModule,
                        StringView schemeName, int mode);
/// `schemeName` can change during the run.
RunResult RunInsertErrorHandlerCode(RunContext& context,
                                    const std::shared_ptr<host::VBComponents>& components,
                                    StringView scope, String& schemeName);

}  // namespace tessel::mInsertErrorHandlerCode
