// The Explorer of a connected add-in under thousands of actions, with the watchers and the clock at
// work.

#include <filesystem>
#include <iostream>

#include "addin/Connect.h"
#include "explorer/ExplorerWorld.h"
#include "hosts/model/Project.h"
#include "hosts/model/Vbe.h"
#include "support/GeneratedMembers.h"
#include "support/TemporaryFolder.h"

namespace tessel {
namespace {

using namespace test;

class ExplorerStorm : public testing::Test {
 protected:
  ExplorerStorm() {
    world_.Services.AppService.Folder = folder_.Path().u16string();
    connect_->AddinInstance_OnConnection(world_.Environment.VBE());
    connect_->AddinInstance_OnStartupComplete();
    connect_->ShowProjectExplorer();
    tree_ =
        std::dynamic_pointer_cast<udProjectExplorer>(world_.Environment.OpenDocuments().front());
  }
  ~ExplorerStorm() override {
    tree_.reset();
    connect_->AddinInstance_OnDisconnection();
    connect_.reset();
    gErrorHandler.reset();
  }
  std::vector<std::string> Expected() {
    return PlainReading(*world_.Environment.VBE(), true, true, true).Rows;
  }
  void Act(int number) {
    auto& environment = world_.Environment;
    const auto byHand = environment.WhoseCalls(model::CallsOf::Environment);
    const auto root = std::dynamic_pointer_cast<model::Vbe>(environment.VBE());
    const auto& all = root->Active()->Components().All();
    const auto chosen =
        all.empty() ? nullptr : all[random_.Draw(static_cast<unsigned>(all.size()))];
    const unsigned what = all.size() < 3 ? 0 : random_.Draw(12);
    const String name = chosen ? chosen->PlainName() : String();
    if (what == 0 && all.size() < 8) {
      constexpr host::vbext_ComponentType Types[] = {
          host::vbext_ct_StdModule, host::vbext_ct_ClassModule, host::vbext_ct_VBForm};
      environment.AddComponent(u"", Types[random_.Draw(3)], u"",
                               random_.Module(static_cast<int>(random_.Draw(5))));
    } else if (what == 0) {
      environment.RemoveComponent(chosen);
    } else if (what == 1) {
      environment.RenameComponent(u"", name, u"N" + vb::Str(number));
    } else if (what == 2) {
      environment.SelectComponent(name);
    } else if (what == 3) {
      environment.ClosePane(name);
    } else {
      Edit(environment, name, number);
    }
  }
  /// As a user types: into the pane that has the keys.
  void Edit(model::Environment& environment, const String& name, int number) {
    environment.SetCaret(name, {1, 1, 1, 1});
    String text = environment.Text(name);
    switch (random_.Draw(3)) {
      case 0:
        text = u"Sub T" + vb::Str(number) + u"()\r\nEnd Sub\r\n" + text;
        break;
      case 1:
        text += u"\r\nSub E" + vb::Str(number) + u"()\r\nEnd Sub\r\n";
        break;
      default:
        text = vb::Replace(text, u"Member", u"Part");
    }
    environment.SetText(name, text);
  }

  World world_;
  TemporaryFolder folder_;
  MemberGenerator random_{11};
  std::shared_ptr<Connect> connect_ = std::make_shared<Connect>();
  std::shared_ptr<udProjectExplorer> tree_;
};

TEST_F(ExplorerStorm, BehindTheTimersTheRowsAreTheTruth) {
  constexpr int Actions = 1500, PauseMs = 600;
  int reloads = 0;
  for (int action = 0; action < Actions; ++action) {
    Act(action);
    // Sometimes the next action comes while a timer is in the air.
    if (random_.Draw(4) == 0) {
      world_.Services.ClockService.Advance(30);
      continue;
    }
    static_cast<void>(tree_->fgTree.TakeChanges());
    world_.Services.ClockService.Advance(PauseMs);
    ASSERT_EQ(RowsIn(tree_->fgTree), Expected()) << "action " << action;
    reloads += tree_->fgTree.TakeChanges().Shape ? 1 : 0;
  }
  std::cout << reloads << " changes of rows in " << Actions << " actions\n";
  EXPECT_GT(reloads, Actions / 10);
}

TEST_F(ExplorerStorm, GoesWithTheAddInWhileATimerIsInTheAir) {
  world_.Environment.AddComponent(u"", host::vbext_ct_StdModule, u"Module1", TwoSubs);
  world_.Caret(u"Module1", 3);
  tree_.reset();
  connect_->AddinInstance_OnDisconnection();
  world_.Services.ClockService.Advance(1000);
  EXPECT_TRUE(world_.Environment.OpenDocuments().empty());
  connect_ = std::make_shared<Connect>();
  connect_->AddinInstance_OnConnection(world_.Environment.VBE());
}

}  // namespace
}  // namespace tessel
