#include "hosts/batch/HandlersCommand.h"

#include <gtest/gtest.h>

#include <sstream>

#include "foundation/CErrorHandler.h"
#include "hosts/batch/HandlersRun.h"
#include "hosts/batch/PersonalDatabase.h"
#include "hosts/batch/SchemesCommand.h"
#include "support/TemporaryFolder.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

constexpr const char* PlainScheme =
    "Name: Plain\nChange-Error: yes\nLabel: Failed\nHeader:\n    On Error GoTo Failed\nFooter:\n"
    "    Exit {MemberType}\n    Failed:\n";
constexpr const char* NamedScheme =
    "Name: Named\nHeader:\n    ' {ProjectName} {ComponentName} {MemberName}\nFooter:\n";
constexpr const char* CyrillicScheme =
    "Name: Cyrillic\nHeader:\n    ' \xD0\x96{MemberName}\nFooter:\n";

class HandlersCommandTest : public testing::Test {
 protected:
  HandlersCommandTest() {
    SchemesCommand command;
    SchemesRequest& schemes = command.Request;
    schemes.Verb = SchemesVerb::Import;
    schemes.Data = request_.Data = folder_.Path() / "program";
    for (const char* text : {PlainScheme, NamedScheme, CyrillicScheme}) {
      schemes.Files.push_back(
          folder_.Write(std::to_string(schemes.Files.size()) + ".scheme", text).string());
    }
    EXPECT_EQ(command.Run({in_, out_, err_}), 0) << err_.str();
    request_.Scheme = "plain";
    request_.Files = {(folder_.Path() / "P.vbp").string()};
  }

  int Run() {
    out_.str("");
    err_.str("");
    HandlersCommand command;
    command.Request = request_;
    return command.Run({in_, out_, err_});
  }
  void Project(const std::vector<std::pair<std::string, std::string>>& modules) {
    std::string project = "Type=Exe\r\n";
    for (const auto& [name, code] : modules) {
      project += "Module=" + name + "; " + name + ".bas\r\n";
      folder_.Write(name + ".bas", Head(name) + code);
    }
    folder_.Write("P.vbp", project + "Name=\"P\"\r\n");
  }
  static std::string Head(const std::string& name) {
    return "Attribute VB_Name = \"" + name + "\"\r\n";
  }
  [[nodiscard]] std::string Code(const std::string& name) const {
    return folder_.Read(name + ".bas").substr(Head(name).size());
  }
  [[nodiscard]] std::string File(const std::string& name) const {
    return (folder_.Path() / (name + ".bas")).string();
  }

  test::TemporaryFolder folder_;
  HandlersRequest request_;
  std::istringstream in_;
  std::ostringstream out_, err_;
};

constexpr const char* Sub = "Sub A()\r\nx = 1\r\nEnd Sub\r\n";
constexpr const char* Dressed =
    "'<errHeader>\r\nOn Error GoTo Failed\r\n'</errHeader>\r\nx = 1\r\n"
    "'<errFooter>\r\nExit Sub\r\nFailed:\r\n'</errFooter>\r\nEnd Sub\r\n";

TEST_F(HandlersCommandTest, InsertsAndRemovesInAWholeProject) {
  Project({{"M", Sub}, {"N", "Dim q\r\n"}});
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_EQ(out_.str(), File("M") + ": changed\n");
  EXPECT_EQ(err_.str(), "1 changed, 0 left alone, 1 unchanged\n");
  EXPECT_EQ(Code("M"), std::string("'errMarker: Plain\r\nSub A()\r\n") + Dressed);
  EXPECT_EQ(Code("N"), "Dim q\r\n") << "a module without members gets no key comment";
  request_.Check = true;
  EXPECT_EQ(Run(), Done) << "a second run changes nothing";
  request_.Check = false;
  request_.Remove = true;
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_EQ(Code("M"), std::string("'errMarker: Plain\r\n") + Sub);
}

TEST_F(HandlersCommandTest, CheckAndDiffWriteNothing) {
  Project({{"M", Sub}});
  request_.Check = true;
  EXPECT_EQ(Run(), WouldChange);
  EXPECT_EQ(out_.str(), File("M") + ": would be changed\n");
  request_.Check = false;
  request_.Diff = true;
  EXPECT_EQ(Run(), Done);
  EXPECT_NE(out_.str().find("+'errMarker: Plain\r\n Sub A()\r\n+'<errHeader>\r\n"),
            std::string::npos)
      << out_.str();
  EXPECT_EQ(Code("M"), Sub);
}

