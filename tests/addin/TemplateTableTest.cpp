#include <gtest/gtest.h>

#include <map>

#include "addin/Commands.h"

namespace tessel {
namespace {

TEST(TemplateTable, MarksThePlaceholderOfEveryTemplate) {
  // An empty line holds none of the one character that is marked there.
  const std::map<StringView, StringView> marked{{u"MenuComBarIf_Click", u"Condition"},
                                                {u"MenuComBarIfElse_Click", u"Condition"},
                                                {u"MenuComBarIfElseIf_Click", u"Condition"},
                                                {u"MenuComBarIfElseIfElse_Click", u"Condition"},
                                                {u"MenuComBarSelect_Click", u"testexpression"},
                                                {u"MenuComBarWith_Click", u"object"},
                                                {u"MenuComBarFor_Click", u"counter = start_"},
                                                {u"MenuComBarForEach_Click", u"element"},
                                                {u"MenuComBarDoLoop_Click", u""},
                                                {u"MenuComBarDoLoopUntil_Click", u"Condition"},
                                                {u"MenuComBarDoLoopWhile_Click", u"Condition"},
                                                {u"MenuComBarDoWhileLoop_Click", u"Condition"},
                                                {u"MenuComBarDoUntilLoop_Click", u"Condition"},
                                                {u"MenuComBarOnErrLabel_Click", u"Label"},
                                                {u"MenuComBarOnErr0_Click", u"0"},
                                                {u"MenuComBarOnErrResumeNext_Click", u""}};
  ASSERT_EQ(TemplateTable().size(), marked.size());
  for (const TemplateRow& row : TemplateTable()) {
    const auto wanted = marked.find(row.Handler);
    ASSERT_NE(wanted, marked.end()) << vb::ToUtf8(row.Handler);
    const String& line = row.Lines.at(static_cast<std::size_t>(row.LineOffset));
    EXPECT_EQ(
        line.substr(static_cast<std::size_t>(row.Column - 1), static_cast<std::size_t>(row.Length)),
        wanted->second)
        << vb::ToUtf8(row.Handler);
  }
}

}  // namespace
}  // namespace tessel
