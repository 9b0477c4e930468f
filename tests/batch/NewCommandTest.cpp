#include "hosts/batch/NewCommand.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "hosts/files/AtomicFile.h"
#include "support/TemporaryFolder.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

class NewCommand : public testing::Test {
 protected:
  int Run(std::vector<std::string> words) {
    CLI::App app;
    NewRequest request;
    AddNew(app, request);
    words.insert(words.begin(), {"tessel", "new"});
    std::vector<const char*> arguments;
    for (const std::string& word : words) arguments.push_back(word.c_str());
    app.parse(static_cast<int>(arguments.size()), arguments.data());
    std::istringstream in(Input);
    std::ostringstream out, err;
    const int exit = RunNew(request, in, out, err);
    Out = out.str();
    Err = err.str();
    return exit;
  }
  fs::path Project() {
    const fs::path folder = fs::path(folder_.Path()) / "ledger";
    fs::copy(fs::path(TESSEL_SOURCE_DIR) / "samples/ledger", folder, fs::copy_options::recursive);
    return folder / "Ledger.vbp";
  }
  fs::path File(const std::string& name, const std::string& bytes) {
    const fs::path file = fs::path(folder_.Path()) / name;
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }

  test::TemporaryFolder folder_;
  std::string Input, Out, Err;
};

TEST_F(NewCommand, PrintsAPropertyWithThePrefixOfItsType) {
  ASSERT_EQ(Run({"property", "--name", "Count", "--type", "Long"}), 0) << Err;
  EXPECT_EQ(Out,
            "Private lCount As Long\r\n\r\n"
            "Public Property Get Count() As Long\r\n    Count = lCount\r\nEnd Property\r\n\r\n"
            "Public Property Let Count(ByVal l As Long)\r\n    lCount = l\r\nEnd Property\r\n\r\n");
}

TEST_F(NewCommand, EachKindHasItsOptions) {
  ASSERT_EQ(Run({"procedure", "--name", "Total", "--type", "Function", "--return-type", "Double",
                 "--accessibility", "private", "--static", "--argument", "A As Long"}),
            0)
      << Err;
  EXPECT_EQ(Out.substr(0, Out.find('\r')), "Private Static Function Total (A As Long) As Double");
  ASSERT_EQ(Run({"enum", "--name", "E", "--prefix", "e_", "--member", "A = 1", "--member", "B"}),
            0);
  EXPECT_EQ(Out, "Public Enum E\r\n   e_A = 1\r\n   e_B\r\nEnd Enum\r\n\r\n");
  ASSERT_EQ(Run({"collection", "--base-class", "Order", "--exists"}), 0);
  EXPECT_NE(Out.find("Function Exists("), std::string::npos);
  ASSERT_EQ(Run({"property", "--name", "A", "--type", "Object", "--no-get", "--set"}), 0);
  EXPECT_EQ(Out.find("Property Get"), std::string::npos);
  EXPECT_NE(Out.find("Set objA = obj"), std::string::npos);
}

TEST_F(NewCommand, RefusesWhatTheBuilderWouldRefuse) {
  EXPECT_EQ(Run({"procedure", "--name", "9x"}), 2);
  EXPECT_EQ(Err, "tessel: 9x: Number can not be the first symbol in the name, field: \"Name\"\n");
  EXPECT_EQ(Run({"procedure", "--argument", "Optional A", "--argument", "B"}), 2);
  EXPECT_NE(Err.find("Argument must have the meaning \"Optional\""), std::string::npos);
  EXPECT_EQ(Run({"enum", "--name", "E"}), 2);
  EXPECT_EQ(Run({"property", "--name", "A", "--type", "Widget"}), 2);
  EXPECT_NE(Err.find("the type Widget has no prefix"), std::string::npos);
}

