// What saving does to project files and to files that others have an eye on.

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <thread>

#include "hosts/files/FolderLocks.h"
#include "workspace/Files.h"

namespace tessel::workspace {
namespace {

namespace fs = std::filesystem;
using test::Fails;

class Saving : public test::Files {
 protected:
  static std::string Module(const std::string& name, const std::string& code = "Dim a\r\n") {
    return "Attribute VB_Name = \"" + name + "\"\r\n" + code;
  }
  static std::shared_ptr<model::VBComponent> ComponentAt(const Workspace& workspace, int project,
                                                         int index) {
    return std::dynamic_pointer_cast<model::VBComponent>(
        workspace.VBE()->VBProjects()->Item(project)->VBComponents()->Item(index));
  }
};

TEST_F(Saving, TwoProjectsOfOneNameAreKeptApart) {
  for (const std::string folder : {"one", "two"}) {
    folder_.Write(folder + "/P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
    folder_.Write(folder + "/M.bas", Module("M", "' " + folder + "\r\n"));
  }
  const fs::path group =
      folder_.Write("G.vbg", "VBGROUP 5.0\r\nProject=one\\P.vbp\r\nProject=two\\P.vbp\r\n");
  Workspace workspace(services_);
  workspace.Open(group);
  const auto second = ComponentAt(workspace, 2, 1);
  second->CodeModule()->InsertLines(1, u"' second");
  EXPECT_FALSE(workspace.IsModified(*ComponentAt(workspace, 1, 1)));
  EXPECT_EQ(workspace.StoredBytes(*second), Module("M", "' two\r\n"));
  workspace.SaveComponent(*second);
  EXPECT_EQ(folder_.Read("one/M.bas"), Module("M", "' one\r\n"));
  EXPECT_EQ(folder_.Read("two/M.bas"), Module("M", "' second\r\n' two\r\n"));
  workspace.Close(second->Project());
  EXPECT_EQ(workspace.VBE()->VBProjects()->Count(), 1);
  EXPECT_EQ(workspace.FileOf(*ComponentAt(workspace, 1, 1)), folder_.Path() / "one/M.bas");
}

TEST_F(Saving, OneFileChangedInTwoProjectsIsRefusedAndNothingIsWritten) {
  folder_.Write("M.bas", Module("M"));
  folder_.Write("A.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"A\"\r\n");
  folder_.Write("B.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"B\"\r\n");
  Workspace workspace(services_);
  workspace.Open(folder_.Write("G.vbg", "VBGROUP 5.0\r\nProject=A.vbp\r\nProject=B.vbp\r\n"));
  ComponentAt(workspace, 1, 1)->CodeModule()->InsertLines(1, u"' a");
  ComponentAt(workspace, 2, 1)->CodeModule()->InsertLines(1, u"' b");
  EXPECT_THROW(workspace.Save(), vb::Failure);
  EXPECT_EQ(folder_.Read("M.bas"), Module("M"));
}

TEST_F(Saving, AJournalWritesNoFileElsewhereThatNoProjectNames) {
  // A save of two projects' shared file that a kill cuts off, then moved below a project that
  // doesn't name the file.
  folder_.Write("other/Victim.bas", Module("Victim"));
  folder_.Write("proj/A.bas", Module("A"));
  folder_.Write("proj/P.vbp",
                "Type=Exe\r\nModule=A; A.bas\r\nModule=Victim; ..\\other\\Victim.bas\r\n"
                "Name=\"P\"\r\n");
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Workspace workspace(services_);
    workspace.Open(folder_.Path() / "proj/P.vbp");
    for (int at = 1; at <= 2; ++at) {
      ComponentAt(workspace, 1, at)->CodeModule()->InsertLines(1, u"' new");
    }
    files::OnWriteStep = [this](std::string_view step, const fs::path& file) {
      if (step == "rename" && file.parent_path() == folder_.Path() / "other") _exit(9);
      if (step == "rename" && file.filename() == "A.bas") _exit(9);
    };
    workspace.Save();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 9);
  folder_.Write("proj/P.vbp", "Type=Exe\r\nModule=A; A.bas\r\nName=\"P\"\r\n");
  Workspace workspace(services_);
  workspace.Open(folder_.Path() / "proj/P.vbp");
  EXPECT_EQ(folder_.Read("other/Victim.bas"), Module("Victim"));
}

TEST_F(Saving, TwoModulesOfOneNameAreKeptApart) {
  folder_.Write("A.bas", Module("M", "' a\r\n"));
  folder_.Write("B.bas", Module("M", "' b\r\n"));
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; A.bas\r\nModule=M; B.bas\r\n"));
  const auto first = ComponentAt(workspace, 1, 1), second = ComponentAt(workspace, 1, 2);
  second->CodeModule()->InsertLines(1, u"'");
  EXPECT_EQ(workspace.Save(), std::vector{folder_.Path() / "B.bas"});
  first->SetName(u"N");
  EXPECT_EQ(workspace.Component(u"M"), second) << "the name is the other one's now";
  workspace.Save();
  EXPECT_EQ(folder_.Read("P.vbp"),
            "Type=Exe\r\nModule=N; A.bas\r\nModule=M; B.bas\r\nName=\"P\"\r\n");
  workspace.RemoveComponent(second);
  workspace.Save();
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nModule=N; A.bas\r\nName=\"P\"\r\n");
}

TEST_F(Saving, TheProjectFollowsNamesWhateverTheirSpelling) {
  // "Müller.bas" in the project's own code page, in another case than on the disk.
  folder_.Write("m\xC3\xBCller.BAS", Module("M"));
  folder_.Write("F.frm",
                "VERSION 5.00\r\nBegin VB.Form F \r\nEnd\r\nAttribute VB_Name = \"F\"\r\n");
  const std::string before =
      "Type=Exe\r\nModule=M; M\xFCller.bas\r\nForm=F.frm\r\nIconForm=\"F\"\r\nStartup=\"f\"\r\n";
  folder_.Write("P.vbp", before + "Name=\"P\"\r\n");
  Workspace workspace(services_);
  ASSERT_TRUE(workspace.Open(folder_.Path() / "P.vbp").empty());
  workspace.RenameComponent(u"", u"M", u"Gr\u00FC\u00DFe");
  workspace.RenameComponent(u"", u"F", u"frmMain");
  EXPECT_EQ(workspace.ChangedFiles().size(), 3U);
  workspace.Save();
  EXPECT_EQ(folder_.Read("P.vbp"),
            "Type=Exe\r\nModule=Gr\xFC\xDF"
            "e; M\xFCller.bas\r\nForm=F.frm\r\nIconForm=\"frmMain\"\r\nStartup=\"frmMain\"\r\n"
            "Name=\"P\"\r\n");
  EXPECT_EQ(folder_.Read("F.frm").find("Begin VB.Form frmMain "), 14U);
  workspace.RenameComponent(u"", u"frmMain", u"F");
  workspace.RenameComponent(u"", u"Gr\u00FC\u00DFe", u"M");
  workspace.Save();
  EXPECT_EQ(folder_.Read("F.frm"),
            "VERSION 5.00\r\nBegin VB.Form F \r\nEnd\r\nAttribute VB_Name = \"F\"\r\n");
  EXPECT_EQ(folder_.Read("m\xC3\xBCller.BAS"), Module("M"));
}

/// A form with a picture; `pictures` is the file that it lies in.
std::string FormWith(const std::string& pictures) {
  return "VERSION 5.00\r\nBegin VB.Form F \r\n   Icon            =   \"" + pictures +
         "\":0000\r\n   Tag             =   \"F.frx\"\r\n   Begin VB.Image i \r\n"
         "      Picture         =   \"" +
         pictures + "\":0A1C\r\n   End\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n";
}

TEST_F(Saving, SaveAsTakesTheEntryAndThePicturesAlong) {
  const std::string form = FormWith("F.frx");
  folder_.Write("F.frm", form);
  folder_.Write("F.frx", "pictures");
  fs::create_directories(folder_.Path() / "forms");
  Workspace workspace(services_);
  workspace.Open(Project("Form=F.frm\r\n"));
  const auto component = workspace.Component(u"F");
  workspace.SaveComponentAs(*component, (folder_.Path() / "forms" / "Main.frm"));
  EXPECT_EQ(workspace.ChangedFiles(), std::vector{folder_.Path() / "P.vbp"});
  workspace.Save();
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nForm=forms\\Main.frm\r\nName=\"P\"\r\n");
  EXPECT_EQ(folder_.Read("forms/Main.frm"), FormWith("Main.frx"));
  EXPECT_EQ(folder_.Read("forms/Main.frx"), "pictures");
  EXPECT_EQ(folder_.Read("F.frm"), form);
  // Under the same name they keep theirs.
  workspace.SaveComponentAs(*component, (folder_.Path() / "Main.frm"));
  EXPECT_EQ(folder_.Read("Main.frm"), FormWith("Main.frx"));
  EXPECT_EQ(folder_.Read("Main.frx"), "pictures");
}

