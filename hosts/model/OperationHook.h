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

  void operator()(std::string_view operation) const {
    if (Before) Before(operation);
  }
  template <class... Parameters, class... Values>
  void Tell(void (Observer::*event)(Parameters...), Values&&... values) const {
    if (Screen != nullptr) (Screen->*event)(std::forward<Values>(values)...);
  }
};
using Hook = std::shared_ptr<OperationHook>;

}  // namespace tessel::model