TEST_F(HandlersCommandTest, AnUnknownSchemeIsAnErrorThatListsTheKnownOnes) {
  Project({{"M", Sub}});
  request_.FormScheme = "Foo";
  EXPECT_EQ(Run(), Failed);
  EXPECT_EQ(err_.str(),
            "tessel: there is no scheme \"Foo\"; the schemes are \"Message Box\", \"Message Box, "
            "Unnumbered\", \"Raise to Caller\", \"Raise to Caller, Numbered\", \"Log to "
            "File\", \"Log to File, Unnumbered\", \"Clean Up and Exit\", \"Clean Up and "
            "Exit, Numbered\", \"Plain\", \"Named\", \"Cyrillic\"\n");
  EXPECT_EQ(Code("M"), Sub);
}

// The run would strip every member and dress none.
TEST_F(HandlersCommandTest, ATableOfASingleSchemeCountsAsNone) {
  Project({{"M", Sub}});
  OpenPersonal(request_.Data)
      ->Execute(u"DELETE * FROM ErrorHandlerScheme WHERE NameError <> 'Plain'");
  EXPECT_EQ(Run(), Failed);
  EXPECT_NE(err_.str().find("the table holds fewer than two, which counts as none"),
            std::string::npos);
}

TEST_F(HandlersCommandTest, TheTypesHaveTheirOwnSchemesAndOneDefault) {
  folder_.Write("C.cls", "VERSION 1.0 CLASS\r\nBEGIN\r\nEND\r\nAttribute VB_Name = \"C\"\r\n" +
                             std::string(Sub));
  folder_.Write("F.frm",
                "VERSION 5.00\r\nBegin VB.Form F \r\nEnd\r\nAttribute VB_Name = \"F\"\r\n" +
                    std::string(Sub));
  folder_.Write("M.bas", Head("M") + Sub);
  folder_.Write("P.vbp",
                "Type=Exe\r\nModule=M; M.bas\r\nClass=C; C.cls\r\nForm=F.frm\r\nName=\"P\"\r\n");
  request_.ModuleScheme = "Named";
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_NE(folder_.Read("M.bas").find("'errMarker: Named\r\n"), std::string::npos);
  EXPECT_NE(folder_.Read("C.cls").find("'errMarker: Named\r\n"), std::string::npos)
      << "classes go with the modules";
  EXPECT_NE(folder_.Read("F.frm").find("'errMarker: Plain\r\n"), std::string::npos);
}

TEST_F(HandlersCommandTest, SkipIsASchemeOfItsOwn) {
  Project({{"M", Sub}});
  request_.ModuleScheme = "Skip";
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_EQ(Code("M"), std::string("'errMarker: Skip\r\n") + Sub);
  request_.ModuleScheme = "skip";
  EXPECT_EQ(Run(), Failed) << "only the exact word is reserved";
}

TEST_F(HandlersCommandTest, AComponentRunNamesItsComponentAndReplacesTheModulesKey) {
  Project({{"M", "'errMarker: Plain\r\nOption Explicit\r\n" + std::string(Sub)}, {"N", Sub}});
  request_.Scheme = "Named";
  request_.Components = {"m"};
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_EQ(Code("M"),
            "'errMarker: Named\r\nOption Explicit\r\nSub A()\r\n'<errHeader>\r\n' P M "
            "A\r\n'</errHeader>\r\nx = "
            "1\r\n\r\nEnd Sub\r\n");
  EXPECT_EQ(Code("N"), Sub);
}

TEST_F(HandlersCommandTest, InAProjectRunNoModuleIsActive) {
  Project({{"M", Sub}});
  request_.Scheme = "Named";
  EXPECT_EQ(Run(), Done);
  EXPECT_NE(Code("M").find("\r\n' P  A\r\n"), std::string::npos);
}

TEST_F(HandlersCommandTest, AMemberRunHandlesTheMemberAndWritesItsKey) {
  Project({{"M", std::string(Sub) + "Sub B()\r\ny = 1\r\nEnd Sub\r\n"}});
  request_.Components = {"M"};
  request_.Member = "b";
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_EQ(Code("M").rfind(std::string(Sub) + "'errMarker: Plain\r\nSub B()\r\n'<errHeader>", 0),
            0U)
      << Code("M");
}

