#include "foundation/DeviceNames.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(DeviceNames, ADeviceIsKnownByItsNameAlone) {
  for (const StringView name : {u"CON", u"prn", u"Aux", u"nul", u"com1", u"LPT9"}) {
    EXPECT_TRUE(IsDeviceName(name)) << vb::ToUtf8(name);
  }
  for (const StringView name : {u"COM0", u"COM", u"COM10", u"CONS", u"CO", u""}) {
    EXPECT_FALSE(IsDeviceName(name)) << vb::ToUtf8(name);
  }
}

}  // namespace
}  // namespace tessel
