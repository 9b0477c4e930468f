// The statements that a tree prepares once, and how its operations run.
#pragma once

#include "foundation/Routine.h"
#include "foundation/ServiceClass.h"
#include "snippets/CSQLTree.h"
#include "store/Command.h"

namespace tessel {

inline constexpr ServiceClass TreeService{u"CSQLTree", 0x80040064, 0x80040064,
                                          u"CSQLTree component failure"};

/// Far above all numbers of a tree: where the nodes that move wait.
inline constexpr std::int32_t Parking = 1000000;

struct CSQLTree::Commands {
  Commands(const std::shared_ptr<store::Connection>& connection, const String& table);

  store::Command cmdSelectNode, cmdSelectFolder, cmdGapLeft, cmdGapRight, cmdDeleteSpan, cmdLevel,
      cmdSetPosition, cmdShiftSpan, cmdShiftLeft, cmdShiftRight;
};

/// Runs a prepared statement with numbers in the order of its parameters.
inline void Run(store::Command& command, std::initializer_list<std::int32_t> numbers) {
  command.Execute(std::vector<store::Value>(numbers.begin(), numbers.end()));
}

template <class Body>
bool CSQLTree::Operate(Body&& body) {
  bool done = false;
  ResumeNext([&] {
    if (!commands_ || !connection_) return;
    store::Transaction transaction(*connection_);
    body();
    transaction.Commit();
    done = true;
  });
  return done;
}

}  // namespace tessel