constexpr const char* Triple =
    "Property Set V(o)\r\na = 1\r\nEnd Property\r\nProperty Get V()\r\nb = 1\r\nEnd Property\r\n"
    "Property Let V(o)\r\nc = 1\r\nEnd Property\r\n";

TEST_F(HandlersCommandTest, AMemberRunHandlesAllKindsOfAPropertyOrTheOneNamed) {
  Project({{"M", Triple}});
  request_.Components = {"M"};
  request_.Scheme = "Named";
  request_.Member = "V [Get]";
  ASSERT_EQ(Run(), Done) << err_.str();
  EXPECT_EQ(Code("M"),
            "Property Set V(o)\r\na = 1\r\nEnd Property\r\n'errMarker: Named\r\nProperty Get "
            "V()\r\n'<errHeader>\r\n' P M V\r\n'</errHeader>\r\nb = 1\r\n\r\nEnd Property\r\n"
            "Property Let V(o)\r\nc = 1\r\nEnd Property\r\n");
  request_.Member = "V";
  ASSERT_EQ(Run(), Done) << err_.str();
  std::size_t keys = 0;
  const std::string code = Code("M");
  for (std::size_t at = code.find("'errMarker: Named\r\n"); at != std::string::npos;
       at = code.find("'errMarker: Named\r\n", at + 1)) {
    ++keys;
  }
  EXPECT_EQ(keys, 3U) << code;
}

TEST_F(HandlersCommandTest, NamesComponentsAndMembersThatAreNotThere) {
  Project({{"M", Sub}});
  request_.Components = {"Q"};
  EXPECT_EQ(Run(), Failed);
  EXPECT_NE(err_.str().find("P.vbp: there is no component \"Q\"\n"), std::string::npos);
  request_.Components = {"M"};
  request_.Member = "Z";
  EXPECT_EQ(Run(), Failed);
  EXPECT_EQ(err_.str(), "tessel: the component \"M\" has no member \"Z\"\n");
  request_.Components = {};
  EXPECT_EQ(Run(), Failed);
  EXPECT_NE(err_.str().find("(--component)"), std::string::npos);
  request_.Files = {"/no/such.vbp"};
  request_.Member = "";
  EXPECT_EQ(Run(), Failed);
  EXPECT_EQ(err_.str(), "tessel: /no/such.vbp: the file does not exist\n");
}

// The text of a member does not fit the code page of its file.
TEST_F(HandlersCommandTest, WritesNothingUnlessTheWholeRunWentThrough) {
  Project({{"M", Sub}, {"N", "'errMarker: Cyrillic\r\nSub B()\r\nEnd Sub\r\n"}});
  const std::string before = Code("N");
  EXPECT_EQ(Run(), Failed);
  EXPECT_NE(err_.str().find("N.bas"), std::string::npos) << err_.str();
  EXPECT_NE(err_.str().find("nothing is written (--keep-going"), std::string::npos);
  EXPECT_EQ(Code("M"), Sub);
  request_.Check = true;
  EXPECT_EQ(Run(), Failed);
  request_.Check = false;
  request_.KeepGoing = true;
  EXPECT_EQ(Run(), Failed) << "what went well is written, but something failed";
  EXPECT_EQ(Code("M"), std::string("'errMarker: Plain\r\nSub A()\r\n") + Dressed);
  EXPECT_EQ(Code("N"), before);
}

TEST_F(HandlersCommandTest, AComponentThatCannotBeReadKeepsTheOthersUnwritten) {
  Project({{"M", Sub}});
  folder_.Write("P.vbp", "Type=Exe\r\nForm=Gone.frm\r\nModule=M; M.bas\r\nName=\"P\"\r\n");
  EXPECT_EQ(Run(), Failed);
  EXPECT_NE(err_.str().find("P.vbp:2: the component's file does not exist"), std::string::npos);
  EXPECT_EQ(Code("M"), Sub);
  request_.KeepGoing = true;
  EXPECT_EQ(Run(), Failed);
  EXPECT_NE(Code("M"), Sub);
}

TEST_F(HandlersCommandTest, WarnsOfAMemberOnOneLineUnlessItIsSkipped) {
  Project({{"M", "Sub A(): x = 1: End Sub\r\n'errMarker: Skip\r\nSub B(): End Sub\r\n" +
                     std::string(Sub)}});
  request_.Check = true;
  EXPECT_EQ(Run(), WouldChange);
  EXPECT_EQ(err_.str(), File("M") +
                            ":2: warning: A stands on one line, so its error handler stands "
                            "behind it\n1 would change, 0 left alone\n");
  request_.Remove = true;
  Run();
  EXPECT_EQ(err_.str().find("warning"), std::string::npos) << err_.str();
}

