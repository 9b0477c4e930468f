// Files and folders on the way between a project and a snippet library.
#pragma once

#include <memory>

#include "host/Project.h"

namespace tessel::mFunctions {

/// The file's contents as a text, empty for a file of length 0. Source files read in the code page
/// of `project`; without one each byte is one character of the fixed map of code page 1252, which
/// is how companion files travel. Either way `PutFile` with the same project gives the same bytes.
/// Fails with 53 and the path for a missing file.
[[nodiscard]] String GetFile(StringView path,
                             const std::shared_ptr<host::VBProject>& project = nullptr);
/// A companion as `GetFile` reads it; one that is missing is empty unless it is `needed`.
[[nodiscard]] String GetCompanion(StringView path, bool needed);
/// Writes a text to a file as a whole. Fails with a text that names the file, or what the user
/// knows it by, and the first character that the code page lacks.
void PutFile(StringView path, StringView text,
             const std::shared_ptr<host::VBProject>& project = nullptr, StringView knownAs = {});

/// The file beside a component's with another extension, in whatever case it is written; the plain
/// name when there is none.
[[nodiscard]] String CompanionPath(StringView path, StringView extension);
/// True for a name without control characters that stays in the folder that it is written to.
[[nodiscard]] bool IsFileName(StringView name);

/// 0 for the head of a form of this environment, 2 for that of its MDI form, 1 for any other.
[[nodiscard]] int CheckVBAorVBForm(StringView text);

/// Name of a new folder below the program's folder for temporary files, by date and time; it isn't
/// made.
[[nodiscard]] String GetTempFolder();
/// Makes each missing level.
void CreateFolderPath(StringView path);
/// Deletes all files below a folder but "pagefile.sys"; the folders stay.
void EmptyFolder(StringView path);
/// Empties a folder and removes it.
void RemoveFolder(StringView path);
/// Copies over an existing target; does nothing for an empty one.
void CopyFileSafe(StringView target, StringView source);

/// Ask for a file to open or to save; true with its full path when the user accepts.
bool OPENFILENAME(StringView filter, String& path, std::intptr_t owner = 0);
bool SaveFileName(String& path, StringView filter, std::intptr_t owner = 0);

}  // namespace tessel::mFunctions
