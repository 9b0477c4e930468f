// The one way in which generated text enters a module, and small look-ups for the dialogs.
#pragma once

#include <cstdint>
#include <memory>

#include "host/VBE.h"

namespace tessel::mGlobals {

/// Where `InsertTextActiveVbComponent` puts its text.
enum InsertMode : int { EndOfModule = 1, EndOfDeclarations = 2 };

/// Puts `text` into the component of that name in the active project, made with `newComponentType`
/// when there is none; the caret goes `caretOffset` lines below the first line. `reserved` is
/// empty. True when the text is in; false without text or project, after an Abort, and when it
/// can't be told whether there is a component of that name. `made` gets the component that was
/// made.
bool InsertTextActiveVbComponent(const std::shared_ptr<host::VBE>& vbe, StringView componentName,
                                 StringView text, int mode, StringView reserved,
                                 host::vbext_ComponentType newComponentType, int caretOffset,
                                 std::shared_ptr<host::VBComponent>* made = nullptr);
/// Component names of the active project, separated by "|"; mode 1 puts "All Modules" ahead, mode 2
/// "New Module" behind.
[[nodiscard]] String GetProjectComponent(const std::shared_ptr<host::VBE>& vbInstance, int mode);
/// Names of the components whose type is `mode`, separated by "|".
[[nodiscard]] String GetProjectComponentType(const std::shared_ptr<host::VBE>& vbInstance,
                                             int mode);
/// Name of the selected component, empty when there is none. A failure counts as none.
[[nodiscard]] String SelectedVBComponentName(const std::shared_ptr<host::VBE>& vbInstance);
/// True when the active project has a component of that name. A failure counts as none.
[[nodiscard]] bool CheckComponentName(const std::shared_ptr<host::VBE>& vbInstance,
                                      StringView name);
/// Text of a new GUID.
[[nodiscard]] String GUIDGen();
/// Class name of a window.
[[nodiscard]] String winClass(std::intptr_t hwnd);
/// Shows a topic of the help file; "Support.htm" without one.
void RunHelpFennick(StringView topic = u"Support.htm");

}  // namespace tessel::mGlobals
