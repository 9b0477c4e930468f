// The names of the files and folders that a snippet library is exported to.
#pragma once

#include <set>
#include <string>

#include "vb/Text.h"

namespace tessel {

/// A name that every file system takes; signs that it can't hold stand as %XX, and a long one is
/// cut between characters. The name itself stands in the record's file or in its folder's order.
[[nodiscard]] std::string SnippetFileName(const String& name);

/// The names in use in one folder, in any case.
class UsedNames {
 public:
  /// The file name for `name`, with a number behind it when it is taken.
  [[nodiscard]] std::string Take(const String& name, const std::string& extension);

 private:
  std::set<String> used_;
};

}  // namespace tessel
