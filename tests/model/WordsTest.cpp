#include "hosts/model/Words.h"

#include <gtest/gtest.h>

namespace tessel::model {
namespace {

TEST(Words, AreFoundInAnyCase) {
  for (const Word& word : Words()) {
    EXPECT_EQ(FindWord(vb::UCase(word.Text)).Text, word.Text);
    EXPECT_EQ(FindWord(vb::LCase(word.Text)).Kind, word.Kind);
  }
  EXPECT_EQ(FindWord(u"frmMain").Kind, WordKind::None);
  EXPECT_TRUE(IsKeyword(u"TEXT"));
  EXPECT_FALSE(IsKeyword(u"msgbox"));
}

}  // namespace
}  // namespace tessel::model
