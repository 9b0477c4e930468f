// Components on their way into a project and out of it.

#include <gtest/gtest.h>

#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"
#include "support/Fails.h"
#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;
using test::Fails;

const std::string Pictures("\x00\xff\r\n\x1a\x80pictures", 14);

std::string FormText(const std::string& name, const std::string& companion) {
  return "VERSION 5.00\r\nBegin VB.Form " + name + " \r\n   Icon            =   \"" + companion +
         "\":0000\r\nEnd\r\nAttribute VB_Name = \"" + name +
         "\"\r\nAttribute VB_Exposed = False\r\n'code\r\n";
}

class Importing : public testing::Test {
 protected:
  /// Writes a file into the program's own folder for temporary files.
  String Temporary(const std::string& name, const std::string& bytes) {
    const fs::path folder = fs::path(services_.AppService.TemporaryFolder()) / "TempVB6" / "1";
    fs::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary) << bytes;
    return (folder / name).u16string();
  }
  void DropTemporary() {
    fs::remove_all(fs::path(services_.AppService.TemporaryFolder()) / "TempVB6");
  }
  fs::path Project(const std::string& lines = {}) {
    return folder_.Write("P.vbp", "Type=Exe\r\n" + lines + "Name=\"P\"\r\n");
  }
  static std::shared_ptr<host::VBComponent> Import(Workspace& workspace, const String& file) {
    return workspace.VBE()->ActiveVBProject()->VBComponents()->Import(file);
  }

  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  test::TemporaryFolder folder_;
};

TEST_F(Importing, OneFromATemporaryFolderHasNoFileUntilItIsSaved) {
  Workspace workspace(services_);
  workspace.Open(Project());
  Temporary("Form1.FRX", Pictures);
  const auto form = Import(workspace, Temporary("Form1.FRM", FormText("Form1", "Form1.frx")));
  DropTemporary();
  EXPECT_EQ(form->FileName(), u"");
  EXPECT_EQ(workspace.StoredBytes(*form), "");
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nName=\"P\"\r\n");
  EXPECT_EQ(workspace.ChangedFiles(),
            (std::vector<fs::path>{folder_.Path() / "Form1.frm", folder_.Path() / "P.vbp"}));
  workspace.Save();
  EXPECT_EQ(folder_.Read("Form1.frm"), FormText("Form1", "Form1.frx"));
  EXPECT_EQ(folder_.Read("Form1.frx"), Pictures);
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nForm=Form1.frm\r\nName=\"P\"\r\n");
  EXPECT_EQ(form->FileName(), (folder_.Path() / "Form1.frm").u16string());
  EXPECT_TRUE(workspace.ChangedFiles().empty());
}

TEST_F(Importing, ItsPicturesFollowItsNameWhereAnotherFileIsInTheWay) {
  folder_.Write("Form1.frx", "others");
  Workspace workspace(services_);
  workspace.Open(Project());
  Temporary("Form1.FRX", Pictures);
  const auto form = Import(workspace, Temporary("Form1.FRM", FormText("Form1", "Form1.frx")));
  workspace.Save();
  EXPECT_EQ(folder_.Read("Form1.frx"), "others");
  EXPECT_EQ(folder_.Read("Form1_2.frm"), FormText("Form1", "Form1_2.frx"));
  EXPECT_EQ(folder_.Read("Form1_2.frx"), Pictures);
  form->SetName(u"Main");
  workspace.Save();
  EXPECT_EQ(folder_.Read("Form1_2.frm"), FormText("Main", "Form1_2.frx")) << "it has a file now";
}

TEST_F(Importing, ARenamingAheadOfTheFirstSaveNamesFileAndPictures) {
  Workspace workspace(services_);
  workspace.Open(Project());
  Temporary("Form1.FRX", Pictures);
  const auto form = Import(workspace, Temporary("Form1.FRM", FormText("Form1", "Form1.frx")));
  form->SetName(u"Main");
  workspace.Save();
  EXPECT_EQ(folder_.Read("Main.frm"), FormText("Main", "Main.frx"));
  EXPECT_EQ(folder_.Read("Main.frx"), Pictures);
  EXPECT_FALSE(fs::exists(folder_.Path() / "Form1.frx"));
}

