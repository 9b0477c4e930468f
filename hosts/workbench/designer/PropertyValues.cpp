#include "hosts/workbench/designer/PropertyValues.h"

#include <QColor>
#include <cmath>

#include "hosts/workbench/designer/Values.h"
#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"
#include "vb/Numbers.h"

namespace tessel::workbench {
namespace {

constexpr std::int32_t InvalidValue = 380;
constexpr double GreatestWhole = 2147483647;
/// Columns that a number takes ahead of its comment.
constexpr std::size_t NumberWidth = 3;

[[noreturn]] void FailInvalid() {
  throw vb::Failure(InvalidValue, u"Invalid property value", u"VBIDE");
}

String Quoted(StringView text) {
  // A line end would end the file's line.
  if (text.find_first_of(u"\r\n") != StringView::npos) FailInvalid();
  return u"\"" + vb::Replace(text, u"\"", u"\"\"") + u"\"";
}

String WithComment(StringView number, StringView comment) {
  String raw(number);
  raw.resize(std::max(raw.size(), NumberWidth), u' ');
  return raw + u" '" + String(comment);
}

bool IsFlagText(StringView raw) {
  const std::size_t comment = raw.find(u'\'');
  if (comment == StringView::npos) return false;
  const StringView word = vb::Trim(raw.substr(comment + 1));
  return vb::SameText(word, u"True") || vb::SameText(word, u"False");
}

bool IsTrue(StringView plain) { return vb::SameText(plain, u"True") || PlainNumber(plain) != 0; }

String FlagFrom(StringView shown) {
  const bool number = vb::IsNumeric(shown);
  if (!number && !vb::SameText(shown, u"True") && !vb::SameText(shown, u"False")) FailInvalid();
  return IsTrue(shown) ? WithComment(u"-1", u"True") : WithComment(u"0", u"False");
}

String NumberFrom(StringView shown, bool whole) {
  if (!vb::IsNumeric(shown)) FailInvalid();
  double number = 0;
  try {
    number = vb::Val(shown);
  } catch (const vb::Failure&) {
    FailInvalid();
  }
  if (std::abs(number) > GreatestWhole) FailInvalid();
  if (whole && (number < 0 || number != std::floor(number))) FailInvalid();
  return String(shown);
}

String ColorFrom(StringView shown) {
  const QString text = ToQt(shown);
  if (text.startsWith(u'#')) {
    const QColor color(text);
    if (!color.isValid()) FailInvalid();
    return FromQt(QStringLiteral("&H%1&").arg(NumberOfColor(color), 8, 16, QChar(u'0')).toUpper());
  }
  const StringView digits = shown.substr(0, shown.size() - (shown.back() == u'&' ? 1 : 0));
  if (!vb::IsNumeric(digits) || !ColorFromNumber(PlainNumber(shown)).isValid()) FailInvalid();
  return String(shown);
}

String ShownChoice(Choices choices, StringView plain) {
  const double number = PlainNumber(plain);
  if (!vb::IsNumeric(plain) || number < 0 || number >= static_cast<double>(choices.size())) {
    return String(plain);
  }
  const auto at = static_cast<std::size_t>(number);
  return vb::Str(at) + u" - " + String(choices[at]);
}

/// By number, by name, or as the list shows it.
String ChoiceFrom(Choices choices, StringView shown) {
  for (std::size_t at = 0; at < choices.size(); ++at) {
    const String number = vb::Str(at), listed = number + u" - " + String(choices[at]);
    if (vb::SameText(shown, number) || vb::SameText(shown, choices[at]) ||
        vb::SameText(shown, listed)) {
      return WithComment(number, choices[at]);
    }
  }
  FailInvalid();
}

/// A value of an unknown property keeps its looks: quoted or not.
String PlainFrom(StringView shown, StringView before) {
  if (shown.find_first_of(u"\r\n") != StringView::npos) FailInvalid();
  const bool wasQuoted = !before.empty() && before.front() == u'"';
  const bool isNew = before.empty() && !vb::IsNumeric(shown);
  return wasQuoted || isNew ? Quoted(shown) : String(shown);
}

}  // namespace

ValueKind KindOf(const model::DesignerNode& node, StringView property, StringView raw) {
  if (IsBinaryReference(raw)) return ValueKind::Binary;
  const bool quoted = !raw.empty() && raw.front() == u'"';
  const ValueKind known = KnownKind(node.Class, property);
  if (known == ValueKind::Plain) {
    if (quoted) return ValueKind::Text;
    return IsFlagText(raw) ? ValueKind::Flag : ValueKind::Plain;
  }
  // The file's own way of writing it counts more than the table.
  return quoted && known != ValueKind::Text ? ValueKind::Text : known;
}

String ShownValue(ValueKind kind, Choices choices, StringView raw) {
  if (raw.empty()) return {};
  String plain = model::PlainValue(raw);
  switch (kind) {
    case ValueKind::Flag:
      return IsTrue(plain) ? u"True" : u"False";
    case ValueKind::Choice:
      return ShownChoice(choices, plain);
    case ValueKind::Binary:
      return u"(Binary) " + String(raw);
    default:
      return plain;
  }
}

String RawFromShown(ValueKind kind, Choices choices, StringView shown, StringView before) {
  const StringView typed = kind == ValueKind::Text ? shown : vb::Trim(shown);
  if (kind == ValueKind::Text) return Quoted(typed);
  if (typed.empty()) FailInvalid();
  switch (kind) {
    case ValueKind::Flag:
      return FlagFrom(typed);
    case ValueKind::Number:
      return NumberFrom(typed, false);
    case ValueKind::Whole:
      return NumberFrom(typed, true);
    case ValueKind::Choice:
      return ChoiceFrom(choices, typed);
    case ValueKind::Color:
      return ColorFrom(typed);
    case ValueKind::Plain:
      return PlainFrom(typed, before);
    default:
      FailInvalid();
  }
}

std::vector<String> ShownChoices(ValueKind kind, Choices choices) {
  if (kind == ValueKind::Flag) return {u"True", u"False"};
  std::vector<String> shown;
  for (std::size_t at = 0; at < choices.size(); ++at) {
    shown.push_back(vb::Str(at) + u" - " + String(choices[at]));
  }
  return shown;
}

}  // namespace tessel::workbench
