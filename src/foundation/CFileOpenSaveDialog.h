// The common dialogs for files.
#pragma once

#include <cstdint>
#include <vector>

#include "vb/Text.h"

namespace tessel {

/// Which dialog to show.
enum class FileDialogKind { Open, Save };

/// Failures are 0x80044435 and 0x80044436.
class CFileOpenSaveDialog {
 public:
  /// Puts every property back to its first value.
  void Init();

  bool CenterDialog = true;
  String DefaultExt;
  int DefaultFilter = 1;  ///< from 1
  String DialogTitle;
  [[nodiscard]] int FileCount() const { return static_cast<int>(files_.size()); }
  /// Full path: the suggestion before, the first chosen file after `Show`.
  String FileName;
  /// Name of the chosen file without its folder.
  String FileTitle;
  String Filter;  ///< "caption|pattern|caption|pattern"
  std::int32_t Flags = 0;
  std::intptr_t HWndOwner = 0;  ///< 0: none
  String InitialDir;
  int MaxFileSize = 260;  ///< characters of the answer
  [[nodiscard]] const String& SelectedPath() const { return selectedPath_; }

  /// The next chosen file, empty behind the last.
  [[nodiscard]] String GetNextFileName();
  /// True when the user chose. Fails with "Invalid window handle" for an owner that is no window.
  [[nodiscard]] bool Show(FileDialogKind kind);

 private:
  std::vector<String> files_;
  std::size_t next_ = 0;
  String selectedPath_;
};

}  // namespace tessel
