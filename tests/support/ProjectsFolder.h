// Where projects of the world outside lie, for the tests that want some.
#pragma once

#include <cstdlib>

namespace tessel::test {

/// The folder that TESSEL_PROJECTS names; null when it names none.
inline const char* ProjectsFolder() {
  const char* const folder = std::getenv("TESSEL_PROJECTS");
  return folder == nullptr || *folder == '\0' ? nullptr : folder;
}

}  // namespace tessel::test
