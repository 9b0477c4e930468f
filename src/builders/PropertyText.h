// A member variable and the Property procedures around it.
#pragma once

#include "builders/BuilderHeader.h"

namespace tessel::builders {

struct PropertyChoices {
  String Name = u"Name";
  String ValueType = u"Boolean";
  /// The type's prefix: the name of the parameter that takes the new value.
  String Prefix{};
  String MemberVariable = u"MemberVariable";  ///< prefix of the variable
  String Accessibility = u"Public";
  String Static{};
  bool Get = true;
  bool LetSet = true;  ///< Set in the place of Let
  HeaderChoices Comment{};
};

struct PropertyText {
  String Declaration;  ///< the variable and an empty line
  String Body;         ///< the procedures, an empty line behind each
};

/// Both texts; every line ends in CR LF. The part that takes the value is always there.
[[nodiscard]] PropertyText GeneratorTextProperty(const PropertyChoices& choices);
/// Puts both behind the texts of other properties.
void AppendTextProperty(const PropertyChoices& choices, String& declarations, String& bodies);
/// Name of the variable.
[[nodiscard]] String VariableOf(const PropertyChoices& choices);
[[nodiscard]] std::optional<Complaint> CheckField(const PropertyChoices& choices);
/// Lines from the first one to that which gets the caret.
[[nodiscard]] int CaretOffset(const PropertyChoices& choices);

}  // namespace tessel::builders
