// One formal argument as a line of text.
#pragma once

#include "builders/BuilderHeader.h"

namespace tessel::builders {

struct ArgumentChoices {
  String Name = u"N";
  String Type = String(NoType);
  bool Array = false, Optional = false, ParamArray = false, ByRef = false, ByVal = false;
  String DefaultValue{};
};

/// Which of the choices count beside the others.
struct ArgumentFields {
  bool Optional, Passing, ParamArray, DefaultValue, Type;
};
[[nodiscard]] ArgumentFields EnabledField(const ArgumentChoices& choices);

/// The argument as it is to stand in the list: two blanks ahead of "As", one behind a name without
/// a type. The environment tidies them.
[[nodiscard]] String GeneratorStrok(const ArgumentChoices& choices);
[[nodiscard]] std::optional<Complaint> CheckField(const ArgumentChoices& choices);

}  // namespace tessel::builders
