#include "snippets/ObjectRecords.h"

#include <gtest/gtest.h>

#include <map>

#include "hosts/model/Project.h"
#include "hosts/workspace/Workspace.h"
#include "snippets/ObjectFiles.h"
#include "snippets/SnippetDatabase.h"
#include "support/MemoryPlatform.h"

namespace tessel {
namespace {

using mFunctions::GetFile;
using mFunctions::PutFile;

const std::string Form =
    "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   Icon            =   \"Form1.frx\":0000\r\nEnd\r\n"
    "Attribute VB_Name = \"Form1\"\r\nAttribute VB_Exposed = False\r\nOption Explicit\r\n";
const std::string MdiForm =
    "VERSION 5.00\r\nBegin VB.MDIForm Main \r\nEnd\r\nAttribute VB_Name = \"Main\"\r\n"
    "Attribute VB_Exposed = False\r\n'code\r\n";
const std::string ForeignForm =
    "VERSION 5.00\r\nBegin {C62A69F0-16DC-11CE-9E98-00AA00574A4F} UserForm1 \r\nEnd\r\n"
    "Attribute VB_Name = \"UserForm1\"\r\nAttribute VB_Exposed = False\r\n";

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

class Objects : public testing::Test {
 protected:
  void SetUp() override {
    test::WriteEmptyDatabase(folder_.Path() / "new.mdb");
    tree_ = test::OpenTree(test::OpenDatabase(folder_.Path() / "new.mdb"));
    trees_.Add(tree_, u"Marlow");
  }
  void OpenProject(int codePage = 1252) {
    workspace_ = std::make_unique<workspace::Workspace>(services_, workspace::Options{codePage});
    workspace_->Open(folder_.Write("P.vbp", "Type=Exe\r\nName=\"P\"\r\n"));
  }
  [[nodiscard]] std::shared_ptr<host::VBE> Vbe() const { return workspace_->VBE(); }
  [[nodiscard]] String Path(const std::string& name) const {
    return (folder_.Path() / name).u16string();
  }
  /// Stores a file in a record of its own.
  int Store(const std::string& name, const std::string& bytes,
            const std::shared_ptr<host::VBProject>& project = nullptr) {
    folder_.Write(name, bytes);
    const int id = tree_->AddNode(u"record", 1, 0, 0, RecordKind);
    mFunctions::ImportRecordFileObjectToTblList(trees_, u"Marlow", Path(name), id, project);
    return id;
  }
  String Insert(int id, bool ask = false) {
    return mFunctions::InsertObjectInUserProject(trees_, u"Marlow", Vbe(), id, ask);
  }
  [[nodiscard]] std::vector<String> Components() const {
    std::vector<String> names;
    const auto all = Vbe()->ActiveVBProject()->VBComponents();
    for (int index = 1; index <= all->Count(); ++index) names.push_back(all->Item(index)->Name());
    return names;
  }

  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  test::TemporaryFolder folder_;
  std::shared_ptr<CSQLTree> tree_;
  CSQLTrees trees_;
  std::unique_ptr<workspace::Workspace> workspace_;
};

TEST_F(Objects, EveryByteOfAFileComesBack) {
  folder_.Write("a.frx", AllBytes());
  PutFile(Path("b.frx"), GetFile(Path("a.frx")));
  EXPECT_EQ(folder_.Read("b.frx"), AllBytes());
  EXPECT_EQ(GetFile(Path("a.frx")).size(), 256U) << "one character for each byte";
  for (const int codePage :
       {1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 874, 932, 936, 949, 950, 65001}) {
    OpenProject(codePage);
    const auto project = Vbe()->ActiveVBProject();
    const std::string bytes = AllBytes() + "\x83\x5c\xe3\x81\x82\xff";
    folder_.Write("a.bas", bytes);
    PutFile(Path("b.bas"), GetFile(Path("a.bas"), project), project);
    EXPECT_EQ(folder_.Read("b.bas"), bytes) << codePage;
  }
}

TEST_F(Objects, ASourceReadsInTheCodePageOfItsProject) {
  OpenProject(1251);
  folder_.Write("a.bas", "'\xc6");
  EXPECT_EQ(GetFile(Path("a.bas"), Vbe()->ActiveVBProject()), u"'Ж");
  EXPECT_EQ(GetFile(Path("a.bas")), u"'\u00c6");
}

TEST_F(Objects, ACharacterThatTheCodePageLacksIsNamedAndTheFileStays) {
  folder_.Write("a.bas", "old");
  try {
    PutFile(Path("a.bas"), u"x = \"Ж\"");
    FAIL();
  } catch (const vb::Failure& failure) {
    EXPECT_NE(failure.Description().find(u"a.bas: the character \"Ж\""), String::npos);
  }
  EXPECT_EQ(folder_.Read("a.bas"), "old");
}

TEST_F(Objects, ACharacterThatAProjectLacksIsToldWithTheComponentAndNoTemporaryFile) {
  const int id = tree_->AddNode(u"x", 1, 0, 0, RecordKind);
  tree_->UpdateListFragment(
      id, {u"", u"Attribute VB_Name = \"M\"\r\n", u"'Ж\r\n", u"", u"M", u"BAS", u""});
  OpenProject(1252);
  const String told = Insert(id);
  EXPECT_NE(told.find(u"the component \"M\": the character \"Ж\" isn't in the code page"),
            String::npos)
      << vb::ToUtf8(told);
  EXPECT_EQ(told.find(u"TempVB6"), String::npos) << vb::ToUtf8(told);
}

TEST_F(Objects, AComponentIsStoredAsHeadAndCode) {
  const std::string bytes = "VERSION 1.0 CLASS\r\nattribute vb_exposed = False\r\n'code\r\n";
  const ListFragment stored = tree_->GetRecordsetFromList(Store("My.Class.cLs", bytes));
  EXPECT_EQ(stored.TitleObj, u"VERSION 1.0 CLASS\r\nattribute vb_exposed = False\r\n");
  EXPECT_EQ(stored.TextObj, u"'code\r\n");
  EXPECT_EQ(stored.NameObj, u"My.Class");
  EXPECT_EQ(stored.ClassObj, u"CLS");
  EXPECT_EQ(stored.Text, u"");
}

TEST_F(Objects, AModulesKeyIsItsName) {
  const ListFragment stored =
      tree_->GetRecordsetFromList(Store("M.bas", "Attribute VB_Name = \"M\"\nSub A()\nEnd Sub\n"));
  EXPECT_EQ(stored.TitleObj, u"Attribute VB_Name = \"M\"\n") << "line ends of any kind";
  EXPECT_EQ(stored.TextObj, u"Sub A()\nEnd Sub\n");
}

TEST_F(Objects, ATextIsStoredAsAText) {
  const ListFragment stored = tree_->GetRecordsetFromList(Store("t.txt", "a\r\nAttribute VB_Name"));
  EXPECT_EQ(stored.Text, u"a\r\nAttribute VB_Name");
  EXPECT_EQ(stored.ClassObj, u"");
}

TEST_F(Objects, WhatHasNoKeyLineStoresNothing) {
  for (const auto& [name, bytes] : {std::pair{"empty.bas", ""},
                                    {"empty.txt", ""},
                                    {"plain.frm", "Begin VB.Form \r\n"},
                                    {"other.doc", "Attribute VB_Exposed = 1\r\n"},
                                    {"cut.bas", "Attribute VB_Name"}}) {
    EXPECT_EQ(tree_->GetRecordsetFromList(Store(name, bytes)), ListFragment{}) << name;
  }
}

TEST_F(Objects, AFormWithoutItsCompanionFails) {
  try {
    Store("Form1.frm", Form);
    FAIL();
  } catch (const vb::Failure& failure) {
    EXPECT_EQ(failure.Number(), 53);
    EXPECT_NE(failure.Description().find(u"Form1.frx"), String::npos);
  }
}

TEST_F(Objects, ACompanionIsFoundInAnyCase) {
  folder_.Write("FORM1.FRX", AllBytes());
  const ListFragment stored = tree_->GetRecordsetFromList(Store("Form1.frm", Form));
  EXPECT_EQ(stored.CompObj.size(), 256U);
  EXPECT_EQ(stored.ClassObj, u"FRM");
}

TEST_F(Objects, TellsKindsOfForms) {
  EXPECT_EQ(mFunctions::CheckVBAorVBForm(u"x begin vb.form "), 0);
  EXPECT_EQ(mFunctions::CheckVBAorVBForm(u"Begin VB.Form "), 1) << "from the second character on";
  EXPECT_EQ(mFunctions::CheckVBAorVBForm(u"x Begin VB.MDIForm "), 2);
  EXPECT_EQ(ObjectClassText(u"FRM", u"x Begin VB.Form y"), u"Form VB");
  EXPECT_EQ(ObjectClassText(u"FRM", u""), u"Form VBA");
  EXPECT_EQ(ObjectClassText(u"DOB", u""), u"User Document");
  EXPECT_EQ(ObjectClassText(u"", u""), u"");
}

TEST_F(Objects, AnInsertedObjectGetsAFreeNameAndIsShown) {
  OpenProject();
  folder_.Write("Form1.frx", AllBytes());
  const int id = Store("Form1.frm", Form);
  for (int times = 0; times < 3; ++times) EXPECT_EQ(Insert(id), u"");
  EXPECT_EQ(Components(), (std::vector<String>{u"Form1", u"Form11", u"Form12"}));
  EXPECT_EQ(Vbe()->ActiveCodePane()->CodeModule()->Parent()->Name(), u"Form12");
  EXPECT_TRUE(services_.DesktopService.Messages.empty());
}

TEST_F(Objects, ATakenNameIsChangedAfterAQuestion) {
  OpenProject();
  const int id = Store("M.bas", "Attribute VB_Name = \"M\"\r\nSub M()\r\nEnd Sub\r\n");
  EXPECT_EQ(Insert(id, true), u"");
  services_.DesktopService.Answers = {platform::MessageAnswer::No, platform::MessageAnswer::Yes};
  EXPECT_EQ(Insert(id, true), u"");
  EXPECT_EQ(Components(), std::vector<String>{u"M"});
  EXPECT_EQ(Insert(id, true), u"");
  EXPECT_EQ(Components(), (std::vector<String>{u"M", u"M1"}));
  EXPECT_EQ(workspace_->Text(u"M1"), u"Sub M()\r\nEnd Sub") << "only the head is changed";
  const auto& question = services_.DesktopService.Messages.back();
  EXPECT_EQ(question.Text,
            u"Name \"M\" is already used in the project.\r\nIt will be replaced with the name "
            u"\"M1\".\r\nDo you agree ?");
  EXPECT_EQ(question.Style, 292);
}

TEST_F(Objects, AFormOfAnotherEditorLeavesTheProject) {
  OpenProject();
  folder_.Write("UserForm1.frx", "x");
  const int id = Store("UserForm1.frm", ForeignForm);
  EXPECT_EQ(Insert(id, true), u"");
  EXPECT_TRUE(services_.DesktopService.Messages.empty());
  EXPECT_EQ(Insert(id, false), u"Click Yes to continue");
  EXPECT_EQ(services_.DesktopService.Messages.back().Text,
            u"Form: \"UserForm1\" is created not in the VB format");
  EXPECT_TRUE(Components().empty());
}

/// Keeps what an import finds in the temporary folder.
class Importing : public Objects {
 protected:
  void SetUp() override {
    Objects::SetUp();
    OpenProject();
    Project().Importer = [this](StringView file) -> std::shared_ptr<model::VBComponent> {
      const std::filesystem::path path{vb::Replace(file, u"\\", u"/")};
      folder_of_ = path.parent_path();
      for (const auto& entry : std::filesystem::directory_iterator(folder_of_)) {
        std::ifstream in(entry.path(), std::ios::binary);
        files_[entry.path().filename().string()] = {std::istreambuf_iterator<char>(in), {}};
      }
      throw vb::Failure(5, u"no import today");
    };
  }
  model::VBProject& Project() { return dynamic_cast<model::VBProject&>(*Vbe()->ActiveVBProject()); }
  std::map<std::string, std::string> files_;
  std::filesystem::path folder_of_;
};

TEST_F(Importing, AFailureIsTheAnswerAndLeavesTheFiles) {
  const int id = Store("M.bas", "Attribute VB_Name = \"M\"\r\n");
  EXPECT_EQ(Insert(id), u"Object : M\r\nno import today\r\nNumber : 5");
  EXPECT_TRUE(std::filesystem::exists(folder_of_ / "M.BAS"));
  std::filesystem::remove_all(folder_of_);
}

TEST_F(Importing, TheFilesAreThoseThatWereStored) {
  folder_.Write("Form1.frx", AllBytes());
  folder_.Write("D.dox", AllBytes());
  const std::string document = "VERSION 5.00\r\nAttribute VB_Exposed = True\r\n'\x80\x81\xff\r\n";
  static_cast<void>(Insert(Store("Form1.frm", Form)));
  EXPECT_EQ(files_,
            (std::map<std::string, std::string>{{"Form1.FRM", Form}, {"Form1.FRX", AllBytes()}}));
  files_.clear();
  static_cast<void>(Insert(Store("D.dob", document)));
  EXPECT_EQ(files_,
            (std::map<std::string, std::string>{{"D.DOB", document}, {"D.DOX", AllBytes()}}));
  files_.clear();
  static_cast<void>(Insert(Store("Main.frm", MdiForm)));
  EXPECT_EQ(files_, (std::map<std::string, std::string>{{"Main.FRM", MdiForm}}))
      << "an MDI form has no companion";
  files_.clear();
  folder_.Write("Form2.frx", "");
  static_cast<void>(Insert(Store("Form2.frm", Form)));
  EXPECT_EQ(files_, (std::map<std::string, std::string>{{"Form2.FRM", Form}}))
      << "an empty companion isn't written";
  std::filesystem::remove_all(folder_of_);
}

TEST_F(Importing, AnUnknownClassAndATextWriteNothing) {
  const int id = tree_->AddNode(u"x", 1, 0, 0, RecordKind);
  tree_->UpdateListFragment(id, {u"text", u"t", u"c", u"", u"Name", u"XYZ", u""});
  EXPECT_EQ(Insert(id), u"");
  EXPECT_TRUE(files_.empty());
  EXPECT_EQ(Insert(999), u"") << "a record that is gone";
}

TEST_F(Importing, ANameThatLeavesTheFolderIsRefused) {
  const int id = tree_->AddNode(u"x", 1, 0, 0, RecordKind);
  tree_->UpdateListFragment(id, {u"", u"t", u"c", u"", u"..\\..\\evil", u"BAS", u""});
  EXPECT_TRUE(Insert(id).starts_with(u"Object : ..\\..\\evil\r\n"));
  EXPECT_TRUE(files_.empty());
}

TEST_F(Objects, WithoutAProjectNothingHappens) {
  workspace_ = std::make_unique<workspace::Workspace>(services_);
  const int id = Store("M.bas", "Attribute VB_Name = \"M\"\r\n");
  EXPECT_EQ(Insert(id), u"");
  EXPECT_TRUE(services_.DesktopService.Messages.empty());
}

TEST_F(Objects, ADroppedTemporaryFileIsTakenApart) {
  folder_.Write("a.tmp", "Attribute VB_Name = \"M\"\r\n'code\r\n");
  const auto module = mFunctions::TakeDroppedComponent(Path("a.tmp"));
  ASSERT_TRUE(module.has_value());
  EXPECT_EQ(module->Name, u"M");
  EXPECT_EQ(module->ClassObj, u"BAS");
  EXPECT_EQ(GetFile(module->Path), u"Attribute VB_Name = \"M\"\r\n'code\r\n");
  mFunctions::RemoveFolder(module->Folder);

  folder_.Write("c.tmp1",
                "VERSION 1.0 CLASS\r\nAttribute VB_Name = \"C\"\r\nAttribute VB_Exposed = "
                "False\r\n");
  const auto type = mFunctions::TakeDroppedComponent(Path("c.tmp1"));
  ASSERT_TRUE(type.has_value());
  EXPECT_EQ(type->ClassObj, u"CLS");
  EXPECT_TRUE(type->Path.ends_with(u"\\C.cls"));
  mFunctions::RemoveFolder(type->Folder);
}

TEST_F(Objects, ADroppedFormBringsItsCompanionUnderItsOwnName) {
  const std::string head =
      "VERSION 5.00\r\nBegin VB.Form F \r\n  OleObjectBlob   =   "
      "\"VBD1.tmx\":0000\r\nEnd\r\n";
  const std::string rest = "Attribute VB_Name = \"F\"\r\nAttribute VB_Exposed = False\r\n";
  folder_.Write("f.tmp", head + rest);
  folder_.Write("VBD1.tmx", AllBytes());
  const auto form = mFunctions::TakeDroppedComponent(Path("f.tmp"));
  ASSERT_TRUE(form.has_value());
  EXPECT_EQ(form->ClassObj, u"FRM");
  const auto folder = std::filesystem::path(vb::Replace(form->Folder, u"\\", u"/"));
  EXPECT_TRUE(std::filesystem::exists(folder / "F.frx"));
  EXPECT_NE(GetFile(form->Path).find(u"\"F.frx\":0000"), String::npos);
  const int id = tree_->AddNode(form->Name, 1, 0, 0, RecordKind);
  mFunctions::ImportRecordFileObjectToTblList(trees_, u"Marlow", form->Path, id);
  EXPECT_EQ(tree_->GetRecordsetFromList(id).CompObj.size(), 256U);
  mFunctions::RemoveFolder(form->Folder);
}

TEST_F(Objects, ADroppedComponentIsReadInTheCodePageOfItsProject) {
  OpenProject(1251);
  const auto project = Vbe()->ActiveVBProject();
  const std::string name = "\xCC\xEE\xE4\xF3\xEB\xFC";
  const String plain = u"\x041C\x043E\x0434\x0443\x043B\x044C";
  for (const std::string& head : {std::string(), std::string("VERSION 1.0 CLASS\r\n"),
                                  std::string("VERSION 5.00\r\nBegin VB.Form ") + name +
                                      " \r\n OleObjectBlob = \"V.tmx\":0\r\n"}) {
    const std::string bytes = head + "Attribute VB_Name = \"" + name +
                              "\"\r\nAttribute VB_Exposed = False\r\n'" + name + "\r\n";
    folder_.Write("d.tmp", bytes);
    folder_.Write("V.tmx", AllBytes());
    const auto taken = mFunctions::TakeDroppedComponent(Path("d.tmp"), project);
    ASSERT_TRUE(taken.has_value());
    EXPECT_EQ(taken->Name, plain);
    const int id = tree_->AddNode(taken->Name, 1, 0, 0, RecordKind);
    mFunctions::ImportRecordFileObjectToTblList(trees_, u"Marlow", taken->Path, id, project);
    EXPECT_EQ(tree_->GetRecordsetFromList(id).NameObj, plain);
    EXPECT_TRUE(tree_->GetRecordsetFromList(id).TextObj.ends_with(u"'" + plain + u"\r\n"));
    EXPECT_EQ(GetFile(taken->Path).size(), head.find("Form") == std::string::npos
                                               ? bytes.size()
                                               : bytes.size() + name.size() - 1);
    mFunctions::RemoveFolder(taken->Folder);
  }
}

TEST_F(Objects, TheNameOfADroppedComponentEndsWithItsLine) {
  for (const char* const end : {"\r\n", "\n"}) {
    folder_.Write("m.tmp",
                  "Attribute VB_Name = \"M\"" + std::string(end) + "'Attribute VB_Name = \n");
    const auto taken = mFunctions::TakeDroppedComponent(Path("m.tmp"));
    ASSERT_TRUE(taken.has_value());
    EXPECT_EQ(taken->Name, u"M");
    mFunctions::RemoveFolder(taken->Folder);
  }
}

TEST_F(Objects, AnythingElseThatIsDroppedIsIgnored) {
  folder_.Write("a.bas", "Attribute VB_Name = \"M\"\r\n");
  folder_.Write("b.tmp", "nothing of the kind");
  folder_.Write("c.tmp", "Attribute VB_Name = \"..\\x\"\r\n");
  folder_.Write("d.tmp", "s = \"Attribute VB_Name = \"\"M\"\"\"\r\n");
  folder_.Write("e.tmp", "Attribute VB_Name = \"M\x01\"\r\n");
  folder_.Write("f.tmp", "VERSION 1.0 CLASS\r\nAttribute VB_Name = \"M\"\r\n");
  for (const char* const name : {"a.bas", "b.tmp", "c.tmp", "d.tmp", "e.tmp", "f.tmp"}) {
    EXPECT_FALSE(mFunctions::TakeDroppedComponent(Path(name)).has_value()) << name;
  }
}

TEST_F(Objects, EmptyingAFolderSparesOneNameAndWhatLinksPointTo) {
  folder_.Write("t/pagefile.sys", "x");
  folder_.Write("t/in/a", "x");
  folder_.Write("other/kept", "x");
  std::filesystem::create_directory_symlink(folder_.Path() / "other", folder_.Path() / "t/link");
  mFunctions::EmptyFolder(Path("t"));
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "t/pagefile.sys"));
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "t/in/a"));
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / "other/kept"));
  mFunctions::RemoveFolder(Path("t"));
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / "t"));
  mFunctions::CopyFileSafe(u"", Path("other/kept"));
}

TEST_F(Objects, TheTemporaryFolderIsNamedByDateAndTime) {
  EXPECT_TRUE(mFunctions::GetTempFolder().ends_with(u"TempVB6\\20261121_1459"));
}

}  // namespace
}  // namespace tessel
