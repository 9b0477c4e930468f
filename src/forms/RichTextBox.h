// A text with colours, read and written as a rich-text document.
#pragma once

#include <cstdint>
#include <vector>

#include "forms/Control.h"

namespace tessel::forms {

/// Red in the low byte, as the environment counts colours.
using Color = std::uint32_t;
inline constexpr Color DefaultColor = 0;

/// Runs of one colour each; together they cover the text. Line ends are CR LF.
struct ColoredText {
  struct Run {
    std::size_t Length;
    Color TextColor;
    bool operator==(const Run&) const = default;
  };
  String Text;
  std::vector<Run> Runs;
  bool operator==(const ColoredText&) const = default;
};

/// Reads a rich-text document (Rich Text Format 1.9: groups, \par, \line, \tab, \'hh by the code
/// page of the document, \u with \uc, colour and font tables, skipped destinations). Text that is
/// no such document is taken as plain text. Damaged input gives what can be read; never fails.
[[nodiscard]] ColoredText ReadRichText(StringView document);
/// Writes a document that `ReadRichText` gives back unchanged.
[[nodiscard]] String WriteRichText(const ColoredText& text, const Font& font);
/// Plain text with the line ends of the control: CR LF for a CR, an LF or both.
[[nodiscard]] String WithCrLf(StringView text);

/// Positions count from 0, as in the original. A CR LF counts as two.
class RichTextBox : public Control {
 public:
  RichTextBox(Surface* owner, std::string_view name, const Font& font = {});
  [[nodiscard]] std::string_view Kind() const override { return "RichTextBox"; }

  [[nodiscard]] const String& Text() const { return text_; }
  /// Sets plain text in the default colour; another text raises Change. Line ends of any kind
  /// become CR LF.
  void SetText(StringView text);
  [[nodiscard]] String TextRTF() const;
  void SetTextRTF(StringView document);
  [[nodiscard]] ColoredText Content() const;

  [[nodiscard]] int SelStart() const { return selStart_; }
  void SetSelStart(int position);
  [[nodiscard]] int SelLength() const { return selLength_; }
  void SetSelLength(int length);
  [[nodiscard]] String SelText() const;
  /// Replaces the selection; the caret stands behind the new text. Raises Change.
  void SetSelText(StringView text);
  /// Colour of the first selected character.
  [[nodiscard]] Color SelColor() const;
  void SetSelColor(Color color);

  /// Position of `what` at or behind `start` and ahead of `end` (-1: the end), -1 if absent. Case
  /// counts not, unless option 4 is set; option 2 finds whole words; option 8 leaves the selection
  /// alone, else what is found becomes the selection.
  int Find(StringView what, int start = 0, int end = -1, int options = 0);

  Designed<forms::Font> Font;
  Designed<int> RightMargin{this};
  Designed<bool> Locked{this};
  std::function<void()> Change;
  std::function<void()> SelChange;

 private:
  void Replace(String text, std::vector<Color> colors);
  Designed<String> text_{this};
  // One of each character: colouring one span after the other then costs no more than the spans.
  Designed<std::vector<Color>> colors_{this};
  Designed<int> selStart_{this}, selLength_{this};
};

}  // namespace tessel::forms