TEST_F(Saving, PicturesUnderAnotherNameThanTheFormsKeepIt) {
  folder_.Write("F.frm", FormWith("shared.frx"));
  folder_.Write("shared.frx", "pictures");
  Workspace workspace(services_);
  workspace.Open(Project("Form=F.frm\r\n"));
  workspace.SaveComponentAs(*workspace.Component(u"F"), (folder_.Path() / "Main.frm"));
  EXPECT_EQ(folder_.Read("Main.frm"), FormWith("shared.frx"));
  EXPECT_FALSE(fs::exists(folder_.Path() / "Main.frx"));
}

TEST_F(Saving, ASaveAsThatFailsLeavesTheFormAsItWas) {
  folder_.Write("F.frm", FormWith("F.frx"));
  folder_.Write("F.frx", "pictures");
  folder_.Write("Main.frx", "of another form");
  Workspace workspace(services_);
  workspace.Open(Project("Form=F.frm\r\n"));
  const auto component = workspace.Component(u"F");
  EXPECT_THROW(workspace.SaveComponentAs(*component, (folder_.Path() / "Main.frm")), vb::Failure);
  EXPECT_FALSE(workspace.IsModified(*component));
  EXPECT_EQ(workspace.Bytes(*component), FormWith("F.frx"));
  EXPECT_EQ(folder_.Read("Main.frx"), "of another form");
  EXPECT_FALSE(fs::exists(folder_.Path() / "Main.frm"));
}

