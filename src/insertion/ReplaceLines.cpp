#include "insertion/ReplaceLines.h"

#include "foundation/Routine.h"

namespace tessel {

void ReplaceLines(host::CodeModule& module, int first, int count, int insertAt, StringView text) {
  const String before = module.Lines(first, count);
  module.DeleteLines(first, count);
  try {
    module.InsertLines(insertAt, text);
  } catch (...) {
    if (count > 0) ResumeNext([&] { module.InsertLines(first, before); });
    throw;
  }
}

}  // namespace tessel
