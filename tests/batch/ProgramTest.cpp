// The program from its command line on.

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "batch/Tessel.h"
#include "hosts/files/AtomicFile.h"
#include "hosts/files/Transaction.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

constexpr const char* Plain = "Sub A()\r\nx = 1\r\nEnd Sub\r\n";
constexpr const char* Tidy = "Sub A()\r\n    x = 1\r\nEnd Sub\r\n\r\n\r\n";
/// A word ahead of a colon becomes a label when it is formatted.
constexpr const char* Risky = "Sub A()\r\nBeep: DoEvents\r\nEnd Sub\r\n";

class ProgramTest : public testing::Test {
 protected:
  ~ProgramTest() override { files::OnWriteStep = nullptr; }

  static std::string Module(const std::string& name, const std::string& code) {
    return "Attribute VB_Name = \"" + name + "\"\r\n" + code;
  }
  /// A project of modules, in a folder below the current one.
  void Project(const std::string& folder,
               const std::vector<std::pair<std::string, std::string>>& modules) {
    std::string project = "Type=Exe\r\n";
    for (const auto& [name, code] : modules) {
      project += "Module=" + name + "; " + name + ".bas\r\n";
      Write(folder + name + ".bas", Module(name, code));
    }
    Write(folder + "P.vbp", project + "Name=\"P\"\r\n");
  }
  void Write(const std::string& name, const std::string& bytes) {
    tessel_.Folder.Write(name, bytes);
  }
  [[nodiscard]] std::string Read(const std::string& name) const {
    return tessel_.Folder.Read(name);
  }
  int Run(const std::vector<std::string>& words, const std::string& input = {}) {
    const int exit = tessel_.Run(words, input);
    out_ = tessel_.Out;
    err_ = tessel_.Err;
    return exit;
  }

  test::Tessel tessel_;
  std::string out_, err_;
};

TEST_F(ProgramTest, NamesFilesAsTheyAreWrittenAndClosesWithOneLine) {
  Project("sub/", {{"M", Plain}, {"N", Tidy}, {"R", Risky}});
  EXPECT_EQ(Run({"format", "sub/P.vbp"}), Failed);
  EXPECT_EQ(out_, "sub/M.bas: formatted\n");
  EXPECT_EQ(err_,
            "sub/R.bas: left as it is, since it would mean something else (--force writes it)\n"
            "  sub/R.bas:3: the word Beep ahead of a colon becomes a label\n"
            "1 formatted, 1 left alone, 1 unchanged\n");
}

TEST_F(ProgramTest, CausesStandTogetherBelowTheirComponent) {
  Project("", {{"R", std::string(Risky) + "Sub B()\r\n\r\n10\r\nEnd Sub\r\n"}});
  EXPECT_EQ(Run({"format", "--check", "P.vbp"}), Failed);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(err_,
            "R.bas: left as it is, since it would mean something else (--force writes it)\n"
            "  R.bas:3: the word Beep ahead of a colon becomes a label\n"
            "  R.bas:7: the line number 10 is lost\n"
            "0 would change, 1 left alone\n");
  EXPECT_EQ(Run({"format", "--check", "--force", "P.vbp"}), WouldChange);
  EXPECT_EQ(out_, "R.bas: would be formatted\n");
  EXPECT_EQ(err_.substr(err_.size() - 29), "1 would change, 0 left alone\n");
}

TEST_F(ProgramTest, QuietTellsCausesAndErrorsAlone) {
  Project("", {{"M", Plain}});
  EXPECT_EQ(Run({"format", "--quiet", "--check", "P.vbp"}), WouldChange);
  EXPECT_EQ(out_ + err_, "");
  EXPECT_EQ(Run({"format", "--quiet", "P.vbp"}), Done);
  EXPECT_EQ(out_ + err_, "");
  EXPECT_EQ(Run({"format", "--quiet", "Q.vbp"}), Failed);
  EXPECT_EQ(err_, "tessel: Q.vbp: the file does not exist\n");
}

