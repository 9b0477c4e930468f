#include "hosts/review/RunReview.h"

#include <gtest/gtest.h>

#include "hosts/model/Environment.h"
#include "support/MemoryPlatform.h"
#include "vb/Failure.h"

namespace tessel::review {
namespace {

class RunReviewTest : public testing::Test {
 protected:
  RunReviewTest() {
    environment_.NewProject(u"P", host::vbext_pt_StandardExe);
    Add(u"M");
    Add(u"N");
  }
  void Add(StringView name) {
    environment_.AddComponent(u"", host::vbext_ct_StdModule, name,
                              u"Sub A()\r\nx = 1\r\ny = 2\r\nEnd Sub\r\n");
  }
  [[nodiscard]] RunReview Begin(RunKind kind) {
    return {kind, *std::dynamic_pointer_cast<model::Vbe>(environment_.VBE())};
  }
  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  model::Environment environment_{services_};
};

TEST_F(RunReviewTest, NamesComponentPlaceAndCauseOfEachDifference) {
  environment_.SetText(u"N", u"Sub A()\r\n\r\n10\r\nx = 1\r\nEnd Sub\r\n");
  const RunReview review = Begin(RunKind::Format);
  environment_.SetText(u"M", u"Sub A()\r\n    x = 1\r\n    y = 2\r\nEnd Sub\r\n");
  environment_.SetText(u"N", u"Sub A()\r\n\r\n\r\n\r\nx = 1\r\nEnd Sub\r\n");
  const auto items = review.Items();
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].Component->PlainName(), u"N");
  EXPECT_EQ(items[0].ComponentName, u"N");
  EXPECT_EQ(items[0].Project, u"P");
  EXPECT_EQ(items[0].LineBefore, 3);
  EXPECT_EQ(items[0].Line, 5);
  EXPECT_EQ(items[0].Cause, "the line number 10 is lost");
  EXPECT_EQ(review.Changed().size(), 2U);
}

TEST_F(RunReviewTest, TellsAtItsHeadOfAProjectThatWasStrippedWithoutADressing) {
  const RunReview review = Begin(RunKind::InsertHandlers);
  environment_.SetText(u"M", u"Sub A()\r\ny = 2\r\nEnd Sub\r\n");
  const auto items = review.Items();
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].Component, nullptr);
  EXPECT_EQ(items[0].Project, u"P");
  EXPECT_EQ(items[0].Cause,
            "no handler was put in, since the scheme is empty or unknown; what was there was taken "
            "out");
  EXPECT_EQ(items[1].Cause, "\"x\" becomes \"y\"");
}

TEST_F(RunReviewTest, TellsOfTheModulesThatWereStrippedWhereOthersWereDressed) {
  const RunReview review = Begin(RunKind::InsertHandlers);
  environment_.SetText(u"M", u"Sub A()\r\n100 x = 1\r\n110 y = 2\r\nEnd Sub\r\n");
  environment_.SetText(u"N", u"Sub A()\r\n x = 1\r\ny = 2\r\nEnd Sub\r\n");
  const auto items = review.Items();
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].ComponentName, u"N");
  EXPECT_EQ(items[0].Line, 0);
}

TEST_F(RunReviewTest, AHandlerBehindItsMemberIsAWarning) {
  environment_.SetText(u"M", u"Sub A(): x = 1: End Sub\r\n");
  const RunReview review = Begin(RunKind::InsertHandlers);
  environment_.SetText(u"M", u"Sub A(): x = 1: End Sub\r\n'<errHeader>\r\ny\r\n'</errHeader>\r\n");
  const auto items = review.Items();
  ASSERT_EQ(items.size(), 1U);
  EXPECT_TRUE(items[0].IsWarning);
  EXPECT_EQ(items[0].LineBefore, 1);
  EXPECT_EQ(items[0].Line, 2);
}

TEST_F(RunReviewTest, ARemovalHasNoSuchHead) {
  const RunReview review = Begin(RunKind::RemoveHandlers);
  environment_.SetText(u"M", u"Sub A()\r\n x = 1\r\ny = 2\r\nEnd Sub\r\n");
  EXPECT_TRUE(review.Items().empty());
}

TEST_F(RunReviewTest, IsNotStruckByAFailureThatIsMeantForATool) {
  environment_.SetOperationHook([](std::string_view) { throw vb::Failure(7, u"struck"); });
  EXPECT_NO_THROW(static_cast<void>(Begin(RunKind::Format).Items()));
  environment_.SetOperationHook({});
}

TEST_F(RunReviewTest, AComponentThatLeftItsProjectIsStillNamed) {
  const RunReview review = Begin(RunKind::Format);
  environment_.SetText(u"M", u"Sub A()\r\ny = 2\r\nEnd Sub\r\n");
  environment_.RemoveComponent(u"P", u"M");
  ASSERT_EQ(review.Items().size(), 1U);
  EXPECT_EQ(review.Items()[0].ComponentName, u"M");
}

TEST(RunOfButton, KnowsTheButtonsThatStartARun) {
  EXPECT_EQ(RunOfButton(u"frmFormatText", u"btmRun"), RunKind::Format);
  EXPECT_EQ(RunOfButton(u"frmInsertErrorHandlerCode", u"btmBegin"), RunKind::InsertHandlers);
  EXPECT_EQ(RunOfButton(u"frmRemoveErrorHandlerCode", u"btmBegin"), RunKind::RemoveHandlers);
  EXPECT_FALSE(RunOfButton(u"frmFormatText", u"btmCancel"));
  EXPECT_EQ(RunOfForm(u"frmInsertErrorHandlerCode"), RunKind::InsertHandlers);
  EXPECT_FALSE(RunOfForm(u"frmErrorMessage"));
}

}  // namespace
}  // namespace tessel::review
