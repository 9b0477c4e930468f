#include "presentation/ViewTextRichtextbox.h"

#include "foundation/Routine.h"
#include "scanning/mFunctions.h"

namespace tessel::mFunctions {
namespace {

constexpr forms::Color Green = 32768, Gray = 0x808080, Blue = 0xFF0000;

}  // namespace

void ViewTextRichtextbox(forms::RichTextBox& richText, StringView text) {
  Routine(u"mFunctions.ViewTextRichtextbox", [&] {
    const int caret = richText.SelStart();
    richText.SetText(String(text));
    PicoutStartEnd(richText, u"'", u"\r", Green);
    PicoutStartEnd(richText, u"<", u">", Gray);
    PicoutStartEnd(richText, u"{", u"}", Blue);
    richText.SetSelStart(caret);
  });
}

}  // namespace tessel::mFunctions
