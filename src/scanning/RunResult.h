// What a run over a scope did, as a value.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "host/CodeModule.h"

namespace tessel {

/// Code that a run has written anew, be it with the same text.
struct TouchedCode {
  std::shared_ptr<host::CodeModule> Module;
  String Component;  ///< its name; empty in a run over one member
  String Member;     ///< empty where all bodies of a module are written as one piece
};

/// A failure that the failure service was told of.
struct RunFailure {
  String Component;  ///< in hand; empty when none was, and in a run over one member
  String Member;     ///< in hand; empty when none was
  std::int32_t Number = 0;
  String Description;
  String Routine;  ///< top of the call stack
};

struct RunResult {
  String Title;                      ///< of the run, as its window bore it
  int Components = 0;                ///< whose code the run went through
  std::vector<TouchedCode> Touched;  ///< in the order of the run
  std::vector<RunFailure> Failures;
  bool Cancelled = false;  ///< the user asked it to stop
  bool Aborted = false;    ///< a failure of the run itself ended it
};

}  // namespace tessel
