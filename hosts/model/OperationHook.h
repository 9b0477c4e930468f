// Called ahead of every host operation.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

namespace tessel::model {

/// Shared by all objects of one environment. What the function throws is the operation's failure.
struct OperationHook {
  std::function<void(std::string_view)> Before;

  void operator()(std::string_view operation) const {
    if (Before) Before(operation);
  }
};
using Hook = std::shared_ptr<OperationHook>;

}  // namespace tessel::model