TEST_F(ProgramTest, AComponentThatIsNotThereIsAnErrorOfEveryCommand) {
  Project("", {{"M", Plain}, {"N", Plain}});
  const std::string before = Read("N.bas");
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"format"}, {"members"}, {"handlers", "remove"}}) {
    std::vector<std::string> all = words;
    all.insert(all.end(), {"--component", "N", "--component", "Q", "P.vbp"});
    EXPECT_EQ(Run(all), Failed) << words[0];
    EXPECT_EQ(err_.rfind("tessel: P.vbp: there is no component \"Q\"\n", 0), 0U) << err_;
    EXPECT_EQ(out_, "");
  }
  EXPECT_EQ(Read("N.bas"), before) << "told before anything is touched";
  EXPECT_EQ(Run({"format", "--component", "Q", "-"}, Plain), Failed);
  EXPECT_EQ(out_, "");
}

TEST_F(ProgramTest, PatchTakesTheOutputOfDiff) {
  Project("my project/", {{"M", Plain}, {"N", "Sub N()\ny = 1\nEnd Sub"}});
  ASSERT_EQ(Run({"format", "--diff", "my project/P.vbp"}), Done);
  std::ofstream("change.patch", std::ios::binary) << out_;
  const std::string before = Read("my project/M.bas");
  ASSERT_EQ(std::system("patch --binary -p0 -s < change.patch"), 0) << out_;
  const std::string patched = Read("my project/M.bas"), patchedToo = Read("my project/N.bas");
  EXPECT_NE(patched, before);
  Write("my project/M.bas", before);
  Write("my project/N.bas", Module("N", "Sub N()\ny = 1\nEnd Sub"));
  ASSERT_EQ(Run({"format", "my project/P.vbp"}), Done);
  EXPECT_EQ(Read("my project/M.bas"), patched);
  EXPECT_EQ(Read("my project/N.bas"), patchedToo);
}

TEST_F(ProgramTest, FilesThatAreNoUtf8AreNamedInTheirOwnBytes) {
  Write("M\xFCller/P.vbp", "Type=Exe\r\nModule=M; \xFC.bas\r\n");
  Write("M\xFCller/\xFC.bas", Module("M", Plain));
  ASSERT_EQ(Run({"format", "--diff", "M\xFCller/P.vbp"}), Done);
  std::ofstream("change.patch", std::ios::binary) << out_;
  ASSERT_EQ(std::system("patch --binary -p0 -s < change.patch"), 0) << out_;
  EXPECT_EQ(Read("M\xFCller/\xFC.bas"), Module("M", Tidy));
  EXPECT_EQ(Run({"members", "M\xFCller/P.vbp"}), Done);
  EXPECT_EQ(out_.find("M  M\xFCller/\xFC.bas\n"), 0U) << out_;
  EXPECT_EQ(Run({"members", "M\xFCller/no.vbp"}), Failed);
  EXPECT_EQ(err_, "tessel: M\xFCller/no.vbp: the file does not exist\n");
  fs::remove(tessel_.Folder.Path() / "M\xFCller/\xFC.bas");
  EXPECT_EQ(Run({"members", "M\xFCller/P.vbp"}), Failed);
  EXPECT_NE(err_.find("M\xFCller/P.vbp:2: "), std::string::npos) << err_;
}

/// A save of two files that a kill has cut off ahead of the second.
class InterruptedSave : public ProgramTest {
 protected:
  void SetUp() override {
    Project("", {{"M", Plain}, {"N", Plain}});
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      files::OnWriteStep = [](std::string_view step, const fs::path& file) {
        if (step == "rename" && file.filename() == "N.bas") _exit(9);
      };
      files::WriteTogether(fs::current_path(), {Change("M"), Change("N")});
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_EQ(WEXITSTATUS(status), 9);
  }
  static files::Change Change(const std::string& name) {
    return {fs::current_path() / (name + ".bas"), Module(name, Plain), Module(name, Tidy)};
  }
};

TEST_F(InterruptedSave, CommandsThatReadTellOfItAndLeaveIt) {
  const std::string notice =
      "tessel: A save was interrupted, and is finished when something is saved: N.bas\n";
  for (const auto& words : std::vector<std::vector<std::string>>{
           {"members", "P.vbp"},
           {"format", "--check", "--quiet", "P.vbp"},
           {"format", "--diff", "--quiet", "P.vbp"},
           {"format", "--check", "--quiet", "--component", "N", "P.vbp"},
           {"handlers", "remove", "--check", "--quiet", "P.vbp"},
           {"handlers", "remove", "--diff", "--quiet", "P.vbp"}}) {
    Run(words);
    EXPECT_EQ(err_, notice) << words[0] << words[1];
    EXPECT_EQ(Read("N.bas"), Module("N", Plain)) << words[0] << words[1];
  }
}

