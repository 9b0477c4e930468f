#include "builders/EnumText.h"

#include "builders/LineLimits.h"

namespace tessel::builders {
namespace {

constexpr HeaderWords Words{u"Enum", 11};
constexpr StringView List = u"ListParameters";

/// A member's name is its text up to the first blank. What is wrong with it names the symbols' name
/// only, since the list has no label.
std::optional<Complaint> CheckItem(StringView item, int index) {
  const StringView name = item.substr(0, item.find(u' '));
  const auto code = NameFault(name);
  if (!code) return std::nullopt;
  return Complaint{List, *code, *code == 3 ? String(name) : String(), {}, index};
}

}  // namespace

String GeneratorStrok(const EnumMemberChoices& choices) {
  const String member = choices.Prefix + choices.Name;
  return choices.InitValue.empty() ? member : member + u" = " + choices.InitValue;
}

std::optional<Complaint> CheckField(const EnumMemberChoices& choices) {
  if (!choices.Prefix.empty()) return CheckName({u"txtPrefix", u"Prefix"}, choices.Prefix);
  return CheckName({u"txtName", u"Name"}, choices.Name);
}

String GeneratorText(const EnumChoices& choices) {
  const String end = String(vb::CrLf);
  String text = Header(Words, choices.Name, choices.Comment);
  if (!choices.Accessibility.empty()) text += choices.Accessibility + u" ";
  text += u"Enum " + choices.Name + end;
  for (const String& parameter : choices.Parameters) text += u"   " + parameter + end;
  return text + u"End Enum" + end;
}

std::optional<Complaint> CheckField(const EnumChoices& choices) {
  if (auto complaint = CheckName({u"txtName", u"Name"}, choices.Name)) return complaint;
  if (choices.Selected < 0) return Complaint{List, 9};
  for (std::size_t at = 0; at < choices.Parameters.size(); ++at) {
    if (auto complaint = CheckItem(choices.Parameters[at], static_cast<int>(at))) return complaint;
  }
  FieldTexts fields{{u"txtName", u"Name", choices.Name}};
  AddItems(fields, List, u"Members", choices.Parameters);
  AddComment(fields, choices.Comment);
  return CheckLimitsOf(fields, [&] { return GeneratorText(choices); });
}

int CaretOffset(const EnumChoices& choices) { return choices.Comment.Full ? FullHeaderLines : 0; }

}  // namespace tessel::builders
