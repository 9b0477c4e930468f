#include "snippets/frmGetFromVbCode.h"

#include "snippets/SnippetDialogs.h"

namespace tessel {
namespace {

namespace user = forms::user;
using platform::MessageAnswer;

class InsertSnippet : public test::SnippetDialogs {
 protected:
  InsertSnippet() {
    main_ = Libraries.Add(u"Marlow");
    own_ = Libraries.Add(u"UserConnect1");
    OpenProject({});
  }
  /// A module as an object of a library.
  static std::int32_t AddModule(CSQLTree& tree, StringView name, std::int32_t folder = TopID) {
    ListFragment object;
    object.TitleObj = u"Attribute VB_Name = \"" + String(name) + u"\"\r\n";
    object.TextObj = u"'" + String(name) + u"\r\n";
    object.NameObj = name;
    object.ClassObj = u"BAS";
    return Add(tree, u"the " + String(name), object, folder);
  }
  static std::int32_t Add(CSQLTree& tree, StringView caption, const ListFragment& fragment,
                          std::int32_t folder = TopID) {
    const std::int32_t id = tree.AddNode(caption, folder, 0, 0, RecordKind);
    tree.UpdateListFragment(id, fragment);
    return id;
  }
  static ListFragment ForeignForm() {
    ListFragment object;
    object.TitleObj = u"VERSION 5.00\r\nBegin {C62A69F0} UserForm1 \r\nEnd\r\n";
    object.NameObj = u"UserForm1";
    object.ClassObj = u"FRM";
    return object;
  }

  std::shared_ptr<CSQLTree> main_, own_;
};

TEST_F(InsertSnippet, FoldersAndTextsHaveNoTickBoxAndObjectsTellTheirNames) {
  const auto folder = main_->AddNode(u"Forms", TopID, 0, 0, FolderKind);
  AddModule(*main_, u"Inner", folder);
  ListFragment text;
  text.Text = u"x = 1";
  Add(*main_, u"plain", text);
  AddModule(*own_, u"Other");
  const auto dialog = Open<frmGetFromVbCode>();
  EXPECT_EQ(dialog->Caption(), u"Insert Snippet");
  EXPECT_EQ(dialog->fgTree.TextMatrix(0, 0), u"Tree");
  EXPECT_EQ(dialog->fgTree.TextMatrix(0, 1), u"");
  EXPECT_EQ(dialog->fgTree.TextMatrix(0, 2), u"Name Object");
  EXPECT_EQ(Rows(dialog->fgTree),
            "User Database||\n"
            "  Forms||\n"
            "    the Inner|False|Inner\n"
            "  plain||\n"
            "User Database||\n"
            "  the Other|False|Other\n");
  EXPECT_EQ(dialog->fgTree.RowAt(1).Data, 1);
  EXPECT_EQ(dialog->fgTree.RowAt(1).CellData, u"Marlow");
  EXPECT_EQ(dialog->fgTree.RowAt(6).CellData, u"UserConnect1");
  EXPECT_EQ(dialog->fgTree.RowAt(3).Picture, 115);
  EXPECT_THROW(user::EditCell(dialog->fgTree, 4, 1, u"True"), vb::Failure) << "a text";
  EXPECT_THROW(user::EditCell(dialog->fgTree, 2, 1, u"True"), vb::Failure) << "a folder";
  EXPECT_THROW(user::EditCell(dialog->fgTree, 3, 0, u"Renamed"), vb::Failure);
  EXPECT_THROW(user::EditCell(dialog->fgTree, 3, 2, u"Renamed"), vb::Failure);
  dialog->Unload();
}

TEST_F(InsertSnippet, RunsOnlyWhatIsTicked) {
  AddModule(*main_, u"A");
  AddModule(*main_, u"B");
  const auto dialog = Open<frmGetFromVbCode>();
  EXPECT_FALSE(dialog->btmRun.Enabled());
  TickRow(dialog->fgTree, u"the B");
  EXPECT_TRUE(dialog->btmRun.Enabled());
  user::Press(dialog->btmRun);
  EXPECT_EQ(Components(), std::vector<String>{u"B"});
  EXPECT_TRUE(dialog->Visible()) << "so that the user can go on";
  TickRow(dialog->fgTree, u"the B", false);
  EXPECT_FALSE(dialog->btmRun.Enabled());
  dialog->Unload();
}

TEST_F(InsertSnippet, ANameThatIsTakenGetsANumberWithoutAQuestion) {
  Workspace.AddComponent(u"", host::vbext_ct_StdModule, u"Two", u"'mine");
  for (const StringView name : {u"One", u"Two", u"Three"}) AddModule(*main_, name);
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmSelectAll);
  user::Press(dialog->btmRun);
  EXPECT_EQ(Components(), (std::vector<String>{u"Two", u"One", u"Two1", u"Three"}));
  EXPECT_EQ(Workspace.Text(u"Two1"), u"'Two");
  EXPECT_EQ(Workspace.Text(u"Two"), u"'mine");
  dialog->Unload();
}

TEST_F(InsertSnippet, SelectAllTicksTheObjectsOfAllDatabases) {
  AddModule(*main_, u"A");
  AddModule(*own_, u"B");
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmSelectAll);
  EXPECT_EQ(dialog->fgTree.Ticked(2, 1), true);
  EXPECT_EQ(dialog->fgTree.Ticked(4, 1), true);
  EXPECT_EQ(dialog->fgTree.TextMatrix(1, 1), u"");
  EXPECT_TRUE(dialog->btmRun.Enabled());
  user::Press(dialog->btmRun);
  EXPECT_EQ(Components(), (std::vector<String>{u"A", u"B"}));
  user::Press(dialog->btmSelectNone);
  EXPECT_EQ(dialog->fgTree.Ticked(2, 1), false);
  EXPECT_FALSE(dialog->btmRun.Enabled());
  dialog->Unload();
}

