// tessel new: procedures, properties, collection classes and enums from a record of choices.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tessel::batch {

/// What the command line says.
struct NewRequest {
  std::string Kind;    ///< procedure, property, collection, enum; empty: each record names its own
  std::string From;    ///< JSON file with one record or a list, "-" for standard input
  std::string Record;  ///< the record that the options make, as JSON; empty with `From`
  std::filesystem::path Into;  ///< project, group or component file; empty: print the text
  std::string Component;       ///< that the text goes into; empty: the only one of a component file
  bool NewComponent = false;   ///< the component is made when the project lacks it
  int CodePage = 0;
  std::filesystem::path Data;  ///< the program's directory, whose types count; empty: the user's
};

/// Adds the command and its options.
void AddNew(CLI::App& app, NewRequest& request);

/// Prints the text of all records, or writes it into the project and prints the files written.
/// Answers 0, or 2 when something failed; then nothing was written. Never throws for bad input.
int RunNew(const NewRequest& request, std::istream& in, std::ostream& out, std::ostream& err);

}  // namespace tessel::batch
