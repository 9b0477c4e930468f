#include "hosts/workbench/designer/Values.h"

#include <QFontDatabase>
#include <algorithm>
#include <cmath>

#include "hosts/workbench/platform/Text.h"
#include "vb/Failure.h"
#include "vb/Numbers.h"

namespace tessel::workbench {
namespace {

constexpr double GreatestNumber = 1e9;
constexpr double TwipsPerPoint = 20;
constexpr double BoldWeight = 600;
constexpr int StandInStretch = 90;  // hundredths
constexpr double SystemColorBit = 2147483648.0;
constexpr double AllColors = 4294967296.0;

/// The system's colours by their number, as a plain desktop has them.
constexpr QRgb SystemColors[] = {0xFFC8C8C8, 0xFF000000, 0xFF99B4D1, 0xFFBFCDDB, 0xFFF0F0F0,
                                 0xFFFFFFFF, 0xFF646464, 0xFF000000, 0xFF000000, 0xFF000000,
                                 0xFFB4B4B4, 0xFFF4F7FC, 0xFFABABAB, 0xFF0078D7, 0xFFFFFFFF,
                                 0xFFF0F0F0, 0xFFA0A0A0, 0xFF6D6D6D, 0xFF000000, 0xFF000000,
                                 0xFFFFFFFF, 0xFF696969, 0xFFE3E3E3, 0xFF000000, 0xFFFFFFE1};

/// The lines of a block's font and what they set.
struct FontReader {
  FontValue Font;
  int Depth = 0;
  bool Inside = false;

  void Read(StringView line);
  void Set(const QString& name, StringView raw);
};

void FontReader::Set(const QString& name, StringView raw) {
  const String plain = model::PlainValue(raw);
  const double number = PlainNumber(plain);
  if (name == u"Name") Font.Name = ToQt(plain);
  if (name == u"Size" && number > 0) Font.Points = std::min(number, 2000.0);
  if (name == u"Weight") Font.Bold = number >= BoldWeight;
  if (name == u"Italic") Font.Italic = number != 0;
  if (name == u"Underline") Font.Underline = number != 0;
  if (name == u"Strikethrough") Font.Strikethrough = number != 0;
}

void FontReader::Read(StringView line) {
  const QString text = ToQt(line).trimmed();
  if (text.startsWith(u"BeginProperty ", Qt::CaseInsensitive)) {
    if (++Depth == 1) Inside = text.section(u' ', 1, 1) == u"Font";
  } else if (text.startsWith(u"EndProperty", Qt::CaseInsensitive)) {
    Depth = std::max(0, Depth - 1);
    if (Depth == 0) Inside = false;
  } else if (Inside && Depth == 1) {
    const std::size_t equals = line.find(u'=');
    if (equals != StringView::npos) {
      Set(ToQt(line.substr(0, equals)).trimmed(), line.substr(equals + 1));
    }
  }
}

}  // namespace

double PlainNumber(StringView plain) {
  try {
    return vb::Val(plain);
  } catch (const vb::Failure&) {
    return 0;
  }
}

double NumberOf(const model::DesignerNode& node, StringView property, double fallback) {
  const auto raw = node.RawValue(property);
  if (!raw) return fallback;
  const String plain = model::PlainValue(*raw);
  if (plain.find_first_of(u"0123456789") == String::npos) return fallback;
  return std::clamp(PlainNumber(plain), -GreatestNumber, GreatestNumber);
}

bool IsBinaryReference(StringView raw) {
  if (!raw.empty() && raw.front() == u'$') raw.remove_prefix(1);
  if (raw.empty() || raw.front() != u'"') return false;
  const std::size_t end = raw.find(u'"', 1);
  return end != StringView::npos && end + 1 < raw.size() && raw[end + 1] == u':';
}

QString TextOf(const model::DesignerNode& node, StringView property) {
  const auto raw = node.RawValue(property);
  if (!raw || IsBinaryReference(*raw)) return {};
  return ToQt(model::PlainValue(*raw));
}

bool FlagOf(const model::DesignerNode& node, StringView property, bool fallback) {
  const auto raw = node.RawValue(property);
  if (!raw) return fallback;
  const String plain = model::PlainValue(*raw);
  return vb::SameText(plain, u"True") || PlainNumber(plain) != 0;
}

QColor ColorFromNumber(double number) {
  if (number < 0) number += AllColors;
  if (number < 0 || number >= AllColors) return {};
  const auto bits = static_cast<unsigned>(number);
  if (number >= SystemColorBit) {
    const unsigned index = bits & 0xFFU;
    return index < std::size(SystemColors) ? QColor(SystemColors[index]) : QColor();
  }
  return {static_cast<int>(bits & 0xFFU), static_cast<int>((bits >> 8U) & 0xFFU),
          static_cast<int>((bits >> 16U) & 0xFFU)};
}

unsigned NumberOfColor(const QColor& color) {
  return static_cast<unsigned>(color.red()) | static_cast<unsigned>(color.green()) << 8U |
         static_cast<unsigned>(color.blue()) << 16U;
}

QColor ColorOf(const model::DesignerNode& node, StringView property, const QColor& fallback) {
  const auto raw = node.RawValue(property);
  if (!raw) return fallback;
  const String plain = model::PlainValue(*raw);
  if (plain.empty()) return fallback;
  const QColor color = ColorFromNumber(PlainNumber(plain));
  return color.isValid() ? color : fallback;
}

FontValue FontOf(const model::DesignerNode& node) {
  FontReader reader;
  for (const auto& item : node.Items) {
    if (!item.Child && (reader.Depth > 0 || item.PropertyName.empty())) reader.Read(item.Line);
  }
  return reader.Font;
}

QFont DrawnFont(const FontValue& font, double scale) {
  QFont drawn(font.Name.isEmpty() ? QStringLiteral("Sans Serif") : font.Name);
  drawn.setStyleHint(QFont::SansSerif);
  // The forms' usual fonts are narrower than what stands in for them.
  if (!QFontDatabase::hasFamily(font.Name)) drawn.setStretch(StandInStretch);
  drawn.setPixelSize(
      std::max(1, static_cast<int>(std::lround(font.Points * TwipsPerPoint * scale))));
  drawn.setBold(font.Bold);
  drawn.setItalic(font.Italic);
  drawn.setUnderline(font.Underline);
  drawn.setStrikeOut(font.Strikethrough);
  return drawn;
}

}  // namespace tessel::workbench
