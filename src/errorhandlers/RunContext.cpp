#include "errorhandlers/RunContext.h"

namespace tessel::mInsertErrorHandlerCode {
namespace {

String ReadPlainText(StringView document, forms::RichTextBox* control) {
  if (control == nullptr) return forms::ReadRichText(document).Text;
  control->SetTextRTF(document);
  return control->Text();
}

}  // namespace

const String& PlainTexts::Of(StringView document, forms::RichTextBox* control) {
  constexpr std::size_t MostDocuments = 32;
  for (const Read& one : read_) {
    if (one.Document == document) return one.Plain;
  }
  if (read_.size() >= MostDocuments) read_.clear();
  return read_.emplace_back(Read{String(document), ReadPlainText(document, control)}).Plain;
}

void FillNames(const Statements& run, RunContext& context, const std::shared_ptr<host::VBE>& vbe) {
  run([&] { context.ProjectName = Need(Need(vbe).ActiveVBProject()).Name(); });
  const auto pane = run([&] { return Need(vbe).ActiveCodePane(); });
  run([&] { context.ComponentName = pane ? Need(pane->CodeModule()).Name() : String(); });
}

}  // namespace tessel::mInsertErrorHandlerCode
