// What the Snippet Manager shows of a row, saves, imports and inserts.

#include <gtest/gtest.h>

#include "snippets/ManagerDesk.h"

namespace tessel {
namespace {

using Manager = frmFragmentBuilder;
using platform::MessageAnswer;

constexpr int ObjectPage = 0, CodePage = 1, NotesPage = 2;

class ManagerRecord : public test::ManagerDesk {
 protected:
  /// A record with that content, current in the open dialog.
  void Open(const ListFragment& fragment) {
    id_ = Main->AddNode(u"Record", TopID, 0, 0, RecordKind);
    Main->UpdateListFragment(id_, fragment);
    ManagerDesk::Open();
    Go(u"Record");
  }
  [[nodiscard]] ListFragment Record() const { return Main->GetRecordsetFromList(id_); }
  [[nodiscard]] forms::RichTextBox& Code() const { return Dialog->RicCodeFragmentBuilder; }

  std::int32_t id_ = 0;
};

ListFragment ClassObject() {
  return {.Text = u"x = 1\r\n",
          .TitleObj =
              u"VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1\r\nEND\r\n"
              u"Attribute VB_Name = \"clsOne\"\r\nAttribute VB_Exposed = False\r\n",
          .TextObj = u"Public Value As Long\r\n",
          .CompObj = {},
          .NameObj = u"clsOne",
          .ClassObj = u"CLS",
          .TextUserNotes = u"how it works"};
}

TEST_F(ManagerRecord, ADatabaseTellsOfItsFile) {
  ManagerDesk::Open();
  EXPECT_TRUE(Dialog->C1EMDB.Visible());
  EXPECT_FALSE(Dialog->C1TCodeObject.Visible());
  EXPECT_EQ(Dialog->lblName.Caption(), u"Marlow.mdb");
  EXPECT_EQ(Dialog->lblExt.Caption(), u"mdb");
  EXPECT_EQ(Dialog->lblPath.Caption(), Folder().Path().u16string());
  const auto size = std::filesystem::file_size(Folder().Path() / "Marlow.mdb");
  const std::string text = vb::ToUtf8(Dialog->lblSize.Caption());
  EXPECT_EQ(text.substr(0, text.find('K')),
            std::to_string(size / 1024) + "." + (size % 1024 == 0 ? "00" : "50"));
  EXPECT_NE(text.find("KB ("), std::string::npos);
  std::string bytes = std::to_string(size);
  bytes.insert(bytes.size() - 3, ",");
  EXPECT_TRUE(text.ends_with("(" + bytes + " bytes)")) << text;
}

TEST_F(ManagerRecord, AFolderShowsNoPanelAndARecordItsPages) {
  static_cast<void>(Main->AddNode(u"Folder", TopID, 0, 0, FolderKind));
  Open(ClassObject());
  EXPECT_TRUE(Dialog->C1TCodeObject.Visible());
  EXPECT_FALSE(Dialog->C1EMDB.Visible());
  EXPECT_EQ(Dialog->lblNameObject.Caption(), u"clsOne");
  EXPECT_EQ(Dialog->lblType.Caption(), u"Class");
  EXPECT_EQ(Dialog->RicCodeObjectFragmentBuilder.Text(), u"Public Value As Long\r\n");
  Page(CodePage);
  EXPECT_EQ(Code().Text(), u"x = 1\r\n");
  Page(NotesPage);
  EXPECT_EQ(Dialog->RicUserCode.Text(), u"how it works");
  Go(u"Folder");
  EXPECT_FALSE(Dialog->C1TCodeObject.Visible());
  EXPECT_FALSE(Dialog->C1EMDB.Visible());
}

TEST_F(ManagerRecord, AnObjectCanBeInsertedAndATextCannot) {
  static_cast<void>(Main->AddNode(u"Plain", TopID, 0, 0, RecordKind));
  Open(ClassObject());
  EXPECT_TRUE(Dialog->btmInsertObject.Enabled());
  Go(u"Plain");
  EXPECT_FALSE(Dialog->btmInsertObject.Enabled());
}

TEST_F(ManagerRecord, EachPageSavesItsOwnColumn) {
  Open(ClassObject());
  forms::user::Type(Dialog->RicCodeObjectFragmentBuilder, u"Public Other\r\n");
  Press(&Manager::btmCodeSave);
  Page(CodePage);
  forms::user::Type(Code(), u"y = 2");
  Press(&Manager::btmSave);
  Page(NotesPage);
  forms::user::Type(Dialog->RicUserCode, u"my notes");
  Press(&Manager::btmSaveUserCode);
  ListFragment wanted = ClassObject();
  wanted.TextObj = u"Public Other\r\n";
  wanted.Text = u"y = 2";
  wanted.TextUserNotes = u"my notes";
  EXPECT_EQ(Record(), wanted);
  Page(CodePage);
  EXPECT_EQ(Code().Text(), u"y = 2") << "what is on show was refreshed";
}

TEST_F(ManagerRecord, AnEmptiedBoxSavesNothing) {
  Open(ClassObject());
  Page(NotesPage);
  forms::user::Type(Dialog->RicUserCode, u"");
  Press(&Manager::btmSaveUserCode);
  EXPECT_EQ(Record().TextUserNotes, u"how it works");
  EXPECT_EQ(Dialog->RicUserCode.Text(), u"how it works");
}

TEST_F(ManagerRecord, ARecordOfFiftyMegabytesIsShownAndSaved) {
  constexpr std::size_t Size = std::size_t{50} << 20;
  const StringView line = u"    Total = Total + Value(Index) ' \u0434\r\n";
  String text;
  text.reserve(Size + line.size());
  while (text.size() < Size) text += line;
  Open(test::TextFragment(text));
  Page(CodePage);
  ASSERT_TRUE(Code().Text() == text);
  text += u"Debug.Print Total\r\n";
  forms::user::Type(Code(), text);
  Press(&Manager::btmSave);
  EXPECT_TRUE(Code().Text() == text);
  EXPECT_TRUE(Record().Text == text);
}

// The colours must not change what is saved.
TEST_F(ManagerRecord, ShowingAndSavingChangesNoCharacter) {
  const String texts[] = {u"Const G = \"{00-11}\" ' {x} \\par \\\\\r\n",
                          u"'" + String(80, u'-') + u"\r\nx = 1\r\n",
                          u"a = k1k ' one\r\nb = ?1? ' two \"x\" \"y\"\r\n",
                          u"{\\rtf1\\ansi damaged \\'zz {\\fonttbl",
                          u"no line end",
                          u"\r\n\r\n  If a Then _\r\n\tb = \"\xE9\x20AC\x4E2D\"\r\n\r\n\r\n",
                          u"\xF8D0 already \xF8D1",
                          u"End Sub",
                          u" ",
                          u"x\r\n"};
  Open(ClassObject());
  Page(CodePage);
  for (const String& text : texts) {
    forms::user::Type(Code(), text);
    Press(&Manager::btmSave);
    EXPECT_EQ(Record().Text, text) << vb::ToUtf8(text);
    EXPECT_EQ(Code().Text(), text) << vb::ToUtf8(text);
    Go(u"User Database");
    Go(u"Record");
    Press(&Manager::btmSave);
    EXPECT_EQ(Record().Text, text) << vb::ToUtf8(text);
  }
}

TEST_F(ManagerRecord, CodeIsShownInItsColours) {
  Open(test::TextFragment(u"Dim x ' {note}\r\n"));
  Page(CodePage);
  EXPECT_EQ(Code().Text(), u"Dim x ' {note}\r\n");
  Code().SetSelStart(static_cast<int>(Code().Text().find(u"note")));
  Code().SetSelLength(1);
  EXPECT_EQ(Code().SelColor(), forms::Color{187} << 8U) << "green of the comments";
  forms::user::Type(Code(), u"Public Function F(ByVal a As Long, Optional b As Long) As Long\r\n");
  Press(&Manager::btmSave);
  EXPECT_EQ(Code().Text(), u"Public Function F(ByVal a As Long, Optional b As Long) As Long\r\n");
  Code().SetSelStart(0);
  Code().SetSelLength(1);
  EXPECT_EQ(Code().SelColor(), forms::Color{187} << 16U) << "blue of the keywords";
}

TEST_F(ManagerRecord, ARecordOfManyMegabytesIsShownAsItIs) {
  String text;
  while (text.size() < 5'000'000)
    text += u"Debug.Print \"a line of a very long record\" ' note\r\n";
  Open(test::TextFragment(text));
  Page(CodePage);
  EXPECT_EQ(Code().Text(), text);
}

// Import

TEST_F(ManagerRecord, ATextFileIsImportedAsTheText) {
  Open({});
  Page(CodePage);
  Choose(Folder().Write("a.txt", "Sub A()\r\nEnd Sub\r\n"));
  Press(&Manager::btmImportCode);
  EXPECT_EQ(Record().Text, u"Sub A()\r\nEnd Sub\r\n");
  EXPECT_EQ(Code().Text(), u"Sub A()\r\nEnd Sub\r\n");
  EXPECT_EQ(Tree().RowAt(Tree().Row()).Picture, 0);
}

TEST_F(ManagerRecord, AComponentFileIsImportedAsTheObject) {
  Open({});
  Choose(Folder().Write("modOne.bas", "Attribute VB_Name = \"modOne\"\r\nOption Explicit\r\n"));
  Press(&Manager::btmImportObject);
  EXPECT_EQ(Record().ClassObj, u"BAS");
  EXPECT_EQ(Record().TextObj, u"Option Explicit\r\n");
  EXPECT_EQ(Tree().RowAt(Tree().Row()).Picture, 115);
  EXPECT_EQ(Dialog->lblType.Caption(), u"Module");
  EXPECT_EQ(Dialog->RicCodeObjectFragmentBuilder.Text(), u"Option Explicit\r\n");
  EXPECT_TRUE(Dialog->btmInsertObject.Enabled());
}

TEST_F(ManagerRecord, NothingIsImportedWithoutAFile) {
  Open(ClassObject());
  Press(&Manager::btmImportObject);
  Choose(Folder().Path() / "gone.bas");
  Press(&Manager::btmImportObject);
  EXPECT_EQ(Services.Errors.Take().size(), 1U) << "the missing file";
  Choose(Folder().Write("empty.bas", ""));
  Press(&Manager::btmImportObject);
  EXPECT_EQ(Record(), ClassObject());
}

// Insertion

TEST_F(ManagerRecord, WhatAnInsertionFailsWithIsShown) {
  ListFragment object = ClassObject();
  object.NameObj = u"no/name";
  Open(object);
  Press(&Manager::btmInsertObject);
  ASSERT_EQ(Desktop().Messages.size(), 1U);
  EXPECT_EQ(Desktop().Messages[0].Style, 16);
  EXPECT_EQ(Desktop().Messages[0].Title, u"Tessel");
  EXPECT_EQ(Messages()[0].rfind("Object : no/name\r\n", 0), 0U) << Messages()[0];
}

TEST_F(ManagerRecord, TheSelectedTextGoesAheadOfTheSelectedLine) {
  Services.Module(u"Module1", u"Sub A()\r\nEnd Sub\r\n");
  Services.Caret(u"Module1", 2);
  Open(ClassObject());
  Press(&Manager::btmInsertSelected);
  EXPECT_EQ(Services.Text(u"Module1"), u"Sub A()\r\nEnd Sub\r\n") << "nothing was selected";
  forms::user::SelectText(Dialog->RicCodeObjectFragmentBuilder, 0, 12);
  Press(&Manager::btmInsertSelected);
  EXPECT_EQ(Services.Text(u"Module1"), u"Sub A()\r\nPublic Value\r\nEnd Sub\r\n");
  EXPECT_EQ(Services.Environment.OwnWindows().Focus(),
            Services.Environment.VBE()->MainWindow()->HWnd());
  EXPECT_TRUE(Dialog->RicCodeObjectFragmentBuilder.HasFocus());
  Page(CodePage);
  forms::user::SelectText(Code(), 0, 5);
  Press(&Manager::btmInsertSelectedsExample);
  EXPECT_EQ(Services.Text(u"Module1"), u"Sub A()\r\nx = 1\r\nPublic Value\r\nEnd Sub\r\n");
}

TEST_F(ManagerRecord, TheWholeTextGoesIntoTheChosenComponent) {
  Services.Module(u"Module1", u"Sub A()\r\nEnd Sub");
  Services.Module(u"Module2", u"");
  Open(test::TextFragment(u"Sub B()\r\nEnd Sub"));
  Page(CodePage);
  EXPECT_EQ(Dialog->ComListObject.List(),
            (std::vector<String>{u"Module1", u"Module2", u"New Module"}));
  EXPECT_EQ(Dialog->ComListObject.Text(), u"Module1");
  Press(&Manager::btmInsert);
  EXPECT_EQ(Services.Text(u"Module1"), u"Sub A()\r\nEnd Sub\r\nSub B()\r\nEnd Sub");
  forms::user::Pick(Dialog->ComListObject, u"New Module");
  Press(&Manager::btmInsert);
  EXPECT_NE(Services.Text(u"NewModule").find(u"Sub B()\r\nEnd Sub"), String::npos);
  EXPECT_EQ(Dialog->ComListObject.List(),
            (std::vector<String>{u"Module1", u"Module2", u"NewModule", u"New Module"}));
  EXPECT_EQ(Dialog->ComListObject.Text(), u"New Module");
}

// Each call of the host fails in turn, with every answer of the user.
TEST_F(ManagerRecord, WhateverCallFailsTheTextGoesInOnceAndTheDialogStays) {
  const String before = u"Sub A()\r\nEnd Sub";
  const auto module = Services.Module(u"Module1", before);
  Services.Caret(u"Module1", 2);
  Open(test::TextFragment(u"Debug.Print 1"));
  Page(CodePage);
  forms::user::SelectText(Code(), 0, 13);
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  const auto play = [&](forms::Button Manager::*button, std::size_t nth, MessageAnswer answer) {
    std::size_t calls = 0;
    std::string failed;
    Desktop().Messages.clear();
    Desktop().Answers.assign(10, answer);
    Services.Environment.SetOperationHook([&](std::string_view call) {
      if (++calls != nth) return;
      failed = call;
      throw vb::Failure(7, u"no room");
    });
    Press(button);
    Services.Environment.SetOperationHook({});
    EXPECT_LE(Desktop().Messages.size(), 1U)
        << nth << ", " << failed << ", " << static_cast<int>(answer) << ": " << Messages().back();
    EXPECT_TRUE(Dialog->Visible()) << nth;
    return calls;
  };
  for (forms::Button Manager::*const button :
       {&Manager::btmInsertSelectedsExample, &Manager::btmInsert}) {
    const std::size_t calls = play(button, 0, MessageAnswer::Abort);
    const String after = Services.Text(u"Module1");
    ASSERT_EQ(vb::Replace(after, u"Debug.Print 1", u"").size() + 13, after.size());
    for (std::size_t nth = 1; nth <= calls; ++nth) {
      for (const MessageAnswer answer :
           {MessageAnswer::Abort, MessageAnswer::Retry, MessageAnswer::Ignore}) {
        module->DeleteLines(1, module->CountOfLines());
        module->InsertLines(1, before);
        Services.Caret(u"Module1", 2);
        play(button, nth, answer);
        const String text = Services.Text(u"Module1");
        const std::size_t first = text.find(u"Debug.Print 1");
        EXPECT_EQ(text.find(u"Debug.Print 1", first + 1), String::npos) << "twice, call " << nth;
        if (answer == MessageAnswer::Retry) {
          EXPECT_NE(first, String::npos) << nth << vb::ToUtf8(text);
        }
      }
    }
    module->DeleteLines(1, module->CountOfLines());
    module->InsertLines(1, before);
    Services.Caret(u"Module1", 2);
  }
}

TEST_F(ManagerRecord, WithoutAProjectInsertionsDoNothing) {
  Services.Environment.RemoveProject(u"Project1");
  Open(ClassObject());
  EXPECT_TRUE(Dialog->ComListObject.List().empty());
  Press(&Manager::btmInsertObject);
  forms::user::SelectText(Dialog->RicCodeObjectFragmentBuilder, 0, 6);
  Press(&Manager::btmInsertSelected);
  Page(CodePage);
  Press(&Manager::btmInsert);
  EXPECT_TRUE(Desktop().Messages.empty());
}

TEST_F(ManagerRecord, HelpShowsItsPage) {
  ManagerDesk::Open();
  Press(&Manager::btmHelp);
  EXPECT_NE(Desktop().Journal.back().find("Snippet_Manager.htm"), std::string::npos);
}

TEST_F(ManagerRecord, GoingFreesTheGuardAndTheDatabases) {
  Open(ClassObject());
  const std::weak_ptr<store::Connection> connection = Libraries.At(u"Marlow");
  Main.reset();
  Dialog->Unload();
  EXPECT_FALSE(Root->Open);
  gConnectionMDBs->item(u"Marlow")->CloseConnection();
  EXPECT_TRUE(connection.expired());
}

}  // namespace
}  // namespace tessel
