#include "builders/ProcedureText.h"

#include "builders/LineLimits.h"

namespace tessel::builders {
namespace {

constexpr std::size_t LabelWidth = 11;
constexpr StringView OptionalHead = u"Optional ";
constexpr StringView ParamArrayHead = u"ParamArray ";
constexpr StringView List = u"ListProcedureArguments";

String Word(StringView word) { return word.empty() ? String() : String(word) + u" "; }

/// Behind an optional argument there are optional ones only, and a parameter array is the last.
std::optional<Complaint> CheckArguments(const std::vector<String>& arguments) {
  bool optional = false;
  for (std::size_t at = 0; at < arguments.size(); ++at) {
    const int item = static_cast<int>(at);
    if (arguments[at].starts_with(OptionalHead)) {
      optional = true;
    } else if (optional) {
      return Complaint{List, 6, u"Optional", {}, item};
    }
    if (arguments[at].starts_with(ParamArrayHead) && at + 1 < arguments.size()) {
      return Complaint{List, 7, {}, {}, item};
    }
  }
  return std::nullopt;
}

}  // namespace

bool HasReturnValue(const ProcedureChoices& choices) { return !vb::SameText(choices.Type, u"Sub"); }

String GeneratorTextMethod(const ProcedureChoices& choices) {
  const bool returns = HasReturnValue(choices);
  const String end = String(vb::CrLf);
  String text = Header({returns ? StringView(u"Function") : StringView(u"Procedure"), LabelWidth},
                       choices.Name, choices.Comment);
  text += Word(choices.Accessibility) + Word(choices.Static) + choices.Type + u" " + choices.Name;
  text += u" (" + vb::Join(choices.Arguments, u", ") + u")";
  if (returns && !choices.ReturnValueType.empty() && !IsNoType(choices.ReturnValueType)) {
    text += u" As " + choices.ReturnValueType;
  }
  text += end + u"   'TODO: Add '" + choices.Name + u"' body here." + end;
  return text + (returns ? u"End Function" : u"End Sub") + end;
}

std::optional<Complaint> CheckField(const ProcedureChoices& choices) {
  if (auto complaint = CheckName({u"txtName", u"Name"}, choices.Name)) return complaint;
  if (auto complaint = CheckArguments(choices.Arguments)) return complaint;
  if (HasReturnValue(choices) && choices.ReturnValueType.empty()) {
    return Complaint{u"ComReturnValueType", 4, u"Return Value Type"};
  }
  const FieldText name{u"txtName", u"Name", choices.Name};
  if (auto complaint = CheckNameLength(name)) return complaint;
  FieldTexts fields;
  AddItems(fields, List, u"Arguments", choices.Arguments);
  if (HasReturnValue(choices)) {
    fields.push_back({u"ComReturnValueType", u"Return Value Type", choices.ReturnValueType});
  }
  if (auto complaint = CheckLineEnds(fields)) return complaint;
  fields.push_back(name);
  AddComment(fields, choices.Comment);
  return CheckLimitsOf(fields, [&] { return GeneratorTextMethod(choices); });
}

int CaretOffset(const ProcedureChoices& choices) {
  return choices.Comment.Full ? FullHeaderLines : 0;
}

}  // namespace tessel::builders
