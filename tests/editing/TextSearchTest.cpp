#include "hosts/editing/TextSearch.h"

#include <gtest/gtest.h>

namespace tessel::editing {
namespace {

const model::LineBuffer& Lines() {
  static const model::LineBuffer lines(u"foo Foo food\r\n\r\nbarFOO aaaa");
  return lines;
}

using Hits = std::vector<SearchHit>;

TEST(TextSearch, FindsEveryPlaceWithoutRegardToCase) {
  EXPECT_EQ(FindAll(Lines(), WholeRange(Lines()), {u"foo"}),
            (Hits{{1, 1}, {1, 5}, {1, 9}, {3, 4}}));
  EXPECT_EQ(FindAll(Lines(), WholeRange(Lines()), {u"aa"}), (Hits{{3, 8}, {3, 10}}));
}

TEST(TextSearch, MatchesCaseAndWholeWordsWhenToldTo) {
  EXPECT_EQ(FindAll(Lines(), WholeRange(Lines()), {u"Foo", true}), (Hits{{1, 5}}));
  EXPECT_EQ(FindAll(Lines(), WholeRange(Lines()), {u"foo", false, true}), (Hits{{1, 1}, {1, 5}}));
  EXPECT_EQ(FindAll(Lines(), WholeRange(Lines()), {u"o f", false, true}), Hits{});
}

TEST(TextSearch, StaysInItsRange) {
  EXPECT_EQ(FindAll(Lines(), {1, 2, 1, 9}, {u"foo"}), (Hits{{1, 5}}));
  EXPECT_EQ(FindAll(Lines(), {1, 9, 3, 6}, {u"foo"}), (Hits{{1, 9}}));
  EXPECT_EQ(FindAll(Lines(), {1, 9, 3, 7}, {u"foo"}), (Hits{{1, 9}, {3, 4}}));
  EXPECT_EQ(FindAll(Lines(), {2, 1, 9, 1}, {u"foo"}), (Hits{{3, 4}}));
}

TEST(TextSearch, FindsNothingOfNothing) {
  EXPECT_EQ(FindAll(Lines(), WholeRange(Lines()), {u""}), Hits{});
  const model::LineBuffer empty;
  EXPECT_EQ(FindAll(empty, WholeRange(empty), {u"x"}), Hits{});
}

TEST(TextSearch, ReplacesTheHitsOfALine) {
  EXPECT_EQ(ReplaceHits(Lines().Line(1), {{1, 1}, {1, 9}}, 3, u"$&"), u"$& Foo $&d");
  EXPECT_EQ(ReplaceHits(u"abc", {}, 1, u"x"), u"abc");
  EXPECT_EQ(ReplaceHits(u"aaaa", {{1, 1}, {1, 3}}, 2, u""), u"");
}

}  // namespace
}  // namespace tessel::editing