TEST_F(InsertSnippet, AForeignFormIsRefusedAndTheUserSaysWhetherToGoOn) {
  AddModule(*main_, u"A");
  Add(*main_, u"foreign", ForeignForm());
  AddModule(*main_, u"C");
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmSelectAll);
  Services.DesktopService.Answers = {MessageAnswer::OK, MessageAnswer::No};
  user::Press(dialog->btmRun);
  EXPECT_EQ(Components(), std::vector<String>{u"A"});
  const auto& question = Services.DesktopService.Messages.back();
  EXPECT_EQ(question.Style, 292);
  EXPECT_EQ(question.Title, u"Tessel");
  Services.DesktopService.Answers = {MessageAnswer::OK, MessageAnswer::Yes};
  user::Press(dialog->btmRun);
  EXPECT_EQ(Components(), (std::vector<String>{u"A", u"A1", u"C"}));
  for (int run = 0; run < 2; ++run) {
    Expected.emplace_back("Form: \"UserForm1\" is created not in the VB format");
    Expected.emplace_back("Click Yes to continue");
  }
  dialog->Unload();
}

TEST_F(InsertSnippet, WithoutAProjectNothingHappens) {
  AddModule(*main_, u"A");
  Workspace.Close(std::dynamic_pointer_cast<model::VBProject>(Workspace.VBE()->ActiveVBProject()));
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmSelectAll);
  user::Press(dialog->btmRun);
  EXPECT_TRUE(dialog->Visible());
  dialog->Unload();
}

TEST_F(InsertSnippet, AnObjectThatIsGoneInsertsNothing) {
  const auto id = AddModule(*main_, u"A");
  AddModule(*main_, u"B");
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmSelectAll);
  main_->DeleteNode(id);
  user::Press(dialog->btmRun);
  EXPECT_EQ(Components(), std::vector<String>{u"B"});
  dialog->Unload();
}

TEST_F(InsertSnippet, ADatabaseThatWasClosedIsToldAndTheOthersGoOn) {
  AddModule(*main_, u"A");
  AddModule(*own_, u"B");
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmSelectAll);
  test::OpenLibraries::At(u"Marlow")->Close();
  Services.DesktopService.Answers = {MessageAnswer::Yes};
  user::Press(dialog->btmRun);
  EXPECT_EQ(Components(), std::vector<String>{u"B"});
  ASSERT_EQ(Texts().size(), 1U);
  EXPECT_NE(Texts().front().find("CSQLTree component failure"), std::string::npos);
  EXPECT_TRUE(Texts().front().starts_with("Object : ")) << Texts().front();
  Expected = Texts();
  dialog->Unload();
}

