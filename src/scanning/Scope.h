// The scope of a run, as the dialogs list it: a fixed word, a blank, and a name in brackets.
#pragma once

#include "forms/Controls.h"
#include "foundation/Routine.h"
#include "host/VBE.h"

namespace tessel::scope {

/// All of one length, so that lists line up and the words compare by their first characters.
inline constexpr StringView Method = u"Current Method   ", Component = u"Current Component",
                            Project = u"Current Project  ";

[[nodiscard]] String Text(StringView word, StringView name);
/// Whether a scope begins with one of the words, without regard to case.
[[nodiscard]] bool Is(StringView scope, StringView word);
/// The name in the brackets; empty without one.
[[nodiscard]] StringView Target(StringView scope);

/// The caret of the active pane, and the member that it stands in.
struct ActiveMember {
  std::int32_t SelStartLine = 0;
  std::int32_t SelStartColumn = 0;    ///< stored, not used
  String ActiveMemberName;            ///< empty when the caret is in none
  std::int32_t ActiveMemberKind = 0;  ///< its kind
};

/// The scopes that a run can have, separated by "|"; empty without a project. Notes the caret and
/// its member; without a pane only the member's name is cleared.
[[nodiscard]] String GetProjectForFormated(const std::shared_ptr<host::VBE>& vbe,
                                           ActiveMember& active);

/// Fills a combo box with the scopes and selects the first; statements of the caller.
void ListScopes(const Statements& run, forms::ComboBox& combo,
                const std::shared_ptr<host::VBE>& vbe, ActiveMember& active);

/// Puts a line at the top of the module's pane, with the caret in it; statements of the caller.
void ShowLine(const Statements& run, const std::shared_ptr<host::CodeModule>& module, int line);

}  // namespace tessel::scope
