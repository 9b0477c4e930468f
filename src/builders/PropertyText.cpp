#include "builders/PropertyText.h"

#include "builders/LineLimits.h"

namespace tessel::builders {
namespace {

constexpr HeaderWords Words{u"Procedure", 13};
/// The label that each part replaces by its own, wherever it stands in the comment, the
/// description included.
constexpr StringView Label = u"Procedure    :";
constexpr int DeclarationLines = 2;
constexpr std::size_t MostFields = 8;  // of the dialog, with those of the comment

/// Texts grow in place: a list may ask for thousands of properties.
void Append(String& text, std::initializer_list<StringView> pieces) {
  for (const StringView piece : pieces) text += piece;
}

/// Writes the parts of one property.
class Parts {
 public:
  explicit Parts(const PropertyChoices& choices)
      : choices_(choices),
        header_(Header(Words, choices.Name, choices.Comment)),
        as_(choices.ValueType.empty() ? u"" : u" As "),
        assign_(choices.LetSet ? u"    Set " : u"    ") {}

  void Declaration(String& text) const {
    Append(text, {u"Private ", choices_.MemberVariable, choices_.Name, as_, choices_.ValueType,
                  vb::CrLf, vb::CrLf});
  }
  void Get(String& text) const {
    // The comment says "Set" above a Get where objects are read, as it always has.
    Begin(text, choices_.LetSet ? u"Property Set :" : u"Property Get :");
    Append(text, {u"Property Get ", choices_.Name, u"()", as_, choices_.ValueType, vb::CrLf,
                  assign_, choices_.Name, u" = ", choices_.MemberVariable, choices_.Name, End});
  }
  void Take(String& text) const {
    Begin(text, choices_.LetSet ? u"Property Set :" : u"Property Let :");
    Append(text, {choices_.LetSet ? u"Property Set " : u"Property Let ", choices_.Name, u"(ByVal ",
                  choices_.Prefix, as_, choices_.ValueType, u")\r\n", assign_,
                  choices_.MemberVariable, choices_.Name, u" = ", choices_.Prefix, End});
  }

 private:
  static constexpr StringView End = u"\r\nEnd Property\r\n\r\n";

  void Begin(String& text, StringView label) const {
    if (!header_.empty()) text += vb::Replace(header_, Label, label);
    for (const StringView word :
         {StringView(choices_.Accessibility), StringView(choices_.Static)}) {
      if (!word.empty()) Append(text, {word, u" "});
    }
  }

  const PropertyChoices& choices_;
  String header_;
  StringView as_, assign_;
};

/// The names that come of several fields or of the type's prefix.
std::optional<Complaint> CheckMadeNames(const PropertyChoices& choices) {
  const FieldText parameter{u"ComValueType", u"Value Type", choices.Prefix};
  // Without a type there is no prefix to speak of.
  if (!choices.ValueType.empty()) {
    if (auto complaint = CheckMadeName(parameter)) return complaint;
  }
  if (auto complaint = CheckLineEnd({u"ComValueType", u"Value Type", choices.ValueType})) {
    return complaint;
  }
  const String variable = VariableOf(choices);
  FieldText whole{u"txtName", u"Name", variable};
  if (choices.MemberVariable.size() > choices.Name.size()) {
    whole = {u"txtMemberVariable", u"Member Variable", variable};
  }
  for (const FieldText& name : {FieldText{u"txtName", u"Name", choices.Name}, whole, parameter}) {
    if (auto complaint = CheckNameLength(name)) return complaint;
  }
  return std::nullopt;
}

}  // namespace

PropertyText GeneratorTextProperty(const PropertyChoices& choices) {
  PropertyText text;
  AppendTextProperty(choices, text.Declaration, text.Body);
  return text;
}

void AppendTextProperty(const PropertyChoices& choices, String& declarations, String& bodies) {
  const Parts parts(choices);
  parts.Declaration(declarations);
  if (choices.Get) parts.Get(bodies);
  parts.Take(bodies);
}

String VariableOf(const PropertyChoices& choices) { return choices.MemberVariable + choices.Name; }

std::optional<Complaint> CheckField(const PropertyChoices& choices) {
  if (auto complaint = CheckName({u"txtName", u"Name"}, choices.Name)) return complaint;
  if (auto complaint =
          CheckName({u"txtMemberVariable", u"Member Variable"}, choices.MemberVariable)) {
    return complaint;
  }
  if (auto complaint = CheckMadeNames(choices)) return complaint;
  FieldTexts fields;
  fields.reserve(MostFields);
  fields = {{u"txtName", u"Name", choices.Name},
            {u"ComValueType", u"Value Type", choices.ValueType},
            {u"ComValueType", u"Value Type", choices.Prefix},
            {u"txtMemberVariable", u"Member Variable", choices.MemberVariable}};
  AddComment(fields, choices.Comment);
  return CheckLimitsOf(fields, [&] {
    const PropertyText text = GeneratorTextProperty(choices);
    return text.Declaration + text.Body;
  });
}

int CaretOffset(const PropertyChoices& choices) {
  return choices.Comment.Full ? DeclarationLines + FullHeaderLines : 0;
}

}  // namespace tessel::builders
