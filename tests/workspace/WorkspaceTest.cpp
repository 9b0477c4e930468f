#include "hosts/workspace/Workspace.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include "hosts/files/AtomicFile.h"
#include "hosts/model/Vbe.h"
#include "hosts/workspace/CodePages.h"
#include "support/MemoryPlatform.h"
#include "workspace/Files.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;
using test::Fails;
using test::Files;

const std::string Form =
    "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   Caption         =   \"One \"\"two\"\"\"\r\n"
    "   BeginProperty Font \r\n      Name            =   \"Arial\"\r\n   EndProperty\r\n"
    "   Begin VB.Frame Frame1 \r\n      Begin VB.TextBox Text1 \r\n         Index           =   "
    "1\r\n"
    "         Text            =   \"x\"\r\n      End\r\n   End\r\nEnd\r\n"
    "Attribute VB_Name = \"Form1\"\r\nAttribute VB_Exposed = False\r\nOption Explicit\r\n\r\n"
    "Private WithEvents t As Timer\r\nAttribute t.VB_VarHelpID = -1\r\n"
    "Public Property Get V() As Long\r\nAttribute V.VB_UserMemId = 0\r\nV = 1\r\nEnd Property\r\n";

TEST_F(Files, HidesAttributesAndPutsThemBackWithTheirOwners) {
  folder_.Write("Form1.frm", Form);
  Workspace workspace(services_);
  workspace.Open(Project("Form=Form1.frm\r\n"));
  EXPECT_EQ(workspace.Text(u"Form1"),
            u"Option Explicit\r\n\r\nPrivate WithEvents t As Timer\r\nPublic Property Get V() As "
            u"Long\r\nV = 1\r\nEnd Property");
  EXPECT_TRUE(workspace.ChangedFiles().empty());
  EXPECT_TRUE(workspace.Save().empty());
  workspace.SetText(
      u"Form1",
      u"' new\r\nPrivate WithEvents t As Timer, u\r\n\r\n' about V\r\nPublic Property "
      u"Get V() _\r\n  As Long\r\nEnd Property");
  EXPECT_EQ(workspace.Save().size(), 1U);
  const std::string saved = folder_.Read("Form1.frm");
  EXPECT_EQ(
      saved.substr(saved.find("' new")),
      "' new\r\nPrivate WithEvents t As Timer, u\r\nAttribute t.VB_VarHelpID = -1\r\n\r\n' about "
      "V\r\nPublic Property Get V() _\r\n  As Long\r\nAttribute V.VB_UserMemId = 0\r\nEnd "
      "Property\r\n");
  workspace.SetText(u"Form1", u"Dim a");
  workspace.Save();
  EXPECT_EQ(folder_.Read("Form1.frm").find("VB_UserMemId"), std::string::npos);
}

TEST_F(Files, AttributesOfDeclarationsThatStandTwiceStayInTheirBranch) {
  const std::string file =
      "Attribute VB_Name = \"M\"\r\n#If VBA7 Then\r\nSub Foo(ByVal a As LongPtr, _\r\n  b)\r\nEnd "
      "Sub\r\n#Else\r\nSub Foo(ByVal a As Long, _\r\n  b)\r\nAttribute Foo.VB_Description = "
      "\"x\"\r\nAttribute Foo.VB_UserMemId = 0\r\nEnd Sub\r\n#End If\r\n";
  folder_.Write("M.bas", file);
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  const auto module = workspace.Component(u"M")->CodeModule();
  module->InsertLines(1, u"' first");
  // A tool that writes everything anew.
  const String text = module->Lines(2, module->CountOfLines() - 1);
  module->DeleteLines(2, module->CountOfLines() - 1);
  module->InsertLines(2, vb::Replace(text, u"\r\n", u"\r\n "));
  std::string expected = file;
  for (std::size_t at = expected.find("#If");
       (at = expected.find("\r\n", at + 1)) != std::string::npos;) {
    if (at + 2 < expected.size() && expected.compare(at + 2, 9, "Attribute") != 0) {
      expected.insert(at + 2, " ");
    }
  }
  expected.insert(expected.find("#If"), "' first\r\n");
  EXPECT_EQ(workspace.Bytes(*workspace.Component(u"M")), expected);
}

