// The rows, and how they follow what happens in the environment.

#include <filesystem>
#include <iostream>

#include "explorer/ExplorerWorld.h"
#include "hosts/model/Project.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"
#include "projectmodel/ProjectTables.h"
#include "support/GeneratedMembers.h"
#include "support/ProjectsFolder.h"

namespace tessel {
namespace {

using namespace test;
namespace fs = std::filesystem;
using forms::user::Press;

class ExplorerTree : public ExplorerWorld {
 protected:
  /// A notice as the watchers' timers raise it.
  void Notice(int kind) {
    switch (kind) {
      case 0:
        return gEventCODE->RunTimerEventProperties();
      case 1:
        return gEventCODE->RunTimerEventComponent();
      default:
        return gEventCODE->RunTimerEventCode();
    }
  }
  void TakeMarks() {
    gEventCODE->SetRunEvents(false);
    gEventCODE->SetRunEventsCode(false);
    gEventCODE->SetRunEventsComponent(false);
    gEventCODE->SetRunEventsProject(false);
  }
  void ExpectMarksClear(const std::string& label = {}) {
    EXPECT_TRUE(gEventCODE->RunEvents() && gEventCODE->RunEventsCode() &&
                gEventCODE->RunEventsComponent() && gEventCODE->RunEventsProject())
        << label;
  }
  /// How many readings of whole projects something costs.
  int Reloads(const std::function<void()>& done) { return Count("VBProject.Type", done); }
};

constexpr host::vbext_ComponentType Types[] = {
    host::vbext_ct_StdModule, host::vbext_ct_ClassModule,    host::vbext_ct_VBForm,
    host::vbext_ct_VBMDIForm, host::vbext_ct_PropPage,       host::vbext_ct_UserControl,
    host::vbext_ct_DocObject, host::vbext_ct_ActiveXDesigner};

void FillAtRandom(model::Environment& environment, MemberGenerator& random) {
  constexpr host::vbext_ProjectType Kinds[] = {host::vbext_pt_StandardExe,
                                               host::vbext_pt_ActiveXExe, host::vbext_pt_ActiveXDll,
                                               host::vbext_pt_ActiveXControl};
  for (unsigned project = random.Draw(3); project > 0; --project) {
    environment.NewProject(u"", Kinds[random.Draw(4)]);
  }
  const auto& projects = std::dynamic_pointer_cast<model::Vbe>(environment.VBE())->Projects().All();
  for (const auto& project : projects) {
    environment.ActivateProject(project->PlainName());
    for (unsigned count = random.Draw(7); count > 0; --count) {
      const auto type = Types[random.Draw(8)];
      String text = random.Module(static_cast<int>(random.Draw(6)));
      const auto component = environment.AddComponent(project, type, u"", text);
      if (!component->Designer()) continue;
      environment.AddControl(component->Name(), u"CommandButton", u"cmdRun", {});
      text +=
          u"Private Sub cmdRun_Click()\r\nEnd Sub\r\nPrivate Sub cmdRun_GotFocus()\r\nEnd Sub\r\n";
      environment.SetText(component->Name(), text);
    }
  }
}

TEST_F(ExplorerTree, EveryRowOfRandomProjectsIsAsAPlainReadingHasItWithEachCombinationOfFilters) {
  for (unsigned seed = 0; seed < 25; ++seed) {
    MemberGenerator random(seed);
    FillAtRandom(world_.Environment, random);
    Make();
    tree_->Show();
    for (unsigned step = 0; step < 8; ++step) {
      ExpectTruth("seed " + std::to_string(seed) + ", step " + std::to_string(step));
      // A Gray code: every combination with one press each.
      Press(step % 2 == 0 ? tree_->btnProperty : step % 4 == 1 ? tree_->btnMethod : tree_->btnCtl);
    }
    tree_.reset();
    while (world_.Environment.VBE()->VBProjects()->Count() > 0) {
      world_.Environment.RemoveProject(world_.Environment.VBE()->VBProjects()->Item(1)->Name());
    }
    world_.Environment.NewProject(u"Project1", host::vbext_pt_StandardExe);
  }
}

TEST_F(ExplorerTree, RowsOfRealProjectsAreAsAPlainReadingHasThem) {
  const char* const folder = test::ProjectsFolder();
  if (folder == nullptr) GTEST_SKIP() << "TESSEL_PROJECTS names no folder";
  std::size_t projects = 0, rows = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (vb::LCase(entry.path().extension().u16string()) != u".vbp") continue;
    workspace::Workspace workspace(world_.Services, {});
    try {
      workspace.Open(entry.path());
    } catch (const vb::Failure&) {
      continue;
    }
    const auto tree = std::make_shared<udProjectExplorer>();
    tree->Initialize();
    tree->VBInstance = workspace.VBE();
    tree->Show();
    for (unsigned step = 0; step < 8; ++step) {
      const PlainReading plain(*workspace.VBE(), tree->btnProperty.Value() == 1,
                               tree->btnMethod.Value() == 1, tree->btnCtl.Value() == 1);
      if (plain.SharesRows()) break;
      ASSERT_EQ(RowsIn(tree->fgTree), plain.Rows) << entry.path() << ", step " << step;
      rows = std::max(rows, plain.Rows.size());
      Press(step % 2 == 0 ? tree->btnProperty : step % 4 == 1 ? tree->btnMethod : tree->btnCtl);
    }
    ++projects;
  }
  std::cout << projects << " projects, the largest of " << rows << " rows\n";
  EXPECT_GT(projects, 0U);
}

TEST_F(ExplorerTree, AProjectWithoutComponentsHasItsRowAndNoGroups) {
  tree_->Show();
  EXPECT_EQ(RowsIn(Grid()),
            (std::vector<std::string>{
                "0 #133 | Project1 | Project1 | Project1 |  | 2 |  |  |  |  |  |  | "}));
}

TEST_F(ExplorerTree, ASavedProjectBearsItsFileCutAtTheLastSeparatorOfEitherKind) {
  const auto project = std::dynamic_pointer_cast<model::Vbe>(world_.Environment.VBE())->Active();
  project->File = u"C:\\Work\\Shop.vbp";
  tree_->Show();
  EXPECT_EQ(Grid().TextMatrix(0, 0), u"Project1[Shop.vbp]");
  EXPECT_EQ(Grid().TextMatrix(0, 2), u"Project1");
  project->File = u"/home/me/Shop2.vbp";
  Press(tree_->btnRefresh);
  EXPECT_EQ(Grid().TextMatrix(0, 1), u"Project1[Shop2.vbp]");
}

TEST_F(ExplorerTree, EachKindOfProjectHasItsPicture) {
  world_.Environment.NewProject(u"Exe", host::vbext_pt_ActiveXExe);
  world_.Environment.NewProject(u"Dll", host::vbext_pt_ActiveXDll);
  world_.Environment.NewProject(u"Ocx", host::vbext_pt_ActiveXControl);
  tree_->Show();
  std::vector<int> pictures;
  for (int row = 0; row < Grid().Rows(); ++row) pictures.push_back(Grid().RowAt(row).Picture);
  EXPECT_EQ(pictures, (std::vector<int>{133, 132, 131, 130}));
  EXPECT_EQ(ProjectPicture(4), 124);
}

TEST_F(ExplorerTree, OpensDownToTheComponentsWhichAreClosed) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Setting(u"AutoPosition", u"0");
  tree_->Show();
  EXPECT_FALSE(Grid().RowAt(0).Collapsed);
  EXPECT_FALSE(Grid().RowAt(1).Collapsed);
  EXPECT_TRUE(Grid().RowAt(2).Collapsed);
  EXPECT_EQ(Current(), u"Module1");
}

