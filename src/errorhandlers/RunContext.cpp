#include "errorhandlers/RunContext.h"

#include "errorhandlers/mInsertErrorHandlerCode.h"
#include "foundation/Routine.h"

namespace tessel {

void FillRunContext(host::VBE& vbe, forms::RichTextBox* preview) {
  namespace context = mInsertErrorHandlerCode;
  context::ProjectName = Need(vbe.ActiveVBProject()).Name();
  const auto pane = vbe.ActiveCodePane();
  context::ComponentName = pane ? Need(pane->CodeModule()).Name() : String();
  context::PreviewRichText = preview;
}

}  // namespace tessel