TEST_F(Files, AContinuationLineOnTheOldNumberTakesNoAttribute) {
  folder_.Write("M.bas",
                "Attribute VB_Name = \"M\"\r\nSub Foo(a, _\r\n  b)\r\nEnd Sub\r\nSub Bar(a, _\r\n  "
                "b)\r\nAttribute Bar.VB_Description = \"x\"\r\nEnd Sub\r\n");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.Component(u"M")->CodeModule()->InsertLines(1, u"'1\r\n'2\r\n'3");
  workspace.Save();
  EXPECT_EQ(folder_.Read("M.bas"),
            "Attribute VB_Name = \"M\"\r\n'1\r\n'2\r\n'3\r\nSub Foo(a, _\r\n  b)\r\nEnd Sub\r\nSub "
            "Bar(a, _\r\n  b)\r\nAttribute Bar.VB_Description = \"x\"\r\nEnd Sub\r\n");
}

TEST_F(Files, ReadsAndWritesControlsTouchingTheirLinesOnly) {
  folder_.Write("Form1.frm", Form);
  Workspace workspace(services_);
  workspace.Open(Project("Form=Form1.frm\r\n"));
  const auto controls = workspace.Component(u"Form1")->Designer()->VBControls();
  ASSERT_EQ(controls->Count(), 2);
  EXPECT_EQ(controls->Item(2)->ControlObjectName(), u"Text1");
  EXPECT_EQ(workspace.Component(u"Form1")->Properties()->Item(u"Caption")->Value(), u"One \"two\"");
  controls->Item(2)->Properties()->Item(u"Text")->SetValue(u"a \"b\"");
  workspace.AddControl(u"Form1", u"CommandButton", u"Command1", {{u"Caption", u"Go"}});
  workspace.RenameControl(u"Form1", u"Frame1", u"fraBox");
  workspace.Save();
  std::string expected = Form;
  const auto replace = [&](const std::string& what, const std::string& with) {
    expected.replace(expected.find(what), what.size(), with);
  };
  replace("=   \"x\"", "=   \"a \"\"b\"\"\"");
  replace("VB.Frame Frame1 ", "VB.Frame fraBox ");
  replace("   End\r\nEnd\r\n",
          "   End\r\n   Begin VB.CommandButton Command1 \r\n      Caption         =   \"Go\"\r\n   "
          "End\r\nEnd\r\n");
  EXPECT_EQ(folder_.Read("Form1.frm"), expected);
}

struct FormCase {
  const char* Name;
  const char* Bytes;
};

