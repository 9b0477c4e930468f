// What the builders are to write, read from JSON.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "builders/ArgumentText.h"
#include "builders/CollectionText.h"
#include "builders/EnumText.h"
#include "builders/ProcedureText.h"
#include "builders/PropertyText.h"

namespace tessel::batch {

/// One thing to write, with the choices of its builder.
using BuilderRecord = std::variant<builders::ProcedureChoices, builders::PropertyChoices,
                                   builders::CollectionChoices, builders::EnumChoices>;

/// Reads one record or a list of them. A record names its "kind" (procedure, property, collection,
/// enum) unless `kind` does, and any of that builder's fields; the others have the values that a
/// builder opens with, but without a comment. docs/batch.md lists the fields. A property without a
/// "prefix" has an empty one. Fails with a vb::Failure that names `source`, the record and the
/// field at fault.
[[nodiscard]] std::vector<BuilderRecord> ReadBuilderRecords(const std::string& json,
                                                            const std::string& source,
                                                            const std::string& kind = {});

/// The choices' own check; the text of its message, empty when nothing is wrong.
[[nodiscard]] String FaultOf(const BuilderRecord& record);
/// The name that the record's text declares.
[[nodiscard]] const String& NameOf(const BuilderRecord& record);

}  // namespace tessel::batch
