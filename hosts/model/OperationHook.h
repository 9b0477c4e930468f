// What all objects of one environment share: a word before each operation, and who looks on.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "hosts/model/Observer.h"

namespace tessel::model {

/// Shared by all objects of one environment. What `Before` throws is the operation's failure.
struct OperationHook {
  std::function<void(std::string_view)> Before;
  /// Not owned; null when nobody looks on.
  Observer* Screen = nullptr;
  /// True while the environment, its user or an onlooker reads and writes: `Before` hears of the
  /// add-in's calls only.
  mutable bool ByHand = false;

  void operator()(std::string_view operation) const {
    if (Before && !ByHand) Before(operation);
  }
  template <class... Parameters, class... Values>
  void Tell(void (Observer::*event)(Parameters...), Values&&... values) const;
};

/// Says for a scope whose calls follow.
class CallsOf {
 public:
  enum Caller { AddIn, Environment };
  CallsOf(const OperationHook& hook, Caller caller)
      : hook_(hook), before_(std::exchange(hook.ByHand, caller == Environment)) {}
  ~CallsOf() { hook_.ByHand = before_; }
  CallsOf(const CallsOf&) = delete;
  CallsOf& operator=(const CallsOf&) = delete;

 private:
  const OperationHook& hook_;
  bool before_;
};

template <class... Parameters, class... Values>
void OperationHook::Tell(void (Observer::*event)(Parameters...), Values&&... values) const {
  if (Screen == nullptr) return;
  const CallsOf onlooker(*this, CallsOf::Environment);
  (Screen->*event)(std::forward<Values>(values)...);
}
using Hook = std::shared_ptr<OperationHook>;

}  // namespace tessel::model
