#include "snippets/CodeBox.h"

#include "presentation/mCodeConverter.h"

namespace tessel {
namespace {

/// Nobody reads on in colours behind that many characters, and they take their time.
constexpr std::size_t MostColoured = 1'000'000;

/// The document treats braces as its own; two characters that no source holds stand in for them.
constexpr StringView Open = u"\uF8D0", Close = u"\uF8D1";

constexpr StringView DocumentEnd = u"\r\n\\par }", PlainEnd = u"}";

String DocumentOf(StringView text, int charset) {
  const String marked = vb::Replace(vb::Replace(text, u"{", Open), u"}", Close);
  String document = mCodeConverter::MakeRTF(marked, charset);
  document = vb::Replace(vb::Replace(document, Open, u"\\{"), Close, u"\\}");
  // The last paragraph mark would be one line more at each saving.
  if (document.ends_with(DocumentEnd)) {
    document.replace(document.size() - DocumentEnd.size(), DocumentEnd.size(), PlainEnd);
  }
  return document;
}

}  // namespace

void ShowCode(forms::RichTextBox& box, StringView text) {
  const String plain = forms::WithCrLf(text);
  if (!plain.empty() && plain.size() <= MostColoured) {
    const forms::Font& font = box.Font;
    box.SetTextRTF(DocumentOf(plain, font.Charset));
    if (box.Text() == plain) return;
  }
  box.SetText(plain);
}

}  // namespace tessel