TEST_F(Saving, SaveAsOntoAnotherComponentsFileIsRefused) {
  folder_.Write("M.bas", Module("M"));
  folder_.Write("N.bas", Module("N"));
  fs::create_symlink("N.bas", folder_.Path() / "link.bas");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\nModule=N; N.bas\r\n"));
  const auto component = workspace.Component(u"M");
  for (const char* name : {"N.bas", "link.bas"}) {
    const fs::path file = folder_.Path() / name;
    EXPECT_EQ(Fails([&] { workspace.SaveComponentAs(*component, file); }),
              file.string() +
                  ": the component \"N\" of the project \"P\" is kept there; nothing was written");
  }
  EXPECT_EQ(folder_.Read("N.bas"), Module("N"));
  workspace.SaveComponentAs(*component, (folder_.Path() / "M.bas"));  // its own
  EXPECT_TRUE(workspace.Save().empty());
}

TEST_F(Saving, AProjectWithoutItsFirstFormBeginsWithSubMainOrNothing) {
  const std::string head = "VERSION 5.00\r\nBegin VB.Form ";
  for (const char* name : {"F", "G"}) {
    folder_.Write(std::string(name) + ".frm",
                  head + name + " \r\nEnd\r\nAttribute VB_Name = \"" + name + "\"\r\n");
  }
  folder_.Write("M.bas", Module("M", "Sub Main()\r\nEnd Sub\r\n"));
  folder_.Write("C.cls", Module("C", "Sub Main()\r\nEnd Sub\r\n"));
  const std::string ends = "IconForm=\"F\"\r\nStartup=\"f\"\r\n";
  struct {
    std::string Entries, Left;
  } const cases[] = {
      {"Module=M; M.bas\r\nForm=G.frm\r\n", "IconForm=\"G\"\r\nStartup=\"Sub Main\"\r\n"},
      {"Class=C; C.cls\r\nForm=G.frm\r\n", "IconForm=\"G\"\r\nStartup=\"(None)\"\r\n"},
      {"Module=M; M.bas\r\n", "Startup=\"Sub Main\"\r\n"}};
  for (const auto& one : cases) {
    Workspace workspace(services_);
    workspace.Open(Project("Form=F.frm\r\n" + one.Entries + ends));
    workspace.RemoveComponent(u"", u"F");
    workspace.Save();
    EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\n" + one.Entries + one.Left + "Name=\"P\"\r\n");
  }
  // Another one goes: nothing follows.
  Workspace workspace(services_);
  workspace.Open(Project("Form=F.frm\r\nForm=G.frm\r\n" + ends));
  workspace.RemoveComponent(u"", u"G");
  workspace.Save();
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nForm=F.frm\r\n" + ends + "Name=\"P\"\r\n");
}

