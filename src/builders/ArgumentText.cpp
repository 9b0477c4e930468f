#include "builders/ArgumentText.h"

#include "builders/LineLimits.h"

namespace tessel::builders {

ArgumentFields EnabledField(const ArgumentChoices& choices) {
  const bool plain = !choices.Array && !choices.ParamArray;
  return {plain, plain, !choices.Array, plain && choices.Optional, plain};
}

String GeneratorStrok(const ArgumentChoices& choices) {
  const ArgumentFields enabled = EnabledField(choices);
  if (choices.Array) return choices.Name + u"()";
  if (choices.ParamArray) return u"ParamArray " + choices.Name + u"()";
  String text;
  if (choices.Optional) text += u"Optional ";
  if (choices.ByRef) text += u"ByRef ";
  if (choices.ByVal) text += u"ByVal ";
  text += choices.Name + u" ";
  // An empty type leaves a lone "As": the list always has "(None)" for no type.
  if (!IsNoType(choices.Type)) text += u" As " + choices.Type;
  if (enabled.DefaultValue && !choices.DefaultValue.empty()) {
    text += u" = " + choices.DefaultValue;
  }
  return text;
}

std::optional<Complaint> CheckField(const ArgumentChoices& choices) {
  if (auto complaint = CheckName({u"txtName", u"Name"}, choices.Name)) return complaint;
  return CheckNameLength({u"txtName", u"Name", choices.Name});
}

}  // namespace tessel::builders
