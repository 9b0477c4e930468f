// tessel schemes: the error-handler schemes as text files.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace tessel::batch {

enum class SchemesVerb { List, Show, Export, Import };

/// What the command line says.
struct SchemesRequest {
  SchemesVerb Verb = SchemesVerb::List;
  std::string Name;                ///< of the scheme to show or to export; empty: all
  std::filesystem::path Folder;    ///< to export to; made when needed
  std::vector<std::string> Files;  ///< to import
  bool Replace = false;            ///< import over schemes of the same name
  std::filesystem::path Data;      ///< the program's directory; empty: the user's
};

/// Runs the command. Answers 0, or 2 when something failed; an import then changed nothing. Never
/// throws for bad input.
int RunSchemes(const SchemesRequest& request, std::ostream& out, std::ostream& err);

/// The file name that a scheme is exported under: its name and ".scheme", signs that a file name
/// can't hold as %XX.
[[nodiscard]] std::string SchemeFileName(const std::string& name);

}  // namespace tessel::batch