TEST_F(ExplorerTree, OnlyTheCaptionIsSeen) {
  EXPECT_EQ(Grid().Cols(), 12);
  for (int col = 0; col < 12; ++col) EXPECT_EQ(Grid().ColumnAt(col).Hidden, col > 0) << col;
  EXPECT_EQ(Grid().FixedRows(), 0);
}

TEST_F(ExplorerTree, TheFirstShowReadsAndGoesToTheMemberAtTheCaret) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  world_.Caret(u"Module1", 7);
  EXPECT_EQ(Grid().Rows(), 0);
  TakeMarks();
  tree_->Show();
  EXPECT_EQ(Current(), u"Second");
  EXPECT_FALSE(Grid().RowAt(RowOf(u"Module1")).Collapsed);
  ExpectMarksClear();
}

TEST_F(ExplorerTree, ALaterShowReadsNothing) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  tree_->Hide();
  world_.Caret(u"Module1", 3);
  EXPECT_EQ(Reloads([&] { tree_->Show(); }), 0);
  EXPECT_EQ(Current(), u"First");
}

TEST_F(ExplorerTree, WithAllFiltersUpThereAreNoMembersAndAPressReadsNothing) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  for (forms::ToggleButton* const button :
       {&tree_->btnCtl, &tree_->btnMethod, &tree_->btnProperty}) {
    Press(*button);
  }
  EXPECT_EQ(Grid().Rows(), 3);
  EXPECT_EQ(Setting(u"btmCtl"), u"0");
  EXPECT_EQ(Setting(u"btmMethod"), u"0");
  EXPECT_EQ(Setting(u"btmProperty"), u"0");
  EXPECT_EQ(Count("CodeModule.ProcOfLine", [&] { Press(tree_->btnMethod); }), 0);
  EXPECT_EQ(Grid().Rows(), 5) << "the model is full all the time";
  EXPECT_EQ(Setting(u"btmMethod"), u"1");
  EXPECT_EQ(Current(), u"Module1");
}

