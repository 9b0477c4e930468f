#include "snippets/ColumnSizes.h"

#include "vb/Failure.h"

namespace tessel {
namespace {

void Check(StringView what, StringView text, std::size_t longest) {
  if (text.size() <= longest) return;
  constexpr std::size_t Shown = 40;
  throw vb::Failure(vb::InvalidCall,
                    String(what) + u" has at most " + vb::Str(longest) + u" characters; \"" +
                        String(text.substr(0, Shown)) + (text.size() > Shown ? u"..." : u"") +
                        u"\" has " + vb::Str(text.size()),
                    u"Tessel");
}

}  // namespace

void CheckNodeName(StringView name) { Check(u"A name in the library", name, LongestNodeName); }

void CheckObject(const ListFragment& fragment) {
  Check(u"The name of an object", fragment.NameObj, LongestObjectName);
  Check(u"The class of an object", fragment.ClassObj, LongestClass);
}

}  // namespace tessel