TEST_F(Saving, ANewNameBeyondTheCodePageIsRefusedAheadOfEverything) {
  folder_.Write("M.bas", Module("M"));
  Workspace workspace(services_, {1252});
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.RenameComponent(u"", u"M", u"\u0416");
  const std::string failure = Fails([&] { workspace.Save(); });
  EXPECT_NE(failure.find("is not in code page 1252"), std::string::npos) << failure;
  EXPECT_EQ(folder_.Read("M.bas"), Module("M"));
}

TEST_F(Saving, ANewComponentTakesNoFileThatWindowsKeepsForADevice) {
  folder_.Write("M.bas", Module("M"));
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.AddComponent(u"", host::vbext_ct_StdModule, u"con", u"");
  workspace.Save();
  EXPECT_EQ(folder_.Read("con_2.bas"), Module("con", ""));
  EXPECT_EQ(folder_.Read("P.vbp"),
            "Type=Exe\r\nModule=M; M.bas\r\nModule=con; con_2.bas\r\nName=\"P\"\r\n");
}

TEST_F(Saving, ANewComponentTakesNoFileThatLiesInTheFolder) {
  folder_.Write("module1.BAS", "mine");
  folder_.Write("M.bas", Module("M"));
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\nClass=Gone; Thing.cls\r\n"));
  workspace.AddComponent(u"", host::vbext_ct_StdModule, u"Module1", u"Dim x");
  workspace.AddComponent(u"", host::vbext_ct_ClassModule, u"Thing", u"");
  folder_.Write("Module1_2.bas", "mine, since a moment");
  workspace.Save();
  EXPECT_EQ(folder_.Read("module1.BAS"), "mine");
  EXPECT_EQ(folder_.Read("Module1_2.bas"), "mine, since a moment");
  EXPECT_EQ(folder_.Read("Module1_3.bas"), Module("Module1", "Dim x\r\n"));
  EXPECT_EQ(folder_.Read("P.vbp"),
            "Type=Exe\r\nModule=M; M.bas\r\nClass=Gone; Thing.cls\r\nModule=Module1; "
            "Module1_3.bas\r\nClass=Thing; Thing_2.cls\r\nName=\"P\"\r\n");
}

TEST_F(Saving, AFileThatWasChangedOutsideIsNotOverwrittenUnseen) {
  folder_.Write("M.bas", Module("M"));
  folder_.Write("N.bas", Module("N"));
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\nModule=N; N.bas\r\n"));
  workspace.SetText(u"M", u"Dim b");
  workspace.SetText(u"N", u"Dim b");
  folder_.Write("N.bas", Module("N", "Dim other\r\n"));
  const std::string text =
      "Changed by another program since it was read, so nothing was written: " +
      (folder_.Path() / "N.bas").string();
  EXPECT_EQ(Fails([&] { workspace.Save(); }), text + " is another one from line 2 on");
  EXPECT_EQ(Fails([&] { workspace.SaveComponent(*workspace.Component(u"N")); }),
            text + " is another one from line 2 on");
  EXPECT_EQ(folder_.Read("M.bas"), Module("M")) << "not even the other one";
  fs::remove(folder_.Path() / "N.bas");
  EXPECT_EQ(Fails([&] { workspace.Save(); }), text + " is gone");
  workspace.AcceptOutside(*workspace.Component(u"N"));
  EXPECT_EQ(workspace.Save().size(), 2U);
  EXPECT_EQ(folder_.Read("N.bas"), Module("N", "Dim b\r\n"));
}

