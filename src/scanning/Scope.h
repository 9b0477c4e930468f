// The scope of a run, as the dialogs list it: a fixed word, a blank, and a name in brackets.
#pragma once

#include "host/CodeModule.h"

namespace tessel::scope {

/// All of one length, so that lists line up and the words compare by their first characters.
inline constexpr StringView Method = u"Current Method   ", Component = u"Current Component",
                            Project = u"Current Project  ";

[[nodiscard]] String Text(StringView word, StringView name);
/// Whether a scope begins with one of the words, without regard to case.
[[nodiscard]] bool Is(StringView scope, StringView word);
/// The name in the brackets; empty without one.
[[nodiscard]] StringView Target(StringView scope);

/// Puts a line at the top of the module's pane, with the caret in it.
void ShowLine(host::CodeModule& module, int line);

}  // namespace tessel::scope
