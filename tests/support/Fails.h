// What an action fails with.
#pragma once

#include <functional>
#include <string>

#include "vb/Failure.h"

namespace tessel::test {

/// The description of the failure, "(no failure)" when there is none.
inline std::string Fails(const std::function<void()>& action) {
  try {
    action();
  } catch (const vb::Failure& failure) {
    return failure.what();
  }
  return "(no failure)";
}

}  // namespace tessel::test