TEST_F(ExplorerTree, TheFiltersAreReadWhenTheDocumentIsMade) {
  Setting(u"btmProperty", u"0");
  Setting(u"btmCtl", u"2");
  Make();
  EXPECT_EQ(tree_->btnProperty.Value(), 0);
  EXPECT_EQ(tree_->btnMethod.Value(), 1) << "the default";
  EXPECT_EQ(tree_->btnCtl.Value(), 0);
  EXPECT_EQ(Setting(u"btmProperty"), u"0") << "reading writes nothing";
}

TEST_F(ExplorerTree, AnAddedProcedureComesWithoutTheTreeClosing) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_StdModule, u"Module2", TwoSubs);
  tree_->Show();
  Press(tree_->btnExpand);
  world_.Caret(u"Module1", 5);
  const int before = Grid().Rows();
  world_.Environment.SetText(u"Module1", String(TwoSubs) + u"Sub Third()\r\nEnd Sub\r\n");
  EXPECT_EQ(Reloads([&] { Notice(2); }), 0);
  EXPECT_EQ(Grid().Rows(), before + 1);
  ExpectTruth();
  for (int row = 0; row < Grid().Rows(); ++row) EXPECT_FALSE(Grid().RowAt(row).Collapsed) << row;
}

TEST_F(ExplorerTree, LinesThatMoveAreTakenOverWithoutARowComingOrGoing) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  world_.Caret(u"Module1", 4);
  world_.Environment.Component(u"Module1")->CodeModule()->InsertLines(4, u"  Call This");
  static_cast<void>(Grid().TakeChanges());
  Notice(2);
  EXPECT_FALSE(Grid().TakeChanges().Shape);
  EXPECT_EQ(Grid().TextMatrix(RowOf(u"Second"), explorer::LineColumn), u"6");
  ExpectTruth();
}

TEST_F(ExplorerTree, LinesInTheLastMemberAreNoReasonForALaterReload) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  world_.Caret(u"Module1", 7);
  world_.Environment.Component(u"Module1")->CodeModule()->InsertLines(7, u"  Call This");
  Notice(2);
  EXPECT_EQ(Reloads([&] { Notice(1); }), 0);
}

TEST_F(ExplorerTree, AChangeToAnotherWindowLooksAtTheOneThatWasLeft) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_StdModule, u"Module2", TwoSubs);
  tree_->Show();
  const auto left = world_.Environment.Component(u"Module1")->CodeModule()->CodePane();
  gEventCODE->SethwndCODE(left->Window()->HWnd());
  world_.Environment.SetText(u"Module1", String(TwoSubs) + u"Sub Third()\r\nEnd Sub\r\n\r\n");
  world_.Caret(u"Module2", 3);
  Notice(2);
  ExpectTruth();
}

