// Writes rich text as the original control does.

#include <algorithm>

#include "forms/RichTextBox.h"

namespace tessel::forms {
namespace {

std::vector<Color> ColorsOf(const ColoredText& text) {
  std::vector<Color> colors;
  for (const auto& run : text.Runs) {
    if (run.TextColor == DefaultColor) continue;
    if (std::find(colors.begin(), colors.end(), run.TextColor) == colors.end()) {
      colors.push_back(run.TextColor);
    }
  }
  return colors;
}

String ColorTable(const std::vector<Color>& colors) {
  if (colors.empty()) return {};
  String table = u"{\\colortbl ;";
  for (const Color color : colors) {
    table += u"\\red" + vb::Str(color & 0xFF) + u"\\green" + vb::Str((color >> 8) & 0xFF) +
             u"\\blue" + vb::Str((color >> 16) & 0xFF) + u";";
  }
  return table + u"}\r\n";
}

void AppendEscaped(String& out, StringView text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (unit == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') {
      out += u"\\par\r\n";
      ++at;
    } else if (unit == u'\\' || unit == u'{' || unit == u'}') {
      out += u'\\';
      out += unit;
    } else if (unit == u'\t') {
      out += u"\\tab ";
    } else if (unit < 0x20 || unit > 0x7E) {
      out += u"\\u" + vb::Str(static_cast<std::int16_t>(unit)) + u"?";
    } else {
      out += unit;
    }
  }
}

/// A line end whose two halves lie in two runs would be lost; the runs are cut behind it instead.
std::size_t LengthWithLineEnd(StringView text, std::size_t start, std::size_t length) {
  const std::size_t end = start + length;
  const bool cut = length > 0 && end < text.size() && text[end - 1] == u'\r' && text[end] == u'\n';
  return cut ? length + 1 : length;
}

}  // namespace

String WriteRichText(const ColoredText& text, const Font& font) {
  const std::vector<Color> colors = ColorsOf(text);
  String out = u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 ";
  AppendEscaped(out, font.Name);
  out += u";}}\r\n" + ColorTable(colors) + u"\\viewkind4\\uc1\\pard\\f0\\fs" +
         vb::Str(static_cast<int>(font.Size * 2)) + u" ";
  Color present = DefaultColor;
  std::size_t start = 0;
  std::size_t runEnd = 0;
  for (const auto& run : text.Runs) {
    runEnd += run.Length;
    if (start >= runEnd) continue;
    if (run.TextColor != present) {
      const auto found = std::find(colors.begin(), colors.end(), run.TextColor);
      out += u"\\cf" + vb::Str(found == colors.end() ? 0 : found - colors.begin() + 1) + u" ";
      present = run.TextColor;
    }
    const std::size_t length = LengthWithLineEnd(text.Text, start, runEnd - start);
    AppendEscaped(out, StringView(text.Text).substr(start, length));
    start += length;
  }
  return out + u"\\par\r\n}\r\n";
}

}  // namespace tessel::forms
