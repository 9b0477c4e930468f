// The list at the caret with the members of the module.
#pragma once

#include <memory>
#include <vector>

#include "host/VBE.h"

namespace tessel::mMenuList {

/// The names of a module's members in their order, each once.
[[nodiscard]] std::vector<String> MemberNames(const std::shared_ptr<host::CodeModule>& codeModule);

/// Opens the list over the pane in front, at a place of its window in pixels, and puts the word
/// that the user chose in at the caret. The word, empty for none. Without a pane or a member
/// nothing opens.
String ShowMembers(const std::shared_ptr<host::VBE>& vbe, int codeX, int codeY);

}  // namespace tessel::mMenuList
