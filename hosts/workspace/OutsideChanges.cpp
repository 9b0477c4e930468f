#include "hosts/workspace/OutsideChanges.h"

#include <algorithm>

#include "hosts/files/AtomicFile.h"
#include "hosts/workspace/ByteLines.h"
#include "hosts/workspace/Paths.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workspace {
namespace {

/// The first line that isn't the same.
int FirstDifference(std::string_view before, std::string_view now) {
  const auto ends = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
  return LineNumber(now, static_cast<std::size_t>(ends.second - now.begin()));
}

String WhatBecameOf(const std::optional<std::string>& before,
                    const std::optional<std::string>& now) {
  if (!before) return u" is there now";
  if (!now) return u" is gone";
  return u" is another one from line " + vb::Str(FirstDifference(*before, *now)) + u" on";
}

}  // namespace

void CheckOutside(const std::vector<PendingFile>& pending) {
  String changed;
  for (const PendingFile& one : pending) {
    const files::Change& change = one.Change;
    const auto now = files::PresentBytes(change.File);
    if (now == change.Before) continue;
    changed +=
        (changed.empty() ? u"" : u"; ") + TextOf(change.File) + WhatBecameOf(change.Before, now);
  }
  if (changed.empty()) return;
  throw vb::Failure(
      ChangedOutside,
      u"Changed by another program since it was read, so nothing was written: " + changed,
      u"Tessel.workspace");
}

}  // namespace tessel::workspace
