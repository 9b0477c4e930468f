// The door for what a user and the environment do on a document.
#pragma once

#include "forms/Document.h"
#include "foundation/Routine.h"

namespace tessel {

/// Base of the system's documents: an event of theirs enters the system, and so does the
/// environment's opening and closing of their window; no failure of a handler reaches the host that
/// raised it. What fails while the window opens leaves the document shown.
class GuardedDocument : public forms::Document {
 public:
  using Document::Document;
  void Carry(const std::function<void()>& handler) override { Enter(handler); }
};

}  // namespace tessel
