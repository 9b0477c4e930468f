// Who hears of failures for a while.
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "foundation/CErrorHandler.h"

namespace tessel {

/// For the length of a scope a listener is told of each failure that is reported to the failure
/// service, and behind it whoever listened before. Nothing without a service.
class FailureWatch {
 public:
  using Listener = std::function<void(const vb::Failure&)>;

  explicit FailureWatch(Listener heard) : service_(gErrorHandler) {
    if (!service_) return;
    before_ = std::move(service_->OnFailure);
    service_->OnFailure = [this, heard = std::move(heard)](const vb::Failure& failure) {
      heard(failure);
      if (before_) before_(failure);
    };
  }
  ~FailureWatch() {
    if (service_) service_->OnFailure = std::move(before_);
  }
  FailureWatch(const FailureWatch&) = delete;
  FailureWatch& operator=(const FailureWatch&) = delete;

 private:
  std::shared_ptr<CErrorHandler> service_;
  Listener before_;
};

}  // namespace tessel
