// The rule of the service classes: numbered failures of their own, and one general failure in the
// place of everything else that goes wrong inside them.
#pragma once

#include <cstdint>
#include <type_traits>
#include <utility>

#include "platform/Platform.h"
#include "vb/Failure.h"

namespace tessel {

/// How a service class names itself in its failures.
struct ServiceClass {
  StringView Name;            ///< behind the program's name and a point in the source
  std::uint32_t First, Last;  ///< its own numbers; the last is the general one
  StringView General;         ///< text of the general failure
  /// The name of the program that its source begins with.
  enum Program { EXEName, Title } NamedBy = EXEName;

  [[nodiscard]] String Source() const {
    if (!platform::IsInstalled()) return u"Tessel." + String(Name);
    platform::App& app = platform::Current().App();
    return (NamedBy == Title ? app.Title() : app.EXEName()) + u"." + String(Name);
  }
  /// A failure of the class's own.
  [[nodiscard]] vb::Failure Own(std::uint32_t number, StringView text) const {
    return {vb::FailureNumber(number), String(text), Source()};
  }
  [[nodiscard]] bool Owns(const vb::Failure& failure) const {
    const auto number = static_cast<std::uint32_t>(failure.Number());
    return number >= First && number <= Last;
  }

  /// Runs one public routine of the class.
  template <class F>
  std::invoke_result_t<F> Guard(F&& body) const {
    try {
      return body();
    } catch (const vb::Failure& failure) {
      if (Owns(failure)) throw;
    } catch (...) {
      // falls through to the general failure
    }
    throw Own(Last, General);
  }
};

}  // namespace tessel