TEST_F(ExplorerTree, AMoveOfTheCaretTouchesNoRow) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_StdModule, u"Module2", TwoSubs);
  tree_->Show();
  world_.Caret(u"Module1", 3);
  Notice(2);
  static_cast<void>(Grid().TakeChanges());
  world_.Caret(u"Module1", 7);
  EXPECT_EQ(Count("CodeModule.CountOfDeclarationLines", [&] { Notice(2); }), 2)
      << "the member table of one component, and its numbers of lines";
  const auto changes = Grid().TakeChanges();
  EXPECT_FALSE(changes.Shape);
  EXPECT_EQ(changes.LastRow, -1);
  EXPECT_EQ(Current(), u"Second");
}

TEST_F(ExplorerTree, AMemberOfAnotherKindOrNameIsSeen) {
  Add(host::vbext_ct_VBForm, u"Form1",
      u"Sub cmdOld_Click()\r\nEnd Sub\r\nSub Other()\r\nEnd Sub\r\n");
  tree_->Show();
  world_.Caret(u"Form1", 1);
  world_.Environment.AddControl(u"Form1", u"CommandButton", u"cmdOld", {});
  Notice(2);
  EXPECT_EQ(Grid().RowAt(RowOf(u"cmdOld_Click")).Picture, 129);
  world_.Environment.SetText(u"Form1",
                             u"Sub CmdOld_click()\r\nEnd Sub\r\nSub Other()\r\nEnd Sub\r\n");
  Notice(2);
  ExpectTruth("another spelling");
  world_.Environment.SetText(u"Form1",
                             u"Property Get P()\r\nEnd Property\r\nSub Other()\r\nEnd Sub\r\n");
  Notice(2);
  ExpectTruth("another kind");
}

TEST_F(ExplorerTree, ReloadsWhenTheProjectsDiffer) {
  tree_->Show();
  EXPECT_EQ(Reloads([&] { Notice(0); }), 2) << "no component is selected: read in any case";
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  EXPECT_EQ(Reloads([&] { Notice(0); }), 2) << "the look at the projects, and the reading";
  EXPECT_EQ(Reloads([&] { Notice(0); }), 1) << "the look alone";
  world_.Environment.NewProject(u"Second", host::vbext_pt_ActiveXDll);
  Notice(0);
  ExpectTruth("another project");
  world_.Environment.RemoveProject(u"Second");
  Notice(0);
  ExpectTruth("one gone");
}

TEST_F(ExplorerTree, ReloadsWhenTheComponentsDiffer) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  Add(host::vbext_ct_VBForm, u"Form1");
  Notice(1);
  ExpectTruth("added");
  world_.Environment.RenameComponent(u"", u"Module1", u"modMain");
  Notice(1);
  ExpectTruth("renamed");
  world_.Environment.Component(u"modMain")->CodeModule()->InsertLines(1, u"' Note");
  Notice(1);
  ExpectTruth("longer");
  world_.Environment.RemoveComponent(u"", u"modMain");
  Notice(1);
  ExpectTruth("removed");
  EXPECT_EQ(Reloads([&] { Notice(1); }), 0);
}

TEST_F(ExplorerTree, SeesOtherMembersOfAComponentThatIsNotActive) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_StdModule, u"Module2", TwoSubs);
  world_.Caret(u"Module2", 3);
  tree_->Show();
  world_.Environment.SetText(u"Module1", vb::Replace(TwoSubs, u"First", u"Other"));
  Notice(1);
  ExpectTruth();
}

TEST_F(ExplorerTree, AnActiveComponentThatTheModelLacksIsAReload) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  world_.Environment.RenameComponent(u"", u"Module1", u"modMain");
  world_.Caret(u"modMain", 7);
  Notice(2);
  ExpectTruth();
  EXPECT_EQ(Current(), u"Second");
}

TEST_F(ExplorerTree, WithoutAProjectTheTreeIsEmpty) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  world_.Environment.RemoveProject(u"Project1");
  Notice(0);
  EXPECT_EQ(Grid().Rows(), 0);
  ExpectMarksClear();
}

TEST_F(ExplorerTree, WithoutASelectedComponentTheFirstRowIsCurrent) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  Press(tree_->btnExpand);
  world_.Environment.SelectComponent(u"");
  Notice(0);
  EXPECT_EQ(Grid().Row(), 0);
  EXPECT_TRUE(Grid().RowAt(2).Collapsed) << "the rows were made anew";
}

