// tessel handlers: error handlers put into projects and taken out of them.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace tessel::batch {

/// What the command line says.
struct HandlersRequest {
  bool Remove = false;
  std::vector<std::string> Files;  ///< .vbp, .vbg or component files
  std::string Scheme;              ///< to insert; also for the three below where they are empty
  std::string ModuleScheme, FormScheme, ActiveXScheme;
  std::vector<std::string> Components;  ///< empty: the whole project
  std::string Member;                   ///< empty: all
  bool Check = false;                   ///< only tell what would change
  bool Diff = false;                    ///< print the change instead of writing it
  bool KeepGoing = false;               ///< write the components that went well
  int CodePage = 0;                     ///< 0: guessed
  std::filesystem::path Data;           ///< the program's directory; empty: the user's
};

/// Exit codes of the command.
enum HandlersExit : int { HandlersDone = 0, HandlersWouldChange = 1, HandlersFailed = 2 };

/// Runs the command over each file by itself. The files of a project are written when its whole run
/// went through. Never throws for bad input.
int RunHandlersCommand(const HandlersRequest& request, std::ostream& out, std::ostream& err);

}  // namespace tessel::batch
