// What the language takes of a line and of a statement, and which field brought too much.
#pragma once

#include <vector>

#include "builders/BuilderHeader.h"

namespace tessel::builders {

/// Units in a line of code, lines that a statement may go on over behind its first, and units in a
/// name.
inline constexpr std::size_t MostUnits = 1023, MostContinuations = 24, MostNameUnits = 255;

/// What the user put into one field, or into one item of a list.
struct FieldText {
  StringView Control;  ///< name of the control; empty where the dialog has none
  StringView Label;
  StringView Text;
  int Item = -1;  ///< item of a list, from 0
};
using FieldTexts = std::vector<FieldText>;

/// Appends the fields of the comment.
void AddComment(FieldTexts& fields, const HeaderChoices& comment);
/// Appends the items of a list.
void AddItems(FieldTexts& fields, StringView control, StringView label,
              const std::vector<String>& items);

/// Refuses a name that is too long. The text is a name as it is to stand in the code, with the
/// field that brought it, or most of it.
[[nodiscard]] std::optional<Complaint> CheckNameLength(const FieldText& name);
/// Refuses the first of several.
[[nodiscard]] std::optional<Complaint> CheckNameLengths(const FieldTexts& names);
/// Refuses a text that would draw the next line of the code into its own.
[[nodiscard]] std::optional<Complaint> CheckLineEnd(const FieldText& lastInLine);
/// Refuses the first of several.
[[nodiscard]] std::optional<Complaint> CheckLineEnds(const FieldTexts& lastInLine);
/// Why a name that is put together can't stand in code, in words that name the field.
[[nodiscard]] std::optional<Complaint> CheckMadeName(const FieldText& name);

/// Refuses code with a line that is too long or a statement that is continued too often, and names
/// the field that has the most in that line. Work is linear in code that is good.
[[nodiscard]] std::optional<Complaint> CheckLimits(StringView code, const FieldTexts& fields);
/// Whether code made of these fields can break a limit: no line has more than two of one field.
[[nodiscard]] bool MayBreakLimits(const FieldTexts& fields);
/// The same check for what `generate` makes; most fields are short, and their code isn't made then.
template <class Generate>
[[nodiscard]] std::optional<Complaint> CheckLimitsOf(const FieldTexts& fields,
                                                     const Generate& generate) {
  return MayBreakLimits(fields) ? CheckLimits(generate(), fields) : std::nullopt;
}

}  // namespace tessel::builders
