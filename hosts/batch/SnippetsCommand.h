// tessel snippets: a library of code fragments and components.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "hosts/batch/Command.h"

namespace tessel::batch {

enum class SnippetsVerb { List, Show, Find, Add, Export, Import, Check };

/// What the command line says.
struct SnippetsRequest {
  SnippetsVerb Verb = SnippetsVerb::List;
  /// File of the library, or the name of one that the program has open; empty: the main one.
  std::string Library;
  std::filesystem::path Data;      ///< the program's directory; empty: the user's
  std::filesystem::path Settings;  ///< file of the program's settings; empty: the user's
  std::string Record;              ///< to show: its number, or its path with "/" between names
  std::vector<std::string> Words;  ///< to find
  std::string Name;                ///< of the record to add; empty: the file's
  std::string Folder;              ///< to add or import into, "/" between names; empty: the top
  std::string Notes;
  std::string File;   ///< to add ("-": standard input), to import, or the folder to export to
  int CodePage = 0;   ///< of the file to add; 0: guessed
  bool Look = false;  ///< check without mending
};

/// An import or an addition that fails has changed nothing.
class SnippetsCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;

  SnippetsRequest Request;
};

}  // namespace tessel::batch
