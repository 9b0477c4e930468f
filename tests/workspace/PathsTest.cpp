#include "hosts/workspace/Paths.h"

#include <gtest/gtest.h>

namespace tessel::workspace {
namespace {

TEST(Paths, TwoPathsThatDifferInCaseOnlyAreTheSame) {
  EXPECT_TRUE(SamePath("/a/Module1.bas", "/A/MODULE1.BAS"));
  EXPECT_FALSE(SamePath("/a/Größe.bas", "/a/GRÖSSE.bas")) << "no letter becomes two";
  EXPECT_TRUE(SamePath("/a/Äpfel.bas", "/a/äpfel.bas"));
  EXPECT_FALSE(SamePath("/a/Äpfel.bas", "/a/Öpfel.bas"));
  EXPECT_FALSE(SamePath("/a/Module1.bas", "/a/Module2.bas"));
  EXPECT_FALSE(SamePath("/a/Module1.bas", "/b/Module1.bas"));
  EXPECT_FALSE(SamePath("/a/Module1.bas", "/a/a/Module1.bas"));
  EXPECT_FALSE(SamePath("Module1.bas", "dule1.bas"));
}

TEST(Paths, ADeviceIsKnownByItsNameAlone) {
  for (const StringView name : {u"CON", u"prn", u"Aux", u"nul", u"com1", u"LPT9"}) {
    EXPECT_TRUE(IsDevice(name)) << vb::ToUtf8(name);
  }
  for (const StringView name : {u"COM0", u"COM", u"COM10", u"CONS", u"CO", u""}) {
    EXPECT_FALSE(IsDevice(name)) << vb::ToUtf8(name);
  }
}

}  // namespace
}  // namespace tessel::workspace
