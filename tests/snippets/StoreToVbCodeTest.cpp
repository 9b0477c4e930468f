#include "snippets/frmStoreToVbCode.h"

#include <random>

#include "snippets/SnippetDialogs.h"
#include "snippets/frmGetFromVbCode.h"

namespace tessel {
namespace {

namespace user = forms::user;
using platform::MessageAnswer;

std::string Module(const std::string& name) {
  return "Attribute VB_Name = \"" + name + "\"\r\n'" + name + "\r\n";
}
std::string Designed(const std::string& kind, const std::string& name,
                     const std::string& inside = {}) {
  return "VERSION 5.00\r\nBegin VB." + kind + " " + name + " \r\n" + inside +
         "End\r\nAttribute VB_Name = \"" + name + "\"\r\nAttribute VB_Exposed = False\r\n'" + name +
         "\r\n";
}
std::string Class(const std::string& name) {
  return "VERSION 1.0 CLASS\r\nBEGIN\r\nEND\r\nAttribute VB_Name = \"" + name +
         "\"\r\nAttribute VB_Exposed = False\r\n'" + name + "\r\n";
}
const std::string Pictures("\x00\xff\r\n\x1a\x80", 6);

class StoreToSnippets : public test::SnippetDialogs {
 protected:
  StoreToSnippets() {
    main_ = Libraries.Add(u"Marlow");
    own_ = Libraries.Add(u"UserConnect1");
  }
  /// A component of every kind.
  void OpenEverything() {
    Folder.Write("F.frx", Pictures);
    Folder.Write("D.dox", Pictures);
    OpenProject(
        {{"Module=M; M.bas", Module("M")},
         {"PropertyPage=P.pag", Designed("PropertyPage", "P")},
         {"UserControl=U.ctl", Designed("UserControl", "U")},
         {"Form=Main.frm", Designed("MDIForm", "Main")},
         {"UserDocument=D.dob", Designed("UserDocument", "D", "   Icon = \"D.dox\":0000\r\n")},
         {"Designer=R.dsr", Designed("DataReport", "R")},
         {"Class=C; C.cls", Class("C")},
         {"Form=F.frm", Designed("Form", "F", "   Icon = \"F.frx\":0000\r\n")}});
  }
  void OpenModules() {
    OpenProject({{"Module=A; A.bas", Module("A")}, {"Module=B; B.bas", Module("B")}});
  }
  /// Ticks everything and goes to the second page.
  std::shared_ptr<frmStoreToVbCode> OpenSecondPage() {
    auto dialog = Open<frmStoreToVbCode>();
    user::Press(dialog->btmSelectAll);
    user::Press(dialog->btmNext);
    return dialog;
  }
  /// Stores everything below the top of a library.
  void StoreAll(bool folders = false, int top = 0) {
    const auto dialog = OpenSecondPage();
    user::Check(dialog->chkCreateClasses, folders ? 1 : 0);
    user::SelectRow(dialog->fgTreeNext, top, 0);
    user::Press(dialog->btmNext);
    EXPECT_FALSE(dialog->IsLoaded());
  }