TEST_F(Files, KeepsTheFormOfEveryFile) {
  const FormCase cases[] = {
      {"LineFeeds", "Attribute VB_Name = \"M\"\nSub A()\nEnd Sub\n"},
      {"Mixed", "Attribute VB_Name = \"M\"\r\nSub A()\nx\rEnd Sub\r\n\n"},
      {"NoLastLineEnd", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub"},
      {"Utf8",
       "\xEF\xBB\xBF"
       "Attribute VB_Name = \"M\"\r\n' \xD0\x96 \xC3\xA9\r\n"},
      {"Rubbish", "Attribute VB_Name = \"M\"\r\n' \x81\x8D\xFE\xFF\x90\r\n"},
      {"Cp932", "Attribute VB_Name = \"M\"\r\n' \x82\xA0\x82\xA2\x83\x8F\x8A\xBF \x5C\r\n"},
      {"Empty", ""},
      {"NoName", "Sub A()\r\nEnd Sub\r\n"},
  };
  for (const FormCase& one : cases) {
    const std::string bytes = one.Bytes;
    folder_.Write("M.bas", bytes);
    for (const int codePage : {0, 1252, 1251, 932, 65001}) {
      Workspace workspace(services_, {codePage});
      workspace.Open(Project("Module=M; M.bas\r\n"));
      const String text = workspace.Text(u"M");
      EXPECT_EQ(workspace.Bytes(*workspace.Component(u"M")), bytes) << one.Name;
      // One more line, and away again: the line that nobody touched keeps its bytes.
      const auto module = workspace.Component(u"M")->CodeModule();
      module->InsertLines(1, u"Dim q");
      module->DeleteLines(1, 1);
      EXPECT_EQ(workspace.Bytes(*workspace.Component(u"M")), bytes) << one.Name << " " << codePage;
    }
  }
}

TEST_F(Files, GuessesTheCodePage) {
  EXPECT_EQ(GuessCodePage({"plain"}), 1252);
  EXPECT_EQ(GuessCodePage({"caf\xE9 au lait, \xE0 la carte"}), 1252);
  EXPECT_EQ(GuessCodePage({"\xCF\xF0\xE8\xE2\xE5\xF2 \xEC\xE8\xF0"}), 1251);
  EXPECT_EQ(GuessCodePage({"\x82\xB1\x82\xF1\x82\xC9\x82\xBF\x82\xCD"}), 932);
  EXPECT_EQ(GuessCodePage({"\xD0\x9F\xD1\x80"}), 65001);
}

/// What a text in a code page, which must hold it, is taken for.
int GuessOf(StringView text, int codePage) {
  std::size_t at = 0;
  return GuessCodePage({Encode(text, codePage, at).value()});
}

TEST_F(Files, GuessesTheCodePagesOfTwoBytes) {
  struct {
    StringView Text;
    int CodePage;
  } const cases[] = {
      {u"Caption = \"\u4E09\u70B9\u900F\u8996\"", 932},  // no kana
      {u"C:\\WINDOWS\\\uFF83\uFF9E\uFF7D\uFF78\uFF84\uFF6F\uFF8C\uFF9F", 932},
      {u"'\u56FA\u5B9A\uFF80\uFF9E\uFF72\uFF71\uFF9B\uFF78\uFF9E", 932},
      {u"' \u4F60\u597D\uFF0C\u4E16\u754C", 936},  // simplified
      {u"' \u6587\u4EF6 \u9519\u8BEF\u3002\u672A\u627E\u5230", 936},
      {u"' \u6A94\u6848\u932F\u8AA4\uFF0C\u627E\u4E0D\u5230", 950},  // traditional
      {u"' \uD30C\uC77C\uC744 \uCC3E\uC744 \uC218 \uC5C6\uB2E4", 949},
      {u"' \uC548\uB155", 949},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(GuessOf(one.Text, one.CodePage), one.CodePage) << vb::ToUtf8(one.Text);
  }
}

TEST_F(Files, TakesSignsAndAccentsForNoPairs) {
  struct {
    StringView Text;
    int CodePage, Guess;
  } const cases[] = {
      {u"20 \u00B0C, \u00A9Tailor, \u00ABoui\u00BB, \u00C4nderung \u00C0 l'\u00E9t\u00E9", 1252,
       1252},
      {u"don\u2019t \u201CHello\u201D \u2018so\u2019 \u2013 a\u2026b", 1252, 1252},
      {u"\u017B\u00F3\u0142\u0107 g\u0119\u015Bl\u0105 ja\u017A\u0144", 1250, 1252},
      {u"\u041E\u0428\u0418\u0411\u041A\u0410 \u0424\u0410\u0419\u041B\u0410", 1251, 1251},
      {u"\u039A\u03B1\u03BB\u03B7\u03BC\u03AD\u03C1\u03B1", 1253, 1251},
      {u"\u0E2A\u0E27\u0E31\u0E2A\u0E14\u0E35\u0E0A\u0E32\u0E27\u0E42\u0E25\u0E01", 874, 1252},
  };
  for (const auto& one : cases) {
    EXPECT_EQ(GuessOf(one.Text, one.CodePage), one.Guess) << vb::ToUtf8(one.Text);
  }
}

TEST_F(Files, RefusesTextThatTheCodePageCantHoldAheadOfWritingAnything) {
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nDim a\r\n");
  folder_.Write("N.bas", "Attribute VB_Name = \"N\"\r\nDim a\r\n");
  Workspace workspace(services_, {1252});
  workspace.Open(Project("Module=M; M.bas\r\nModule=N; N.bas\r\n"));
  workspace.SetText(u"M", u"Dim b");
  workspace.SetText(u"N", u"Dim b\r\n' \u0416");
  const std::string failure = Fails([&] { workspace.Save(); });
  EXPECT_NE(failure.find("N.bas:3: the character \"\xD0\x96\" is not in code page 1252"),
            std::string::npos)
      << failure;
  EXPECT_EQ(folder_.Read("M.bas"), "Attribute VB_Name = \"M\"\r\nDim a\r\n");
}

TEST_F(Files, ANameOfRawBytesOnTheDiskTellsNothingOfUtf8) {
  const std::string name = "M\xFCll.bas";
  folder_.Write(name,
                "Attribute VB_Name = \"M\"\r\n'Gr\xFC\xDF"
                "e\r\n");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; " + name + "\r\n"));
  EXPECT_EQ(workspace.Text(u"M"), u"'Gr\u00FC\u00DFe");
  workspace.SetText(u"M", u"'sch\u00F6n");
  workspace.Save();
  EXPECT_EQ(folder_.Read(name), "Attribute VB_Name = \"M\"\r\n'sch\xF6n\r\n");
}

TEST_F(Files, NamesTheFileAndTheLineOfWhatIsBroken) {
  EXPECT_EQ(OpenFails(folder_.Path() / "no.vbp"),
            (folder_.Path() / "no.vbp").string() + ": the file does not exist");
  EXPECT_NE(ProblemsOf(Project("Form=Gone.frm\r\n"))
                .find("P.vbp:2: the component's file does not exist: "),
            std::string::npos);
  folder_.Write("Bad.frm",
                "VERSION 5.00\r\nBegin VB.Form Bad \r\n   Begin VB.Label L \r\n   End\r\n");
  EXPECT_NE(ProblemsOf(Project("Form=Bad.frm\r\n"))
                .find("Bad.frm:2: the designer block that begins here never ends"),
            std::string::npos);
  folder_.Write("Nul.bas", std::string("Dim a\r\nDim \0b\r\n", 14));
  EXPECT_NE(
      ProblemsOf(Project("Module=N; Nul.bas\r\n")).find("Nul.bas:2: the file holds NUL bytes"),
      std::string::npos);
  folder_.Write("Wide.bas", "\xFF\xFE" + std::string("D\0i\0", 4));
  EXPECT_NE(ProblemsOf(Project("Module=N; Wide.bas\r\n")).find("UTF-16"), std::string::npos);
  folder_.Write("Q.vbp", "hello");
  EXPECT_NE(OpenFails(folder_.Path() / "Q.vbp").find("is no project file"), std::string::npos);
  folder_.Write("G.vbg", "VBGROUP 5.0\r\nProject=Nowhere.vbp\r\n");
  EXPECT_NE(OpenFails(folder_.Path() / "G.vbg").find("the project does not exist"),
            std::string::npos);
}

TEST_F(Files, AFailedOpeningLeavesNothingBehind) {
  folder_.Write("P.vbp", "Module=M; M.bas\r\n");
  folder_.Write("G.vbg", "VBGROUP 5.0\r\nStartupProject=P.vbp\r\nProject=Nowhere.vbp\r\n");
  Workspace workspace(services_);
  EXPECT_THROW(workspace.Open(folder_.Path() / "G.vbg"), vb::Failure);
  EXPECT_EQ(workspace.VBE()->VBProjects()->Count(), 0);
  EXPECT_EQ(workspace.VBE()->ActiveVBProject(), nullptr);
  EXPECT_TRUE(workspace.Problems().empty());
}

TEST_F(Files, ReadsALineOfTenMegabytes) {
  const std::string bytes =
      "Attribute VB_Name = \"M\"\r\n' " + std::string(10'000'000, 'x') + "\r\n";
  folder_.Write("M.bas", bytes);
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  EXPECT_EQ(workspace.Text(u"M").size(), 10'000'002U);
  EXPECT_EQ(workspace.Bytes(*workspace.Component(u"M")), bytes);
}

TEST_F(Files, FindsFilesInAnyCaseAndBelowOtherFolders) {
  folder_.Write("Sub/Module One.BAS", "Attribute VB_Name = \"M\"\r\n");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; .\\sub\\module one.bas\r\n"));
  EXPECT_EQ(workspace.VBE()->ActiveVBProject()->VBComponents()->Count(), 1);
}

TEST_F(Files, WritesNewRemovedAndRenamedComponentsIntoTheProject) {
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nDim a\r\n");
  folder_.Write("N.bas", "Attribute VB_Name = \"N\"\r\n");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\nModule=N; N.bas\r\nIconForm=\"X\"\r\n"));
  workspace.AddComponent(u"", host::vbext_ct_ClassModule, u"Thing", u"Dim z");
  workspace.RenameComponent(u"", u"M", u"Main");
  workspace.RemoveComponent(u"", u"N");
  workspace.Save();
  EXPECT_EQ(folder_.Read("P.vbp"),
            "Type=Exe\r\nModule=Main; M.bas\r\nClass=Thing; "
            "Thing.cls\r\nIconForm=\"X\"\r\nName=\"P\"\r\n");
  EXPECT_EQ(folder_.Read("M.bas"), "Attribute VB_Name = \"Main\"\r\nDim a\r\n");
  EXPECT_NE(folder_.Read("Thing.cls").find("Attribute VB_Name = \"Thing\"\r\n"), std::string::npos);
  Workspace again(services_);
  again.Open(folder_.Path() / "P.vbp");
  EXPECT_EQ(again.Text(u"Thing"), u"Dim z");
}