TEST_F(Importing, AChangeOfItsCodeIsSavedWithIt) {
  Workspace workspace(services_);
  workspace.Open(Project());
  const auto module =
      Import(workspace, Temporary("M.BAS", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub\r\n"));
  module->CodeModule()->InsertLines(1, u"Option Explicit");
  workspace.Save();
  EXPECT_EQ(folder_.Read("M.bas"),
            "Attribute VB_Name = \"M\"\r\nOption Explicit\r\nSub A()\r\nEnd Sub\r\n");
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
}

TEST_F(Importing, OneFromElsewhereKeepsItsFile) {
  Workspace workspace(services_);
  workspace.Open(Project());
  const fs::path file = folder_.Write("shared/M.bas", "Attribute VB_Name = \"M\"\r\n");
  const auto module = Import(workspace, file.u16string());
  EXPECT_EQ(module->FileName(), file.u16string());
  EXPECT_EQ(workspace.ChangedFiles(), std::vector<fs::path>{folder_.Path() / "P.vbp"});
  workspace.Save();
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nModule=M; shared\\M.bas\r\nName=\"P\"\r\n");
}

TEST_F(Importing, TakesTheCodePageOfTheProject) {
  Workspace workspace(services_, {1251});
  workspace.Open(Project());
  const auto module =
      Import(workspace, Temporary("M.BAS", "Attribute VB_Name = \"M\"\r\n'\xc6\xb5\r\n"));
  EXPECT_EQ(module->CodeModule()->Lines(1, 1), u"'\u0416\u00b5");
  Workspace other(services_);
  folder_.Write("N.bas", "Attribute VB_Name = \"N\"\r\n'\xef\xf0\xe8\xe2\xe5\xf2 \xec\xe8\xf0\r\n");
  other.Open(Project("Module=N; N.bas\r\n"));
  const auto second = Import(other, Temporary("O.BAS", "Attribute VB_Name = \"O\"\r\n'\xc6\r\n"));
  EXPECT_EQ(second->CodeModule()->Lines(1, 1), u"'\u0416")
      << "one letter alone tells no code page; the project does";
}

const String Cyrillic = u"'\u041F\u0440\u0438\u0432\u0435\u0442\r\n";
const std::string CyrillicBytes = "'\xCF\xF0\xE8\xE2\xE5\xF2\r\n";

/// What a text becomes on its way into the active project; "(none)" where it can't be written.
std::string BytesIn(Workspace& workspace, const String& text) {
  std::size_t at = 0;
  return workspace.VBE()->ActiveVBProject()->SourceBytes(text, at).value_or("(none)");
}

TEST_F(Importing, ANewProjectTakesTheCodePageOfTheFirstTextThatNeedsOne) {
  Workspace workspace(services_);
  const auto project = workspace.NewProject(u"New", host::vbext_pt_StandardExe);
  workspace.AddComponent(u"", host::vbext_ct_StdModule, u"Own", u"'mine");
  EXPECT_EQ(BytesIn(workspace, u"'\u00A9"), "'\xA9");
  Import(workspace, Temporary("C.BAS", "Attribute VB_Name = \"C\"\r\n'\xA9\r\n"));
  EXPECT_EQ(BytesIn(workspace, Cyrillic), CyrillicBytes) << "the sign is the same byte there";
  const auto module =
      Import(workspace, Temporary("M.BAS", "Attribute VB_Name = \"M\"\r\n" + CyrillicBytes));
  EXPECT_EQ(module->CodeModule()->Lines(1, 1) + u"\r\n", Cyrillic);
  EXPECT_EQ(project->SourceText(CyrillicBytes), Cyrillic);
  EXPECT_EQ(BytesIn(workspace, u"x \u00E9"), "x \xC3\xA9") << "beside the second UTF-8 has both";
  DropTemporary();
  workspace.SaveProjectAs(std::dynamic_pointer_cast<model::VBProject>(project),
                          folder_.Path() / "New.vbp");
  EXPECT_EQ(folder_.Read("M.bas"), "Attribute VB_Name = \"M\"\r\n" + CyrillicBytes)
      << "the text in UTF-8 never came";
  EXPECT_EQ(folder_.Read("C.bas"), "Attribute VB_Name = \"C\"\r\n'\xA9\r\n");
  EXPECT_EQ(BytesIn(workspace, Cyrillic), CyrillicBytes) << "also behind the save";
}

TEST_F(Importing, WhatWaitsForTheFirstSaveGoesToTheCodePageThatHoldsAllOfIt) {
  struct {
    std::vector<String> Texts;
    int CodePage;
  } const cases[] = {
      {{u"'\u4E2D\u6587 \u5DE5\u7A0B", u"'\u8F6F\u4EF6\u8BBE\u8BA1 \u6253\u5F00"}, 936},
      {{u"'\uC11C\uC6B8", u"'\uD55C\uAD6D\uC5B4 \uD504\uB85C\uADF8\uB7A8"}, 949},
      {{u"'\u4E2D\u6587", u"'\u6A94\u6848 \u958B\u555F \u8A2D\u5B9A"}, 950},
      {{u"'\u65E5", u"'\u6771\u4EAC \u5927\u962A \u4EAC\u90FD"}, 932},
      {{u"'\u041F\u0440\u0438\u0432\u0435\u0442", u"'\u00E9t\u00E9"}, 65001},
  };
  int number = 0;
  for (const auto& one : cases) {
    Workspace workspace(services_);
    const auto project = workspace.NewProject(u"New", host::vbext_pt_StandardExe);
    const fs::path folder = folder_.Path() / std::to_string(++number);
    fs::create_directories(folder);
    for (std::size_t at = 0; at < one.Texts.size(); ++at) {
      const std::string name = "M" + std::to_string(at);
      const String text =
          u"Attribute VB_Name = \"" + vb::FromUtf8(name) + u"\"\r\n" + one.Texts[at] + u"\r\n";
      Import(workspace, Temporary(name + ".BAS", BytesIn(workspace, text)));
    }
    DropTemporary();
    workspace.SaveProjectAs(std::dynamic_pointer_cast<model::VBProject>(project),
                            folder / "New.vbp");
    Workspace next(services_, {one.CodePage});
    next.Open(folder / "New.vbp");
    Workspace guessed(services_);
    guessed.Open(folder / "New.vbp");
    for (std::size_t at = 0; at < one.Texts.size(); ++at) {
      const String name = u"M" + vb::Str(static_cast<int>(at));
      EXPECT_EQ(next.Text(name), one.Texts[at]) << number;
      EXPECT_EQ(guessed.Text(name), one.Texts[at]) << number;
    }
  }
}

TEST_F(Importing, NamesOfCompanionsGoToTheCodePageOfTheFirstSaveAsWell) {
  Workspace workspace(services_);
  const auto project = workspace.NewProject(u"New", host::vbext_pt_StandardExe);
  const std::string one = "\u041F\u0440.frx", other = "\u0438\u0432.frx";
  Temporary(one, Pictures);
  Temporary(other, "other");
  const String text = vb::FromUtf8("VERSION 5.00\r\nBegin VB.Form Form1 \r\n   Icon = \"" + one +
                                   "\":0000\r\n   Picture = \"" + other +
                                   "\":0000\r\nEnd\r\nAttribute VB_Name = \"Form1\"\r\n");
  Import(workspace, Temporary("Form1.frm", BytesIn(workspace, text)));
  const std::string french = BytesIn(workspace, u"Attribute VB_Name = \"M\"\r\n'\u00E9t\u00E9\r\n");
  Import(workspace, Temporary("M.bas", french));
  DropTemporary();
  workspace.SaveProjectAs(std::dynamic_pointer_cast<model::VBProject>(project),
                          folder_.Path() / "New.vbp");
  EXPECT_EQ(vb::FromUtf8(folder_.Read("Form1.frm")), text);
  EXPECT_EQ(folder_.Read(one), Pictures);
  EXPECT_EQ(folder_.Read(other), "other");
}

TEST_F(Importing, WhatWasTypedHoldsTheCodePageOfANewProject) {
  Workspace workspace(services_);
  const auto project = workspace.NewProject(u"New", host::vbext_pt_StandardExe);
  workspace.AddComponent(u"", host::vbext_ct_StdModule, u"Own",
                         vb::Replace(Cyrillic, u"\r\n", u""));
  const auto own = workspace.VBE()->ActiveVBProject()->VBComponents()->Item(u"Own");
  own->SaveAs((folder_.Path() / "copy.bas").u16string());
  EXPECT_EQ(folder_.Read("copy.bas"), "Attribute VB_Name = \"Own\"\r\n" + CyrillicBytes);
  EXPECT_EQ(project->SourceText(CyrillicBytes), Cyrillic);
  workspace.SaveProjectAs(std::dynamic_pointer_cast<model::VBProject>(project),
                          folder_.Path() / "New.vbp");
  EXPECT_EQ(folder_.Read("Own.bas"), "Attribute VB_Name = \"Own\"\r\n" + CyrillicBytes);
}

TEST_F(Importing, AProjectOfAsciiTextsTakesTheCodePageOfAFileThatIsAdded) {
  Workspace workspace(services_);
  folder_.Write("A.bas", "Attribute VB_Name = \"A\"\r\n");
  workspace.Open(Project("Module=A; A.bas\r\n"));
  EXPECT_EQ(workspace.VBE()->ActiveVBProject()->SourceText(CyrillicBytes), Cyrillic);
  const auto added =
      Import(workspace,
             folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n" + CyrillicBytes).u16string());
  EXPECT_EQ(added->CodeModule()->Lines(1, 1) + u"\r\n", Cyrillic);
  const auto first = workspace.VBE()->ActiveVBProject()->VBComponents()->Item(u"A");
  first->CodeModule()->InsertLines(1, u"'\u0416");
  workspace.Save();
  EXPECT_EQ(folder_.Read("A.bas"), "Attribute VB_Name = \"A\"\r\n'\xC6\r\n");
}

TEST_F(Importing, WhatOnlyUtf8HoldsMakesANewProjectOneOfUtf8) {
  Workspace workspace(services_);
  workspace.NewProject(u"New", host::vbext_pt_StandardExe);
  EXPECT_EQ(BytesIn(workspace, u"'\u0416\u0E01"), "'\xD0\x96\xE0\xB8\x81");
}

TEST_F(Importing, ATextWithAByteOrderMarkIsUtf8InAnyProject) {
  Workspace workspace(services_, {1251});
  workspace.Open(Project());
  const std::string bytes = "\xEF\xBB\xBF'\xC3\xA9\r\n";
  const auto project = workspace.VBE()->ActiveVBProject();
  EXPECT_EQ(project->SourceText(bytes), u"\uFEFF'\u00E9\r\n");
  EXPECT_EQ(BytesIn(workspace, u"\uFEFF'\u00E9\r\n"), bytes);
}

TEST_F(Importing, AProjectThatWasNeverSavedTakesThemInAndIsSavedWithThem) {
  Workspace workspace(services_);
  const auto project = workspace.NewProject(u"New", host::vbext_pt_StandardExe);
  Temporary("Form1.FRX", Pictures);
  Import(workspace, Temporary("Form1.FRM", FormText("Form1", "Form1.frx")));
  Import(workspace, folder_.Write("shared/M.bas", "Attribute VB_Name = \"M\"\r\n").u16string());
  workspace.AddComponent(u"", host::vbext_ct_StdModule, u"Own", u"'mine");
  DropTemporary();
  EXPECT_TRUE(workspace.IsUnnamed(dynamic_cast<model::VBProject&>(*project)));
  workspace.SaveProjectAs(std::dynamic_pointer_cast<model::VBProject>(project),
                          folder_.Path() / "New.vbp");
  EXPECT_FALSE(workspace.IsUnnamed(dynamic_cast<model::VBProject&>(*project)));
  EXPECT_EQ(folder_.Read("Form1.frm"), FormText("Form1", "Form1.frx"));
  EXPECT_EQ(folder_.Read("Form1.frx"), Pictures);
  EXPECT_EQ(folder_.Read("Own.bas"), "Attribute VB_Name = \"Own\"\r\n'mine\r\n");
  const std::string text = folder_.Read("New.vbp");
  EXPECT_NE(text.find("Form=Form1.frm\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Module=M; shared\\M.bas\r\n"), std::string::npos) << text;
}

TEST_F(Importing, WhatIsNoComponentLeavesTheProject) {
  Workspace workspace(services_);
  workspace.Open(Project());
  EXPECT_NE(Fails([&] {
              Import(workspace, Temporary("F.frm", "VERSION 5.00\r\nBegin VB.Form F\r\n"));
            }).find("F.frm:2"),
            std::string::npos);
  EXPECT_NE(Fails([&] { Import(workspace, u"/nowhere/F.frm"); }).find("/nowhere/F.frm"),
            std::string::npos);
  EXPECT_EQ(workspace.VBE()->ActiveVBProject()->VBComponents()->Count(), 0);
  EXPECT_TRUE(workspace.ChangedFiles().empty());
}

TEST_F(Importing, WhatTheProjectHasAlreadyOrIsItselfIsRefused) {
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n'own\r\n");
  fs::create_symlink(folder_.Path() / "M.bas", folder_.Path() / "Link.bas");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.SetText(u"M", u"'work");
  for (const char* const name : {"M.bas", "Link.bas"}) {
    EXPECT_TRUE(Fails([&] {
                  Import(workspace, (folder_.Path() / name).u16string());
                }).ends_with("the project has it already, as the component \"M\""));
  }
  EXPECT_TRUE(Fails([&] {
                Import(workspace, (folder_.Path() / "P.vbp").u16string());
              }).ends_with("P.vbp: is a project and no component"));
  EXPECT_EQ(workspace.VBE()->ActiveVBProject()->VBComponents()->Count(), 1);
  workspace.Save();
  EXPECT_EQ(folder_.Read("M.bas"), "Attribute VB_Name = \"M\"\r\n'work\r\n");
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
}

TEST_F(Importing, SaveAsWritesTheComponentElsewhereAndLeavesItsFile) {
  const std::string form = FormText("Main", "frmMain.frx");
  folder_.Write("frmMain.frm", form);
  folder_.Write("frmMain.frx", Pictures);
  fs::create_directories(folder_.Path() / "out");
  Workspace workspace(services_);
  workspace.Open(Project("Form=frmMain.frm\r\n"));
  const auto component = workspace.Component(u"Main");
  component->CodeModule()->InsertLines(1, u"'new");
  component->SaveAs((folder_.Path() / "out").u16string() + u"\\Main.FRM");
  const std::string stored = folder_.Read("out/Main.FRM");
  EXPECT_NE(stored.find("\"Main.frx\":0000"), std::string::npos) << "as its file is named";
  EXPECT_NE(stored.find("'new\r\n'code"), std::string::npos) << "as it is now";
  EXPECT_EQ(folder_.Read("out/Main.frx"), Pictures);
  EXPECT_EQ(folder_.Read("frmMain.frm"), form);
  EXPECT_EQ(component->FileName(), (folder_.Path() / "frmMain.frm").u16string());
  EXPECT_TRUE(workspace.IsModified(*component));
  workspace.Save();
  EXPECT_NE(folder_.Read("frmMain.frm").find("\"frmMain.frx\":0000"), std::string::npos);
}

TEST_F(Importing, SaveAsWorksAheadOfTheFirstSave) {
  Workspace workspace(services_);
  workspace.NewProject(u"New", host::vbext_pt_StandardExe);
  const auto own = workspace.AddComponent(u"", host::vbext_ct_StdModule, u"Own", u"'mine");
  own->SaveAs((folder_.Path() / "Own.BAS").u16string());
  EXPECT_EQ(folder_.Read("Own.BAS"), "Attribute VB_Name = \"Own\"\r\n'mine\r\n");
  EXPECT_EQ(own->FileName(), u"");
  Temporary("Form1.FRX", Pictures);
  const auto form = Import(workspace, Temporary("Form1.FRM", FormText("Form1", "Form1.frx")));
  DropTemporary();
  form->SaveAs((folder_.Path() / "Copy.FRM").u16string());
  EXPECT_EQ(folder_.Read("Copy.FRM"), FormText("Form1", "Copy.frx"));
  EXPECT_EQ(folder_.Read("Copy.frx"), Pictures);
  EXPECT_EQ(form->FileName(), u"");
}

TEST_F(Importing, SaveAsOverAnotherFormsPicturesIsRefused) {
  folder_.Write("F.frm", FormText("F", "F.frx"));
  folder_.Write("F.frx", Pictures);
  folder_.Write("out/F.frx", "others");
  Workspace workspace(services_);
  workspace.Open(Project("Form=F.frm\r\n"));
  const String target = (folder_.Path() / "out" / "F.frm").u16string();
  const std::string failure = Fails([&] { workspace.Component(u"F")->SaveAs(target); });
  EXPECT_NE(failure.find("out/F.frx: another file of this name"), std::string::npos) << failure;
  EXPECT_EQ(folder_.Read("out/F.frx"), "others");
  EXPECT_FALSE(fs::exists(folder_.Path() / "out" / "F.frm"));
}

TEST_F(Importing, SaveAsOntoItsOwnFileIsASave) {
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.SetText(u"M", u"'x");
  workspace.Component(u"M")->SaveAs((folder_.Path() / "M.bas").u16string());
  EXPECT_EQ(folder_.Read("M.bas"), "Attribute VB_Name = \"M\"\r\n'x\r\n");
  EXPECT_TRUE(workspace.ChangedFiles().empty());
}

}  // namespace
}  // namespace tessel::workspace
