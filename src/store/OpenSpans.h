// The spans of a nested set that cover a point.
#pragma once

#include <cstdint>
#include <functional>
#include <queue>
#include <vector>

namespace tessel::store {

/// The ends of the spans that were begun at or ahead of the present point and reach it. Points come
/// in rising order.
class OpenSpans {
 public:
  /// Goes on to `left` and begins a span there, if it has an end at all.
  void Step(std::int64_t left, bool ends, std::int64_t right) {
    while (!ends_.empty() && ends_.top() < left) ends_.pop();
    if (ends && right >= left) ends_.push(right);
  }
  [[nodiscard]] std::size_t Count() const { return ends_.size(); }

 private:
  std::priority_queue<std::int64_t, std::vector<std::int64_t>, std::greater<>> ends_;
};

}  // namespace tessel::store
