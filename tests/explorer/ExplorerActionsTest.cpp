// What a user does with a row, with the menus and with the line above the tree.

#include <algorithm>

#include "explorer/ExplorerWorld.h"
#include "hosts/model/Vbe.h"

namespace tessel {
namespace {

using namespace test;
namespace user = forms::user;

class ExplorerActions : public ExplorerWorld {
 protected:
  ExplorerActions() {
    Add(host::vbext_ct_StdModule, u"Module1", TwoSubs);
    Add(host::vbext_ct_VBForm, u"Form1", TwoSubs);
    tree_->Show();
    user::Press(tree_->btnExpand);
  }
  /// The row of a caption below a component.
  int MemberOf(StringView component, StringView caption) {
    for (int row = RowOf(component) + 1; row < Grid().Rows(); ++row) {
      if (Grid().TextMatrix(row, 0) == caption) return row;
    }
    return -1;
  }
  [[nodiscard]] String ActivePane() const {
    const auto pane = world_.Environment.VBE()->ActiveCodePane();
    return pane ? pane->CodeModule()->Name() : String();
  }
  /// The state of every item of the menu that a right click on a row brings up, whose item of the
  /// name is chosen then.
  std::map<std::string, bool> RightClick(int row, StringView chosen = {}) {
    std::map<std::string, bool> enabled;
    world_.Services.DesktopService.OnMenu = [&](forms::MenuItem& menu) {
      popped_ = menu.Name();
      Note(menu, enabled);
      return String(chosen);
    };
    user::RightClick(Grid(), row);
    world_.Services.DesktopService.OnMenu = {};
    return enabled;
  }
  static void Note(const forms::MenuItem& menu, std::map<std::string, bool>& enabled) {
    for (const forms::MenuItem* const item : menu.Items()) {
      enabled[vb::ToUtf8(item->Name())] = item->Enabled();
      Note(*item, enabled);
    }
  }
  [[nodiscard]] bool HasWindow(StringView className, StringView caption) const {
    const auto windows = world_.Environment.OpenWindows();
    return std::any_of(windows.begin(), windows.end(), [&](const model::WindowInfo& window) {
      return window.Class == className && window.Caption == caption && window.Visible;
    });
  }
  [[nodiscard]] host::CommandBarControl& Command(StringView caption) const {
    return *world_.Environment.VBE()
                ->CommandBars()
                ->Item(u"Menu Bar")
                ->Controls()
                ->Item(u"Project")
                ->Controls()
                ->Item(caption);
  }
  String popped_;
};

// The jump

TEST_F(ExplorerActions, ADoubleClickOnAMemberPutsItsFirstLineAtTheTop) {
  user::DoubleClick(Grid(), MemberOf(u"Module1", u"Second"));
  const auto pane = world_.Environment.VBE()->ActiveCodePane();
  ASSERT_TRUE(pane);
  EXPECT_EQ(ActivePane(), u"Module1");
  EXPECT_EQ(pane->TopLine(), 5);
  EXPECT_EQ(pane->GetSelection(), (host::Selection{5, 1, 5, 1}));
  EXPECT_TRUE(pane->Window()->Visible());
}

TEST_F(ExplorerActions, ADoubleClickOnAComponentShowsItsCodeAtLineOne) {
  world_.Caret(u"Form1", 7);
  user::DoubleClick(Grid(), RowOf(u"Form1"));
  EXPECT_EQ(ActivePane(), u"Form1");
  EXPECT_EQ(world_.Selection().StartLine, 1);
  EXPECT_EQ(world_.Environment.VBE()->ActiveCodePane()->TopLine(), 1);
}

TEST_F(ExplorerActions, ADoubleClickOnAProjectOrAGroupDoesNothing) {
  for (const int row : {0, 1}) {
    EXPECT_EQ(Count("CodePane.Show", [&] { user::DoubleClick(Grid(), row); }), 0) << row;
  }
  EXPECT_EQ(ActivePane(), u"");
}

TEST_F(ExplorerActions, EnterOnARowIsAJump) {
  user::SelectRow(Grid(), MemberOf(u"Form1", u"First"), 0);
  user::Key(Grid(), 13);
  EXPECT_EQ(ActivePane(), u"Form1");
}

TEST_F(ExplorerActions, AFormShowsItsDesignerOrItsCode) {
  user::SelectRow(Grid(), RowOf(u"Form1"), 0);
  user::Press(tree_->btmObject);
  EXPECT_TRUE(HasWindow(u"DesignerWindow", u"Form1"));
  EXPECT_EQ(ActivePane(), u"") << "no code";
  user::Press(tree_->btmCode);
  EXPECT_EQ(ActivePane(), u"Form1");
  EXPECT_EQ(world_.Selection().StartLine, 1);
}

TEST_F(ExplorerActions, AMembersRowOfAFormShowsTheDesignerAsWell) {
  user::SelectRow(Grid(), MemberOf(u"Form1", u"Second"), 0);
  EXPECT_TRUE(tree_->btmObject.Enabled());
  user::Press(tree_->btmObject);
  EXPECT_TRUE(HasWindow(u"DesignerWindow", u"Form1"));
  user::DoubleClick(Grid(), MemberOf(u"Form1", u"Second"));
  EXPECT_EQ(ActivePane(), u"Form1") << "the wish for the object was for once";
}

TEST_F(ExplorerActions, TheButtonsFollowTheRow) {
  struct Case {
    int Row;
    bool Code, Object;
  };
  for (const Case& one : {Case{0, false, false},
                          {1, false, false},
                          {RowOf(u"Module1"), true, false},
                          {MemberOf(u"Module1", u"First"), true, false},
                          {RowOf(u"Form1"), true, true},
                          {MemberOf(u"Form1", u"First"), true, true}}) {
    user::SelectRow(Grid(), one.Row, 0);
    EXPECT_EQ(tree_->btmCode.Enabled(), one.Code) << one.Row;
    EXPECT_EQ(tree_->btmObject.Enabled(), one.Object) << one.Row;
  }
  Grid().Select(-1, 0);
  Grid().Click();
  EXPECT_FALSE(tree_->btmCode.Enabled() || tree_->btmObject.Enabled());
}

TEST_F(ExplorerActions, AJumpHearsNoNoticeOfItsOwn) {
  gEventCODE->SetRunEvents(false);
  gEventCODE->SetRunEventsProject(false);
  int readings = 0;
  world_.Services.ClockService.OnDoEvents = [&] {
    readings += Count("VBProject.Type", [] { gEventCODE->RunTimerEventProperties(); });
    EXPECT_TRUE(gEventCODE->RunEvents());
    gEventCODE->SetRunEvents(false);
  };
  user::DoubleClick(Grid(), RowOf(u"Module1"));
  world_.Services.ClockService.OnDoEvents = {};
  EXPECT_EQ(readings, 0);
  EXPECT_TRUE(gEventCODE->RunEvents());
  EXPECT_TRUE(gEventCODE->RunEventsProject());
  EXPECT_EQ(Count("VBProject.Type", [] { gEventCODE->RunTimerEventProperties(); }), 1)
      << "behind the jump they are heard again";
}

TEST_F(ExplorerActions, AComponentThatVanishedIsReportedAndTheNextNoticeTakesItsRowAway) {
  const auto environment = world_.Environment.WhoseCalls(model::CallsOf::AddIn);
  const int row = MemberOf(u"Form1", u"First");
  world_.Environment.RemoveComponent(u"", u"Form1");
  user::DoubleClick(Grid(), row);
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  world_.Environment.SelectComponent(u"Module1");
  gEventCODE->RunTimerEventProperties();
  EXPECT_EQ(RowOf(u"Form1"), -1);
  ExpectTruth();
}

TEST_F(ExplorerActions, AProjectThatVanishedIsReported) {
  world_.Environment.NewProject(u"Second", host::vbext_pt_StandardExe);
  Add(host::vbext_ct_StdModule, u"Module9", TwoSubs);
  user::Press(tree_->btnRefresh);
  world_.Environment.RemoveProject(u"Second");
  user::DoubleClick(Grid(), RowOf(u"Module9"));
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
}

TEST_F(ExplorerActions, WhateverCallOfAJumpFailsTheNextOneIsHeard) {
  const int row = MemberOf(u"Module1", u"Second");
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  for (const auto answer : {platform::MessageAnswer::Abort, platform::MessageAnswer::Retry,
                            platform::MessageAnswer::Ignore}) {
    for (int nth = 1;; ++nth) {
      int calls = 0;
      world_.Services.DesktopService.Answers.assign(10, answer);
      world_.Services.DesktopService.Messages.clear();
      world_.Environment.SetOperationHook([&](std::string_view) {
        if (++calls == nth) throw vb::Failure(7, u"no room");
      });
      user::DoubleClick(Grid(), row);
      world_.Environment.SetOperationHook({});
      const bool asked = calls >= nth;
      EXPECT_EQ(world_.Services.DesktopService.Messages.size(), asked ? 1U : 0U) << nth;
      world_.Environment.SetText(u"Form1", TwoSubs);
      EXPECT_GT(Count("VBProject.Type", [] { gEventCODE->RunTimerEventProperties(); }), 0)
          << "the busy mark is off";
      if (!asked) break;
    }
  }
}

// Menus

TEST_F(ExplorerActions, TheMenuHasEveryItemInItsOrder) {
  std::vector<std::string> items, adding;
  for (const forms::MenuItem* const item : tree_->MenuOfRows.mnuExplorerVB6.Items()) {
    items.push_back(vb::ToUtf8(item->Name()) + "=" + vb::ToUtf8(item->Caption()));
  }
  for (const forms::MenuItem* const item : tree_->MenuOfRows.mnuAddVB6.Items()) {
    adding.push_back(vb::ToUtf8(item->Name()) + "=" + vb::ToUtf8(item->Caption()));
  }
  EXPECT_EQ(
      items,
      (std::vector<std::string>{
          "mnuObjectVB6=View Object", "mnuCodeVB6=View Code", "mnuAddVB6=Add",
          "mnuProcedureBuilderVB6=Procedure Builder", "mnuPropertyBuilderVB6=Property Builder",
          "mnuCollectionBuilderVB6=Collection Builder", "mnuEnumBuilderVB6=Enum Builder",
          "mnuHideVB6=Hide", "mnuProperties=Properties..."}));
  EXPECT_EQ(adding, (std::vector<std::string>{
                        "mnuAddFormVB6=Form", "mnuMDIFormVB6=MDI Form", "mnuModuleVB6=Module",
                        "mnuClassModuleVB6=Class Module", "mnuUserControlsVB6=User Controls",
                        "mnuPropertyPageVB6=Property Page", "mnuUserDocumentVB6=User Document",
                        "mnuWebClassVB6=WebClass", "mnuDataReportVB6=Data Report",
                        "mnuDHTMLPageVB6=DHTML Page", "mnuDataEnvironmentVB6=Data Environment",
                        "mnuFileVB6=File ..."}));
  EXPECT_EQ(tree_->MenuOfRows.mnuExplorerVB6.Caption(), u"ExplorerVB6");
  EXPECT_EQ(tree_->MenuOfDocuments.mnuExplorerVBA.Caption(), u"Explorer");
}

TEST_F(ExplorerActions, ARightClickMakesTheRowCurrentAndLeavesItClosed) {
  user::Collapse(Grid(), RowOf(u"Form1"));
  const auto enabled = RightClick(RowOf(u"Form1"));
  EXPECT_EQ(popped_, u"mnuExplorerVB6");
  EXPECT_EQ(Current(), u"Form1");
  EXPECT_TRUE(Grid().RowAt(RowOf(u"Form1")).Collapsed);
  EXPECT_TRUE(enabled.at("mnuObjectVB6"));
  EXPECT_TRUE(enabled.at("mnuCodeVB6"));
  EXPECT_TRUE(tree_->btmObject.Enabled());
}

TEST_F(ExplorerActions, ANoticeWhileTheMenuIsUpWaitsAndTheRowStaysTheCurrentOne) {
  world_.Caret(u"Module1", 7);
  world_.Services.DesktopService.OnMenu = [&](forms::MenuItem&) {
    world_.Environment.SetText(u"Module1", TwoSubs.substr(0, TwoSubs.find(u"Sub Second")));
    gEventCODE->RunTimerEventCode();
    EXPECT_EQ(Current(), u"Form1");
    return String(u"mnuCodeVB6");
  };
  user::RightClick(Grid(), RowOf(u"Form1"));
  world_.Services.DesktopService.OnMenu = {};
  EXPECT_EQ(ActivePane(), u"Form1");
  ExpectTruth();
}

TEST_F(ExplorerActions, TheLeftButtonBringsNoMenu) {
  bool popped = false;
  world_.Services.DesktopService.OnMenu = [&](forms::MenuItem&) {
    popped = true;
    return String();
  };
  Grid().MouseDown(1, 2);
  world_.Services.DesktopService.OnMenu = {};
  EXPECT_FALSE(popped);
}

TEST_F(ExplorerActions, CodeAndObjectAreGreyedAboveTheComponents) {
  for (const int row : {0, 1}) {
    const auto enabled = RightClick(row);
    EXPECT_FALSE(enabled.at("mnuObjectVB6"));
    EXPECT_FALSE(enabled.at("mnuCodeVB6"));
  }
  const auto module = RightClick(RowOf(u"Module1"));
  EXPECT_FALSE(module.at("mnuObjectVB6"));
  EXPECT_TRUE(module.at("mnuCodeVB6"));
}

TEST_F(ExplorerActions, EveryAddingItemIsGreyedWithTheCommandOfTheEnvironment) {
  for (const explorer::AddingRow& row : explorer::AddingTable()) {
    const bool usable = Command(row.Command).Enabled();
    EXPECT_EQ(RightClick(2).at(std::string(row.Name)), usable) << row.Name;
    Command(row.Command).SetEnabled(false);
    EXPECT_FALSE(RightClick(2).at(std::string(row.Name))) << row.Name;
    EXPECT_FALSE(tree_->CheckEnableButtonADD(row.Command));
    Command(row.Command).SetEnabled(true);
    EXPECT_EQ(RightClick(2).at(std::string(row.Name)), usable) << row.Name;
  }
  EXPECT_FALSE(RightClick(2).at("mnuUserDocumentVB6")) << "documents belong into servers";
  EXPECT_TRUE(RightClick(2).at("mnuAddFormVB6"));
}

TEST_F(ExplorerActions, EveryAddingItemPressesTheCommandOfTheEnvironment) {
  world_.Environment.NewProject(u"Server", host::vbext_pt_ActiveXDll);
  user::Press(tree_->btnRefresh);
  for (const explorer::AddingRow& row : explorer::AddingTable()) {
    if (row.Command == u"Add File...") continue;  // an environment without files
    const int before = world_.Environment.VBE()->ActiveVBProject()->VBComponents()->Count();
    RightClick(0, String(row.Name.begin(), row.Name.end()));
    EXPECT_EQ(world_.Environment.VBE()->ActiveVBProject()->VBComponents()->Count(), before + 1)
        << row.Name;
    gEventCODE->RunTimerEventProperties();
    ExpectTruth(std::string(row.Name));
  }
  EXPECT_GT(Count("CommandBarControl.Execute", [&] { RightClick(0, u"mnuModuleVB6"); }), 0);
  EXPECT_TRUE(HasWindow(u"DesignerWindow", u"Form1"));
}

TEST_F(ExplorerActions, BuildersAndHidingAreTheRootsAffair) {
  for (const StringView item : {u"mnuProcedureBuilderVB6", u"mnuPropertyBuilderVB6",
                                u"mnuCollectionBuilderVB6", u"mnuEnumBuilderVB6", u"mnuHideVB6"}) {
    RightClick(2, item);
  }
  EXPECT_EQ(root_->Asked,
            (std::vector<std::string>{"ShowProcedureBuilder", "ShowPropertyBuilder",
                                      "ShowClassBuilder", "ShowEnum", "HideProjectExplorer"}));
}

TEST_F(ExplorerActions, ViewItemsAndPropertiesAreTheJump) {
  RightClick(RowOf(u"Form1"), u"mnuObjectVB6");
  EXPECT_TRUE(HasWindow(u"DesignerWindow", u"Form1"));
  RightClick(RowOf(u"Module1"), u"mnuCodeVB6");
  EXPECT_EQ(ActivePane(), u"Module1");
  RightClick(MemberOf(u"Form1", u"Second"), u"mnuProperties");
  EXPECT_EQ(ActivePane(), u"Form1");
  EXPECT_EQ(world_.Selection().StartLine, 5);
}

TEST_F(ExplorerActions, BesideTheRowsTheWindowsOwnMenuComes) {
  user::SelectRow(Grid(), RowOf(u"Module1"), 0);
  const auto enabled = RightClick(-1, u"mnuWindowHide");
  EXPECT_EQ(popped_, u"mnuWindow");
  EXPECT_EQ(enabled.size(), 4U);
  EXPECT_TRUE(enabled.at("mnuWindowCode"));
  EXPECT_FALSE(enabled.at("mnuWindowObject"));
  EXPECT_EQ(root_->Asked, (std::vector<std::string>{"HideProjectExplorer"}));
}

TEST_F(ExplorerActions, HostsOfDocumentsHaveAMenuOfTheirOwn) {
  gEventCODE->SetNameGlobalProcesses(u"EXCEL");
  auto enabled = RightClick(RowOf(u"Form1"));
  EXPECT_EQ(popped_, u"mnuExplorerVBA");
  EXPECT_EQ(tree_->MenuOfDocuments.mnuRemove.Caption(), u"Remove Form1");
  EXPECT_TRUE(enabled.at("mnuObject"));
  RightClick(0);
  EXPECT_EQ(tree_->MenuOfDocuments.mnuRemove.Caption(), u"Remove");
  for (const StringView item : {u"mnuImport", u"mnuExport", u"mnuRemove", u"mnuProperties"}) {
    world_.Caret(u"Module1", 1);
    RightClick(MemberOf(u"Form1", u"Second"), item);
    EXPECT_EQ(ActivePane(), u"Form1") << vb::ToUtf8(item) << " runs the jump";
    EXPECT_GE(RowOf(u"Form1"), 0) << "and no more";
  }
  for (const StringView item : {u"mnuForm", u"mnuModule", u"mnuClass"}) {
    const int before = Grid().Rows();
    RightClick(RowOf(u"Form1"), item);
    EXPECT_EQ(world_.Environment.VBE()->ActiveVBProject()->VBComponents()->Count(), 2);
    EXPECT_EQ(Grid().Rows(), before);
  }
  gEventCODE->SetNameGlobalProcesses(u"SOMETHING");
  RightClick(0);
  EXPECT_EQ(popped_, u"mnuExplorerVB6");
}

TEST_F(ExplorerActions, ACommandThatTheEnvironmentLacksIsReportedAndItsItemIsGrey) {
  EXPECT_FALSE(tree_->CheckEnableButtonADD(u"Add Nothing"));
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  EXPECT_FALSE(tree_->CheckObjEnable()) << "a form is no sheet";
}

TEST_F(ExplorerActions, WithoutARootNothingIsPressed) {
  root_.reset();
  RightClick(2, u"mnuEnumBuilderVB6");
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
}

// The line above the tree

std::vector<std::string> Captions(const forms::Grid& grid) {
  std::vector<std::string> captions;
  for (int row = 0; row < grid.Rows(); ++row) {
    captions.push_back(std::string(static_cast<std::size_t>(grid.RowAt(row).Level), '.') +
                       vb::ToUtf8(grid.TextMatrix(row, 0)));
  }
  return captions;
}

class ExplorerFind : public ExplorerActions {
 protected:
  std::vector<std::string> Find(StringView text) {
    user::Type(tree_->txtFind, text);
    return Captions(Grid());
  }
};

TEST_F(ExplorerFind, ShowsWhatHoldsEachPartInAnyOrderAndOpensTheWayThere) {
  user::Press(tree_->btnCollapse);
  EXPECT_EQ(Find(u"SEC form"),
            (std::vector<std::string>{"Project1", ".Forms", "..Form1", "...Second"}));
  EXPECT_TRUE(Grid().RowShows(3));
  EXPECT_EQ(Current(), u"Second");
  const auto captions = Captions(Grid());
  EXPECT_EQ(Find(u"form sec"), captions);
}

TEST_F(ExplorerFind, WideBlanksStandBetweenWordsAsWell) {
  const auto captions = Find(u"sec form");
  Find(u"");
  EXPECT_EQ(Find(u"sec\u3000form"), captions);
  EXPECT_EQ(Find(u"\u3000form\u3000\u3000sec\u3000"), captions);
  Find(u"\u3000");
  EXPECT_EQ(Grid().Rows(), 9);
}

TEST_F(ExplorerFind, AFoundComponentKeepsItsMembersBelowIt) {
  EXPECT_EQ(Find(u"module1"), (std::vector<std::string>{"Project1", ".Modules", "..Module1",
                                                        "...First", "...Second"}));
  EXPECT_TRUE(Grid().RowAt(2).Collapsed);
  EXPECT_EQ(Current(), u"Module1");
}

TEST_F(ExplorerFind, AMinusTakesAway) {
  EXPECT_EQ(Find(u"first -form1"),
            (std::vector<std::string>{"Project1", ".Modules", "..Module1", "...First"}));
  EXPECT_EQ(Find(u"-first -forms"),
            (std::vector<std::string>{"Project1", ".Modules", "..Module1", "...Second"}));
  Find(u"-");
  EXPECT_EQ(Grid().Rows(), 9) << "a minus by itself takes nothing";
}

TEST_F(ExplorerFind, WhatIsNowhereLeavesNothing) {
  EXPECT_TRUE(Find(u"nowhere").empty());
  EXPECT_FALSE(tree_->btmCode.Enabled());
  user::Key(tree_->txtFind, 13);
}

TEST_F(ExplorerFind, GivesTheTreeBackAsItWas) {
  user::Collapse(Grid(), RowOf(u"Form1"));
  user::SelectRow(Grid(), MemberOf(u"Module1", u"First"), 0);
  const auto rows = RowsIn(Grid());
  for (const bool byEscape : {false, true}) {
    Find(u"second");
    EXPECT_LT(Grid().Rows(), static_cast<int>(rows.size()));
    if (byEscape) {
      user::Key(tree_->txtFind, 27);
    } else {
      Find(u"");
    }
    EXPECT_EQ(tree_->txtFind.Text(), u"");
    EXPECT_EQ(RowsIn(Grid()), rows);
    EXPECT_TRUE(Grid().RowAt(RowOf(u"Form1")).Collapsed);
    EXPECT_FALSE(Grid().RowAt(RowOf(u"Module1")).Collapsed);
    EXPECT_EQ(Current(), u"First");
  }
}

TEST_F(ExplorerFind, WhatFindsNothingYetLeavesTheTreeAsItIs) {
  user::Collapse(Grid(), RowOf(u"Form1"));
  user::SelectRow(Grid(), MemberOf(u"Module1", u"First"), 0);
  const auto rows = RowsIn(Grid());
  for (const StringView text : {u" ", u"-", u"- -", u"-", u""}) {
    Find(text);
    EXPECT_EQ(RowsIn(Grid()), rows);
    EXPECT_TRUE(Grid().RowAt(RowOf(u"Form1")).Collapsed);
    EXPECT_EQ(Current(), u"First");
  }
  for (const StringView text : {u"-", u"-s", u"-se"}) Find(text);
  EXPECT_NE(RowsIn(Grid()), rows);
  user::Key(tree_->txtFind, 27);
  EXPECT_EQ(RowsIn(Grid()), rows);
  EXPECT_TRUE(Grid().RowAt(RowOf(u"Form1")).Collapsed);
  EXPECT_EQ(Current(), u"First");
}

TEST_F(ExplorerFind, EnterGoesToTheFirstFind) {
  Find(u"form1 second");
  user::Key(tree_->txtFind, 13);
  EXPECT_EQ(ActivePane(), u"Form1");
  EXPECT_EQ(world_.Selection().StartLine, 5);
  user::Key(tree_->txtFind, 27);
  EXPECT_EQ(Current(), u"Second") << "where the user went";
  EXPECT_TRUE(Grid().RowShows(Grid().Row()));
}

TEST_F(ExplorerFind, WhatIsTypedInTheCodeMeanwhileIsFoundAndIsThereBehindIt) {
  Find(u"third");
  EXPECT_EQ(Grid().Rows(), 0);
  world_.Environment.SetText(u"Module1", String(TwoSubs) + u"Sub Third()\r\nEnd Sub\r\n\r\n");
  world_.Caret(u"Module1", 9);
  gEventCODE->RunTimerEventCode();
  EXPECT_EQ(Captions(Grid()),
            (std::vector<std::string>{"Project1", ".Modules", "..Module1", "...Third"}));
  EXPECT_EQ(Current(), u"Third");
  Find(u"");
  ExpectTruth();
  EXPECT_EQ(Current(), u"Third");
}

TEST_F(ExplorerFind, FiltersOfKindsHoldForWhatIsFound) {
  user::Press(tree_->btnMethod);
  EXPECT_TRUE(Find(u"second").empty());
  user::Press(tree_->btnMethod);
  EXPECT_EQ(Grid().Rows(), 7);
}

TEST_F(ExplorerFind, GoingToTheCaretTakesBackWhatWasTyped) {
  world_.Caret(u"Module1", 3);
  Find(u"form1");
  tree_->SelectAtCaret();
  EXPECT_EQ(tree_->txtFind.Text(), u"");
  EXPECT_EQ(Current(), u"First");
  ExpectTruth();
}

TEST_F(ExplorerFind, TypingReadsNothingOfTheEnvironment) {
  int calls = 0;
  world_.Environment.SetOperationHook([&](std::string_view) { ++calls; });
  Find(u"fir");
  Find(u"");
  world_.Environment.SetOperationHook({});
  EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace tessel
