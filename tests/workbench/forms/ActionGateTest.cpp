#include "hosts/workbench/forms/ActionGate.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace tessel::workbench {
namespace {

class Gate : public testing::Test {
 protected:
  Gate() {
    gate_.OnFailure = [this](const vb::Failure& failure) { failures_.push_back(failure.Number()); };
    gate_.OnIdle = [this] { ++idle_; };
  }
  ActionGate gate_;
  std::vector<int> failures_;
  int idle_ = 0;
};

TEST_F(Gate, AnActionIsJustCalledWithoutAWrap) {
  bool called = false;
  gate_.Run([&] { called = gate_.IsBusy(); });
  EXPECT_TRUE(called);
  EXPECT_FALSE(gate_.IsBusy());
  EXPECT_EQ(idle_, 1);
}

TEST_F(Gate, TheWrapIsThroughAheadOfTheReport) {
  std::vector<int> order;
  gate_.Wrap = [&](const ActionGate::Action& action) {
    order.push_back(1);
    action();
    order.push_back(2);
  };
  gate_.OnFailure = [&](const vb::Failure&) { order.push_back(3); };
  gate_.Run([] { throw vb::Failure(9, u"x"); });
  EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TEST_F(Gate, AFailingWrapIsReportedToo) {
  gate_.Wrap = [](const ActionGate::Action&) { throw vb::Failure(5, u"x"); };
  gate_.Run([] {});
  EXPECT_EQ(failures_, (std::vector<int>{5}));
}

TEST_F(Gate, AForeignExceptionIsAFailure) {
  gate_.Run([] { throw std::runtime_error("x"); });
  EXPECT_EQ(failures_, (std::vector<int>{51}));
}

TEST_F(Gate, AFailureEndsItsOwnActionOnly) {
  bool outer = false;
  gate_.Run([&] {
    gate_.Run([] { throw vb::Failure(9, u"x"); });
    outer = true;
  });
  EXPECT_TRUE(outer);
  EXPECT_EQ(failures_, (std::vector<int>{9}));
  EXPECT_EQ(idle_, 1) << "idle is when the outermost is through";
}

}  // namespace
}  // namespace tessel::workbench
