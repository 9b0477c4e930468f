// The one exception type that crosses a routine of the system.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "vb/Text.h"

namespace tessel::vb {

/// Numbers of the run-time's own failures, with the texts that `RuntimeFailure` gives them.
enum RuntimeError : std::int32_t {
  InvalidCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  InternalError = 51,
  FileNotFound = 53,
  PathFileAccess = 75,
  ObjectNotSet = 91,
};

/// A numbered failure with its text and the component that raised it.
class Failure : public std::exception {
 public:
  Failure(std::int32_t number, String description, String source = {});

  [[nodiscard]] std::int32_t Number() const { return number_; }
  [[nodiscard]] const String& Description() const { return description_; }
  [[nodiscard]] const String& Source() const { return source_; }
  /// The description in UTF-8.
  [[nodiscard]] const char* what() const noexcept override { return utf8_.c_str(); }

 private:
  std::int32_t number_;
  String description_;
  String source_;
  std::string utf8_;
};

/// A failure of the run-time with its fixed text, e.g. 9 "Subscript out of range".
[[nodiscard]] Failure RuntimeFailure(RuntimeError number);

/// Inside a catch block: the exception in flight as a Failure. Foreign exceptions become 7 or 51
/// with their own text.
[[nodiscard]] Failure CurrentFailure();

/// The number of a failure given by its bits, e.g. 0x800443FA.
[[nodiscard]] constexpr std::int32_t FailureNumber(std::uint32_t bits) {
  return static_cast<std::int32_t>(bits);
}

}  // namespace tessel::vb
