#include "forms/RichTextBox.h"

#include <algorithm>

#include "forms/Form.h"
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

using Run = ColoredText::Run;

void AddRun(std::vector<Run>& runs, std::size_t length, Color color) {
  if (length == 0) return;
  if (!runs.empty() && runs.back().TextColor == color) {
    runs.back().Length += length;
  } else {
    runs.push_back({length, color});
  }
}

/// The runs with `removed` characters at `start` replaced by `added` ones of `color`.
std::vector<Run> Spliced(const std::vector<Run>& runs, std::size_t start, std::size_t removed,
                         std::size_t added, Color color) {
  std::vector<Run> result;
  std::size_t at = 0;
  bool inserted = false;
  for (const Run& run : runs) {
    const std::size_t end = at + run.Length;
    if (at < start) AddRun(result, std::min(end, start) - at, run.TextColor);
    if (!inserted && end >= start) {
      AddRun(result, added, color);
      inserted = true;
    }
    const std::size_t behind = std::max(at, start + removed);
    if (behind < end) AddRun(result, end - behind, run.TextColor);
    at = end;
  }
  if (!inserted) AddRun(result, added, color);
  return result;
}

}  // namespace

RichTextBox::RichTextBox(Form* owner, std::string_view name, const forms::Font& font)
    : Control(owner, name), Font(font) {}

void RichTextBox::SetText(StringView text) {
  ColoredText plain = ReadRichText(u"");
  plain.Text = text;
  if (!text.empty()) plain.Runs.push_back({text.size(), DefaultColor});
  const bool changed = content_.Text != plain.Text;
  content_ = std::move(plain);
  selStart_ = selLength_ = 0;
  Changed();
  if (!changed) return;
  if (const auto handler = Change) handler();
}

String RichTextBox::TextRTF() const { return WriteRichText(content_, Font); }

void RichTextBox::SetTextRTF(StringView document) {
  ColoredText read = ReadRichText(document);
  const bool changed = content_.Text != read.Text;
  content_ = std::move(read);
  selStart_ = selLength_ = 0;
  Changed();
  if (!changed) return;
  if (const auto handler = Change) handler();
}

void RichTextBox::SetSelStart(int position) {
  if (position < 0) throw vb::Failure(380, u"Invalid property value: SelStart of " + Name());
  selStart_ = std::min(position, static_cast<int>(content_.Text.size()));
  selLength_ = 0;
  Changed();
  if (const auto handler = SelChange) handler();
}

void RichTextBox::SetSelLength(int length) {
  if (length < 0) throw vb::Failure(380, u"Invalid property value: SelLength of " + Name());
  selLength_ = std::min(length, static_cast<int>(content_.Text.size()) - selStart_);
  Changed();
  if (const auto handler = SelChange) handler();
}

String RichTextBox::SelText() const {
  return content_.Text.substr(static_cast<std::size_t>(selStart_),
                              static_cast<std::size_t>(selLength_));
}

void RichTextBox::SetSelText(StringView text) {
  const auto start = static_cast<std::size_t>(selStart_);
  const auto removed = static_cast<std::size_t>(selLength_);
  content_.Runs = Spliced(content_.Runs, start, removed, text.size(), SelColor());
  content_.Text.replace(start, removed, text);
  selStart_ += static_cast<int>(text.size());
  selLength_ = 0;
  Changed();
  if (const auto handler = Change) handler();
}

Color RichTextBox::SelColor() const {
  std::size_t end = 0;
  for (const Run& run : content_.Runs) {
    end += run.Length;
    if (static_cast<std::size_t>(selStart_) < end) return run.TextColor;
  }
  return DefaultColor;
}

void RichTextBox::SetSelColor(Color color) {
  const auto length = static_cast<std::size_t>(selLength_);
  content_.Runs =
      Spliced(content_.Runs, static_cast<std::size_t>(selStart_), length, length, color);
  Changed();
}

int RichTextBox::Find(StringView what, int start, int end, int options) {
  if (what.empty() || start < 0) return -1;
  const auto compare = (options & MatchCase) != 0 ? vb::Compare::Binary : vb::Compare::Text;
  const StringView text = end < 0
                              ? StringView(content_.Text)
                              : StringView(content_.Text).substr(0, static_cast<std::size_t>(end));
  auto from = static_cast<std::size_t>(start);
  for (;;) {
    const std::size_t found = vb::InStr(from + 1, text, what, compare);
    if (found == 0) return -1;
    from = found;
    if ((options & WholeWord) != 0 && !StandsAlone(content_.Text, found - 1, what.size())) continue;
    const int position = static_cast<int>(found) - 1;
    if ((options & NoHighlight) == 0) {
      SetSelStart(position);
      SetSelLength(static_cast<int>(what.size()));
    }
    return position;
  }
}

void RichTextBox::SaveDesign() {
  Control::SaveDesign();
  designContent_ = content_;
}

void RichTextBox::RestoreDesign() {
  Control::RestoreDesign();
  content_ = designContent_;
  selStart_ = selLength_ = 0;
}

}  // namespace tessel::forms
