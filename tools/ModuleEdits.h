// What tools do to the text of a module, for programs and tests that look at what comes of it.
#pragma once

#include "hosts/model/CodeModule.h"

namespace tessel::tools {

/// The lines of a text, each behind one more blank.
inline String Indented(StringView text) { return u" " + vb::Replace(text, vb::CrLf, u"\r\n "); }

/// Takes lines out and puts them in again, indented.
inline void RewriteLines(model::CodeModule& module, int first, int count) {
  if (count <= 0) return;
  const String text = module.Lines(first, count);
  module.DeleteLines(first, count);
  module.InsertLines(first, Indented(text));
}

/// Every member of its own.
inline void RewriteMembers(model::CodeModule& module) {
  for (const auto& member : module.Index().Members()) {
    RewriteLines(module, member.Lines.Body,
                 member.Lines.Start + member.Lines.Count - member.Lines.Body);
  }
}

/// Everything below the declarations at once.
inline void RewriteBelowDeclarations(model::CodeModule& module) {
  const int first = module.CountOfDeclarationLines() + 1;
  RewriteLines(module, first, module.CountOfLines() - first + 1);
}

}  // namespace tessel::tools
