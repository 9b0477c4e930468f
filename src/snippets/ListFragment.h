// What one record of a snippet library holds.
#pragma once

#include "vb/Text.h"

namespace tessel {

/// The columns of one row of List; null reads as empty.
struct ListFragment {
  String Text, TitleObj, TextObj, CompObj, NameObj, ClassObj, TextUserNotes;
  bool operator==(const ListFragment&) const = default;
};

}  // namespace tessel