TEST_F(InsertSnippet, WhateverCallFailsIsToldOnceAndTheRestGoesIn) {
  for (const StringView name : {u"A", u"B", u"C"}) AddModule(*main_, name);
  std::vector<std::string> calls;
  for (std::size_t nth = 0; nth == 0 || nth <= calls.size(); ++nth) {
    const auto dialog = Open<frmGetFromVbCode>();
    user::Press(dialog->btmSelectAll);
    std::size_t made = 0;
    Workspace.SetOperationHook([&](std::string_view call) {
      if (nth == 0) calls.emplace_back(call);
      if (++made == nth) throw vb::Failure(7, u"no room");
    });
    Services.DesktopService.Answers.assign(5, MessageAnswer::Yes);
    Services.DesktopService.Messages.clear();
    user::Press(dialog->btmRun);
    Workspace.SetOperationHook({});
    const std::string label = nth == 0 ? "clean" : calls[nth - 1] + " " + std::to_string(nth);
    ASSERT_LE(Texts().size(), 1U) << label;
    for (const std::string& text : Texts()) {
      EXPECT_NE(text.find("no room\r\nNumber : 7"), std::string::npos) << label << ": " << text;
    }
    const std::size_t there = Components().size();
    EXPECT_GE(there, 2U) << label;
    EXPECT_LE(there, 3U) << label;
    EXPECT_TRUE(dialog->Visible()) << label;
    dialog->Unload();
    for (const String& name : Components()) Workspace.RemoveComponent(u"", name);
  }
  EXPECT_GT(calls.size(), 15U);
  Expected = Texts();
}

TEST_F(InsertSnippet, OpensAndClosesTheWholeTree) {
  const auto folder = main_->AddNode(u"Forms", TopID, 0, 0, FolderKind);
  AddModule(*main_, u"Inner", folder);
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmCollapse);
  EXPECT_TRUE(dialog->fgTree.RowShows(1));
  EXPECT_FALSE(dialog->fgTree.RowShows(2));
  user::Press(dialog->btmExpand);
  EXPECT_TRUE(dialog->fgTree.RowShows(3));
  dialog->Unload();
}

TEST_F(InsertSnippet, KeepsTheWidthsAndSelectsTheChosenNode) {
  AddModule(*main_, u"A");
  const auto id = AddModule(*main_, u"B");
  gAppSettings->SaveSetting(u"Settings\\VBCode", u"SelectedFolder", vb::Str(id));
  gAppSettings->SaveSetting(u"Settings\\VBCode\\frmGetFromVbCode", u"ColWidth0", u"1200");
  gAppSettings->SaveSetting(u"Settings\\VBCode\\frmGetFromVbCode", u"ColWidth2", u"wide");
  auto dialog = Open<frmGetFromVbCode>();
  EXPECT_EQ(dialog->fgTree.TextMatrix(dialog->fgTree.Row(), 2), u"B");
  EXPECT_EQ((*dialog->fgTree.ColumnWidths)[0], 10);
  EXPECT_EQ((*dialog->fgTree.ColumnWidths)[2], 24) << "a width that is none";
  user::ResizeColumn(dialog->fgTree, 2, 30);
  user::Press(dialog->btmCancel);
  EXPECT_EQ(Root->Hidden, 1);
  EXPECT_FALSE(dialog->IsLoaded());
  EXPECT_FALSE(Root->Open);
  EXPECT_EQ(Setting(u"\\frmGetFromVbCode", u"ColWidth0"), u"1200");
  EXPECT_EQ(Setting(u"\\frmGetFromVbCode", u"ColWidth2"), u"3600");
}

TEST_F(InsertSnippet, ShowsItsHelp) {
  const auto dialog = Open<frmGetFromVbCode>();
  user::Press(dialog->btmHelp);
  EXPECT_TRUE(Services.DesktopService.Journal.back().ends_with("Insert_Snippet.htm"));
  dialog->Unload();
}

}  // namespace
}  // namespace tessel