TEST_F(ExplorerTree, EveryNoticeGoesToTheCaretAlsoWithoutADifference) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  for (const int kind : {0, 1, 2}) {
    world_.Caret(u"Module1", 7);
    Grid().Select(0, 0);
    TakeMarks();
    Notice(kind);
    EXPECT_EQ(Current(), u"Second") << kind;
    ExpectMarksClear();
  }
}

TEST_F(ExplorerTree, WithoutAutoPositionItFollowsTheComponentAndNeverTheMember) {
  Setting(u"AutoPosition", u"0");
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_StdModule, u"Module2", TwoSubs);
  world_.Caret(u"Module1", 7);
  tree_->Show();
  EXPECT_EQ(Current(), u"Module1");
  world_.Caret(u"Module2", 7);
  for (const int kind : {2, 1, 0}) {
    Notice(kind);
    EXPECT_EQ(Current(), u"Module2") << kind;
  }
  Press(tree_->btnRefresh);
  EXPECT_EQ(Current(), u"Module2");
  tree_->SelectAtCaret();
  EXPECT_EQ(Current(), u"Second") << "the user asked for it";
}

TEST_F(ExplorerTree, ACaretOutsideAllMembersAndAMemberWithoutARowStandForTheComponent) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  world_.Caret(u"Module1", 1);
  Notice(2);
  EXPECT_EQ(Current(), u"Module1");
  Press(tree_->btnMethod);
  world_.Caret(u"Module1", 7);
  Notice(2);
  EXPECT_EQ(Current(), u"Module1");
}

TEST_F(ExplorerTree, KindsOfOneNameAreToldApart) {
  Add(host::vbext_ct_ClassModule, u"Class1",
      u"Property Get P()\r\nEnd Property\r\nProperty Let P(v)\r\nEnd Property\r\n'\r\n");
  tree_->Show();
  world_.Caret(u"Class1", 4);
  Notice(2);
  EXPECT_EQ(Grid().TextMatrix(Grid().Row(), 1), u"P [Let]");
  world_.Caret(u"Class1", 1);
  Notice(2);
  EXPECT_EQ(Grid().TextMatrix(Grid().Row(), 1), u"P [Get]");
}

TEST_F(ExplorerTree, AReloadKeepsWhatIsCollapsedAslongAsTheNumberOfRowsIsTheSame) {
  Setting(u"AutoPosition", u"0");
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_VBForm, u"Form1");
  tree_->Show();
  forms::user::Expand(Grid(), RowOf(u"Module1"));
  Press(tree_->btnRefresh);
  EXPECT_FALSE(Grid().RowAt(RowOf(u"Module1")).Collapsed);
  Add(host::vbext_ct_VBForm, u"Form2");
  Press(tree_->btnRefresh);
  EXPECT_TRUE(Grid().RowAt(RowOf(u"Module1")).Collapsed) << "one row more: all is as at first";
}

TEST_F(ExplorerTree, ExpandOpensAllAndCollapseClosesAll) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  Press(tree_->btnCollapse);
  EXPECT_TRUE(Grid().RowAt(0).Collapsed);
  EXPECT_FALSE(Grid().RowShows(1));
  Press(tree_->btnExpand);
  for (int row = 0; row < Grid().Rows(); ++row) EXPECT_TRUE(Grid().RowShows(row)) << row;
}

TEST_F(ExplorerTree, RefreshReadsAllAndClearsTheMarks) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  world_.Environment.SetText(u"Module1", u"Sub Fresh()\r\nEnd Sub\r\n\r\n");
  world_.Caret(u"Module1", 1);
  TakeMarks();
  Press(tree_->btnRefresh);
  ExpectTruth();
  EXPECT_EQ(Current(), u"Fresh");
  ExpectMarksClear();
}

