#include "scanning/Scope.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(Scope, IsAWordOfSeventeenCharactersAndANameInBrackets) {
  for (const StringView word : {scope::Method, scope::Component, scope::Project}) {
    EXPECT_EQ(word.size(), 17U);
    const String text = scope::Text(word, u"A [b]");
    EXPECT_TRUE(scope::Is(vb::UCase(text), word));
    EXPECT_EQ(scope::Target(text), u"A [b]");
  }
  EXPECT_EQ(scope::Text(scope::Project, u"P"), u"Current Project   [P]");
}

TEST(Scope, HasNoTargetWithoutBrackets) {
  EXPECT_EQ(scope::Target(u""), u"");
  EXPECT_EQ(scope::Target(u"Current Method"), u"");
  EXPECT_EQ(scope::Target(u"["), u"");
  EXPECT_FALSE(scope::Is(u"Current", scope::Method));
}

}  // namespace
}  // namespace tessel
