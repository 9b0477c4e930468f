// The Explorer follows what happens to projects and files, and where components share a name.

#include "explorer/ConnectedExplorer.h"
#include "forms/User.h"

namespace tessel {
namespace {

using ExplorerFollows = test::ConnectedExplorer;

constexpr StringView OneSub = u"Sub X()\r\nEnd Sub\r\n";

TEST_F(ExplorerFollows, AKeyInTheCodeOfOneProjectLeavesTheComponentOfThatNameInTheActiveOne) {
  OpenTwins();
  environment_.ActivateProject(u"P2");
  Wait();
  for (int times = 0; times < 3; ++times) {
    Key();
    Wait();
    ExpectTruth(std::to_string(times));
  }
  EXPECT_EQ(Current(), "P1.Form1.A") << "where the caret is";
}

TEST_F(ExplorerFollows, AKeyInTheCodeOfAProjectThatIsNotActiveReadsNothingElse) {
  OpenTwins();
  environment_.RenameComponent(u"P2", u"Form1", u"Form2");
  environment_.ActivateProject(u"P2");
  Wait();
  static_cast<void>(Grid().TakeChanges());
  Key();
  Wait();
  EXPECT_FALSE(Grid().TakeChanges().Shape) << "no row was made anew";
  ExpectTruth();
}

TEST_F(ExplorerFollows, TheMemberAtTheCaretIsOneOfItsOwnProjectAlone) {
  OpenTwins();
  EXPECT_EQ(Current(), "P1.Form1.A");
  environment_.ActivateProject(u"P2");
  Wait();
  EXPECT_EQ(Current(), "P2.Form1.Form1");
}

TEST_F(ExplorerFollows, AProjectThatIsOpenedStandsInTheTree) {
  AddProject(u"P");
  Show();
  const auto file = folder_.Write("Q.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"Q\"\r\n");
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub\r\n");
  environment_.Open(file);
  Wait();
  EXPECT_GE(RowOf(u"Q", u"A"), 0);
  ExpectTruth();
}

TEST_F(ExplorerFollows, AProjectThatGetsItsFileHasItsOtherCaption) {
  AddProject(u"P");
  Add(u"P", host::vbext_ct_StdModule, u"M", OneSub);
  Show();
  environment_.SaveProjectAs(Root()->Active(), folder_.Path() / "Kept.vbp");
  Wait();
  EXPECT_EQ(Grid().TextMatrix(0, 0), u"P[Kept.vbp]");
  ExpectTruth();
}

TEST_F(ExplorerFollows, AJumpFindsItsComponentAheadOfTheNoticeOfASave) {
  AddProject(u"P");
  Add(u"P", host::vbext_ct_StdModule, u"M", OneSub);
  Show();
  forms::user::Press(tree_->btnExpand);
  environment_.SaveProjectAs(Root()->Active(), folder_.Path() / "Kept.vbp");
  forms::user::SelectRow(Grid(), RowOf(u"P", u"X"), 0);
  Run([&] { forms::user::DoubleClick(Grid(), RowOf(u"P", u"X")); });
  ASSERT_TRUE(environment_.VBE()->ActiveCodePane());
  EXPECT_EQ(environment_.VBE()->ActiveCodePane()->CodeModule()->Name(), u"M");
}

TEST_F(ExplorerFollows, AComponentThatIsLoadedAgainShowsWhatItsFileHolds) {
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub\r\n");
  environment_.Open(folder_.Path() / "P.vbp");
  Show();
  for (const bool shown : {false, true}) {
    if (shown) environment_.SetCaret(u"M", {1, 1, 1, 1});
    Wait();
    folder_.Write("M.bas", std::string("Attribute VB_Name = \"M\"\r\nSub ") +
                               (shown ? "Shown" : "Hidden") + "()\r\nEnd Sub\r\n");
    environment_.Reload(*environment_.Component(u"M"));
    Wait();
    ExpectTruth(shown ? "shown" : "hidden");
  }
}

class ExplorerBehindTwoWindows : public ExplorerFollows {
 protected:
  ExplorerBehindTwoWindows() {
    AddProject(u"P");
    for (const StringView name : {u"A", u"B", u"C"}) {
      Add(u"P", host::vbext_ct_StdModule, name, OneSub);
    }
    Show();
    for (const StringView name : {u"C", u"B", u"A", u"A"}) {
      Click(name);
      Wait();
    }
  }
  void Click(StringView name) { environment_.SetCaret(name, {1, 1, 1, 1}); }
  void Edit(StringView name) {
    Click(name);
    environment_.SetText(name, u"Sub Fresh()\r\nEnd Sub\r\n");
  }
};

TEST_F(ExplorerBehindTwoWindows, AnEditInOneThatIsLeftAtOnceIsNotLost) {
  Edit(u"B");
  Wait(60);
  Click(u"A");
  Wait();
  ExpectTruth();
}

TEST_F(ExplorerBehindTwoWindows, AnEditOnTheWayThereAndBackIsNotLost) {
  Click(u"A");
  Wait(20);
  Edit(u"B");
  Wait(20);
  Click(u"A");
  Wait();
  ExpectTruth();
}

TEST_F(ExplorerBehindTwoWindows, AChangeToAnotherWindowComparesThatOneAlone) {
  Click(u"B");
  int walks = 0;
  environment_.SetOperationHook(
      [&](std::string_view one) { walks += one == "VBComponents.Count" ? 1 : 0; });
  Wait();
  environment_.SetOperationHook({});
  EXPECT_EQ(walks, 0) << "over the components";
  EXPECT_EQ(Current(), "P.B.X");
}

TEST_F(ExplorerFollows, AFormThatIsClickedIsTheSelectedComponent) {
  AddProject(u"P");
  const auto form = Add(u"P", host::vbext_ct_VBForm, u"Form1", u"");
  Add(u"P", host::vbext_ct_VBForm, u"Form2", u"");
  form->MakeWindow();
  Show();
  Wait();
  EXPECT_EQ(Current(), "P.Form2.Form2");
  model::ClickChild(environment_.OwnWindows(), form->DesignerHandle());
  Wait();
  EXPECT_EQ(Current(), "P.Form1.Form1");
}

TEST_F(ExplorerFollows, AFormThatGetsAControlIsTheSelectedComponentOfTheActiveProject) {
  services_.DesktopService.OnModal = [](forms::Form& form) {
    forms::user::Press(*form.Find(u"btmCansel"));
  };
  AddProject(u"P");
  Add(u"P", host::vbext_ct_VBForm, u"Form1", u"");
  AddProject(u"Q");
  Add(u"Q", host::vbext_ct_VBForm, u"Form2", u"");
  Show();
  Wait();
  environment_.AddControl(u"Form1", u"CommandButton", u"Command1", {});
  Wait();
  EXPECT_EQ(Current(), "P.Form1.Form1");
  EXPECT_EQ(environment_.VBE()->ActiveVBProject()->Name(), u"P");
}

TEST_F(ExplorerFollows, WordsFromAheadOfTheFirstReadingCanBeTakenBack) {
  AddProject(u"P");
  Add(u"P", host::vbext_ct_StdModule, u"M", OneSub);
  services_.DesktopService.OnModal = [](forms::Form& form) {
    forms::user::Press(*form.Find(u"btnAbort"));
  };
  environment_.SetOperationHook([](std::string_view one) {
    if (one == "VBE.VBProjects") throw vb::Failure(7, u"no room");
  });
  Show();
  environment_.SetOperationHook({});
  EXPECT_FALSE(errors_.Take().empty());
  ASSERT_EQ(Grid().Rows(), 0);
  Run([&] {
    forms::user::Type(tree_->txtFind, u"zzz");
    forms::user::Press(tree_->btnRefresh);
  });
  EXPECT_EQ(Grid().Rows(), 0);
  Run([&] { forms::user::Type(tree_->txtFind, u""); });
  ExpectTruth();
}

}  // namespace
}  // namespace tessel