TEST_F(HandlersCommandTest, TakesAComponentFileAndAGroup) {
  Project({{"M", Sub}});
  folder_.Write("G.vbg", "VBGROUP 5.0\r\nStartupProject=P.vbp\r\n");
  request_.Files = {File("M")};
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_EQ(Code("M"), std::string("'errMarker: Plain\r\nSub A()\r\n") + Dressed);
  request_.Remove = true;
  request_.Files = {(folder_.Path() / "G.vbg").string()};
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_EQ(Code("M"), std::string("'errMarker: Plain\r\n") + Sub);
}

// A Select Case without a Case leaves its mark on what comes behind it, but not in another project.
TEST_F(HandlersCommandTest, EachProjectIsARunOfItsOwn) {
  Project({{"M", "Sub A()\r\nSelect Case x\r\nEnd Select\r\nEnd Sub\r\n"}});
  folder_.Write("Q.bas", Head("Q") + "Sub B()\r\nCase 1\r\nEnd Sub\r\n");
  request_.Scheme = "Message Box";
  request_.Files = {File("M"), File("Q")};
  EXPECT_EQ(Run(), Done) << err_.str();
  EXPECT_NE(Code("Q").find("\r\n100 Case 1\r\n"), std::string::npos) << Code("Q");
}

// Failures of the environment

class HandlersRunTest : public HandlersCommandTest {
 protected:
  /// Runs over the project while the nth call of an operation fails.
  std::vector<HandlersFailure> RunFailing(const std::string& operation, int nth) {
    HandlersPlatform services;
    const platform::ScopedPlatform scope(services);
    const SharedDatabase shared(OpenPersonal(request_.Data));
    workspace::Workspace environment(services);
    environment.Open(request_.Files[0]);
    environment.SetOperationHook([&](std::string_view called) {
      if (called == operation && --nth == 0) throw vb::Failure(7, u"no room");
    });
    HandlersOrder order;
    order.Scheme = order.ModuleScheme = order.FormScheme = order.ActiveXScheme = u"Plain";
    const auto project =
        std::dynamic_pointer_cast<model::VBProject>(environment.VBE()->ActiveVBProject());
    auto failures = RunOverProject(environment, project, order,
                                   [&](const std::string& name) { seen_.push_back(name); });
    environment.SetOperationHook({});
    first_ = vb::ToUtf8(environment.Text(u"M"));
    second_ = vb::ToUtf8(environment.Text(u"N"));
    EXPECT_FALSE(gErrorHandler) << "the failure service goes with the run";
    return failures;
  }
  std::vector<std::string> seen_;
  std::string first_, second_;
};

TEST_F(HandlersRunTest, AFailureIsNotedWithItsComponentAndRoutineAndTheOthersGoOn) {
  Project({{"M", std::string(Sub) + "Sub B()\r\nEnd Sub\r\n"}, {"N", Sub}});
  const auto failures = RunFailing("CodeModule.InsertLines", 1);
  ASSERT_EQ(failures.size(), 1U);
  EXPECT_EQ(failures[0].Component, u"M");
  EXPECT_EQ(failures[0].Cause, "no room (Tessel.mInsertErrorHandlerCode.RunMemberProcedure)");
  EXPECT_NE(first_.find(Sub), std::string::npos) << "the member that failed is as it was";
  EXPECT_NE(first_.find("Sub B()\r\n'<errHeader>"), std::string::npos) << first_;
  EXPECT_NE(second_.find("Sub A()\r\n'<errHeader>"), std::string::npos);
  EXPECT_EQ(seen_, (std::vector<std::string>{"M", "N"}));
}

TEST_F(HandlersRunTest, AFailureAheadOfTheFirstComponentIsTheRuns) {
  Project({{"M", Sub}, {"N", Sub}});
  const auto failures = RunFailing("VBComponents.Count", 1);
  ASSERT_EQ(failures.size(), 1U);
  EXPECT_EQ(failures[0].Component, u"");
  EXPECT_EQ(failures[0].Cause,
            "no room (Tessel.mInsertErrorHandlerCode.RunInsertErrorHandlerCode)");
}

}  // namespace
}  // namespace tessel::batch
