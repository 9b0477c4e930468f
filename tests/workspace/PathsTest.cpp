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

}  // namespace
}  // namespace tessel::workspace
