#include "foundation/LogFile.h"

#include <fstream>

#include "platform/Platform.h"
#include "vb/Failure.h"

namespace tessel {

std::filesystem::path LogPath(StringView fileName) {
  platform::App& app = platform::Current().App();
  const std::filesystem::path path(app.NativePath(fileName));
  return path.is_absolute() ? path : std::filesystem::path(app.NativePath(app.Path())) / path;
}

void AppendToLog(StringView fileName, StringView text) {
  std::ofstream log(LogPath(fileName), std::ios::binary | std::ios::app);
  log << vb::ToUtf8(text) << "\r\n" << std::flush;
  if (!log) {
    throw vb::Failure(vb::PathFileAccess, u"Path/File access error: " + String(fileName),
                      u"Tessel");
  }
}

}  // namespace tessel
