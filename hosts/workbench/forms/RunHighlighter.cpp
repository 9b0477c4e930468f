#include "hosts/workbench/forms/RunHighlighter.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

namespace tessel::workbench {
namespace {

/// A span of one colour inside a line.
struct Span {
  int Start, Length;
  forms::Color TextColor;
  bool operator==(const Span&) const = default;
};
using Spans = std::vector<Span>;

struct LineColors : QTextBlockUserData {
  explicit LineColors(Spans spans) : Colors(std::move(spans)) {}
  Spans Colors;
};

/// Relative luminance of a colour (WCAG 2.1).
double Luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double first = Luminance(one), second = Luminance(other);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor FromModel(forms::Color color) {
  return QColor(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

void AddSpan(Spans& spans, int column, int length, forms::Color color) {
  if (length > 0 && color != forms::DefaultColor) spans.push_back({column, length, color});
}

/// The spans of each line of a text.
std::vector<Spans> SpansOfLines(const forms::ColoredText& content) {
  std::vector<Spans> lines(1);
  std::size_t at = 0;
  int column = 0;
  for (const auto& run : content.Runs) {
    int from = column;
    for (const std::size_t end = at + run.Length; at < end; ++at) {
      const char16_t unit = content.Text[at];
      if (unit == u'\n') {
        AddSpan(lines.back(), from, column - from, run.TextColor);
        lines.emplace_back();
        column = from = 0;
      } else if (unit != u'\r') {
        ++column;
      }
    }
    AddSpan(lines.back(), from, column - from, run.TextColor);
  }
  return lines;
}

const Spans& ShownSpans(const QTextBlock& block) {
  static const Spans none;
  const auto* const shown = static_cast<const LineColors*>(block.userData());
  return shown == nullptr ? none : shown->Colors;
}

}  // namespace

QColor ReadableColor(const QColor& color, const QColor& background) {
  constexpr double Enough = 4.5;
  constexpr int Steps = 20;
  const QColor target = Luminance(background) < 0.18 ? Qt::white : Qt::black;
  QColor result = color;
  for (int step = 1; step <= Steps && Contrast(result, background) < Enough; ++step) {
    const auto mix = [&](int from, int to) { return from + (to - from) * step / Steps; };
    result = QColor(mix(color.red(), target.red()), mix(color.green(), target.green()),
                    mix(color.blue(), target.blue()));
  }
  return result;
}

void RunHighlighter::Show(const forms::ColoredText& content) {
  QTextBlock block = document()->firstBlock();
  for (Spans& spans : SpansOfLines(content)) {
    if (!block.isValid()) return;
    if (spans != ShownSpans(block)) {
      block.setUserData(new LineColors(std::move(spans)));
      rehighlightBlock(block);
    }
    block = block.next();
  }
}

void RunHighlighter::SetBackground(const QColor& background) {
  if (background_ == background) return;
  background_ = background;
  readable_.clear();
  rehighlight();
}

void RunHighlighter::highlightBlock(const QString&) {
  for (const Span& span : ShownSpans(currentBlock())) {
    const auto [color, isNew] = readable_.try_emplace(span.TextColor);
    if (isNew) color->second = ReadableColor(FromModel(span.TextColor), background_);
    setFormat(span.Start, span.Length, color->second);
  }
}

}  // namespace tessel::workbench
