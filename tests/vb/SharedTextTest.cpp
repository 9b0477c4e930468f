#include "vb/SharedText.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace tessel::vb {
namespace {

/// Texts at the border between what lies in the handle and what doesn't.
std::vector<String> Texts() {
  return {u"",
          u"0",
          u"True",
          u"1234567",
          u"12345678",
          u"\u00e4\u00ff\u0001",
          u"\u0416",
          u"1234\u0416",
          String(1, u'\0'),
          String(7, u'\0'),
          String(8, u'\0'),
          String(70000, u'x'),
          u"\u00ff\u00ff\u00ff\u00ff\u00ff\u00ff\u00ff"};
}

TEST(SharedText, GivesBackEachTextAsItWas) {
  for (const String& text : Texts()) {
    const SharedText shared(text);
    EXPECT_EQ(String(shared), text);
    EXPECT_EQ(shared.size(), text.size());
    EXPECT_EQ(shared.empty(), text.empty());
  }
}

TEST(SharedText, TwoAreEqualExactlyWhenTheirTextsAre) {
  const std::vector<String> texts = Texts();
  for (const String& left : texts) {
    for (const String& right : texts) {
      EXPECT_EQ(SharedText(left) == SharedText(right), left == right);
      EXPECT_EQ(SharedText(left) == StringView(right), left == right);
    }
  }
}

TEST(SharedText, CopiesOutliveEachOther) {
  const String text = u"a text that is shared";
  auto first = std::make_unique<SharedText>(text);
  SharedText second(*first);
  SharedText third;
  third = second;
  first.reset();
  EXPECT_EQ(second, text);
  second = SharedText(u"b");
  EXPECT_EQ(second, u"b");
  EXPECT_EQ(third, text);
  const SharedText moved = std::move(third);
  EXPECT_EQ(moved, text);
}

TEST(SharedText, AnAssignmentToItselfKeepsTheText) {
  SharedText text(u"something longer than that");
  const SharedText& same = text;
  text = same;
  EXPECT_EQ(text, u"something longer than that");
}

TEST(SharedText, LiesInEightBytes) { EXPECT_EQ(sizeof(SharedText), 8U); }

}  // namespace
}  // namespace tessel::vb
