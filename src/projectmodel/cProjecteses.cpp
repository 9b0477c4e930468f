#include "projectmodel/cProjecteses.h"

#include "vb/Numbers.h"

namespace tessel {

void NameByKey(cTypeComponentes& child, const vb::SharedText& key) {
  child.TypeComponent = key.Read([](StringView text) { return vb::CLng(text); });
}

}  // namespace tessel