TEST_F(ExplorerTree, ANoticeInTheMiddleOfAReadingIsAnsweredBehindIt) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_StdModule, u"Module2", TwoSubs);
  tree_->Show();
  int pumps = 0;
  world_.Services.ClockService.OnDoEvents = [&] {
    if (++pumps != 2) return;
    // Behind the reading of the first module.
    world_.Environment.SetText(u"Module1", u"Sub Fresh()\r\nEnd Sub\r\n\r\n");
    TakeMarks();
    Notice(2);
    ExpectMarksClear();
  };
  Press(tree_->btnRefresh);
  world_.Services.ClockService.OnDoEvents = {};
  EXPECT_GT(pumps, 3);
  ExpectTruth();
}

TEST_F(ExplorerTree, AProjectThatRefusesItsComponentsStandsThereAndTheNextIsRead) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  world_.Environment.NewProject(u"Second", host::vbext_pt_StandardExe);
  Add(host::vbext_ct_StdModule, u"Module2", TwoSubs);
  int asked = 0;
  world_.Environment.SetOperationHook([&](std::string_view call) {
    if (call == "VBProject.VBComponents" && ++asked == 1) {
      throw vb::Failure(50289, u"Can't perform operation since the project is protected.");
    }
  });
  tree_->Show();
  world_.Environment.SetOperationHook({});
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  EXPECT_EQ(Grid().TextMatrix(0, 0), u"Project1");
  EXPECT_EQ(Grid().TextMatrix(1, 0), u"Second");
  EXPECT_GE(RowOf(u"Module2"), 0);
  EXPECT_EQ(RowOf(u"Module1"), -1);
}

TEST_F(ExplorerTree, AProtectedProjectIsReportedWhenItIsReadAndNotAtEachNotice) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  world_.Environment.SetOperationHook([](std::string_view call) {
    if (call == "VBProject.VBComponents") throw vb::Failure(50289, u"protected");
  });
  tree_->Show();
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  for (const int kind : {0, 1}) Notice(kind);
  EXPECT_TRUE(world_.Errors.Take().empty());
  world_.Environment.SetOperationHook({});
  EXPECT_EQ(Grid().Rows(), 1);
}

TEST_F(ExplorerTree, AComponentWhoseCodeIsRefusedHasNoMembers) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  world_.Environment.SetOperationHook([](std::string_view call) {
    if (call == "VBComponent.CodeModule") throw vb::Failure(5, u"no code");
  });
  tree_->Show();
  world_.Environment.SetOperationHook({});
  EXPECT_EQ(Grid().Rows(), 3);
}

TEST_F(ExplorerTree, WhateverCallFailsTheMarksAreClearAndTheNextNoticeTellsTheTruth) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_VBForm, u"Form1", TwoSubs);
  world_.Environment.AddControl(u"Form1", u"CommandButton", u"cmdRun", {});
  world_.Caret(u"Module1", 3);
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  for (const int kind : {0, 1, 2, 3}) {
    for (const auto answer : {platform::MessageAnswer::Abort, platform::MessageAnswer::Retry,
                              platform::MessageAnswer::Ignore}) {
      for (int nth = 1;; ++nth) {
        Make();
        tree_->Show();
        world_.Environment.SetText(
            u"Module1", String(TwoSubs) + u"Sub N" + vb::Str(nth) + u"()\r\nEnd Sub\r\n\r\n");
        int calls = 0;
        world_.Services.DesktopService.Answers.assign(10, answer);
        world_.Services.DesktopService.Messages.clear();
        world_.Environment.SetOperationHook([&](std::string_view) {
          if (++calls == nth) throw vb::Failure(7, u"no room");
        });
        TakeMarks();
        if (kind == 3) {
          Press(tree_->btnRefresh);
        } else {
          Notice(kind);
        }
        world_.Environment.SetOperationHook({});
        const std::string label = "kind " + std::to_string(kind) + ", call " + std::to_string(nth);
        EXPECT_LE(world_.Services.DesktopService.Messages.size(), 1U) << label;
        ExpectMarksClear(label);
        EXPECT_TRUE(Grid().Redraw()) << label;
        Notice(0);
        ExpectTruth(label);
        if (calls < nth) break;
      }
    }
  }
}