TEST_F(InterruptedSave, CommandsThatWriteTellWhatTheyFinished) {
  EXPECT_EQ(Run({"format", "--quiet", "P.vbp"}), Done);
  EXPECT_EQ(err_, "tessel: A save that was interrupted was finished: N.bas\n");
  EXPECT_EQ(Read("N.bas"), Module("N", Tidy));
  EXPECT_EQ(Run({"format", "--quiet", "P.vbp"}), Done);
  EXPECT_EQ(err_, "");
}

TEST_F(ProgramTest, FilesOutsideTheProjectsFolderAreNamedFromWhereTheUserStands) {
  Write("shared/S.bas", Module("S", Plain));
  Write("app/P.vbp", "Type=Exe\r\nModule=S; ..\\shared\\S.bas\r\n");
  EXPECT_EQ(Run({"format", "--check", "app/P.vbp"}), WouldChange);
  EXPECT_EQ(out_, "shared/S.bas: would be formatted\n");
  const std::string full = (tessel_.Folder.Path() / "app" / "P.vbp").string();
  EXPECT_EQ(Run({"format", "--check", full}), WouldChange);
  EXPECT_EQ(out_, (tessel_.Folder.Path() / "shared" / "S.bas").string() + ": would be formatted\n");
}

TEST_F(ProgramTest, MessagesNameFilesAsTyped) {
  Write("app/P.vbp", "Type=Exe\r\nForm=Gone.frm\r\n");
  EXPECT_EQ(Run({"format", "--quiet", "app/P.vbp"}), Failed);
  EXPECT_EQ(err_, "tessel: app/P.vbp:2: the component's file does not exist: app/Gone.frm\n");
}

TEST_F(ProgramTest, AFolderStandsForItsProjectsAndItsLooseComponents) {
  Project("a/", {{"M", Plain}});
  Write("a/deep/Loose.bas", Module("Loose", Plain));
  Write("a/.git/Hidden.bas", Module("Hidden", Plain));
  Write("a/notes.txt", "no code");
  EXPECT_EQ(Run({"format", "--check", "a"}), WouldChange);
  EXPECT_EQ(out_, "a/M.bas: would be formatted\na/deep/Loose.bas: would be formatted\n");
  EXPECT_EQ(err_, "2 would change, 0 left alone\n");
  EXPECT_EQ(Run({"members", "a"}), Done);
  EXPECT_NE(out_.find("Loose  a/deep/Loose.bas\n"), std::string::npos);
  fs::create_directory("empty");
  EXPECT_EQ(Run({"format", "--quiet", "empty"}), Failed);
  EXPECT_EQ(err_, "tessel: empty: holds neither a project nor a component\n");
}

TEST_F(ProgramTest, AFileThatTwoProjectsShareIsHandledOnce) {
  Project("a/", {{"M", Plain}});
  Write("b/Q.vbp", "Type=Exe\r\nModule=M; ..\\a\\M.bas\r\n");
  EXPECT_EQ(Run({"format", "--check", "."}), WouldChange);
  EXPECT_EQ(out_, "./a/M.bas: would be formatted\n");
}

TEST_F(ProgramTest, ProjectsOfOneNameInAGroupAreEachHandled) {
  Project("a/", {{"M", "Sub InA()\r\nx = 1\r\nEnd Sub\r\n"}});
  Project("b/", {{"M", "Sub InB()\r\ny = 1\r\nEnd Sub\r\n"}});
  Write("G.vbg", "VBGROUP 5.0\r\nStartupProject=a\\P.vbp\r\nProject=b\\P.vbp\r\n");
  EXPECT_EQ(Run({"format", "--diff", "G.vbg"}), Done);
  const std::size_t second = out_.find("--- b/M.bas\n");
  ASSERT_NE(second, std::string::npos) << out_;
  EXPECT_NE(out_.substr(0, second).find("--- a/M.bas\n"), std::string::npos);
  EXPECT_NE(out_.substr(0, second).find(" Sub InA()"), std::string::npos);
  EXPECT_EQ(out_.substr(0, second).find("InB"), std::string::npos);
  EXPECT_NE(out_.find(" Sub InB()", second), std::string::npos);
  EXPECT_EQ(Run({"format", "G.vbg"}), Done);
  EXPECT_EQ(out_, "a/M.bas: formatted\nb/M.bas: formatted\n");
  EXPECT_EQ(Read("b/M.bas"), Module("M", "Sub InB()\r\n    y = 1\r\nEnd Sub\r\n\r\n\r\n"));
  EXPECT_EQ(Run({"handlers", "remove", "G.vbg"}), Done);
  EXPECT_EQ(out_, "a/M.bas: changed\nb/M.bas: changed\n");
  EXPECT_NE(Read("b/M.bas").find("\r\ny = 1\r\n"), std::string::npos);
}