TEST_F(Files, AFaultWhileSavingLeavesTheOldFilesAndNoLitter) {
  const std::string before = "Attribute VB_Name = \"M\"\r\nDim a\r\n";
  for (const std::string step : {"write", "flush", "rename"}) {
    folder_.Write("M.bas", before);
    Workspace workspace(services_);
    workspace.Open(Project("Module=M; M.bas\r\n"));
    workspace.SetText(u"M", u"Dim b");
    files::OnWriteStep = [&](std::string_view at, const fs::path&) {
      if (at == step) throw vb::Failure(61, u"Disk full");
    };
    EXPECT_EQ(Fails([&] { workspace.Save(); }), "Disk full");
    files::OnWriteStep = nullptr;
    EXPECT_EQ(folder_.Read("M.bas"), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator()), 2);
    EXPECT_EQ(workspace.Save().size(), 1U) << "the change is still there";
  }
}

TEST_F(Files, AProcessKilledWhileSavingLeavesTheOldFile) {
  const std::string before = "Attribute VB_Name = \"M\"\r\nDim a\r\n";
  folder_.Write("M.bas", before);
  const fs::path project = Project("Module=M; M.bas\r\n");
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Workspace workspace(services_);
    workspace.Open(project);
    workspace.SetText(u"M", u"Dim b");
    files::OnWriteStep = [](std::string_view at, const fs::path&) {
      if (at == "rename") _exit(9);
    };
    workspace.Save();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 9);
  EXPECT_EQ(folder_.Read("M.bas"), before);
}

