// What the commands over files are pointed at, and what they do with the result.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tessel::batch {

/// The part of a command line that says which components are meant.
struct Selection {
  std::vector<std::string> Files;       ///< projects, groups, component files, folders
  std::vector<std::string> Excludes;    ///< patterns of files and folders that are left out
  std::vector<std::string> Components;  ///< empty: all
  int CodePage = 0;                     ///< 0: guessed for each project
  bool Quiet = false;                   ///< tell errors and causes alone

  [[nodiscard]] bool IsChosen(const std::string& component) const;
};

/// The part that says what becomes of changed components.
struct Delivery {
  bool Check = false;  ///< only name what would change
  bool Diff = false;   ///< print the change instead of writing it
  bool Force = false;  ///< write also what means something else afterwards

  [[nodiscard]] bool Writes() const { return !Check && !Diff; }
};

void AddSelection(CLI::App& command, Selection& selection, const char* files);
void AddDelivery(CLI::App& command, Delivery& delivery, const char* force);

}  // namespace tessel::batch
