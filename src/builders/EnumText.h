// An Enum with its members.
#pragma once

#include <vector>

#include "builders/BuilderHeader.h"

namespace tessel::builders {

/// One member as it is composed.
struct EnumMemberChoices {
  String Prefix = u"nn_";
  String Name = u"N";
  String InitValue{};
};
/// "Prefix" and "Name", and the value behind them where there is one.
[[nodiscard]] String GeneratorStrok(const EnumMemberChoices& choices);
/// With a prefix only the prefix is looked at; the value never is.
[[nodiscard]] std::optional<Complaint> CheckField(const EnumMemberChoices& choices);

struct EnumChoices {
  String Name = u"Name";
  String Accessibility = u"Public";
  std::vector<String> Parameters{};  ///< finished members, in their order
  int Selected = -1;                 ///< the member that is selected, from 0
  HeaderChoices Comment{};
};

/// The whole text; every line ends in CR LF.
[[nodiscard]] String GeneratorText(const EnumChoices& choices);
/// Refuses an enum without a selected member.
[[nodiscard]] std::optional<Complaint> CheckField(const EnumChoices& choices);
/// Lines from the first one to that which gets the caret.
[[nodiscard]] int CaretOffset(const EnumChoices& choices);

}  // namespace tessel::builders
