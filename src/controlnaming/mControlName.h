// A control's new name in the code of its form.
#pragma once

#include <memory>
#include <vector>

#include "host/CodeModule.h"

namespace tessel::mControlName {

/// A module's text with the new name in place of the old one: first in the names of the event
/// procedures, wherever these stand, then where blanks, points and line ends enclose it. Case
/// counts; strings and comments are text like any other. What one procedure's name put in is not
/// taken for another's.
[[nodiscard]] String NamesUpdated(StringView text, const std::vector<String>& eventProcedures,
                                  StringView oldName, StringView newName);

/// Writes a module anew with a control's new name; one without members stays as it is, and so does
/// every one when the old name is empty or the new one. Procedures count as the control's by its
/// old name as well, since the designer bears the new one by then.
void RunUpdateCodeName(const std::shared_ptr<host::CodeModule>& codeModule, StringView oldName,
                       StringView newName);

}  // namespace tessel::mControlName