TEST_F(ProgramTest, ModulesOfOneNameInAProjectAreEachHandled) {
  Write("One.bas", Module("M", "Sub InOne()\r\nx = 1\r\nEnd Sub\r\n"));
  Write("Two.bas", Module("M", "Sub InTwo()\r\ny = 1\r\nEnd Sub\r\n"));
  Write("P.vbp", "Type=Exe\r\nModule=M; One.bas\r\nModule=M; Two.bas\r\n");
  EXPECT_EQ(Run({"format", "--diff", "P.vbp"}), Done);
  const std::size_t second = out_.find("--- Two.bas\n");
  ASSERT_NE(second, std::string::npos) << out_;
  EXPECT_EQ(out_.find("InTwo"), out_.find("InTwo", second));
  EXPECT_EQ(Run({"format", "--component", "M", "P.vbp"}), Done);
  EXPECT_EQ(out_, "One.bas: formatted\nTwo.bas: formatted\n");
  EXPECT_EQ(Read("Two.bas"), Module("M", "Sub InTwo()\r\n    y = 1\r\nEnd Sub\r\n\r\n\r\n"));
  EXPECT_EQ(Run({"members", "P.vbp"}), Done);
  EXPECT_NE(out_.find("InTwo [Proc]"), std::string::npos);
}

TEST_F(ProgramTest, ExcludedFilesAndFoldersAreLeftOut) {
  Project("a/", {{"M", Plain}, {"N", Plain}});
  Project("vendor/", {{"V", Plain}});
  EXPECT_EQ(Run({"format", "--check", "--exclude", "vendor", "--exclude", "n.BAS", "."}),
            WouldChange);
  EXPECT_EQ(out_, "./a/M.bas: would be formatted\n");
  EXPECT_EQ(Run({"format", "--check", "--exclude", "*.bas", "a/P.vbp"}), Done);
  EXPECT_EQ(out_, "");
}

TEST_F(ProgramTest, AFileThatIsNoComponentIsRefused) {
  Write("notes.txt", "Sub A()\r\nx=1\r\nEnd Sub\r\n");
  for (const char* command : {"format", "members"}) {
    EXPECT_EQ(Run({command, "notes.txt"}), Failed);
    EXPECT_EQ(err_.rfind("tessel: notes.txt: is no project, group or component\n", 0), 0U) << err_;
  }
  Write("exported.txt", Module("M", Plain));
  EXPECT_EQ(Run({"format", "exported.txt"}), Done) << "components may have any extension";
  EXPECT_EQ(Read("exported.txt"), Module("M", Tidy));
}

TEST_F(ProgramTest, StandardInputGoesByTheNameThatItIsGiven) {
  Write("src/.tessel", "tab-characters = off\nspaces-per-level = 2\n");
  EXPECT_EQ(Run({"format", "--stdin-filename", "src/M.bas", "-"}, Plain), Done);
  EXPECT_EQ(out_, "Sub A()\r\n  x = 1\r\nEnd Sub\r\n\r\n\r\n");
  EXPECT_FALSE(fs::exists("src/M.bas"));
  EXPECT_EQ(Run({"format", "--stdin-filename", "src/M.bas", "-"}, Risky), Failed);
  EXPECT_EQ(out_, Risky) << "left alone, it comes out as it went in";
  EXPECT_NE(err_.find("src/M.bas:2: the word Beep"), std::string::npos) << err_;
  EXPECT_EQ(Run({"format", "--diff", "--stdin-filename", "src/M.bas", "-"}, Plain), Done);
  EXPECT_EQ(out_.rfind("--- src/M.bas\n+++ src/M.bas\n", 0), 0U);
  EXPECT_EQ(Run({"format", "--check", "-"}, Plain), WouldChange);
  EXPECT_EQ(out_, "<standard input>: would be formatted\n");
}

