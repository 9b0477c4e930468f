#include "insertion/ReplaceLines.h"

namespace tessel {
namespace {

/// Old lines that are away while the new ones are being inserted.
class LinesAway {
 public:
  LinesAway(const std::shared_ptr<host::CodeModule>& module, const OldLines& old)
      : module_(module), old_(old) {}

  /// Inserts the new lines. When that fails the old ones stand there again while the failure is
  /// told, since the module may be saved meanwhile; another try takes them away first.
  void Insert(int insertAt, StringView text) {
    if (standing_) {
      module_->DeleteLines(old_.First, old_.Count);
      standing_ = false;
    }
    try {
      module_->InsertLines(insertAt, text);
    } catch (...) {
      for (int tries = 0; tries < Tries && !standing_; ++tries) {
        ResumeNext([&] { PutBack(); });
      }
      throw;
    }
  }
  /// Where even the putting back failed it is a statement of its own, with a report of its own.
  void PutBack(const Statements& run) {
    if (!standing_) run([&] { PutBack(); });
  }

 private:
  static constexpr int Tries = 2;

  void PutBack() {
    if (old_.Count < 1) return;
    module_->InsertLines(old_.First, old_.Text);
    standing_ = true;
  }

  const std::shared_ptr<host::CodeModule>& module_;
  const OldLines& old_;
  bool standing_ = false;
};

}  // namespace

bool ReplaceLines(const Statements& run, const std::shared_ptr<host::CodeModule>& module,
                  const OldLines& old, int insertAt, StringView text) {
  const bool deleted = run([&] {
    Need(module).DeleteLines(old.First, old.Count);
    return true;
  });
  if (!deleted) return false;
  LinesAway away(module, old);
  bool inserted = false;
  try {
    inserted = run([&] {
      away.Insert(insertAt, text);
      return true;
    });
  } catch (const RoutineAborted&) {
    away.PutBack(run);
    throw;
  }
  if (!inserted) away.PutBack(run);
  return inserted;
}

}  // namespace tessel
