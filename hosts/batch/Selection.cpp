#include "hosts/batch/Selection.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "vb/Text.h"

namespace tessel::batch {

bool Selection::IsChosen(const std::string& component) const {
  return Components.empty() ||
         std::any_of(Components.begin(), Components.end(), [&](const std::string& wanted) {
           return vb::SameText(vb::FromUtf8(wanted), vb::FromUtf8(component));
         });
}

void AddSelection(CLI::App& command, Selection& selection, const char* files) {
  command.add_option("files", selection.Files, files)->required();
  command.add_option("--component", selection.Components, "only this component (repeatable)")
      ->allow_extra_args(false);
  command
      .add_option("--exclude", selection.Excludes,
                  "leave out files and folders of this pattern, as *.frm or vendor (repeatable)")
      ->allow_extra_args(false);
  command.add_option("--code-page", selection.CodePage, "code page of the files")
      ->default_str("guessed for each project");
  command.add_flag("--quiet", selection.Quiet, "tell errors and causes alone");
}

void AddDelivery(CLI::App& command, Delivery& delivery, const char* force) {
  auto* const check = command.add_flag("--check", delivery.Check,
                                       "write nothing; exit 1 when something would change");
  command.add_flag("--diff", delivery.Diff, "write nothing; print the change as a patch")
      ->excludes(check);
  command.add_flag("--force", delivery.Force, force);
}

}  // namespace tessel::batch
