// The running program.
#pragma once

#include <optional>

#include "vb/Text.h"

namespace tessel::platform {

struct Version {
  int Major = 1, Minor = 0, Revision = 0;
};

/// Types of an entry in the system's event log.
enum class LogEventType { Error = 1, Warning = 2, Information = 4 };

class App {
 public:
  virtual ~App() = default;
  /// Directory of the program's own file, without a closing separator.
  [[nodiscard]] virtual String Path() = 0;
  [[nodiscard]] virtual String EXEName() = 0;
  [[nodiscard]] virtual String Title() = 0;
  [[nodiscard]] virtual Version ProgramVersion() = 0;
  virtual void LogEvent(StringView text, LogEventType type) = 0;
  /// Platform identifier of the operating system (2: the NT family), asked for with a version
  /// record of `recordSize` bytes; nothing when the system refuses that size.
  [[nodiscard]] virtual std::optional<int> PlatformId(int recordSize) = 0;
  /// A path of the system ("\" between folders) in the form that this machine's files have.
  [[nodiscard]] virtual String NativePath(StringView path) = 0;
  /// Native path of the folder for temporary files, which no other process uses; empty when there
  /// can be none. It goes with the program.
  [[nodiscard]] virtual String TemporaryFolder() = 0;
};

}  // namespace tessel::platform
