// Components formatted side by side.
#pragma once

#include <string>
#include <vector>

#include "formatter/mFormatText.h"
#include "hosts/batch/FormatOptions.h"
#include "hosts/batch/OpenInput.h"
#include "hosts/review/CodeComparison.h"

namespace tessel::batch {

/// A component on its way through the run.
struct FormatJob {
  ComponentRef Component;
  mFormatText::ModuleBodies Bodies;  ///< as they were
  String After;
  std::vector<review::Difference> Differences;  ///< where the code would mean something else
  std::string Failure;                          ///< empty when it went well
};

/// Formats the bodies of components that have any, `jobs` at a time (0: as many as cores). The
/// texts depend on nothing but the component and the options. The modules are only read.
[[nodiscard]] std::vector<FormatJob> FormatAll(std::vector<ComponentRef> components,
                                               const FormatOptions& options, int jobs);

/// Puts the formatted bodies into the module.
void WriteBack(const FormatJob& job);

}  // namespace tessel::batch
