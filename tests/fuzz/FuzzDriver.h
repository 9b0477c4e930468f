// What a fuzz target defines. The entry point is libFuzzer's, so that a target can be linked with
// it as well; here it is fed by a driver of our own, since the compiler of the build brings no
// fuzzing engine.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Takes one input. Whatever it is, nothing may crash, hang or trip a sanitizer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
/// Inputs to begin with.
std::vector<std::string> FuzzSeeds();