TEST_F(Saving, WhatAnotherProcessWritesWhileItHoldsTheFolderIsSeen) {
  folder_.Write("M.bas", Module("M"));
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.SetText(u"M", u"Dim b");
  std::promise<void> held;
  std::thread other([&] {
    const files::FolderLocks locks({folder_.Path()});
    held.set_value();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    folder_.Write("M.bas", Module("M", "Dim other\r\n"));
  });
  held.get_future().wait();
  EXPECT_NE(Fails([&] { workspace.Save(); }).find("Changed by another program"), std::string::npos);
  other.join();
  EXPECT_EQ(folder_.Read("M.bas"), Module("M", "Dim other\r\n"));
}

TEST_F(Saving, AProjectFileThatWasChangedOutsideIsNotOverwrittenUnseen) {
  folder_.Write("M.bas", Module("M"));
  Workspace workspace(services_);
  const fs::path project = Project("Module=M; M.bas\r\n");
  workspace.Open(project);
  workspace.RenameComponent(u"", u"M", u"N");
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nName=\"Q\"\r\n");
  EXPECT_THROW(workspace.Save(), vb::Failure);
  EXPECT_EQ(folder_.Read("M.bas"), Module("M"));
  workspace.AcceptOutside(ProjectOf(workspace));
  workspace.Save();
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nModule=N; M.bas\r\nName=\"P\"\r\n");
}

TEST_F(Saving, MissingAndDamagedComponentsAreNamedAndStayInTheProject) {
  folder_.Write("M.bas", Module("M"));
  folder_.Write("Bad.frm", "VERSION 5.00\r\nBegin VB.Form Bad \r\n");
  const std::string before =
      "Type=Exe\r\nModule=Gone; Gone.bas\r\nForm=Bad.frm\r\nModule=M; M.bas\r\nName=\"P\"\r\n";
  folder_.Write("P.vbp", before);
  Workspace workspace(services_);
  const auto problems = workspace.Open(folder_.Path() / "P.vbp");
  ASSERT_EQ(problems.size(), 2U);
  EXPECT_EQ(problems[0].Component, u"Gone");
  EXPECT_EQ(problems[0].File, folder_.Path() / "Gone.bas");
  EXPECT_EQ(problems[0].Type, host::vbext_ct_StdModule);
  EXPECT_EQ(problems[1].Component, u"Bad");
  EXPECT_EQ(problems[1].Type, host::vbext_ct_VBForm);
  EXPECT_EQ(problems[1].Project.lock(), ProjectOf(workspace));
  EXPECT_EQ(workspace.Problems().size(), 2U);
  EXPECT_EQ(ProjectOf(workspace)->Components().All().size(), 1U);
  workspace.RenameComponent(u"", u"M", u"N");
  workspace.Save();
  EXPECT_EQ(
      folder_.Read("P.vbp"),
      "Type=Exe\r\nModule=Gone; Gone.bas\r\nForm=Bad.frm\r\nModule=N; M.bas\r\nName=\"P\"\r\n");
  workspace.Close(ProjectOf(workspace));
  EXPECT_TRUE(workspace.Problems().empty());
}

TEST_F(Saving, AMissingProjectOfAGroupIsAProblemAndTheRestOpens) {
  folder_.Write("M.bas", Module("M"));
  Project("Module=M; M.bas\r\n");
  Workspace workspace(services_);
  const auto problems = workspace.Open(
      folder_.Write("G.vbg", "VBGROUP 5.0\r\nProject=No.vbp\r\nStartupProject=P.vbp\r\n"));
  ASSERT_EQ(problems.size(), 1U);
  EXPECT_EQ(problems[0].File, folder_.Path() / "No.vbp");
  EXPECT_EQ(problems[0].Project.lock(), nullptr);
  EXPECT_EQ(workspace.VBE()->VBProjects()->Count(), 1);
}

