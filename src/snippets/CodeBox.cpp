#include "snippets/CodeBox.h"

#include "presentation/mCodeConverter.h"

namespace tessel {
namespace {

/// Nobody reads on in colours behind that many characters, and they take their time.
constexpr std::size_t MostColoured = 1'000'000;

/// The document treats braces as its own; two characters that no source holds stand in for them.
constexpr StringView Open = u"\uF8D0", Close = u"\uF8D1";

String DocumentOf(StringView text, int charset) {
  const String marked = vb::Replace(vb::Replace(text, u"{", Open), u"}", Close);
  const String document = mCodeConverter::MakeRTF(marked, charset);
  return vb::Replace(vb::Replace(document, Open, u"\\{"), Close, u"\\}");
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