TEST_F(NewCommand, AFieldThatIsNotKnownIsNamed) {
  Input = R"([{"name": "A"}, {"name": "B", "tpye": "Long"}])";
  EXPECT_EQ(Run({"property", "--from", "-"}), 2);
  EXPECT_EQ(Err, "tessel: standard input: record 2 has a field that is not known: \"tpye\"\n");
  Input = R"({"name": 5})";
  EXPECT_EQ(Run({"property", "--from", "-"}), 2);
  EXPECT_EQ(Err, "tessel: standard input: the record \"name\" is no text\n");
  Input = R"({"accessibility": "Global"})";
  EXPECT_EQ(Run({"enum", "--from", "-"}), 2);
  EXPECT_EQ(Err, "tessel: standard input: the record \"accessibility\" can't be \"Global\"\n");
  Input = R"({"arguments": [{"name": "a b"}]})";
  EXPECT_EQ(Run({"procedure", "--from", "-"}), 2);
  EXPECT_EQ(Err,
            "tessel: standard input: the record.arguments[0] Impossible symbols in the field: "
            "\"Name\"  \"\"\n");
  Input = "{";
  EXPECT_EQ(Run({"enum", "--from", "-"}), 2);
  EXPECT_NE(Err.find("standard input: no JSON"), std::string::npos);
}

TEST_F(NewCommand, ManyPropertiesGoIntoOneModuleVariablesFirst) {
  const fs::path project = Project();
  const fs::path list = File("list.json", R"([{"name": "First", "type": "Long"},
                                              {"name": "Second", "type": "String"}])");
  ASSERT_EQ(Run({"property", "--from", list, "--into", project, "--component", "Account"}), 0)
      << Err;
  const fs::path file = project.parent_path() / "Account.cls";
  EXPECT_EQ(Out, file.string() + "\n");
  const std::string before =
      files::ReadFile(fs::path(TESSEL_SOURCE_DIR) / "samples/ledger/Account.cls");
  std::string after = files::ReadFile(file);
  const std::string variables = "Private lFirst As Long\r\nPrivate sSecond As String\r\n";
  const std::size_t at = after.find(variables);
  ASSERT_NE(at, std::string::npos);
  after.erase(at, variables.size());
  const std::size_t members = after.find("\r\nPublic Property Get First()");
  ASSERT_NE(members, std::string::npos);
  EXPECT_EQ(after.substr(0, members), before) << "what stood there stands there still";
}

TEST_F(NewCommand, ANameThatTheModuleHasIsRefusedAndNothingIsWritten) {
  const fs::path project = Project();
  Input = R"([{"name": "New1", "type": "Long"}, {"name": "new1", "type": "Long"}])";
  EXPECT_EQ(Run({"property", "--from", "-", "--into", project, "--component", "Account"}), 2);
  EXPECT_EQ(Err, "tessel: Account has a member new1 already\n");
  EXPECT_EQ(files::ReadFile(project.parent_path() / "Account.cls"),
            files::ReadFile(fs::path(TESSEL_SOURCE_DIR) / "samples/ledger/Account.cls"));
}

TEST_F(NewCommand, ACollectionMakesItsClassAndTheBaseClassThatIsMissing) {
  const fs::path project = Project();
  ASSERT_EQ(Run({"collection", "--base-class", "Branch", "--into", project}), 0) << Err;
  const std::string made = files::ReadFile(project.parent_path() / "BranchS.cls");
  EXPECT_NE(made.find("Attribute VB_Name = \"BranchS\"\r\n"), std::string::npos);
  EXPECT_TRUE(made.ends_with("End Function\r\n"));
  EXPECT_TRUE(
      files::ReadFile(project.parent_path() / "Branch.cls").ends_with("Option Explicit\r\n"));
  const std::string entries = files::ReadFile(project);
  EXPECT_NE(entries.find("Class=BranchS; BranchS.cls\r\n"), std::string::npos);
  EXPECT_NE(entries.find("Class=Branch; Branch.cls\r\n"), std::string::npos);
  EXPECT_EQ(Run({"collection", "--base-class", "Branch", "--into", project}), 2);
  EXPECT_EQ(Err, "tessel: The \"BranchS\" component already exits in this project.\n");
}

TEST_F(NewCommand, AComponentThatIsMissingIsMadeAsAModule) {
  const fs::path project = Project();
  ASSERT_EQ(
      Run({"enum", "--name", "E", "--member", "A", "--into", project, "--component", "modNew"}), 0)
      << Err;
  EXPECT_EQ(files::ReadFile(project.parent_path() / "modNew.bas"),
            "Attribute VB_Name = \"modNew\"\r\nPublic Enum E\r\n   A\r\nEnd Enum\r\n");
  EXPECT_EQ(Run({"enum", "--name", "F", "--member", "A", "--into", project}), 2);
  EXPECT_EQ(Err, "tessel: F: --component says where it goes\n");
}

}  // namespace
}  // namespace tessel::batch
