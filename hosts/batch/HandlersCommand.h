// tessel handlers: error handlers put into projects and taken out of them.
#pragma once

#include <filesystem>
#include <string>

#include "hosts/batch/Command.h"
#include "hosts/batch/Selection.h"

namespace tessel::batch {

/// What the command line says.
struct HandlersRequest : Selection, Delivery {
  bool Remove = false;
  std::string Scheme;  ///< to insert; also for the three below where they are empty
  std::string ModuleScheme, FormScheme, ActiveXScheme;
  std::string Member;          ///< empty: all
  bool KeepGoing = false;      ///< write the components that went well
  std::filesystem::path Data;  ///< the program's directory; empty: the user's
};

/// Runs over each project by itself. Its files are written when its whole run went through.
class HandlersCommand : public Command {
 public:
  CLI::App* Declare(CLI::App& program) override;
  int Run(const Streams& streams) override;

  HandlersRequest Request;
};

}  // namespace tessel::batch
