// A class module around a Collection of one base class.
#pragma once

#include "builders/BuilderHeader.h"

namespace tessel::builders {

struct CollectionChoices {
  String ClassName = u"Name";
  String BaseClass = u"ComBaseClass";
  String VariablePrefix = u"m_Col";  ///< ahead of the class's name in that of the variable
  bool Exists = false;               ///< a safe Item, and a function Exists
  HeaderChoices Comment{};
};

/// The whole text; the last line, "End Function", has no line end behind it.
[[nodiscard]] String GeneratorTextClass(const CollectionChoices& choices);
[[nodiscard]] std::optional<Complaint> CheckField(const CollectionChoices& choices);
/// The text of a base class that the project lacks.
[[nodiscard]] String BaseClassText();

}  // namespace tessel::builders