TEST_F(Files, OpensAGroupAndASingleFile) {
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\n");
  Project("Module=M; M.bas\r\n");
  const fs::path group = folder_.Write("G.vbg", "VBGROUP 5.0\r\nStartupProject=P.vbp\r\n");
  Workspace workspace(services_);
  workspace.Open(group);
  EXPECT_EQ(workspace.VBE()->ActiveVBProject()->Name(), u"P");
  Workspace single(services_);
  single.Open(folder_.Path() / "M.bas");
  EXPECT_EQ(single.VBE()->ActiveVBProject()->FileName(), u"");
  EXPECT_EQ(single.Component(u"M")->Type(), host::vbext_ct_StdModule);
}

TEST_F(Files, TellsWhereALineStandsInItsFile) {
  folder_.Write("Form1.frm", Form);
  Workspace workspace(services_);
  workspace.Open(Project("Form=Form1.frm\r\n"));
  static_cast<void>(workspace.Text(u"Form1"));
  EXPECT_EQ(workspace.FileLine(*workspace.Component(u"Form1"), 1), 16);
  EXPECT_EQ(workspace.FileLine(*workspace.Component(u"Form1"), 4), 20);
  EXPECT_EQ(workspace.FileLine(*workspace.Component(u"Form1"), 5), 22);
}

