// tessel schemes: the error-handler schemes as text files.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/batch/Command.h"

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

/// An import that fails has changed nothing.
class SchemesCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;

  SchemesRequest Request;
};

/// The file name that a scheme is exported under: its name and ".scheme", signs that a file name
/// can't hold as %XX.
[[nodiscard]] std::string SchemeFileName(const std::string& name);

}  // namespace tessel::batch
