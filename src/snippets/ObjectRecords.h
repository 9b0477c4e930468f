// Components of a project as records of a snippet library, and back.
#pragma once

#include <functional>
#include <optional>

#include "host/VBE.h"
#include "snippets/CSQLTrees.h"

namespace tessel {

/// How one kind of stored object looks and is written.
struct ObjectClass {
  StringView ClassObj;
  /// What a user reads.
  StringView Text;
  /// Picture in the tree.
  std::int32_t Picture;
  /// Extension of the file that it is written to.
  StringView Extension;
  /// Extension of its companion, empty for none; `AlwaysCompanion` writes an empty one as well.
  StringView Companion;
  bool AlwaysCompanion;
};
/// Nothing for a text or an unknown class.
[[nodiscard]] const ObjectClass* ClassOfObject(StringView classObj);
/// "Module", "Form VB" ...; empty for a text. `titleObj` tells the forms apart.
[[nodiscard]] String ObjectClassText(StringView classObj, StringView titleObj);

namespace mFunctions {

/// Stores a file in the record `id`: a component as head, code and companion, any other as a text.
/// A component's file without its key line stores nothing. Failures go to the failure service; a
/// companion that is missing is one when it is needed.
void ImportRecordFileObjectToTblList(const CSQLTrees& trees, StringView nameConnect,
                                     StringView path, std::int32_t id,
                                     const std::shared_ptr<host::VBProject>& project = nullptr,
                                     bool needsCompanion = true);

/// Reads a file of a component; `companion` tells the one beside it.
using ComponentReader = std::function<String(StringView path, bool companion)>;
/// What `ImportRecordFileObjectToTblList` stores of a file.
[[nodiscard]] ListFragment FragmentOfFile(StringView path, const ComponentReader& read);

/// Puts a stored object into the active project as a new component and shows it. Empty when all
/// went well or there is nothing to do, else a text for the user. With `ask` a taken name is
/// changed only after a question.
[[nodiscard]] String InsertObjectInUserProject(const CSQLTrees& trees, StringView nameConnect,
                                               const std::shared_ptr<host::VBE>& vbe,
                                               std::int32_t id, bool ask);

/// A component that was dropped as a file.
struct DroppedComponent {
  String Name, ClassObj;
  /// Its file below a temporary folder, which the caller removes.
  String Path, Folder;
  /// Whether its head draws something from a companion.
  bool NeedsCompanion = false;
};
/// Takes a dropped temporary file ("tmp" in its extension) apart, in the code page of `project`;
/// nothing when it is no component. A form that names no companion, or whose companion is gone,
/// comes without one.
[[nodiscard]] std::optional<DroppedComponent> TakeDroppedComponent(
    StringView path, const std::shared_ptr<host::VBProject>& project = nullptr);

}  // namespace mFunctions
}  // namespace tessel
