#include "forms/RichTextBox.h"

#include <algorithm>

#include "vb/Failure.h"

namespace tessel::forms {
namespace {

enum FindOption : int { WholeWord = 2, MatchCase = 4, NoHighlight = 8 };

bool IsWordUnit(char16_t unit) {
  return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') ||
         (unit >= u'A' && unit <= u'Z') || unit == u'_' || unit >= 0x80;
}

bool StandsAlone(StringView text, std::size_t start, std::size_t length) {
  const bool before = start > 0 && IsWordUnit(text[start - 1]);
  const bool behind = start + length < text.size() && IsWordUnit(text[start + length]);
  return !before && !behind;
}

}  // namespace

RichTextBox::RichTextBox(Surface* owner, std::string_view name, const forms::Font& font)
    : Control(owner, name), Font(this, font) {}

void RichTextBox::SetText(StringView text) {
  String lines = WithCrLf(text);
  std::vector<Color> colors(lines.size(), DefaultColor);
  Replace(std::move(lines), std::move(colors));
}

String RichTextBox::TextRTF() const { return WriteRichText(Content(), Font); }

void RichTextBox::SetTextRTF(StringView document) {
  ColoredText read = ReadRichText(document);
  std::vector<Color> colors;
  colors.reserve(read.Text.size());
  for (const auto& run : read.Runs) colors.insert(colors.end(), run.Length, run.TextColor);
  Replace(std::move(read.Text), std::move(colors));
}

void RichTextBox::Replace(String text, std::vector<Color> colors) {
  const bool changed = *text_ != text;
  text_.InPlace() = std::move(text);
  colors_.InPlace() = std::move(colors);
  selStart_.InPlace() = selLength_.InPlace() = 0;
  Changed();
  if (!changed) return;
  Raise(*this, Change);
}

ColoredText RichTextBox::Content() const {
  ColoredText content{text_, {}};
  for (const Color color : *colors_) {
    if (!content.Runs.empty() && content.Runs.back().TextColor == color) {
      ++content.Runs.back().Length;
    } else {
      content.Runs.push_back({1, color});
    }
  }
  return content;
}

void RichTextBox::SetSelStart(int position) {
  if (position < 0) throw vb::Failure(380, u"Invalid property value: SelStart of " + Name());
  selLength_ = 0;
  selStart_ = std::min(position, static_cast<int>(text_->size()));
  Raise(*this, SelChange);
}

void RichTextBox::SetSelLength(int length) {
  if (length < 0) throw vb::Failure(380, u"Invalid property value: SelLength of " + Name());
  selLength_ = std::min(length, static_cast<int>(text_->size()) - selStart_);
  Raise(*this, SelChange);
}

String RichTextBox::SelText() const {
  return text_->substr(static_cast<std::size_t>(selStart_), static_cast<std::size_t>(selLength_));
}

void RichTextBox::SetSelText(StringView text) {
  const String lines = WithCrLf(text);
  const auto removed = static_cast<std::size_t>(selLength_);
  const Color color = SelColor();
  auto& colors = colors_.InPlace();
  const auto first = colors.begin() + selStart_;
  const auto behind = colors.erase(first, first + selLength_);
  colors.insert(behind, lines.size(), color);
  text_.InPlace().replace(static_cast<std::size_t>(selStart_), removed, lines);
  selStart_.InPlace() += static_cast<int>(lines.size());
  selLength_.InPlace() = 0;
  Changed();
  Raise(*this, Change);
}

Color RichTextBox::SelColor() const {
  const auto start = static_cast<std::size_t>(selStart_);
  return start < colors_->size() ? (*colors_)[start] : DefaultColor;
}

void RichTextBox::SetSelColor(Color color) {
  std::fill_n(colors_.InPlace().begin() + selStart_, *selLength_, color);
  Changed();
}

int RichTextBox::Find(StringView what, int start, int end, int options) {
  if (what.empty() || start < 0) return -1;
  const auto compare = (options & MatchCase) != 0 ? vb::Compare::Binary : vb::Compare::Text;
  const StringView text =
      end < 0 ? StringView(*text_) : StringView(*text_).substr(0, static_cast<std::size_t>(end));
  auto from = static_cast<std::size_t>(start);
  for (;;) {
    const std::size_t found = vb::InStr(from + 1, text, what, compare);
    if (found == 0) return -1;
    from = found;
    if ((options & WholeWord) != 0 && !StandsAlone(*text_, found - 1, what.size())) continue;
    const int position = static_cast<int>(found) - 1;
    if ((options & NoHighlight) == 0) {
      SetSelStart(position);
      SetSelLength(static_cast<int>(what.size()));
    }
    return position;
  }
}

}  // namespace tessel::forms
