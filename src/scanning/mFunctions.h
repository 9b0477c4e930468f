// Source text read by lines and members, and the message service of all dialogs.
#pragma once

#include <functional>
#include <optional>
#include <variant>
#include <vector>

#include "forms/Controls.h"
#include "forms/RichTextBox.h"
#include "host/VBE.h"
#include "scanning/Member.h"

namespace tessel::mFunctions {

/// No character of these may stand in a name.
inline constexpr StringView BadNameSymbols = u"!:\\/?*[]() @#$%^&*+-'`~|><\"";
/// Head of a key comment, compared without regard to case.
inline constexpr StringView KeyCommentHead = u"'errMarker: ";

// Source text

/// `text` with its continuation lines joined: " _" CR LF becomes one blank, and what follows is
/// trimmed.
[[nodiscard]] String DeleteUnderline(StringView text);
/// How many lines at the head of `text` end in "_".
[[nodiscard]] int DopLine(StringView text);
/// The member table. `defaultObjectName` has no effect.
[[nodiscard]] MemberTable AllNameProcedures(const std::shared_ptr<host::CodeModule>& codeModule,
                                            StringView defaultObjectName);
/// Finds which kind of `name` holds `line`, in the order 0, 2, 1, 3; the end is inclusive, one line
/// past the member. The outputs stay as they are when none does.
void MemberSpanAtLine(const std::shared_ptr<host::CodeModule>& codeModule, StringView name,
                      int line, int& kind, int& bodyLine, int& countLines, int& startLine);
/// The kind of `name` that holds `line`, in the order 0, 2, 3, 1; 0 when none does.
[[nodiscard]] int MemberKindAtLine(const std::shared_ptr<host::CodeModule>& codeModule,
                                   StringView name, int line, bool detectControlEvents);
/// " [Proc]", " [Let]", " [Set]", " [Get]" or " [Ctl]".
[[nodiscard]] StringView MemberKindToken(int kind);
/// Names of the controls on the component's designer; nothing without designer or controls.
[[nodiscard]] std::optional<std::vector<String>> VBAArrayControlName(
    const std::shared_ptr<host::CodeModule>& codeModule);
/// True when the line above `line` is a key comment; `key` is its scheme, else empty.
[[nodiscard]] bool GetKEYDeclare(const std::shared_ptr<host::CodeModule>& codeModule, int line,
                                 String& key);
/// Scheme of the key comment on line 1, empty when there is none.
[[nodiscard]] String GetKEYDeclareComponent(const std::shared_ptr<host::CodeModule>& codeModule);
/// Fills the placeholders "{ProjectName}" to "{Time}".
[[nodiscard]] String DekodeKeyWord(StringView text, StringView projectName,
                                   StringView componentName, StringView memberName,
                                   StringView memberType, StringView controlName);
/// Colours every span from `startText` to `endText`.
void PicoutStartEnd(forms::RichTextBox& richText, StringView startText, StringView endText,
                    forms::Color color);

/// result[j][i] = matrix[i][j]; nothing for nothing. Rows must be of equal length.
template <class T>
[[nodiscard]] std::optional<std::vector<std::vector<T>>> TransMatrix(
    const std::optional<std::vector<std::vector<T>>>& matrix) {
  if (!matrix) return std::nullopt;
  std::vector<std::vector<T>> result;
  if (!matrix->empty()) result.resize(matrix->front().size());
  for (const auto& row : *matrix) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      result[column].push_back(row[column]);
    }
  }
  return result;
}

// Input and messages

/// Message `code` (1 to 19; others are empty) with its placeholders filled in.
[[nodiscard]] String MessageText(int code, StringView info1 = {}, StringView info2 = {},
                                 StringView info3 = {});
/// Shows that message. Always false.
bool myBreak(int code, StringView info1 = {}, StringView info2 = {}, StringView info3 = {});
/// Asks with Yes and No, No being the default; true on Yes.
[[nodiscard]] bool Confirm(StringView question);
/// True when `text` holds one of the symbols.
[[nodiscard]] bool GetBadSymbols(StringView text, StringView badSymbols);
/// False, after message 1, when `value` is neither empty nor numeric.
bool ControlDigit(StringView value);

/// What fills a combo box: one text, or a list.
using ComboList = std::variant<String, std::vector<String>>;
/// Fills `combo` and selects `defaultText` without regard to case, or the first item without one.
void AddListInCombobox(forms::ComboBox& combo, const ComboList& list,
                       const std::optional<String>& defaultText = std::nullopt);
/// True when the active project has a component of that name.
[[nodiscard]] bool FindComponentName(const std::shared_ptr<host::VBE>& vbe, StringView name);
[[nodiscard]] String GetComputerName();
[[nodiscard]] String GetUserName();
/// The setting "Author" where it is to be included, else empty.
[[nodiscard]] String IncludeAuthor();
/// The present date and time where it is to be included, else empty.
[[nodiscard]] String IncludeDate();
[[nodiscard]] bool IncludeAutoPosition();

}  // namespace tessel::mFunctions