TEST_F(Files, TheSamplesLoadAndSaveByteForByte) {
  Workspace workspace(services_);
  workspace.Open(fs::path(TESSEL_SOURCE_DIR) / "samples" / "samples.vbg");
  const auto projects = workspace.VBE()->VBProjects();
  int count = 0;
  for (int p = 1; p <= projects->Count(); ++p) {
    const auto components = projects->Item(p)->VBComponents();
    for (int c = 1; c <= components->Count(); ++c) {
      const auto component = components->Item(c);
      const auto module = component->CodeModule();
      module->InsertLines(1, u"x");
      module->DeleteLines(1, 1);
      EXPECT_EQ(workspace.Bytes(*component), workspace.StoredBytes(*component))
          << vb::ToUtf8(component->Name());
      ++count;
    }
  }
  EXPECT_GT(count, 30);
  EXPECT_EQ(workspace.Component(u"modMain")->CodeModule()->Lines(3, 1),
            u"' Точка входа программы.");
}

TEST_F(Files, GivesANewProjectItsFileAndItsComponentsTheirs) {
  Workspace workspace(services_);
  workspace.NewProject(u"Fresh", host::vbext_pt_ActiveXDll);
  workspace.AddComponent(u"Fresh", host::vbext_ct_ClassModule, u"Thing", u"Sub A()\r\nEnd Sub");
  const auto written = workspace.SaveProjectAs(ProjectOf(workspace), folder_.Path() / "Fresh.vbp");
  EXPECT_EQ(written.size(), 2U);
  workspace.AddComponent(u"Fresh", host::vbext_ct_StdModule, u"Later", u"");
  EXPECT_EQ(workspace.Save().size(), 2U);

  Workspace again(services_);
  again.Open(folder_.Path() / "Fresh.vbp");
  EXPECT_EQ(again.VBE()->ActiveVBProject()->Type(), host::vbext_pt_ActiveXDll);
  EXPECT_EQ(again.VBE()->ActiveVBProject()->Name(), u"Fresh");
  EXPECT_EQ(again.Text(u"Thing"), u"Sub A()\r\nEnd Sub");
  EXPECT_EQ(again.Component(u"Later")->Type(), host::vbext_ct_StdModule);
}

TEST_F(Files, RefusesToSaveANewProjectOverFilesThatAreThere) {
  folder_.Write("Thing.cls", "mine");
  Workspace workspace(services_);
  workspace.NewProject(u"Fresh", host::vbext_pt_StandardExe);
  workspace.AddComponent(u"Fresh", host::vbext_ct_ClassModule, u"Thing", u"x");
  EXPECT_THROW(
      static_cast<void>(workspace.SaveProjectAs(ProjectOf(workspace), folder_.Path() / "F.vbp")),
      vb::Failure);
  EXPECT_EQ(folder_.Read("Thing.cls"), "mine");
  EXPECT_FALSE(fs::exists(folder_.Path() / "F.vbp"));
}

TEST_F(Files, RefusesToSaveANewProjectWithAComponentNamedLikeADevice) {
  Workspace workspace(services_);
  workspace.NewProject(u"Fresh", host::vbext_pt_StandardExe);
  workspace.AddComponent(u"Fresh", host::vbext_ct_ClassModule, u"Lpt1", u"x");
  EXPECT_THROW(
      static_cast<void>(workspace.SaveProjectAs(ProjectOf(workspace), folder_.Path() / "F.vbp")),
      vb::Failure);
  EXPECT_FALSE(fs::exists(folder_.Path() / "F.vbp"));
}

TEST_F(Files, TakesAComponentFromItsFileAgain) {
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nSub A()\r\nEnd Sub\r\n");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.SetText(u"M", u"lost");
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\nSub B()\nEnd Sub\n");
  workspace.Reload(*workspace.Component(u"M"));
  EXPECT_EQ(workspace.Text(u"M"), u"Sub B()\r\nEnd Sub");
  EXPECT_FALSE(workspace.IsModified(*workspace.Component(u"M")));
  workspace.Component(u"M")->CodeModule()->InsertLines(1, u"x");
  EXPECT_EQ(workspace.Bytes(*workspace.Component(u"M")),
            "Attribute VB_Name = \"M\"\nx\nSub B()\nEnd Sub\n");
}

TEST_F(Files, ForgetsAClosedProject) {
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nx\r\n");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.SetText(u"M", u"y");
  workspace.Close(ProjectOf(workspace));
  EXPECT_EQ(workspace.VBE()->VBProjects()->Count(), 0);
  EXPECT_TRUE(workspace.Save().empty());
}

}  // namespace
}  // namespace tessel::workspace
