// The files that the words of a command line stand for.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "vb/Text.h"

namespace tessel::batch {

/// Patterns of files and folders. One matches a path when some run of its parts matches: "vendor"
/// any folder of that name, "*.frm" any form, "lib/old" that folder wherever it lies. Case does not
/// count.
class Exclusion {
 public:
  explicit Exclusion(std::vector<std::string> patterns);
  [[nodiscard]] bool Holds(const std::string& path) const;

 private:
  std::vector<std::string> patterns_;
};

/// Whether a file's extension, in any case, is that of a project, a group or a component.
[[nodiscard]] bool HasSourceExtension(const std::filesystem::path& file);

/// What an argument stands for: itself, or for a folder the projects in it and below, then the
/// component files. Hidden folders are passed over. Each is named as the argument was typed. Fails
/// for an argument that isn't there, that is neither project nor component, or that holds none.
[[nodiscard]] std::vector<std::string> InputsOf(const std::string& argument,
                                                const Exclusion& exclusion);

/// Turns full paths back into what a person typed.
class TypedPaths {
 public:
  /// `file` as typed; it and what lies below its folder are named from there.
  explicit TypedPaths(const std::string& file);
  [[nodiscard]] std::string Of(const std::filesystem::path& full) const;
  /// A message with its paths so.
  [[nodiscard]] std::string In(const std::string& message) const;

 private:
  std::string full_, typed_;  // the folder, ended by a separator
};

}  // namespace tessel::batch
