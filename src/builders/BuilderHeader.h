// The comment above generated code, and the test of names that all builders share.
#pragma once

#include <optional>

#include "connections/NoType.h"

namespace tessel::builders {

[[nodiscard]] bool IsNoType(StringView type);

/// What the user chose for the comment. `DateTime` and `Author` are empty where the settings leave
/// them out; their lines stand all the same.
struct HeaderChoices {
  bool Full = true;  ///< all six lines; else three with a description, none without
  String Description{};
  String DateTime{};
  String Author{};
};

/// How a builder words its comment.
struct HeaderWords {
  StringView Kind;             ///< label of the name's line, e.g. "Function"
  std::size_t LabelWidth;      ///< columns of a label up to the colon
  std::size_t ShortWidth = 0;  ///< that of the description in the three-line form; 0: the same
};

/// Lines of the full comment.
inline constexpr int FullHeaderLines = 6;

/// The comment, each line with CR LF; empty when neither comment nor description is wanted.
[[nodiscard]] String Header(const HeaderWords& words, StringView name,
                            const HeaderChoices& choices);

/// Why a set of choices is refused.
struct Complaint {
  StringView Field{};  ///< the field that is to get the focus, by the name of its control
  int Code = 0;        ///< number of the message; 0 where it has words of its own
  String Info1{}, Info2{};
  int Item = -1;     ///< the item at fault where the field is a list, from 0
  String Message{};  ///< those words
};
/// What is told to the user.
[[nodiscard]] String TextOf(const Complaint& complaint);

/// A field that holds a name: the control's name, and the label that messages give it.
struct NameField {
  StringView Control, Label;
};

/// Message number for a name that can't stand in code: 2 for a numeric first character, 4 for an
/// empty one, 3 for a symbol; nothing for a good name.
[[nodiscard]] std::optional<int> NameFault(StringView name);
[[nodiscard]] std::optional<Complaint> CheckName(const NameField& field, StringView text);

}  // namespace tessel::builders
