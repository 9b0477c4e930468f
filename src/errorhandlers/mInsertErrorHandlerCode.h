// Gives members the header, footer, line numbers and label of an error-handler scheme.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "errorhandlers/CSQLErrorHandler.h"
#include "forms/RichTextBox.h"
#include "host/VBE.h"

namespace tessel::mInsertErrorHandlerCode {

/// Marker lines, searched for without regard to case.
inline constexpr StringView HeaderStart = u"'<errHeader>", HeaderEnd = u"'</errHeader>",
                            FooterStart = u"'<errFooter>", FooterEnd = u"'</errFooter>";
/// The scheme name that leaves a member as it stands, compared exactly.
inline constexpr StringView SkipScheme = u"Skip";
/// The index that stands for no scheme.
inline constexpr int NoScheme = 9999;

/// Mode numbers of the three scopes.
enum RunMode : int { ProjectMode = 0, ComponentMode = 1, MethodMode = 2 };

// Run context, set before a run.

extern std::vector<ErrorHandlerScheme> mRecord_ErrorHandlerScheme;
extern String ProjectName;
/// The module that was active when the run began, also while another one is changed.
extern String ComponentName;
extern String MemberName;
extern String MemberType;  ///< "Sub", "Function", "Property" or empty
extern std::int32_t CurrentMemberKind;
/// Choices by component type. The last two are collected and used by no run.
extern String ModuleScheme, FormScheme, ActiveXScheme, ClassScheme, DocumentScheme;
/// The control that turns stored rich text into plain text; not owned, may be null.
extern forms::RichTextBox* PreviewRichText;
/// A Select Case was met and its first Case is still to come. Nothing resets it between members.
extern bool FirstCaseFlag;

/// Reads the schemes; fewer than two leave the array as it was.
void Init_mRecord_ErrorHandlerScheme();
/// Index of a scheme without regard to case, `NoScheme` without one.
[[nodiscard]] int ReturnIndexErrorHandlerScheme(StringView name);
/// The header block, each line ended by CR LF; a single CR LF for an empty header.
[[nodiscard]] String ReturnHeader(StringView header, StringView prefix, StringView projectName,
                                  StringView componentName, StringView memberName,
                                  StringView memberType, StringView controlName);
[[nodiscard]] String ReturnFooter(StringView footer, StringView prefix, StringView projectName,
                                  StringView componentName, StringView memberName,
                                  StringView memberType, StringView controlName);
/// "Sub", "Function" or "Property" by the first line of a member, else empty.
[[nodiscard]] String GetMemberType(StringView text);
/// The label of a scheme with its placeholders filled in, empty where the scheme changes no jump.
[[nodiscard]] String LabelOf(const ErrorHandlerScheme& scheme);

/// What a code line is to the tool.
enum LineKind : std::int32_t {
  HeadLine = 0,
  EndLine = 1,
  LabelLine = 2,
  PaddedLine = 4,
  NumberedLine = 5
};
/// Sorts a line; trims it.
[[nodiscard]] std::int32_t ReturnTypeProcessing(String& line);

/// The new text of one member.
[[nodiscard]] String WorkTextComponentMember(StringView text, StringView schemeName);
void RunMemberProcedure(const std::shared_ptr<host::CodeModule>& codeModule, StringView memberName,
                        StringView schemeName, int mode);
/// Handles all members; a cancelled run ends behind the member in hand.
void RunComponentModule(const std::shared_ptr<host::CodeModule>& codeModule, StringView schemeName,
                        int mode);
/// `schemeName` can change during the run.
void RunInsertErrorHandlerCode(const std::shared_ptr<host::VBComponents>& components,
                               StringView scope, String& schemeName);

}  // namespace tessel::mInsertErrorHandlerCode
