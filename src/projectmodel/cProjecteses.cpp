#include "projectmodel/cProjecteses.h"

#include "vb/Numbers.h"

namespace tessel {

void NameByKey(cTypeComponentes& child, StringView key) { child.TypeComponent = vb::CLng(key); }

}  // namespace tessel
