// Error dialogs in the replies of a channel: a test asks for those that it provokes.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "hosts/drive/Channel.h"

namespace tessel::test {

/// The replies in a channel's output, one a line.
inline std::vector<drive::Json> RepliesOf(const std::string& output) {
  std::vector<drive::Json> replies;
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) replies.push_back(drive::Json::parse(line));
  return replies;
}

/// Counts the error dialogs that replies tell of, each when it comes to the front. At its end those
/// that nobody took fail the test.
class ChannelErrors {
 public:
  ChannelErrors() = default;
  ~ChannelErrors() {
    EXPECT_TRUE(shown_.empty()) << shown_.size()
                                << " error dialog(s) that the test did not ask for, first behind "
                                << shown_.front();
  }
  ChannelErrors(const ChannelErrors&) = delete;
  ChannelErrors& operator=(const ChannelErrors&) = delete;

  void Note(const std::vector<drive::Json>& replies) {
    bool up = false;
    for (const drive::Json& reply : replies) {
      const drive::Json& front = reply["front"];
      const bool error = front.is_object() && front.value("form", "") == "frmErrorMessage";
      if (error && !up) shown_.push_back(reply.dump());
      up = error;
    }
  }
  /// How many came since the last call: these were asked for.
  std::size_t Take() { return std::exchange(shown_, {}).size(); }

 private:
  std::vector<std::string> shown_;
};

}  // namespace tessel::test
