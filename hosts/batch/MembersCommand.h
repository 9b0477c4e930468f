// tessel members: the member table of components.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tessel::batch {

/// Lists the members of every component of the files, as text or as one JSON document. Answers 0,
/// or 2 when a file failed; the others are listed all the same.
int RunMembers(const std::vector<std::string>& files, bool json, int codePage, std::ostream& out,
               std::ostream& err);

}  // namespace tessel::batch