TEST_F(Saving, NulBytesBehindTheCodeStayThere) {
  const std::string padding(300, '\0');
  folder_.Write("M.bas", Module("M", "Sub A()\r\nEnd Sub\r\n") + padding);
  folder_.Write(
      "F.frm",
      "VERSION 5.00\r\nBegin VB.Form F \r\nEnd\r\nAttribute VB_Name = \"F\"\r\n" + padding);
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; M.bas\r\nForm=F.frm\r\n" + padding);
  Workspace workspace(services_);
  ASSERT_TRUE(workspace.Open(folder_.Path() / "P.vbp").empty());
  EXPECT_EQ(workspace.Text(u"M"), u"Sub A()\r\nEnd Sub");
  workspace.Component(u"M")->CodeModule()->InsertLines(3, u"'");
  workspace.RenameComponent(u"", u"F", u"G");
  workspace.RenameComponent(u"", u"M", u"N");
  workspace.Save();
  EXPECT_EQ(folder_.Read("M.bas"), Module("N", "Sub A()\r\nEnd Sub\r\n'\r\n") + padding);
  EXPECT_EQ(folder_.Read("F.frm"),
            "VERSION 5.00\r\nBegin VB.Form G \r\nEnd\r\nAttribute VB_Name = \"G\"\r\n" + padding);
  EXPECT_EQ(folder_.Read("P.vbp"), "Type=Exe\r\nModule=N; M.bas\r\nForm=F.frm\r\n" + padding);
}

TEST_F(Saving, NamesOnTheDiskDecideTheCodePage) {
  // "Ж.bas" in code page 1251; the same byte is "Æ" in 1252.
  folder_.Write("\xD0\x96.bas", Module("M", "' \xC6\xE6\r\n"));
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; \xC6.bas\r\n");
  Workspace workspace(services_);
  ASSERT_TRUE(workspace.Open(folder_.Path() / "P.vbp").empty());
  EXPECT_EQ(workspace.CodePageOf(*workspace.Component(u"M")), 1251);
  EXPECT_EQ(workspace.Text(u"M"), u"' \u0416\u0436");
  // Whoever says the page is right.
  Workspace told(services_);
  told.Open(folder_.Path() / "P.vbp", 1252);
  EXPECT_EQ(told.Text(u"M"), u"' \u00C6\u00E6");
  EXPECT_EQ(Fails([&] { told.Open(folder_.Path() / "P.vbp", 12); }),
            "There is no code page 12 here");
}

TEST_F(Saving, ForeignNamesThatAreNoUtf8Work) {
  folder_.Write("M\xFCller/\xFC.bas", Module("M"));
  folder_.Write("M\xFCller/P.vbp", "Type=Exe\r\nModule=M; \xFC.bas\r\n");
  Workspace workspace(services_);
  ASSERT_TRUE(workspace.Open(folder_.Path() / "M\xFCller/P.vbp").empty());
  workspace.SetText(u"M", u"Dim b");
  workspace.AddComponent(u"", host::vbext_ct_StdModule, u"New", u"");
  EXPECT_EQ(workspace.Save().size(), 3U);
  EXPECT_EQ(folder_.Read("M\xFCller/\xFC.bas"), Module("M", "Dim b\r\n"));
  EXPECT_TRUE(fs::exists(folder_.Path() / "M\xFCller/New.bas"));
}

TEST_F(Saving, ANewProjectGetsANameOfItsOwn) {
  folder_.Write("M.bas", Module("M"));
  Workspace workspace(services_);
  workspace.Open(folder_.Path() / "M.bas");
  EXPECT_EQ(workspace.NewProject(u"", host::vbext_pt_StandardExe)->Name(), u"Project2");
  workspace.Open(folder_.Path() / "M.bas");
  EXPECT_EQ(workspace.VBE()->ActiveVBProject()->Name(), u"Project3");
}

TEST_F(Saving, ANewProjectIsReadAgainAsItWasWrittenWhateverItsScripts) {
  int number = 0;
  for (const std::vector<String>& texts :
       {std::vector<String>{u"' \u041F\u0440\u0438\u0432\u0435\u0442", u"' \u00E9t\u00E9"},
        {u"' \u041F\u0440\u0438\u0432\u0435\u0442"},
        {u"' \u041F\u0440\u0438 \u03B1\u03B2"},
        {u"' \u4E09\u70B9\u900F\u8996", u"' \u6708"},
        {u"' \u6708", u"' \u4E09\u70B9\u900F\u8996"},
        {u"' \u3053\u3093\u306B\u3061\u306F"},
        {u"' \u4F60\u597D\uFF0C\u4E16\u754C"},
        {u"' \uC548\uB155", u"' \u00E9"}}) {
    const fs::path file = folder_.Path() / ("n" + std::to_string(number++)) / "Project1.vbp";
    fs::create_directories(file.parent_path());
    Workspace workspace(services_);
    const auto project = workspace.NewProject(u"Project1", host::vbext_pt_StandardExe);
    for (const String& text : texts) {
      const auto one = project->VBComponents()->Add(host::vbext_ct_StdModule);
      one->CodeModule()->InsertLines(1, text);
    }
    workspace.SaveProjectAs(std::dynamic_pointer_cast<model::VBProject>(project), file);
    Workspace next(services_);
    next.Open(file);
    for (std::size_t at = 0; at < texts.size(); ++at) {
      EXPECT_EQ(next.Text(u"Module" + vb::Str(static_cast<int>(at) + 1)), texts[at]) << number;
    }
  }
}