TEST_F(ProgramTest, StandardInputNeedsNoRoomForATemporaryFile) {
  setenv("TMPDIR", "/no/such/folder", 1);
  EXPECT_EQ(Run({"format", "-"}, Plain), Done);
  unsetenv("TMPDIR");
  EXPECT_EQ(out_, Tidy);
}

TEST_F(ProgramTest, AFormFromStandardInputKeepsItsHead) {
  const std::string form =
      "VERSION 5.00\r\nBegin VB.Form F \r\n   Caption = \"x\"\r\nEnd\r\nAttribute VB_Name = "
      "\"F\"\r\n";
  EXPECT_EQ(Run({"format", "-"}, form + Plain), Done);
  EXPECT_EQ(out_, form + Tidy);
}

TEST_F(ProgramTest, MembersListsEveryMemberOnce) {
  Project("", {{"M",
                "Property Let V(a)\r\nEnd Property\r\nProperty Get V()\r\nEnd Property\r\nSub "
                "Last(): End Sub"}});
  EXPECT_EQ(Run({"members", "P.vbp"}), Done);
  EXPECT_EQ(out_,
            "M  M.bas\n"
            "       1       1       2  V [Let]\n"
            "       3       3       2  V [Get]\n"
            "       5       5       1  Last [Proc]\n");
  EXPECT_EQ(Run({"members", "--json", "P.vbp", "none.vbp"}), Failed);
  EXPECT_NE(out_.find("\"name-and-type\": \"V [Get]\""), std::string::npos);
}

TEST_F(ProgramTest, MembersMarksTheEventsOfControls) {
  Write("F.frm",
        "VERSION 5.00\r\nBegin VB.Form F \r\n   Begin VB.CommandButton Go \r\n   End\r\nEnd\r\n"
        "Attribute VB_Name = \"F\"\r\nSub go_Click()\r\nEnd Sub\r\nSub F_Load()\r\nEnd Sub\r\n");
  EXPECT_EQ(Run({"members", "F.frm"}), Done);
  EXPECT_NE(out_.find("go_Click [Ctl]\n"), std::string::npos) << out_;
  EXPECT_NE(out_.find("F_Load [Proc]\n"), std::string::npos) << out_;
}

TEST_F(ProgramTest, HelpTellsDefaultsAndExitCodes) {
  EXPECT_EQ(Run({"format", "--help"}), Done);
  EXPECT_EQ(err_, "");
  for (const char* part :
       {"Exit codes: 0 ", "--spaces-per-level TEXT=4", "--tab-characters TEXT=on",
        "=the number of cores", "--stdin-filename", "--exclude", "--quiet"}) {
    EXPECT_NE(out_.find(part), std::string::npos) << part << '\n' << out_;
  }
  EXPECT_EQ(Run({"handlers", "insert", "--help"}), Done);
  EXPECT_NE(out_.find("Exit codes: 0 "), std::string::npos);
  EXPECT_EQ(Run({"handlers"}), Failed);
}

TEST_F(ProgramTest, NewNamesFilesAsTyped) {
  Project("sub/", {{"M", Plain}});
  EXPECT_EQ(Run({"new", "enum", "--name", "E", "--member", "A", "--into", "sub/P.vbp",
                 "--component", "M"}),
            Done)
      << err_;
  EXPECT_EQ(out_, "sub/M.bas\n");
  EXPECT_EQ(Run({"new", "enum", "--name", "E", "--member", "A", "--into", "sub/Q.vbp",
                 "--component", "M"}),
            Failed);
  EXPECT_EQ(err_, "tessel: sub/Q.vbp: the file does not exist\n");
}

// An error handler's own changes

