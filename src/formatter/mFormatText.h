// The code formatter: text in, text out. Everything that steers it stands in its run object.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "formatter/FormatRun.h"
#include "foundation/Routine.h"
#include "host/VBE.h"
#include "scanning/RunResult.h"

namespace tessel::mFormatText {

/// Reads the rules from the shared database; without a table the rules stay as they are.
void Init_mRecord_FormatText(FormatRun& format);
/// True when an enabled rule applies to `key` (without regard to case); gives its counts, else 0
/// and 0.
[[nodiscard]] bool ReturnBeforeAfter(const FormatRun& format, StringView key, std::int32_t& before,
                                     std::int32_t& after);

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
[[nodiscard]] String RunLineWrapping(const FormatRun& format, StringView indent, StringView line);

/// Trims `text`; true when it is a label: one word without a point that is no keyword of the list.
bool CheckTextLabel(String& text);
/// The text for one statement without a closing line end; moves the two levels.
[[nodiscard]] String CheckTextInKey(FormatRun& format, String& line, std::int32_t& currentLevel,
                                    std::int32_t& nextLevel);
/// The whole engine: lines separated by CR LF in, formatted text out. Linear in the text.
[[nodiscard]] String FormatTextComponent(FormatRun& format, StringView text);

/// The bodies of a module: everything behind its declarations.
struct ModuleBodies {
  int Declarations = 0;  ///< lines ahead of the bodies
  int Count = 0;         ///< lines of the bodies
  String Text;
};
/// Nothing for a module that holds declarations only, or whose host didn't say. Statements of the
/// calling routine, as is the next.
[[nodiscard]] std::optional<ModuleBodies> ReadModuleBodies(
    const Statements& run, const std::shared_ptr<host::CodeModule>& codeModule);
/// Replaces the bodies of a module by `formatted`; true when that was done.
bool WriteModuleBodies(const Statements& run, const std::shared_ptr<host::CodeModule>& codeModule,
                       const ModuleBodies& bodies, StringView formatted);
/// Formats a scope (a text of `scope::GetProjectForFormated`) with the progress window up.
RunResult RunFormatText(FormatRun& format, const std::shared_ptr<host::VBComponents>& components,
                        StringView scope);

}  // namespace tessel::mFormatText
