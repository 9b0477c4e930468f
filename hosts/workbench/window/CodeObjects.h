// What the two lists above a code window hold.
#pragma once

#include <vector>

#include "hosts/model/Component.h"

namespace tessel::workbench {

/// An object of a module: the module itself, its form, or a control.
struct CodeObject {
  String Name;   ///< as its event procedures begin; empty for the module's own procedures
  String Class;  ///< for EventsOf
};

/// A procedure of an object: one that stands in the module, or an event that could.
struct CodeProcedure {
  String Caption;     ///< in the list
  String Member;      ///< its full name
  String Parameters;  ///< of an event that has no procedure yet
  host::vbext_ProcKind Kind = host::vbext_pk_Proc;
  int Line = 0;  ///< of its declaring statement; 0 when it doesn't stand in the module
};

/// The module's own procedures first, then the object that the module is, then its controls by
/// name.
[[nodiscard]] std::vector<CodeObject> ObjectsOf(const model::VBComponent& component);

/// The procedures of one object by name. The declarations are the first of the module's own.
[[nodiscard]] std::vector<CodeProcedure> ProceduresOf(const model::VBComponent& component,
                                                      const std::vector<CodeObject>& objects,
                                                      std::size_t object);

/// Index of the object that a member belongs to, 0 for the module itself.
[[nodiscard]] std::size_t ObjectOfMember(const std::vector<CodeObject>& objects, StringView member);

}  // namespace tessel::workbench
