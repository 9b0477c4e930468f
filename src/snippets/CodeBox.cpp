#include "snippets/CodeBox.h"

#include <optional>

#include "presentation/mCodeConverter.h"

namespace tessel {
namespace {

/// Nobody reads on in colours behind that many characters, and they take their time.
constexpr std::size_t MostColored = 1'000'000;

/// The document treats braces as its own; two characters that no source holds stand in for them.
constexpr StringView Open = u"\uF8D0", Close = u"\uF8D1";

String DocumentOf(StringView text, int charset) {
  const String marked = vb::Replace(vb::Replace(text, u"{", Open), u"}", Close);
  const String document = mCodeConverter::MakeRTF(marked, charset);
  return vb::Replace(vb::Replace(document, Open, u"\\{"), Close, u"\\}");
}

/// The colours of a text that has got further blanks around its keywords, on the text as it was.
/// Nothing when the two differ in more than that.
std::optional<forms::ColoredText> ColorsOn(StringView plain, const forms::ColoredText& colored) {
  forms::ColoredText result{String(plain), {}};
  std::size_t from = 0, done = 0;
  for (const auto& run : colored.Runs) {
    std::size_t taken = 0;
    for (const char16_t sign : StringView(colored.Text).substr(from, run.Length)) {
      if (done + taken < plain.size() && plain[done + taken] == sign) {
        ++taken;
      } else if (sign != u' ') {
        return std::nullopt;
      }
    }
    if (taken > 0) result.Runs.push_back({taken, run.TextColor});
    from += run.Length;
    done += taken;
  }
  return done == plain.size() ? std::optional(result) : std::nullopt;
}

}  // namespace

void ShowCode(forms::RichTextBox& box, StringView text) {
  const String plain = forms::WithCrLf(text);
  const forms::Font& font = box.Font;
  if (!plain.empty() && plain.size() <= MostColored) {
    const auto colored = ColorsOn(plain, forms::ReadRichText(DocumentOf(plain, font.Charset)));
    if (colored) box.SetTextRTF(forms::WriteRichText(*colored, font));
    if (colored && box.Text() == plain) return;
  }
  box.SetText(plain);
}

}  // namespace tessel