TEST_F(Saving, EmptyLinesAtTheEndOfAFileWithoutALastLineEndAreWritten) {
  folder_.Write("M.bas", "Attribute VB_Name = \"M\"\r\nDim a");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  const auto module = workspace.Component(u"M")->CodeModule();
  module->InsertLines(2, u"");
  module->InsertLines(3, u"");
  workspace.Save();
  EXPECT_EQ(folder_.Read("M.bas"), Module("M", "Dim a\r\n\r\n\r\n"));
  Workspace next(services_);
  next.Open(folder_.Path() / "P.vbp");
  EXPECT_EQ(next.Text(u"M"), workspace.Text(u"M"));
  // A line that says something goes without its end, as it did.
  module->DeleteLines(2, 2);
  workspace.Save();
  EXPECT_EQ(folder_.Read("M.bas"), "Attribute VB_Name = \"M\"\r\nDim a");
}

TEST_F(Saving, AFileWithoutANameOfItsOwnIsGivenOne) {
  folder_.Write("M.bas", "Dim a\r\n");
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\n"));
  workspace.RenameComponent(u"", u"M", u"N");
  workspace.Save();
  EXPECT_EQ(folder_.Read("M.bas"), Module("N"));
}

TEST_F(Saving, AReadOnlyFileIsNamedAndNothingIsWritten) {
  folder_.Write("M.bas", Module("M"));
  folder_.Write("N.bas", Module("N"));
  fs::permissions(folder_.Path() / "N.bas", fs::perms::owner_read);
  Workspace workspace(services_);
  workspace.Open(Project("Module=M; M.bas\r\nModule=N; N.bas\r\n"));
  workspace.SetText(u"M", u"Dim b");
  workspace.SetText(u"N", u"Dim b");
  EXPECT_EQ(Fails([&] { workspace.Save(); }),
            (folder_.Path() / "N.bas").string() + ": cannot be written: the file is read-only");
  EXPECT_EQ(folder_.Read("M.bas"), Module("M"));
}

TEST_F(Saving, StraysOfKilledSavesAreRemovedWhereverTheProjectsFilesLie) {
  folder_.Write("real/L.bas", Module("L"));
  folder_.Write("sub/M.bas", Module("M"));
  fs::create_symlink("real/L.bas", folder_.Path() / "L.bas");
  const fs::path project = Project("Module=L; L.bas\r\nModule=M; sub\\M.bas\r\n");
  const std::vector<std::string> strays{".tessel-00000001.tmp", "real/.tessel-00000002.tmp",
                                        "sub/.tessel-00000003.tmp"};
  for (const auto& stray : strays) folder_.Write(stray, "half");
  Workspace(services_, {.CodePage = 0, .ReadsOnly = true}).Open(project);
  for (const auto& stray : strays) EXPECT_TRUE(fs::exists(folder_.Path() / stray)) << stray;
  Workspace(services_).Open(project);
  for (const auto& stray : strays) EXPECT_FALSE(fs::exists(folder_.Path() / stray)) << stray;
}

/// A project of many modules, each of which says the same number.
class ManyFiles : public Saving {
 protected:
  static constexpr int Count = 40;
  void SetUp() override {
    std::string entries;
    for (int one = 0; one < Count; ++one) {
      const std::string name = "M" + std::to_string(one);
      folder_.Write(name + ".bas", Module(name, "' 0\r\n"));
      entries += "Module=" + name + "; " + name + ".bas\r\n";
    }
    project_ = Project(entries);
  }
  /// Writes the number into every module.
  static void SetAll(Workspace& workspace, int number) {
    for (const auto& component : ProjectOf(workspace)->Components().All()) {
      component->Module()->Edit(1, 1, u"' " + vb::Str(number));
    }
  }
  /// What all modules say, or "mixed".
  static std::string StateOf(Workspace& workspace) {
    String state;
    for (const auto& component : ProjectOf(workspace)->Components().All()) {
      const String text = component->Module()->Lines(1, 1);
      if (!state.empty() && text != state) return "mixed";
      state = text;
    }
    return vb::ToUtf8(state);
  }
  fs::path project_;
};

