#include "foundation/DeviceNames.h"

#include <algorithm>
#include <iterator>

namespace tessel {

bool IsDeviceName(StringView name) {
  constexpr StringView Single[] = {u"CON", u"PRN", u"AUX", u"NUL"}, Numbered[] = {u"COM", u"LPT"};
  const auto is = [&](StringView text) {
    return [text](StringView device) { return vb::SameText(device, text); };
  };
  if (std::any_of(std::begin(Single), std::end(Single), is(name))) return true;
  return name.size() == 4 && name.back() >= u'1' && name.back() <= u'9' &&
         std::any_of(std::begin(Numbered), std::end(Numbered), is(name.substr(0, 3)));
}

}  // namespace tessel