  std::shared_ptr<CSQLTree> main_, own_;
};

TEST_F(StoreToSnippets, ListsTheComponentsOfEveryProjectByKind) {
  OpenEverything();
  Workspace.NewProject(u"Second", host::vbext_pt_ActiveXDll);
  Workspace.AddComponent(u"", host::vbext_ct_ClassModule, u"Mine", u"");
  const auto dialog = Open<frmStoreToVbCode>();
  EXPECT_EQ(dialog->Caption(), u"Store to Snippets");
  EXPECT_EQ(dialog->fgTreeBack.TextMatrix(0, 0), u"Tree");
  EXPECT_EQ(Rows(dialog->fgTreeBack),
            "P|\n"
            "  Forms|\n    F|False\n"
            "  Modules|\n    M|False\n"
            "  Class Modules|\n    C|False\n"
            "  ActiveX Designers|\n    R|False\n"
            "  User Documents|\n    D|False\n"
            "  Forms MDI|\n    Main|False\n"
            "  User Controls|\n    U|False\n"
            "  Property Pages|\n    P|False\n"
            "Second|\n"
            "  Class Modules|\n    Mine|False\n");
  EXPECT_EQ(dialog->fgTreeBack.RowAt(3).CellData, u"1.8.5");
  EXPECT_EQ(dialog->fgTreeBack.RowAt(5).CellData, u"1.1.1");
  EXPECT_EQ(dialog->fgTreeBack.RowAt(20).CellData, u"2.1.2");
  EXPECT_EQ(dialog->fgTreeBack.RowAt(1).CellData, u"") << "no key for a project";
  EXPECT_EQ(dialog->fgTreeBack.RowAt(2).CellData, u"") << "nor for a group";
  EXPECT_EQ(dialog->fgTreeBack.RowAt(1).Picture, 133);
  EXPECT_EQ(dialog->fgTreeBack.RowAt(18).Picture, 131);
  EXPECT_EQ(dialog->fgTreeBack.RowAt(2).Picture, 112);
  EXPECT_EQ(dialog->fgTreeBack.RowAt(13).Picture, 117);
  EXPECT_THROW(user::EditCell(dialog->fgTreeBack, 3, 0, u"x"), vb::Failure);
  EXPECT_THROW(user::EditCell(dialog->fgTreeBack, 2, 1, u"True"), vb::Failure);
  dialog->Unload();
}

TEST_F(StoreToSnippets, GoesOnWhileAComponentIsTicked) {
  OpenModules();
  const auto dialog = Open<frmStoreToVbCode>();
  EXPECT_FALSE(dialog->btmNext.Enabled());
  EXPECT_FALSE(dialog->btmBask.Enabled());
  EXPECT_EQ(dialog->btmNext.Caption(), u"Next >>");
  TickRow(dialog->fgTreeBack, u"A");
  EXPECT_TRUE(dialog->btmNext.Enabled());
  TickRow(dialog->fgTreeBack, u"A", false);
  EXPECT_FALSE(dialog->btmNext.Enabled());
  user::Press(dialog->btmSelectAll);
  user::Press(dialog->btmNext);
  EXPECT_EQ(dialog->C1TFirstNext.CurrTab(), 1);
  EXPECT_EQ(dialog->btmNext.Caption(), u"Run");
  EXPECT_TRUE(dialog->btmBask.Enabled());
  user::Press(dialog->btmBask);
  EXPECT_EQ(dialog->C1TFirstNext.CurrTab(), 0);
  EXPECT_EQ(dialog->btmNext.Caption(), u"Next >>");
  EXPECT_FALSE(dialog->btmBask.Enabled());
  EXPECT_TRUE(dialog->btmNext.Enabled());
  user::Press(dialog->btmSelectNone);
  EXPECT_FALSE(dialog->btmNext.Enabled());
  user::Press(dialog->btmCancel);
  EXPECT_EQ(Root->Hidden, 1);
  EXPECT_FALSE(Root->Open);
  EXPECT_EQ(Library(u"Marlow"), "");
}

TEST_F(StoreToSnippets, OffersEveryDatabaseAndRunsIntoFoldersOnly) {
  OpenModules();
  const auto folder = main_->AddNode(u"Texts", TopID, 0, 0, FolderKind);
  main_->AddNode(u"record", folder, 0, 0, RecordKind);
  const auto dialog = OpenSecondPage();
  auto& grid = dialog->fgTreeNext;
  EXPECT_EQ(Rows(grid), "User Database\n  Texts\n    record\nUser Database\n");
  EXPECT_EQ(grid.RowAt(0).CellData, u"Marlow.1.1");
  EXPECT_EQ(grid.RowAt(1).CellData, u"Marlow.0.1");
  EXPECT_EQ(grid.RowAt(2).CellData, u"Marlow.0.0");
  EXPECT_EQ(grid.RowAt(3).CellData, u"UserConnect1.1.1");
  struct Enabled {
    int Row;
    bool Add, Edit, Next;
  };
  for (const Enabled& one : {Enabled{0, true, false, true},
                             {1, true, true, true},
                             {2, false, false, false},
                             {3, true, false, true}}) {
    user::SelectRow(grid, one.Row, 0);
    EXPECT_EQ(dialog->btmAddFolder.Enabled(), one.Add) << one.Row;
    EXPECT_EQ(dialog->btmEditFolder.Enabled(), one.Edit) << one.Row;
    EXPECT_EQ(dialog->btmDeleteFolder.Enabled(), one.Edit) << one.Row;
    EXPECT_EQ(dialog->btmNext.Enabled(), one.Next) << one.Row;
  }
  user::SelectRow(grid, 2, 0);
  user::Press(dialog->btmBask);
  EXPECT_TRUE(dialog->btmNext.Enabled()) << "components are ticked";
  user::Press(dialog->btmNext);
  EXPECT_FALSE(dialog->btmNext.Enabled()) << "a record is still current";
  dialog->Unload();
}

TEST_F(StoreToSnippets, AsksForAFolderWhereNoneIsChosen) {
  OpenModules();
  const auto dialog = OpenSecondPage();
  EXPECT_EQ(dialog->fgTreeNext.Row(), -1);
  EXPECT_FALSE(dialog->btmAddFolder.Enabled());
  user::Press(dialog->btmNext);
  Expected = {"It is necessary to choose the node to add objects"};
  EXPECT_EQ(Services.DesktopService.Messages.back().Style, 48);
  EXPECT_EQ(dialog->C1TFirstNext.CurrTab(), 1);
  EXPECT_TRUE(dialog->Visible());
  EXPECT_EQ(Library(u"Marlow"), "");
  dialog->Unload();
}

TEST_F(StoreToSnippets, BeginsAtTheFolderOfTheSettings) {
  OpenModules();
  main_->AddNode(u"Texts", TopID, 0, 0, FolderKind);
  const auto id = main_->AddNode(u"Mine", TopID, 0, 0, FolderKind);
  gAppSettings->SaveSetting(u"Settings\\VBCode", u"SelectedFolder", vb::Str(id));
  const auto dialog = OpenSecondPage();
  EXPECT_EQ(dialog->fgTreeNext.RowAt(dialog->fgTreeNext.Row()).Data, id);
  EXPECT_TRUE(dialog->btmEditFolder.Enabled());
  user::Press(dialog->btmNext);
  EXPECT_EQ(Library(u"Marlow"), "Mine/\n  A A.BAS\n  B B.BAS\nTexts/\n");
}

TEST_F(StoreToSnippets, EachComponentBecomesARecordOfItsKind) {
  OpenEverything();
  StoreAll();
  EXPECT_EQ(Library(u"Marlow"),
            "F F.FRM\nM M.BAS\nC C.CLS\nR R.DSR\nD D.DOB\nMain Main.FRD\nU U.CTL\nP P.PAG\n");
  EXPECT_EQ(Library(u"UserConnect1"), "");
  const ListFragment form = Stored(u"Marlow", u"F");
  EXPECT_EQ(vb::ToUtf8(form.TitleObj + form.TextObj),
            Designed("Form", "F", "   Icon = \"F.frx\":0000\r\n"));
  EXPECT_EQ(form.CompObj.size(), Pictures.size());
  EXPECT_EQ(form.Text, u"");
  EXPECT_EQ(Stored(u"Marlow", u"Main").CompObj, u"");
  const std::filesystem::path temporary(Services.AppService.TemporaryFolder());
  EXPECT_TRUE(std::filesystem::is_empty(temporary / "TempVB6")) << "nothing is left behind";
}

TEST_F(StoreToSnippets, MimicsTheOrganizationOfTheProject) {
  OpenEverything();
  StoreAll(true, 1);
  EXPECT_EQ(Library(u"UserConnect1"),
            "Property Page/\n  P P.PAG\nUser Control/\n  U U.CTL\nForms MDI/\n  Main Main.FRD\n"
            "User Documents/\n  D D.DOB\nActiveX Designers/\n  R R.DSR\nClass Modules/\n  C C.CLS\n"
            "Modules/\n  M M.BAS\nForms/\n  F F.FRM\n")
      << "folders enter at the front; a single title is no slip";
  EXPECT_EQ(Library(u"Marlow"), "");
}

TEST_F(StoreToSnippets, OneFormMakesOneFolder) {
  OpenEverything();
  const auto dialog = Open<frmStoreToVbCode>();
  TickRow(dialog->fgTreeBack, u"F");
  user::Press(dialog->btmNext);
  user::Check(dialog->chkCreateClasses, 1);
  user::SelectRow(dialog->fgTreeNext, 0, 0);
  user::Press(dialog->btmNext);
  EXPECT_EQ(Library(u"Marlow"), "Forms/\n  F F.FRM\n");
}

TEST_F(StoreToSnippets, ASecondRunAddsEverythingOnceMore) {
  OpenModules();
  StoreAll();
  StoreAll();
  EXPECT_EQ(Library(u"Marlow"), "A A.BAS\nB B.BAS\nA A.BAS\nB B.BAS\n");
}

TEST_F(StoreToSnippets, NothingTickedAddsNothing) {
  OpenModules();
  for (const int folders : {0, 1}) {
    const auto dialog = Open<frmStoreToVbCode>();
    user::SelectPage(dialog->C1TFirstNext, 1);
    EXPECT_EQ(dialog->btmNext.Caption(), u"Run") << "the page was turned by its tab";
    user::Check(dialog->chkCreateClasses, folders);
    user::SelectRow(dialog->fgTreeNext, 0, 0);
    user::Press(dialog->btmNext);
    EXPECT_EQ(Library(u"Marlow"), "");
  }
}

TEST_F(StoreToSnippets, StoresWhatIsOpenAndNotWhatWasSaved) {
  OpenModules();
  Workspace.SetText(u"A", u"'changed");
  Workspace.AddComponent(u"", host::vbext_ct_StdModule, u"Fresh", u"'never saved");
  StoreAll();
  EXPECT_EQ(Stored(u"Marlow", u"A").TextObj, u"'changed\r\n");
  EXPECT_EQ(Stored(u"Marlow", u"Fresh").TextObj, u"'never saved\r\n");
  EXPECT_EQ(Folder.Read("A.bas"), Module("A"));
  EXPECT_TRUE(Workspace.IsModified(*Workspace.Component(u"A")));
}

TEST_F(StoreToSnippets, AProjectThatWasNeverSavedIsStoredToo) {
  Workspace.NewProject(u"New", host::vbext_pt_StandardExe);
  Workspace.AddComponent(u"", host::vbext_ct_ClassModule, u"Mine", u"'mine");
  StoreAll();
  EXPECT_EQ(Library(u"Marlow"), "Mine Mine.CLS\n");
  EXPECT_EQ(Stored(u"Marlow", u"Mine").TextObj, u"'mine\r\n");
}

TEST_F(StoreToSnippets, SourcesAreReadInTheCodePageOfTheirProject) {
  workspace::Workspace russian(Services, {1251});
  Folder.Write("M.bas", "Attribute VB_Name = \"M\"\r\n'\xc6\r\n");
  russian.Open(Folder.Write("R.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"R\"\r\n"));
  const auto dialog = std::make_shared<frmStoreToVbCode>();
  dialog->VBInstance = russian.VBE();
  dialog->Connect = Root;
  dialog->Show();
  user::Press(dialog->btmSelectAll);
  user::Press(dialog->btmNext);
  user::SelectRow(dialog->fgTreeNext, 0, 0);
  user::Press(dialog->btmNext);
  EXPECT_EQ(Stored(u"Marlow", u"M").TextObj, u"'\u0416\r\n");
  dialog->Unload();
}

TEST_F(StoreToSnippets, AFormWithoutPicturesIsReportedAndStored) {
  OpenProject({{"Form=F.frm", Designed("Form", "F")}, {"Module=A; A.bas", Module("A")}});
  Services.DesktopService.Answers = {MessageAnswer::Ignore};
  StoreAll();
  EXPECT_EQ(Library(u"Marlow"), "F F.FRM\nA A.BAS\n");
  EXPECT_EQ(Stored(u"Marlow", u"F").CompObj, u"");
  ASSERT_EQ(Texts().size(), 1U);
  EXPECT_NE(Texts().front().find("F.frx"), std::string::npos) << Texts().front();
  Expected = Texts();
}

TEST_F(StoreToSnippets, WhatFailsToExportLeavesItsEmptyRecord) {
  OpenModules();
  const auto dialog = OpenSecondPage();
  user::SelectRow(dialog->fgTreeNext, 0, 0);
  Workspace.SetOperationHook([left = 1](std::string_view call) mutable {
    if (call == "VBComponent.SaveAs" && left-- > 0) throw vb::Failure(7, u"no room");
  });
  Services.DesktopService.Answers = {MessageAnswer::Ignore};
  user::Press(dialog->btmNext);
  EXPECT_EQ(Library(u"Marlow"), "A\nB B.BAS\n");
  ASSERT_EQ(Texts().size(), 1U);
  EXPECT_NE(Texts().front().find("no room"), std::string::npos);
  Expected = Texts();
}

// Folders

TEST_F(StoreToSnippets, ANewFolderIsNamedAtOnce) {
  OpenModules();
  const auto dialog = OpenSecondPage();
  auto& grid = dialog->fgTreeNext;
  user::SelectRow(grid, 1, 0);
  user::Press(dialog->btmAddFolder);
  EXPECT_EQ(Rows(grid), "User Database\nUser Database\n  New Folder\n");
  ASSERT_TRUE(grid.Editing());
  EXPECT_EQ(grid.Row(), 2);
  user::EditCell(grid, 2, 0, u"It's \"100%\"");
  EXPECT_EQ(Library(u"UserConnect1"), "It's \"100%\"/\n");
  user::Press(dialog->btmAddFolder);
  user::LeaveEdit(grid);
  EXPECT_EQ(Library(u"UserConnect1"), "It's \"100%\"/\n  New Folder/\n");
  user::Press(dialog->btmNext);
  EXPECT_EQ(Library(u"UserConnect1"), "It's \"100%\"/\n  New Folder/\n    A A.BAS\n    B B.BAS\n");
}

TEST_F(StoreToSnippets, AFolderIsRenamedButNoTop) {
  OpenModules();
  main_->AddNode(u"Texts", TopID, 0, 0, FolderKind);
  const auto dialog = OpenSecondPage();
  user::SelectRow(dialog->fgTreeNext, 1, 0);
  user::Press(dialog->btmEditFolder);
  ASSERT_TRUE(dialog->fgTreeNext.Editing());
  user::EditCell(dialog->fgTreeNext, 1, 0, u"Words");
  EXPECT_EQ(Library(u"Marlow"), "Words/\n");
  EXPECT_THROW(user::EditCell(dialog->fgTreeNext, 0, 0, u"Top"), vb::Failure);
  EXPECT_EQ(main_->GetNameRootTree(), u"User Database");
  dialog->Unload();
}

TEST_F(StoreToSnippets, AFolderGoesWithAllBelowItAfterAQuestion) {
  OpenModules();
  const auto folder = main_->AddNode(u"Texts", TopID, 0, 0, FolderKind);
  const auto inner = main_->AddNode(u"Inner", folder, 0, 0, FolderKind);
  main_->AddNode(u"record", inner, 0, 0, RecordKind);
  main_->AddNode(u"Kept", TopID, 0, 0, RecordKind);
  const auto dialog = OpenSecondPage();
  user::SelectRow(dialog->fgTreeNext, 1, 0);
  Services.DesktopService.Answers = {MessageAnswer::No, MessageAnswer::Yes};
  user::Press(dialog->btmDeleteFolder);
  EXPECT_EQ(dialog->fgTreeNext.Rows(), 6);
  user::Press(dialog->btmDeleteFolder);
  EXPECT_EQ(Rows(dialog->fgTreeNext), "User Database\n  Kept\nUser Database\n");
  EXPECT_EQ(Library(u"Marlow"), "Kept\n");
  EXPECT_EQ(dialog->fgTreeNext.Row(), 1);
  EXPECT_FALSE(dialog->btmNext.Enabled()) << "a record is current now";
  EXPECT_EQ(Services.DesktopService.Messages.back().Style, 292);
  Expected.assign(2, "Are you sure to delete folder 'Texts' and subfolders?");
  dialog->Unload();
}

TEST_F(StoreToSnippets, KeepsItsChoices) {
  OpenModules();
  auto dialog = OpenSecondPage();
  EXPECT_EQ(dialog->chkCreateClasses.Value(), 0);
  user::Check(dialog->chkCreateClasses, 1);
  user::Press(dialog->btmBask);
  user::ResizeColumn(dialog->fgTreeBack, 0, 33);
  dialog->Unload();
  EXPECT_EQ(Setting(u"\\frmStoreToVbCode", u"chkCreateClasses"), u"1");
  EXPECT_EQ(Setting(u"\\frmStoreToVbCode", u"BackColWidth0"), u"3960");
  EXPECT_NE(Setting(u"\\frmStoreToVbCode", u"BackColWidth1"), u"(none)");
  dialog = Open<frmStoreToVbCode>();
  EXPECT_EQ(dialog->chkCreateClasses.Value(), 1);
  EXPECT_EQ((*dialog->fgTreeBack.ColumnWidths)[0], 33);
  user::Press(dialog->btmHelp);
  EXPECT_TRUE(Services.DesktopService.Journal.back().ends_with("Store_to_ Snippets.htm"));
  dialog->Unload();
}

// Failures

TEST_F(StoreToSnippets, WhateverCallFailsTheTreeIsSoundAndNothingElseIsLost) {
  OpenModules();
  struct Outcome {
    std::string Library;
    std::size_t Asked;
  };
  std::vector<std::string> calls;
  const auto play = [&](std::size_t nth, MessageAnswer answer) {
    main_->Connection()->Execute(u"DELETE FROM Tree WHERE ID > 1");
    main_->Connection()->Execute(u"UPDATE Tree SET lft = 1, rgt = 2");
    Services.DesktopService.Messages.clear();
    Services.DesktopService.Answers.assign(10, answer);
    std::size_t made = 0;
    Workspace.SetOperationHook([&](std::string_view call) {
      if (nth == 0) calls.emplace_back(call);
      if (++made == nth) throw vb::Failure(7, u"no room");
    });
    const auto dialog = Open<frmStoreToVbCode>();
    if (dialog->btmSelectAll.Enabled()) user::Press(dialog->btmSelectAll);
    if (dialog->btmNext.Enabled()) {
      user::Press(dialog->btmNext);
      user::Check(dialog->chkCreateClasses, 1);
      user::SelectRow(dialog->fgTreeNext, 0, 0);
      user::Press(dialog->btmNext);
    }
    Workspace.SetOperationHook({});
    dialog->Unload();
    EXPECT_FALSE(Root->Open);
    Root->Open = true;
    EXPECT_EQ(test::Unsound(test::RowsOf(main_->Connection())), "");
    return Outcome{Library(u"Marlow"), Texts().size()};
  };
  const Outcome clean = play(0, MessageAnswer::Abort);
  EXPECT_EQ(clean.Library, "Modules/\n  A A.BAS\n  B B.BAS\n");
  ASSERT_GT(calls.size(), 15U);
  for (std::size_t nth = 1; nth <= calls.size(); ++nth) {
    for (const auto answer : {MessageAnswer::Abort, MessageAnswer::Retry, MessageAnswer::Ignore}) {
      const Outcome outcome = play(nth, answer);
      const std::string label = calls[nth - 1] + " " + std::to_string(nth);
      EXPECT_GE(outcome.Asked, 1U) << label;
      if (answer == MessageAnswer::Retry) {
        EXPECT_EQ(outcome.Asked, 1U) << label;
        EXPECT_EQ(outcome.Library, clean.Library) << label;
      }
    }
  }
  Expected = Texts();
}

TEST_F(StoreToSnippets, ADatabaseThatCantBeWrittenIsToldAndTheWizardCloses) {
  OpenModules();
  const auto dialog = OpenSecondPage();
  user::SelectRow(dialog->fgTreeNext, 0, 0);
  test::OpenLibraries::At(u"Marlow")->Execute(u"PRAGMA query_only = 1");
  Services.DesktopService.Answers.assign(4, MessageAnswer::Ignore);
  user::Press(dialog->btmNext);
  test::OpenLibraries::At(u"Marlow")->Execute(u"PRAGMA query_only = 0");
  EXPECT_EQ(Library(u"Marlow"), "");
  ASSERT_EQ(Texts().size(), 2U) << "one for each component";
  for (const std::string& text : Texts()) {
    EXPECT_NE(text.find("CSQLTree component failure"), std::string::npos) << text;
  }
  EXPECT_FALSE(dialog->IsLoaded());
  Expected = Texts();
}

TEST_F(StoreToSnippets, AFolderThatAnotherProcessTookKeepsNothing) {
  OpenModules();
  const auto folder = main_->AddNode(u"Texts", TopID, 0, 0, FolderKind);
  const auto dialog = OpenSecondPage();
  user::SelectRow(dialog->fgTreeNext, 1, 0);
  main_->DeleteNode(folder);
  Services.DesktopService.Answers.assign(2, MessageAnswer::Ignore);
  user::Press(dialog->btmNext);
  EXPECT_EQ(Library(u"Marlow"), "");
  EXPECT_TRUE(test::ListIdsOf(main_->Connection()).empty());
  EXPECT_EQ(Texts().size(), 2U);
  Expected = Texts();
}

TEST_F(StoreToSnippets, AFolderThatAnotherProcessTookKeepsNoGroupEither) {
  OpenModules();
  const auto folder = main_->AddNode(u"Texts", TopID, 0, 0, FolderKind);
  const auto dialog = OpenSecondPage();
  user::Check(dialog->chkCreateClasses, 1);
  user::SelectRow(dialog->fgTreeNext, 1, 0);
  main_->DeleteNode(folder);
  Services.DesktopService.Answers.assign(1, MessageAnswer::Ignore);
  user::Press(dialog->btmNext);
  EXPECT_EQ(Library(u"Marlow"), "");
  EXPECT_TRUE(test::ListIdsOf(main_->Connection()).empty());
  ASSERT_EQ(Texts().size(), 1U) << "one for the group";
  EXPECT_NE(Texts()[0].find("The folder \"Modules\" can't be added"), std::string::npos);
  Expected = Texts();
}

TEST_F(StoreToSnippets, TheFoldersShownAreThoseOfTheTableWhenNothingCanBeWritten) {
  OpenModules();
  static_cast<void>(main_->AddNode(u"Texts", TopID, 0, 0, FolderKind));
  const auto dialog = OpenSecondPage();
  const test::Reader reader(*Libraries.At(u"Marlow"));
  user::SelectRow(dialog->fgTreeNext, 1, 0);
  Services.DesktopService.Answers.assign(1, MessageAnswer::Yes);
  user::Press(dialog->btmDeleteFolder);
  user::EditCell(dialog->fgTreeNext, 1, 0, u"renamed");
  EXPECT_EQ(dialog->fgTreeNext.TextMatrix(1, 0), u"Texts");
  user::Press(dialog->btmAddFolder);
  EXPECT_EQ(dialog->fgTreeNext.RowAt(2).Data, 0) << "a row without a node";
  Expected = Texts();
  EXPECT_EQ(Expected.size(), 1U) << "the question";
}

// Both ways

TEST_F(StoreToSnippets, WhatWasStoredComesBackTheSameIntoAnotherProject) {
  OpenEverything();
  StoreAll(true);
  Workspace.Close(std::dynamic_pointer_cast<model::VBProject>(Workspace.VBE()->ActiveVBProject()));
  const test::TemporaryFolder other;
  Workspace.Open(other.Write("N.vbp", "Type=Exe\r\nName=\"N\"\r\n"));
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmSelectAll);
  user::Press(dialog->btmRun);
  dialog->Unload();
  Workspace.Save();
  for (const char* const file :
       {"M.bas", "P.pag", "U.ctl", "Main.frm", "D.dob", "R.dsr", "C.cls", "F.frm", "F.frx"}) {
    EXPECT_EQ(other.Read(file), Folder.Read(file)) << file;
  }
}

/// The grid of folders shows what the databases hold, whatever is done there.
TEST_F(StoreToSnippets, TheFoldersShownAreThoseOfTheDatabasesBehindAnySteps) {
  OpenModules();
  auto dialog = OpenSecondPage();
  std::mt19937 random(11);
  const auto any = [&](int count) { return static_cast<int>(random() % unsigned(count)); };
  const auto held = [&] {
    String text;
    for (const StringView name : {u"Marlow", u"UserConnect1"}) {
      const auto tree = test::OpenTree(test::OpenLibraries::At(name));
      text += u"User Database\n";
      for (const TreeNode& node : tree->GetNodes().value_or(std::vector<TreeNode>())) {
        text += String(static_cast<std::size_t>(2 * (node.lvl - 1)), u' ') + node.Name + u"\n";
      }
    }
    return vb::ToUtf8(text);
  };
  for (int step = 0; step < 250; ++step) {
    auto& grid = dialog->fgTreeNext;
    user::SelectRow(grid, any(grid.Rows()), 0);
    switch (any(5)) {
      case 0:
      case 1:
        if (!dialog->btmAddFolder.Enabled()) break;
        user::Press(dialog->btmAddFolder);
        user::EditCell(grid, grid.Row(), 0, u"folder " + vb::Str(step));
        break;
      case 2:
        if (!dialog->btmEditFolder.Enabled()) break;
        user::Press(dialog->btmEditFolder);
        user::EditCell(grid, grid.Row(), 0, u"renamed " + vb::Str(step));
        break;
      case 3:
        if (!dialog->btmDeleteFolder.Enabled() || grid.Rows() < 12) break;
        Services.DesktopService.Answers = {MessageAnswer::Yes};
        user::Press(dialog->btmDeleteFolder);
        break;
      default:
        if (!dialog->btmNext.Enabled()) break;
        user::Check(dialog->chkCreateClasses, any(2));
        user::Press(dialog->btmNext);
        dialog = OpenSecondPage();
    }
    ASSERT_EQ(Rows(dialog->fgTreeNext), held()) << "step " << step;
    for (const auto& tree : {main_, own_}) {
      ASSERT_EQ(test::Unsound(test::RowsOf(tree->Connection())), "") << "step " << step;
    }
  }
  Expected = Texts();
  dialog->Unload();
}

}  // namespace
}  // namespace tessel