TEST_F(ManyFiles, AProcessThatEndsAnywhereLeavesAllOldOrAllNewBehindTheNextStart) {
  int number = 0;
  for (int ahead = 0; ahead < 130; ahead += 7) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      Workspace workspace(services_);
      workspace.Open(project_);
      SetAll(workspace, number + 1);
      int steps = 0;
      files::OnWriteStep = [&](std::string_view, const fs::path&) {
        if (steps++ == ahead) _exit(9);
      };
      workspace.Save();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    Workspace next(services_);
    next.Open(project_);
    const bool old = ahead < 3;  // three steps make the journal
    EXPECT_EQ(StateOf(next), "' " + std::to_string(old ? number : number + 1)) << ahead;
    EXPECT_EQ(next.TakeNotices().size(), old || WEXITSTATUS(status) == 0 ? 0U : 1U) << ahead;
    number += 2;
    SetAll(next, number);
    next.Save();
    EXPECT_EQ(FileCount(), Count + 1) << "no litter behind the next save";
  }
}

TEST_F(ManyFiles, WhoeverReadsOnlyIsToldOfAnInterruptedSaveAndLeavesIt) {
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Workspace workspace(services_);
    workspace.Open(project_);
    SetAll(workspace, 1);
    int renamed = 0;
    files::OnWriteStep = [&](std::string_view step, const fs::path&) {
      if (step == "rename" && ++renamed == Count) _exit(9);  // the first one is the journal
    };
    workspace.Save();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  const auto count = FileCount();
  Workspace reader(services_, {.CodePage = 0, .ReadsOnly = true});
  reader.Open(project_);
  EXPECT_EQ(StateOf(reader), "mixed");
  EXPECT_EQ(FileCount(), count);
  const auto notices = reader.TakeNotices();
  ASSERT_EQ(notices.size(), 1U);
  EXPECT_EQ(notices[0], u"A save was interrupted, and is finished when something is saved: " +
                            (folder_.Path() / "M38.bas").u16string() + u", " +
                            (folder_.Path() / "M39.bas").u16string());
}

TEST_F(ManyFiles, AJournalOfFilesWithOddEndingsIsFinishedWhereTheProjectNamesThem) {
  folder_.Write("sub/A.modul", Module("A", "' 0\r\n"));
  folder_.Write("B", Module("B", "' 0\r\n"));
  const fs::path project = Project("Module=A; sub\\A.modul\r\nModule=B; B\r\n");
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    Workspace workspace(services_);
    workspace.Open(project);
    SetAll(workspace, 1);
    files::OnWriteStep = [](std::string_view step, const fs::path& file) {
      if (step == "rename" && file.filename() == "B") _exit(9);
    };
    workspace.Save();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  ASSERT_EQ(WEXITSTATUS(status), 9);
  EXPECT_EQ(folder_.Read("B"), Module("B", "' 0\r\n"));
  Workspace next(services_);
  next.Open(project);
  EXPECT_EQ(StateOf(next), "' 1");
  EXPECT_EQ(next.TakeNotices().size(), 1U);
}

TEST_F(ManyFiles, AnInterruptedSaveIsFinishedByTheNextSaveToo) {
  Workspace workspace(services_);
  workspace.Open(project_);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    SetAll(workspace, 1);
    int steps = 0;
    files::OnWriteStep = [&](std::string_view, const fs::path&) {
      if (steps++ == 50) _exit(9);
    };
    workspace.Save();
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  SetAll(workspace, 2);
  EXPECT_THROW(workspace.Save(), vb::Failure) << "the files aren't those that were read";
  EXPECT_EQ(workspace.TakeNotices().size(), 1U);
  Workspace next(services_);
  next.Open(project_);
  EXPECT_EQ(StateOf(next), "' 1");
}

}  // namespace
}  // namespace tessel::workspace
