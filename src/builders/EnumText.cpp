#include "builders/EnumText.h"

#include <set>

#include "builders/LineLimits.h"

namespace tessel::builders {
namespace {

constexpr HeaderWords Words{u"Enum", 11};
constexpr StringView List = u"ListParameters";

/// A member's name is its text up to the first blank.
StringView NameOf(StringView item) { return item.substr(0, item.find(u' ')); }

/// What is wrong with a member's name names the symbols' name
/// only, since the list has no label.
std::optional<Complaint> CheckItem(StringView item, int index) {
  const StringView name = NameOf(item);
  const auto code = NameFault(name);
  if (!code) return std::nullopt;
  return Complaint{List, *code, *code == 3 ? String(name) : String(), {}, index};
}

/// What the members are beside each other. Behind the last one stands the end of the Enum, which a
/// value must not take in; one ahead of it may go on in the next.
std::optional<Complaint> CheckList(const std::vector<String>& items) {
  std::set<String> known;
  FieldTexts names, lines;
  AddItems(lines, List, u"Members", items);
  for (FieldText member : lines) {
    member.Text = NameOf(member.Text);
    names.push_back(member);
    if (!known.insert(vb::LCase(member.Text)).second) {
      Complaint complaint{List, 0, {}, {}, member.Item};
      complaint.Message = u"Two members have the name \"" + String(member.Text) + u"\"";
      return complaint;
    }
  }
  if (!lines.empty()) {
    if (auto complaint = CheckLineEnd(lines.back())) return complaint;
  }
  return CheckNameLengths(names);
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
  for (const String& parameter : choices.Parameters) {
    text.append(u"   ").append(parameter).append(end);
  }
  return text + u"End Enum" + end;
}

std::optional<Complaint> CheckField(const EnumChoices& choices) {
  if (auto complaint = CheckName({u"txtName", u"Name"}, choices.Name)) return complaint;
  if (choices.Selected < 0) return Complaint{List, 9};
  for (std::size_t at = 0; at < choices.Parameters.size(); ++at) {
    if (auto complaint = CheckItem(choices.Parameters[at], static_cast<int>(at))) return complaint;
  }
  FieldTexts fields{{u"txtName", u"Name", choices.Name}};
  if (auto complaint = CheckLineEnds(fields)) return complaint;
  if (auto complaint = CheckNameLengths(fields)) return complaint;
  if (auto complaint = CheckList(choices.Parameters)) return complaint;
  AddItems(fields, List, u"Members", choices.Parameters);
  AddComment(fields, choices.Comment);
  return CheckLimitsOf(fields, [&] { return GeneratorText(choices); });
}

int CaretOffset(const EnumChoices& choices) { return choices.Comment.Full ? FullHeaderLines : 0; }

}  // namespace tessel::builders
