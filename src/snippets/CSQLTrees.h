// The trees of the open snippet databases, keyed by connection name exactly as given.
#pragma once

#include "snippets/CSQLTree.h"
#include "vb/Collection.h"

namespace tessel {

/// In the order of adding. A missing key fails with 5, a double one with 457.
class CSQLTrees : public vb::Collection<CSQLTree> {
 public:
  CSQLTrees() : Collection(u"tree") {}
};

}  // namespace tessel
