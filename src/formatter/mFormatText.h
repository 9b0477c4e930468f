// The code formatter: text in, text out.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "formatter/CSQLFormating.h"
#include "host/VBE.h"
#include "scanning/Scope.h"

namespace tessel::mFormatText {

// Run variables, set just before a run. Each thread has its own, so that the batch command can
// format components side by side.

extern thread_local bool IndentEntire;     ///< the body of a member stands one level in
extern thread_local bool IndentCase;       ///< Case blocks stand one level in
extern thread_local bool InsertBlank;      ///< blank lines, and the switch of the whole rule table
extern thread_local bool EnableCodeLines;  ///< wrapping and compacting
extern thread_local bool CompactWrapped;   ///< compacting rather than wrapping
extern thread_local std::int16_t LineCharacters;  ///< 40 to 140: where wrapping starts
extern thread_local std::int16_t
    AdditionalTabs;                           ///< 0 to 10: tab characters ahead of a continuation
extern thread_local bool UseTabCharacters;    ///< a level is as wide as the editor's tab
extern thread_local bool UseSpaceCharacters;  ///< a level is `SpacesPerLevel` wide
extern thread_local std::int32_t SpacesPerLevel;  ///< 1 to 20

// State of the run.

extern thread_local bool MarkerFound;               ///< a key comment belongs to the present member
extern thread_local std::int32_t MarkerBlankLines;  ///< its blank lines, held back
extern scope::ActiveMember Active;                  ///< caret and member when the dialog opened

/// The rules in force. Written by `SetRules` only, which also builds the index that the look-ups
/// use.
extern thread_local std::vector<FormatRule> mRecord_FormatText;
void SetRules(std::vector<FormatRule> rules);
/// Reads the rules from the shared database; without a table the rules stay as they are.
void Init_mRecord_FormatText();
/// True when an enabled rule applies to `key` (without regard to case); gives its counts, else 0
/// and 0.
[[nodiscard]] bool ReturnBeforeAfter(StringView key, std::int32_t& before, std::int32_t& after);

/// Null, one text, or several.
using Pieces = std::variant<std::monostate, String, std::vector<String>>;

/// Position of the apostrophe that opens the comment of `line`, 0 without one.
[[nodiscard]] std::size_t ProcessingCommentarary(StringView line);
/// The statements of `text`; a list as soon as a colon outside strings and ":=" stands in it.
[[nodiscard]] Pieces ProcessingColon(StringView text);
/// Trims every item and drops the empty ones; Null when nothing is left.
[[nodiscard]] Pieces DeleteNullLines(const Pieces& value);
/// Position of the first blank outside quotes at or behind `start`, 0 without one.
[[nodiscard]] std::size_t ProcessingSpace(StringView text, std::size_t start);
/// The statement with its indent, on one line or wrapped.
[[nodiscard]] String RunLineWrapping(StringView indent, StringView line);

/// Trims `text`; true when it is a label: one word without a point that is no keyword of the list.
bool CheckTextLabel(String& text);
/// The text for one statement without a closing line end; moves the two levels.
[[nodiscard]] String CheckTextInKey(String& line, std::int32_t& currentLevel,
                                    std::int32_t& nextLevel);
/// The whole engine: lines separated by CR LF in, formatted text out. Linear in the text.
[[nodiscard]] String FormatTextComponent(StringView text);

/// The bodies of a module: everything behind its declarations.
struct ModuleBodies {
  int FirstLine = 1;  ///< in the module
  String Text;
};
/// Nothing for a module that holds declarations only.
[[nodiscard]] std::optional<ModuleBodies> ReadModuleBodies(
    const std::shared_ptr<host::CodeModule>& codeModule);
/// Replaces the bodies of a module by `formatted`.
void WriteModuleBodies(const std::shared_ptr<host::CodeModule>& codeModule, StringView formatted);
/// Formats a scope (a text of `scope::GetProjectForFormated`) with the progress window up.
void RunFormatText(const std::shared_ptr<host::VBComponents>& components, StringView scope);

}  // namespace tessel::mFormatText