TEST_F(ExplorerTree, WhatANoticeLostToAFailedCallTheNextOneReadsWhateverItTells) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  Add(host::vbext_ct_VBForm, u"Form1", TwoSubs);
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  for (const auto answer : {platform::MessageAnswer::Abort, platform::MessageAnswer::Ignore}) {
    for (int nth = 1;; ++nth) {
      world_.Caret(u"Module1", 3);
      Notice(0);
      // As many lines as before: only who reads the members can tell.
      world_.Environment.SetText(u"Module1",
                                 vb::Replace(TwoSubs, u"Second", u"Fresh" + vb::Str(nth)));
      int calls = 0;
      world_.Services.DesktopService.Answers.assign(10, answer);
      world_.Environment.SetOperationHook([&](std::string_view) {
        if (++calls == nth) throw vb::Failure(7, u"no room");
      });
      world_.Services.DesktopService.Messages.clear();
      Notice(2);
      world_.Environment.SetOperationHook({});
      // What is passed over in silence is no failure.
      const bool silent = calls >= nth && world_.Services.DesktopService.Messages.empty();
      world_.Caret(u"Form1", 3);
      Notice(2);
      const std::string label = "call " + std::to_string(nth);
      if (!silent) ExpectTruth(label);
      EXPECT_EQ(Reloads([&] { Notice(2); }), 0) << label << ": once is enough";
      if (calls < nth) break;
    }
  }
}

TEST_F(ExplorerTree, WhatKeepsFailingIsNotReadAnewByEachNotice) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  tree_->Show();
  int reloads = 0;
  world_.Environment.SetOperationHook([&](std::string_view call) {
    reloads += call == "VBProject.Type";
    if (call == "CodeModule.ProcOfLine") throw vb::Failure(7, u"no room");
  });
  Notice(1);
  EXPECT_FALSE(world_.Errors.Take().empty());
  reloads = 0;
  Notice(1);
  EXPECT_EQ(reloads, 1) << "what failed is tried once more";
  Notice(1);
  EXPECT_EQ(reloads, 1) << "and left alone when that failed";
  world_.Environment.SetOperationHook({});
  EXPECT_FALSE(world_.Errors.Take().empty());
}

TEST_F(ExplorerTree, DocumentsOfOtherHostsHaveThePicturesOfTheirHosts) {
  cProjecteses model;
  cProjectes& project = *model.item(u"Book1");
  project.VBProjectName = u"Book1";
  cTypeComponentes& documents = *project.item(100);
  documents.TypeExtendProject = 1;
  static_cast<void>(documents.item(u"ThisWorkbook"));
  static_cast<void>(documents.item(u"Sheet1"));
  static_cast<void>(project.item(3)->item(u"UserForm1"));
  const auto rows = explorer::RowsOf(model, {});
  ASSERT_EQ(rows.size(), 3U) << "a type outside the table makes no rows";
  EXPECT_EQ(rows[1].Picture, 137);
  EXPECT_EQ(rows[2].Picture, 141);
  EXPECT_EQ(rows[2].Level, explorer::ComponentLevel);
  struct Case {
    int Host;
    StringView Name;
    int Picture;
  };
  for (const Case& one : {Case{2, u"Form_Main", 139},
                          {2, u"Report_Main", 138},
                          {5, u"ThisDocument", 140},
                          {6, u"ThisDocument", 136},
                          {7, u"ThisOutlookSession", 142},
                          {8, u"ThisDrawing", 125},
                          {8, u"Other", 143},
                          {0, u"ThisDocument", 125}}) {
    EXPECT_EQ(explorer::DocumentPicture(one.Host, one.Name), one.Picture) << vb::ToUtf8(one.Name);
  }
}

TEST_F(ExplorerTree, MembersOfUnknownKindsAreSkipped) {
  cProjecteses model;
  const auto component = model.item(u"P")->item(1)->item(u"Module1");
  component->item(u"Odd")->vbext = 7;
  component->item(u"Even [Proc]")->Name = u"Even";
  const auto rows = explorer::RowsOf(model, {});
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[3].Cells[0], u"Even");
}

TEST_F(ExplorerTree, ComponentsOfOneNameShareARowAndNoNoticeReloadsForThem) {
  Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
  const auto project = std::dynamic_pointer_cast<model::Vbe>(world_.Environment.VBE())->Active();
  const auto second = project->Components().Make(host::vbext_ct_StdModule, u"Module2");
  world_.Environment.SetText(u"Module2", u"Sub Third()\r\nEnd Sub\r\n\r\n");
  second->PutName(u"Module1");
  tree_->Show();
  EXPECT_EQ(Grid().Rows(), 6) << "the members of both";
  EXPECT_EQ(Reloads([&] { Notice(1); }), 0);
}

