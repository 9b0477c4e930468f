// What a run of the error-handler tools is told and what it carries along.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "errorhandlers/CSQLErrorHandler.h"
#include "forms/RichTextBox.h"
#include "foundation/Routine.h"
#include "host/VBE.h"

namespace tessel {

class ScopeRun;

namespace mInsertErrorHandlerCode {

/// Plain texts of stored documents. A run meets the same few for every member.
class PlainTexts {
 public:
  /// Read through the control where there is one.
  [[nodiscard]] const String& Of(StringView document, forms::RichTextBox* control);

 private:
  struct Read {
    String Document, Plain;
  };
  std::vector<Read> read_;
};

/// The run variables, filled by a dialog and handed to the run. One object goes from dialog to
/// dialog, since a run sees what the one before it left.
struct RunContext {
  std::vector<ErrorHandlerScheme> mRecord_ErrorHandlerScheme;
  String ProjectName;
  /// The module that was active when the run began, also while another one is changed.
  String ComponentName;
  String MemberName;
  String MemberType;  ///< "Sub", "Function", "Property" or empty
  std::int32_t CurrentMemberKind = 0;
  /// Choices by component type. The last two are collected and used by no run.
  String ModuleScheme, FormScheme, ActiveXScheme, ClassScheme, DocumentScheme;
  /// The control that turns stored rich text into plain text; not owned, may be null.
  forms::RichTextBox* PreviewRichText = nullptr;
  /// A Select Case was met and its first Case is still to come. Nothing resets it between members.
  bool FirstCaseFlag = false;

  /// Told of each component ahead of its turn; may be empty.
  std::function<void(StringView component)> OnComponent;
  /// The walk under way; null outside a run over a scope.
  ScopeRun* Walk = nullptr;
  PlainTexts Documents;
};

/// Takes the names of the project and of the active module (empty without a pane); statements of
/// the calling routine.
void FillNames(const Statements& run, RunContext& context, const std::shared_ptr<host::VBE>& vbe);

}  // namespace mInsertErrorHandlerCode
}  // namespace tessel
