#include "builders/BuilderHeader.h"

#include <algorithm>

#include "scanning/mFunctions.h"
#include "vb/Numbers.h"
#include "vb/OneLine.h"

namespace tessel::builders {
namespace {

constexpr std::ptrdiff_t RuleWidth = 26;

String Rule(char16_t sign) { return u"'" + vb::Repeat(RuleWidth, sign) + String(vb::CrLf); }

String Line(StringView label, std::size_t width, StringView text) {
  String line = u"' " + String(label);
  line.resize(std::max(line.size(), width + 2), u' ');
  return line + u": " + vb::InOneLine(text) + String(vb::CrLf);
}

bool IsPlain(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
         (unit >= u'0' && unit <= u'9');
}

}  // namespace

bool IsNoType(StringView type) { return vb::SameText(type, NoType); }

String Header(const HeaderWords& words, StringView name, const HeaderChoices& choices) {
  if (!choices.Full && choices.Description.empty()) return {};
  String text = Rule(u'=');
  std::size_t width = words.LabelWidth;
  if (choices.Full) {
    text += Line(words.Kind, width, name);
    text += Line(u"DateTime", width, choices.DateTime);
    text += Line(u"Author", width, choices.Author);
  } else if (words.ShortWidth != 0) {
    width = words.ShortWidth;
  }
  return text + Line(u"Description", width, choices.Description) + Rule(u'-');
}

String TextOf(const Complaint& complaint) {
  if (complaint.Code == 0) return complaint.Message;
  return mFunctions::MessageText(complaint.Code, complaint.Info1, complaint.Info2);
}

std::optional<int> NameFault(StringView name) {
  if (vb::IsNumeric(vb::Left(name, 1))) return 2;
  if (name.empty()) return 4;
  // Most names are letters and digits alone, and none of those is a bad symbol.
  if (!std::all_of(name.begin(), name.end(), IsPlain) &&
      mFunctions::GetBadSymbols(name, mFunctions::BadNameSymbols)) {
    return 3;
  }
  return std::nullopt;
}

std::optional<Complaint> CheckName(const NameField& field, StringView text) {
  const auto code = NameFault(text);
  if (!code) return std::nullopt;
  return Complaint{field.Control, *code, String(field.Label)};
}

}  // namespace tessel::builders