/// What a person does in a window, in the project list and in the code, and the notice that comes
/// of it.
class Storm {
 public:
  Storm(model::Environment& environment, unsigned seed)
      : environment_(environment),
        root_(std::dynamic_pointer_cast<model::Vbe>(environment.VBE())),
        random_(seed) {}

  /// The kind of the notice.
  int Act(int number) {
    const auto byHand = environment_.WhoseCalls(model::CallsOf::Environment);
    const auto& all = root_->Active()->Components().All();
    if (all.size() < 3) return AddOne();
    const auto chosen = all[random_.Draw(static_cast<unsigned>(all.size()))];
    switch (random_.Draw(10)) {
      case 0:
        return all.size() < 8 ? AddOne() : RemoveOne(chosen);
      case 1:
        environment_.RenameComponent(u"", chosen->PlainName(), u"N" + vb::Str(number));
        return 1;
      case 2:
        environment_.SelectComponent(chosen->PlainName());
        return 1;
      case 3:
        environment_.ClosePane(chosen->PlainName());
        return 0;
      default:
        return Edit(chosen, number);
    }
  }

 private:
  int AddOne() {
    environment_.AddComponent(u"", Types[random_.Draw(8)], u"",
                              random_.Module(static_cast<int>(random_.Draw(5))));
    return 0;
  }
  int RemoveOne(const std::shared_ptr<model::VBComponent>& chosen) {
    environment_.RemoveComponent(chosen);
    return 0;
  }
  int Edit(const std::shared_ptr<model::VBComponent>& chosen, int number) {
    environment_.SetCaret(chosen->PlainName(), {1, 1, 1, 1});
    const int lines = chosen->Module()->Buffer().Count();
    const int line = 1 + static_cast<int>(random_.Draw(static_cast<unsigned>(lines + 1)));
    switch (random_.Draw(3)) {
      case 0:
        chosen->Module()->InsertLines(line, u"Sub T" + vb::Str(number) + u"()\r\nEnd Sub");
        break;
      case 1:
        chosen->Module()->InsertLines(line, u"' note");
        break;
      default:
        if (line <= lines) chosen->Module()->DeleteLines(line, 1);
    }
    environment_.SetCaret(chosen->PlainName(), {line, 1, line, 1});
    return 2;
  }

  model::Environment& environment_;
  std::shared_ptr<model::Vbe> root_;
  MemberGenerator random_;
};

TEST_F(ExplorerTree, ThousandsOfRandomActionsEndInTheTruthAndCostNoMoreReloadsThanTheyMust) {
  tree_->Show();
  Storm storm(world_.Environment, 7);
  auto before = Expected();
  int changedProjects = 0, changedCode = 0, reloads = 0;
  for (int action = 0; action < 2000; ++action) {
    const int kind = storm.Act(action);
    const auto expected = Expected();
    const bool differs = expected != before;
    before = expected;
    static_cast<void>(Grid().TakeChanges());
    Notice(kind);
    ASSERT_EQ(RowsIn(Grid()), expected) << "action " << action << ", kind " << kind;
    const auto changes = Grid().TakeChanges();
    // Without a selected component there is nothing to compare: the projects are read.
    if (kind == 0 && !world_.Environment.VBE()->SelectedVBComponent()) continue;
    if (!differs) {
      EXPECT_FALSE(changes.Shape) << "action " << action << ", kind " << kind;
      EXPECT_EQ(changes.LastRow, -1) << "action " << action << ", kind " << kind;
    }
    (kind == 2 ? changedCode : changedProjects) += differs ? 1 : 0;
    reloads += kind != 2 && changes.Shape ? 1 : 0;
  }
  EXPECT_GT(changedCode, 100);
  EXPECT_LE(reloads, changedProjects) << "a reload for a difference, and for nothing else";
  std::cout << changedCode << " changed components, " << changedProjects << " changed projects, "
            << reloads << " reloads\n";
}

}  // namespace
}  // namespace tessel
