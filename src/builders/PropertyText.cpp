#include "builders/PropertyText.h"

namespace tessel::builders {
namespace {

constexpr HeaderWords Words{u"Procedure", 13};
/// The label that each part replaces by its own, wherever it stands in the comment, the
/// description included.
constexpr StringView Label = u"Procedure    :";
constexpr int DeclarationLines = 2;

String Word(StringView word) { return word.empty() ? String() : String(word) + u" "; }
String TypeOf(StringView type) { return type.empty() ? String() : u" As " + String(type); }

/// Writes the parts of one property.
class Parts {
 public:
  explicit Parts(const PropertyChoices& choices)
      : choices_(choices),
        header_(Header(Words, choices.Name, choices.Comment)),
        scope_(Word(choices.Accessibility) + Word(choices.Static)),
        assign_(choices.LetSet ? u"    Set " : u"    ") {}

  [[nodiscard]] String Get() const {
    // The comment says "Set" above a Get where objects are read, as it always has.
    return Part(choices_.LetSet ? u"Property Set :" : u"Property Get :",
                u"Property Get " + choices_.Name + u"()" + TypeOf(choices_.ValueType),
                choices_.Name + u" = " + Variable());
  }
  [[nodiscard]] String Take() const {
    const String kind = choices_.LetSet ? u"Property Set " : u"Property Let ";
    return Part(
        kind + u":",
        kind + choices_.Name + u"(ByVal " + choices_.Prefix + TypeOf(choices_.ValueType) + u")",
        Variable() + u" = " + choices_.Prefix);
  }
  [[nodiscard]] String Variable() const { return VariableOf(choices_); }

 private:
  [[nodiscard]] String Part(StringView label, StringView head, StringView body) const {
    const String end = String(vb::CrLf);
    return vb::Replace(header_, Label, label) + scope_ + String(head) + end + assign_ +
           String(body) + end + u"End Property" + end + end;
  }

  const PropertyChoices& choices_;
  String header_, scope_, assign_;
};

}  // namespace

PropertyText GeneratorTextProperty(const PropertyChoices& choices) {
  const Parts parts(choices);
  PropertyText text;
  text.Declaration = u"Private " + parts.Variable() + TypeOf(choices.ValueType) + String(vb::CrLf) +
                     String(vb::CrLf);
  if (choices.Get) text.Body = parts.Get();
  text.Body += parts.Take();
  return text;
}

String VariableOf(const PropertyChoices& choices) { return choices.MemberVariable + choices.Name; }

std::optional<Complaint> CheckField(const PropertyChoices& choices) {
  if (auto complaint = CheckName({u"txtName", u"Name"}, choices.Name)) return complaint;
  return CheckName({u"txtMemberVariable", u"Member Variable"}, choices.MemberVariable);
}

int CaretOffset(const PropertyChoices& choices) {
  return choices.Comment.Full ? DeclarationLines + FullHeaderLines : 0;
}

}  // namespace tessel::builders