class HandlerDifferences : public ProgramTest {
 protected:
  int Insert(std::vector<std::string> words) {
    words.insert(words.begin(), {"handlers", "insert", "--scheme", "Message Box", "--data",
                                 (tessel_.Folder.Path() / "program").string()});
    return Run(words);
  }
  HandlerDifferences() {
    Write("empty.scheme", "Name: x\nHeader:\nFooter:\n");
    EXPECT_EQ(Run({"schemes", "import", "--data", "program", "empty.scheme"}), Done) << err_;
  }
};

constexpr const char* Jumps = "Sub A()\r\nGoTo 10\r\nx = _\r\n5 + y\r\n10 z = 1\r\nEnd Sub\r\n";

TEST_F(HandlerDifferences, AComponentThatWouldMeanSomethingElseKeepsTheProjectUnwritten) {
  Project("", {{"J", Jumps}, {"M", Plain}});
  EXPECT_EQ(Insert({"P.vbp"}), Failed);
  EXPECT_EQ(
      err_,
      "J.bas: left as it is, since it would mean something else (--force writes it)\n"
      "  J.bas:5: a continuation line loses the number 5 at its head\n"
      "  J.bas:6: the line number 10, which a jump or Erl refers to, becomes 120\n"
      "tessel: P.vbp: nothing is written (--keep-going writes the components that went well)\n"
      "0 changed, 2 left alone\n");
  EXPECT_EQ(Read("M.bas"), Module("M", Plain));
  EXPECT_EQ(Insert({"--keep-going", "P.vbp"}), Failed);
  EXPECT_EQ(out_, "M.bas: changed\n");
  EXPECT_EQ(Read("J.bas"), Module("J", Jumps));
  EXPECT_EQ(Insert({"--force", "P.vbp"}), Done);
  EXPECT_NE(Read("J.bas"), Module("J", Jumps));
}

TEST_F(HandlerDifferences, WarnsOfAProjectThatWasStrippedAlone) {
  Project("", {{"M", "'errMarker: x\r\nSub A()\r\n\r\ny = 1\r\nEnd Sub\r\n"}});
  EXPECT_EQ(Insert({"--check", "P.vbp"}), WouldChange);
  EXPECT_EQ(err_.rfind("P.vbp: warning: P: no handler was put in, since the scheme is empty", 0),
            0U)
      << err_;
}

TEST_F(HandlerDifferences, AComponentThatTwoFilesAreCalledIsNamedWithBoth) {
  Write("A.bas", Module("M", Plain));
  Write("B.bas", Module("M", Plain));
  Write("P.vbp", "Type=Exe\r\nModule=M; A.bas\r\nModule=M; B.bas\r\nName=\"P\"\r\n");
  const std::string error =
      "tessel: P.vbp: there are several components \"m\": A.bas and B.bas; name the file itself in "
      "the place of the project\n";
  EXPECT_EQ(Run({"handlers", "remove", "--component", "m", "--member", "A", "P.vbp"}), Failed);
  EXPECT_EQ(err_, error);
  EXPECT_EQ(Run({"handlers", "remove", "--component", "m", "P.vbp"}), Failed);
  EXPECT_EQ(err_, error);
  EXPECT_EQ(Run({"handlers", "remove", "--component", "m", "--member", "A", "B.bas"}), Done);
}

TEST_F(HandlerDifferences, AMemberOfTwoProjectsOfAGroupIsNoSingleOne) {
  for (const std::string folder : {"a/", "b/"}) Project(folder, {{"M", Plain}});
  Write("G.vbg", "VBGROUP 5.0\r\nProject=a\\P.vbp\r\nProject=b\\P.vbp\r\n");
  EXPECT_EQ(Run({"handlers", "remove", "--component", "M", "--member", "A", "G.vbg"}), Failed);
  EXPECT_NE(err_.find("a/M.bas and b/M.bas"), std::string::npos) << err_;
  EXPECT_EQ(Run({"handlers", "remove", "--component", "M", "G.vbg"}), Done) << err_;
}

TEST_F(HandlerDifferences, AnExcludedComponentIsNotWritten) {
  Project("", {{"M", Plain}, {"N", Plain}});
  EXPECT_EQ(Insert({"--exclude", "N.bas", "P.vbp"}), Done) << err_;
  EXPECT_EQ(out_, "M.bas: changed\n");
  EXPECT_EQ(Read("N.bas"), Module("N", Plain));
}

}  // namespace
}  // namespace tessel::batch
