#include "insertion/ReplaceLines.h"

namespace tessel {

bool ReplaceLines(const Statements& run, const std::shared_ptr<host::CodeModule>& module,
                  const OldLines& old, int insertAt, StringView text) {
  const bool deleted = run([&] {
    Need(module).DeleteLines(old.First, old.Count);
    return true;
  });
  if (!deleted) return false;
  const auto putBack = [&] {
    if (old.Count > 0) ResumeNext([&] { module->InsertLines(old.First, old.Text); });
  };
  bool inserted = false;
  try {
    inserted = run([&] {
      module->InsertLines(insertAt, text);
      return true;
    });
  } catch (...) {
    putBack();
    throw;
  }
  if (!inserted) putBack();
  return inserted;
}

}  // namespace tessel
