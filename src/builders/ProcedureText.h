// A new Sub or Function with its comment.
#pragma once

#include <vector>

#include "builders/BuilderHeader.h"

namespace tessel::builders {

struct ProcedureChoices {
  String Name = u"Name";
  String Type = u"Sub";  ///< "Sub" or "Function"
  String Accessibility = u"Public";
  String Static{};
  std::vector<String> Arguments{};  ///< finished texts, in their order
  String ReturnValueType = String(NoType);
  HeaderChoices Comment{};
};

/// Only what is no Sub has a return type.
[[nodiscard]] bool HasReturnValue(const ProcedureChoices& choices);
/// The whole text; every line ends in CR LF.
[[nodiscard]] String GeneratorTextMethod(const ProcedureChoices& choices);
[[nodiscard]] std::optional<Complaint> CheckField(const ProcedureChoices& choices);
/// Lines from the first one to that which gets the caret.
[[nodiscard]] int CaretOffset(const ProcedureChoices& choices);

}  // namespace tessel::builders
