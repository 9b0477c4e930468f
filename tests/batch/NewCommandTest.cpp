#include "hosts/batch/NewCommand.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

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
  EXPECT_EQ(Run({"procedure", "--name", "P", "--argument", "Optional A", "--argument", "B"}), 2);
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
  Input = R"({"name": "E", "accessibility": "Global"})";
  EXPECT_EQ(Run({"enum", "--from", "-"}), 2);
  EXPECT_EQ(Err, "tessel: standard input: the record \"accessibility\" can't be \"Global\"\n");
  Input = R"({"name": "P", "arguments": [{"name": "a b"}]})";
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
  EXPECT_EQ(Err, "tessel: new1 is the name of two records\n");
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

TEST_F(NewCommand, AComponentThatIsMissingIsMadeAsAModuleWhenAskedFor) {
  const fs::path project = Project();
  std::vector<std::string> words{"enum",   "--name",         "E",           "--member", "A",
                                 "--into", project.string(), "--component", "modNew"};
  EXPECT_EQ(Run(words), 2);
  EXPECT_EQ(Err, "tessel: modNew isn't there; --new-component makes it as a module\n");
  EXPECT_FALSE(fs::exists(project.parent_path() / "modNew.bas"));
  words.emplace_back("--new-component");
  ASSERT_EQ(Run(words), 0) << Err;
  EXPECT_EQ(files::ReadFile(project.parent_path() / "modNew.bas"),
            "Attribute VB_Name = \"modNew\"\r\nPublic Enum E\r\n   A\r\nEnd Enum\r\n");
  EXPECT_EQ(Run({"enum", "--name", "F", "--member", "A", "--into", project}), 2);
  EXPECT_EQ(Err, "tessel: F: --component says where it goes\n");
  for (const char* const name : {"mod New", "mod-New", "9mod", "a\tb"}) {
    words[8] = name;
    EXPECT_EQ(Run(words), 2);
    EXPECT_EQ(Err, std::string("tessel: ") + name + " can't be the name of a component\n");
  }
}

TEST_F(NewCommand, ACollectionTakesNoComponent) {
  EXPECT_THROW(Run({"collection", "--base-class", "Branch", "--component", "Account"}),
               CLI::ParseError);
  Input = R"([{"kind": "collection", "base-class": "Branch"}])";
  EXPECT_EQ(Run({"--from", "-", "--into", Project(), "--component", "Account"}), 2);
  EXPECT_EQ(Err, "tessel: --component is not for collections: they make classes of their own\n");
}

TEST_F(NewCommand, AComponentFileHasItsOwnComponent) {
  const fs::path file = File("MA.bas", "Attribute VB_Name = \"modA\"\r\nSub A()\r\nEnd Sub\r\n");
  ASSERT_EQ(Run({"enum", "--name", "E", "--member", "A", "--into", file}), 0) << Err;
  EXPECT_EQ(files::ReadFile(file),
            "Attribute VB_Name = \"modA\"\r\nPublic Enum E\r\n   A\r\nEnd Enum\r\n\r\n"
            "Sub A()\r\nEnd Sub\r\n");
  EXPECT_EQ(Run({"enum", "--name", "F", "--member", "A", "--into", file, "--component", "modB",
                 "--new-component"}),
            2);
  EXPECT_EQ(Err, "tessel: modB isn't there, and a new one needs a project\n");
}

TEST_F(NewCommand, RecordsNameTheirOwnKinds) {
  Input = R"([{"kind": "enum", "name": "E", "members": ["A"]},
              {"kind": "property", "name": "Count", "type": "Long"},
              {"kind": "procedure", "name": "Run"}])";
  ASSERT_EQ(Run({"--from", "-"}), 0) << Err;
  EXPECT_TRUE(
      Out.starts_with("Public Enum E\r\n   A\r\nEnd Enum\r\n\r\nPrivate lCount As Long\r\n"))
      << Out;
  EXPECT_NE(Out.find("Public Sub Run ()\r\n"), std::string::npos) << Out;
  Input = R"([{"name": "E"}])";
  EXPECT_EQ(Run({"--from", "-"}), 2);
  EXPECT_EQ(Err,
            "tessel: standard input: record 1 needs a \"kind\": procedure, property, collection or "
            "enum\n");
  EXPECT_THROW(Run({}), CLI::ParseError);
}

// Texts that would be more than one line

TEST_F(NewCommand, ALineEndInATextIsRefusedByField) {
  EXPECT_EQ(Run({"procedure", "--name", "A", "--description", "one\ntwo"}), 2);
  EXPECT_EQ(Err,
            "tessel: the options: the record \"description\" holds a line end, a tab or another "
            "control character\n");
  for (const char* const record :
       {R"({"kind": "procedure", "name": "A\tB"})",
        R"({"kind": "enum", "name": "E", "author": "a\r\nb"})",
        R"({"kind": "procedure", "name": "P", "arguments": ["A\r\nB"]})",
        R"({"kind": "procedure", "name": "P", "arguments": [{"name": "A", "default": "1\nEnd"}]})",
        R"({"kind": "enum", "name": "E", "members": ["A\nB"]})",
        R"({"kind": "enum", "name": "E", "members": [{"name": "A", "value": "1\u2028"}]})"}) {
    Input = record;
    EXPECT_EQ(Run({"--from", "-"}), 2) << record;
    EXPECT_NE(Err.find("holds a line end"), std::string::npos) << Err;
    EXPECT_EQ(Out, "");
  }
}

TEST_F(NewCommand, ALineThatIsTooLongIsRefused) {
  const std::string longest(1023 - std::string("' Description: ").size(), 'd');
  EXPECT_EQ(Run({"procedure", "--name", "A", "--description", longest}), 0) << Err;
  EXPECT_EQ(Run({"procedure", "--name", "A", "--description", longest + "d"}), 2);
  EXPECT_EQ(Err,
            "tessel: A: A line would have 1024 characters, more than 1023, field: "
            "\"Description\"\n");
}

TEST_F(NewCommand, ATypeThatAPropertyCannotHaveIsRefusedByField) {
  EXPECT_EQ(Run({"property", "--name", "P", "--prefix", "s", "--type", "String * 5"}), 2);
  EXPECT_EQ(Err,
            "tessel: the options: the record \"type\" can't have a length: a property's value is a "
            "String of any\n");
  EXPECT_EQ(Run({"property", "--name", "P", "--prefix", "o", "--type", "new Order"}), 2);
  EXPECT_EQ(Err,
            "tessel: the options: the record \"type\" can't begin with \"New\": a property has a "
            "type alone\n");
}

TEST_F(NewCommand, APropertyOfAnArrayIsRefusedByField) {
  EXPECT_EQ(Run({"property", "--name", "Items", "--type", "Long()", "--prefix", "l"}), 2);
  EXPECT_EQ(Err,
            "tessel: the options: the record \"type\" can't be an array; a Variant holds one\n");
  EXPECT_EQ(Run({"property", "--name", "Items", "--type", "Variant"}), 0) << Err;
}

TEST_F(NewCommand, AStatementThatIsContinuedTooOftenIsRefused) {
  std::vector<std::string> words{"enum", "--name", "E"};
  for (int member = 0; member < 24; ++member) {
    words.insert(words.end(), {"--member", "A" + std::to_string(member) + " = 1 _"});
  }
  words.insert(words.end(), {"--member", "Last"});
  EXPECT_EQ(Run(words), 0) << Err;
  words.insert(words.begin() + 3, {"--member", "First = 1 _"});
  EXPECT_EQ(Run(words), 2);
  EXPECT_EQ(Err,
            "tessel: E: A statement would be continued more than 24 times, field: \"Members\"\n");
}

TEST_F(NewCommand, AValueThatWouldTakeTheEndOfTheEnumInIsRefused) {
  EXPECT_EQ(Run({"enum", "--name", "E", "--member", "A", "--member", "B = 1 _"}), 2);
  EXPECT_EQ(Err,
            "tessel: E: A text that ends in \" _\" would take the next line in, field: "
            "\"Members\"\n");
  EXPECT_EQ(Run({"procedure", "--name", "F", "--type", "Function", "--return-type", "Long _"}), 2);
}

// What the module has already

TEST_F(NewCommand, ANameThatIsDeclaredInTheModuleIsRefused) {
  const std::string before =
      "Attribute VB_Name = \"modA\"\r\nPrivate lCount As Long, Other\r\nPublic Const Limit = 1\r\n"
      "Private Type Pair\r\n  First As Long\r\nEnd Type\r\nPrivate Enum Color\r\n  Red\r\nEnd "
      "Enum\r\n"
      "Private Declare Sub Sleep Lib \"kernel32\" (ByVal Time As Long)\r\nPublic Shown As "
      "String\r\n"
      "Sub A()\r\nDim Local1\r\nEnd Sub\r\n";
  const fs::path file = File("MA.bas", before);
  for (const char* const name :
       {"LCOUNT", "other", "Limit", "Pair", "Color", "Sleep", "Shown", "A"}) {
    EXPECT_EQ(Run({"procedure", "--name", name, "--into", file}), 2) << name;
    EXPECT_EQ(Err, std::string("tessel: modA has a member ") + name + " already\n");
  }
  EXPECT_EQ(Run({"property", "--name", "Count", "--type", "Long", "--into", file}), 2);
  EXPECT_EQ(Err, "tessel: modA has a member lCount already\n") << "the property's variable";
  EXPECT_EQ(files::ReadFile(file), before);
  for (const char* const name : {"First", "Red2", "Time", "Local1"}) {
    EXPECT_EQ(Run({"procedure", "--name", name, "--into", file}), 0) << Err;
  }
}

// Conditional blocks and blank lines

TEST_F(NewCommand, DeclarationsStandAheadOfAConditionalBlockThatGoesOnBehindThem) {
  const std::string head =
      "Attribute VB_Name = \"modA\"\r\nOption Explicit\r\n#If Win32 Then\r\nPrivate a As Long\r\n"
      "#End If\r\n' #If in a comment _\r\n#If of the same comment\r\n\r\n";
  const std::string rest =
      "#If VBA7 Then ' \"\r\nPrivate b As Long\r\n  #If Win64 Then\r\n"
      "Public Sub A()\r\nEnd Sub\r\n  #End If\r\n#Else\r\nPublic Sub B()\r\nEnd Sub\r\n#End If\r\n";
  const fs::path file = File("MA.bas", head + rest);
  ASSERT_EQ(Run({"property", "--name", "P", "--type", "Long", "--into", file}), 0) << Err;
  EXPECT_TRUE(files::ReadFile(file).starts_with(head + "Private lP As Long\r\n\r\n" + rest))
      << files::ReadFile(file);
  ASSERT_EQ(Run({"enum", "--name", "E", "--member", "X", "--into", file}), 0) << Err;
  EXPECT_TRUE(files::ReadFile(file).starts_with(
      head + "Private lP As Long\r\n\r\nPublic Enum E\r\n   X\r\nEnd Enum\r\n\r\n" + rest))
      << files::ReadFile(file);
}

TEST_F(NewCommand, WhatIsSaidOfAConditionalBlockStaysWithIt) {
  const std::string head = "Attribute VB_Name = \"modA\"\r\n",
                    rest =
                        "' What the block is _\r\nfor\r\n' and who wrote it\r\n"
                        "#If VBA7 Then\r\nPublic Sub A()\r\nEnd Sub\r\n#End If\r\n";
  const fs::path file = File("MA.bas", head + "Option Explicit\r\n" + rest);
  ASSERT_EQ(Run({"property", "--name", "P", "--type", "Long", "--into", file}), 0) << Err;
  EXPECT_TRUE(files::ReadFile(file).starts_with(
      head + "Option Explicit\r\nPrivate lP As Long\r\n\r\n" + rest))
      << files::ReadFile(file);
  const fs::path other = File("MB.bas", head + rest);
  ASSERT_EQ(Run({"property", "--name", "P", "--type", "Long", "--into", other}), 0) << Err;
  EXPECT_TRUE(files::ReadFile(other).starts_with(head + "' What the block is"))
      << "the comment on top may be the module's";
}

TEST_F(NewCommand, OneBlankLineStandsAroundAnEnum) {
  const fs::path file = File("MA.bas",
                             "Attribute VB_Name = \"modA\"\r\nPrivate a As Long\r\n"
                             "Sub A()\r\nEnd Sub\r\n");
  Input = R"([{"kind": "property", "name": "P", "type": "Long"},
              {"kind": "enum", "name": "E", "members": ["X"]}])";
  ASSERT_EQ(Run({"enum", "--name", "F", "--member", "Y", "--into", file}), 0) << Err;
  ASSERT_EQ(Run({"--from", "-", "--into", file}), 0) << Err;
  EXPECT_TRUE(files::ReadFile(file).starts_with(
      "Attribute VB_Name = \"modA\"\r\nPrivate a As Long\r\n\r\nPublic Enum F\r\n   Y\r\n"
      "End Enum\r\nPrivate lP As Long\r\n\r\nPublic Enum E\r\n   X\r\nEnd Enum\r\n\r\nSub A()\r\n"))
      << files::ReadFile(file);
}

// What is no source, and what is no record

TEST_F(NewCommand, AFileThatIsNoSourceIsRefusedAndKept) {
  for (const char* const name : {"README.md", "P.vbp.bak", "a.vbw", "bas"}) {
    const std::string text = "Attribute VB_Name = \"modA\"\r\n";
    const fs::path file = File(name, text);
    EXPECT_EQ(Run({"procedure", "--name", "P", "--into", file}), 2) << name;
    EXPECT_EQ(Err, "tessel: " + file.string() + ": is no project, group or component\n");
    EXPECT_EQ(files::ReadFile(file), text);
  }
  EXPECT_EQ(Run({"procedure", "--name", "P", "--into", folder_.Path()}), 2);
  EXPECT_NE(Err.find(": is a folder; --into takes a file\n"), std::string::npos) << Err;
  EXPECT_EQ(Run({"procedure", "--name", "P", "--into", "."}), 2);
  EXPECT_EQ(Err, "tessel: .: is a folder; --into takes a file\n");
}

TEST_F(NewCommand, AFieldThatIsMissingOrEmptyOrThereTwiceIsNamed) {
  const std::pair<const char*, const char*> faults[] = {
      {R"({"kind": "collection"})", "the record lacks the field \"base-class\""},
      {R"([{"kind": "enum", "name": "E", "members": ["A"]}, {"kind": "procedure"}])",
       "record 2 lacks the field \"name\""},
      {R"({"kind": "property"})", "the record lacks the field \"name\""},
      {R"({"kind": "enum", "members": ["A"]})", "the record lacks the field \"name\""},
      {R"({"kind": "enum", "name": "E", "members": ["A", {}]})",
       "the record.members[1] lacks the field \"name\""},
      {R"({"kind": "procedure", "name": "P", "arguments": [{}]})",
       "the record.arguments[0] lacks the field \"name\""},
      {R"({"kind": "procedure", "name": "P", "arguments": ["A", " "]})",
       "the record.arguments[1] is empty"},
      {R"({"kind": "procedure", "name": "P", "name": "Q"})",
       "the record has the field \"name\" twice"},
      {R"([{"kind": "procedure", "name": "P"},
           {"kind": "procedure", "name": "Q", "arguments": [{"name": "A", "name": "B"}]}])",
       "record 2 has the field \"name\" twice"},
      {R"({"kind": "enum", "name": "E", "members": ["Red = 1", {"name": "RED"}]})",
       "the record \"members\" has RED twice"},
      {R"json({"kind": "property", "name": "P", "prefix": "p", "type": "(None)"})json",
       "the record \"type\" can't be \"(None)\": a property has a type"},
      {R"({"kind": "property", "name": "P", "prefix": "p", "type": "Long( ) "})",
       "the record \"type\" can't be an array; a Variant holds one"},
      {R"({"kind": "property", "name": "P", "prefix": "p", "type": " "})",
       "the record \"type\" is empty"}};
  for (const auto& [json, fault] : faults) {
    Input = json;
    EXPECT_EQ(Run({"--from", "-"}), 2) << json;
    EXPECT_EQ(Err, std::string("tessel: standard input: ") + fault + "\n") << json;
    EXPECT_EQ(Out, "");
  }
}

TEST_F(NewCommand, TwoRecordsOfOneNameAreRefusedWhereverTheyGo) {
  Input = R"([{"kind": "procedure", "name": "A"}, {"kind": "procedure", "name": "a"}])";
  EXPECT_EQ(Run({"--from", "-"}), 2);
  EXPECT_EQ(Err, "tessel: a is the name of two records\n");
  Input = R"([{"kind": "property", "name": "A", "type": "Long"},
              {"kind": "procedure", "name": "LA"}])";
  EXPECT_EQ(Run({"--from", "-"}), 2) << "the property's variable";
  Input =
      R"([{"kind": "collection", "base-class": "A"}, {"kind": "collection", "base-class": "a"}])";
  EXPECT_EQ(Run({"--from", "-"}), 2);
  EXPECT_EQ(Err, "tessel: aS is the name of two records\n");
  Input = R"([{"kind": "collection", "base-class": "A"}, {"kind": "procedure", "name": "AS"}])";
  EXPECT_EQ(Run({"--from", "-"}), 0) << "a class is no member: " << Err;
}

TEST_F(NewCommand, AProcedureNamedLikeAControlOfItsFormIsRefused) {
  const fs::path form = Project().parent_path() / "frmAbout.frm";
  const std::string before = files::ReadFile(form);
  EXPECT_EQ(Run({"procedure", "--name", "cmdok", "--into", form}), 2);
  EXPECT_EQ(Err, "tessel: frmAbout has a member cmdok already\n");
  EXPECT_EQ(files::ReadFile(form), before);
}

// The shared database, and names of components

TEST_F(NewCommand, OnlyATypeWithoutAPrefixNeedsTheSharedDatabase) {
  fs::create_directories(fs::path(folder_.Path()) / "Data");
  File("Data/Personal.MDB", "damaged");
  const std::string data = fs::path(folder_.Path()).string();
  EXPECT_EQ(Run({"enum", "--name", "E", "--member", "A", "--data", data}), 0) << Err;
  EXPECT_EQ(Run({"procedure", "--name", "P", "--data", data}), 0) << Err;
  EXPECT_EQ(Run({"procedure", "--name", "9", "--data", data}), 2);
  EXPECT_NE(Err.find("Number can not be the first symbol"), std::string::npos) << Err;
  EXPECT_EQ(Run({"collection", "--base-class", "Order", "--data", data}), 0) << Err;
  EXPECT_EQ(Run({"property", "--name", "P", "--prefix", "p", "--data", data}), 0) << Err;
  EXPECT_EQ(Run({"property", "--name", "P", "--type", "Long", "--data", data}), 2);
  EXPECT_NE(Err.find("Personal.MDB"), std::string::npos) << Err;
}

TEST_F(NewCommand, AComponentIsNotNamedLikeADeviceOrTheProject) {
  const fs::path project = Project();
  for (const char* const name : {"con", "PRN", "Aux", "NUL", "COM1", "lpt9"}) {
    const std::string fault = std::string("tessel: ") + name +
                              " can't be the name of a component: Windows keeps it for a device\n";
    EXPECT_EQ(Run({"collection", "--base-class", name, "--into", project}), 2) << name;
    EXPECT_EQ(Err, fault);
    EXPECT_EQ(Run({"procedure", "--name", "P", "--into", project, "--component", name,
                   "--new-component"}),
              2);
    EXPECT_EQ(Err, fault);
  }
  EXPECT_EQ(Run({"collection", "--base-class", "Order", "--name", "LEDGER", "--into", project}), 2);
  EXPECT_EQ(Err, "tessel: LEDGER can't be the name of a component: it is that of the project\n");
  EXPECT_EQ(Run({"collection", "--base-class", "COM0", "--into", project}), 0) << Err;
}

TEST_F(NewCommand, ManyCollectionsComeInOneCall) {
  const fs::path project = Project();
  for (int number = 0; number < 100; ++number) {
    Input += (Input.empty() ? "[" : ",") + std::string("{\"base-class\": \"Thing") +
             std::to_string(number) + "\"}";
  }
  Input += "]";
  ASSERT_EQ(Run({"collection", "--from", "-", "--into", project}), 0) << Err;
  EXPECT_EQ(std::count(Out.begin(), Out.end(), '\n'), 201) << "two classes each, and the project";
  EXPECT_NE(files::ReadFile(project).find("Class=Thing99S; Thing99S.cls\r\n"), std::string::npos);
}

TEST_F(NewCommand, ACollectionHoldsObjectsOfAClass) {
  const fs::path project = File("P.vbp", "Type=Exe\r\nModule=modMain; modMain.bas\r\n");
  File("modMain.bas", "Attribute VB_Name = \"modMain\"\r\n");
  EXPECT_EQ(Run({"collection", "--base-class", "MODMAIN", "--into", project}), 2);
  EXPECT_EQ(Err, "tessel: modMain is no class, and a collection holds objects of one\n");
  EXPECT_EQ(Run({"collection", "--base-class", "Order", "--name", "ORDER", "--into", project}), 2);
  EXPECT_EQ(Err, "tessel: ORDER would be the class of its own items\n");
}

TEST_F(NewCommand, AComponentFileIsToldToHaveNoOther) {
  const fs::path file = File("M.bas", "Attribute VB_Name = \"M\"\r\n");
  for (const bool make : {false, true}) {
    std::vector<std::string> words{"procedure", "--name", "P", "--into", file, "--component", "N"};
    if (make) words.emplace_back("--new-component");
    EXPECT_EQ(Run(words), 2);
    EXPECT_EQ(Err, "tessel: N isn't there, and a new one needs a project\n");
  }
}

// What the code leaves open

TEST_F(NewCommand, ACommentThatGoesOnDoesNotTakeInWhatIsNew) {
  const std::string before = "Attribute VB_Name = \"M\"\r\nOption Explicit\r\n' hello _";
  const fs::path file = File("M.bas", before);
  ASSERT_EQ(Run({"property", "--name", "X", "--type", "Long", "--into", file}), 0) << Err;
  EXPECT_TRUE(
      files::ReadFile(file).starts_with(before + "\r\n\r\nPrivate lX As Long\r\n\r\nPublic "))
      << files::ReadFile(file);
}

TEST_F(NewCommand, CodeWithoutAnEndIsNamedByItsPlaceAndTakesNothingIn) {
  const std::string head = "Attribute VB_Name = \"M\"\r\nOption Explicit\r\n";
  const struct {
    const char *Kind, *Code, *Fault;
  } cases[] = {
      {"procedure", "Sub A()\r\nEnd Sub\r\n\r\nPrivate Function B() As Long\r\n  B = 1\r\n",
       ":6: the Function has no End Function"},
      {"procedure", "Public Property Get P()\r\nEnd\r\n", ":3: the Property has no End Property"},
      {"procedure", "Sub A()\r\nEnd Sub\r\n#If X Then\r\n  #If Y Then\r\n  #End If\r\n",
       ":5: the #If has no #End If"},
      {"procedure", "# If X Then\r\nConst Y = 1\r\n", ":3: the #If has no #End If"},
      {"procedure", "Sub A(): Sub B()\r\nEnd Sub: Call C( _\r\n", ":4: the statement has no end"},
      {"enum", "Private Type T\r\n  Type As Long\r\n  Function As Long\r\n",
       ":3: the Type has no End Type"},
      {"enum", "Enum E2\r\n  A\r\n\r\nSub A()\r\nEnd Sub\r\n", ":3: the Enum has no End Enum"},
      {"enum", "Dim X As Long, _\r\n", ":3: the statement has no end"},
  };
  for (const auto& one : cases) {
    const fs::path file = File("M.bas", head + one.Code);
    std::vector<std::string> words{one.Kind, "--name", "New1", "--into", file};
    if (words.front() == "enum") words.insert(words.end(), {"--member", "Y"});
    EXPECT_EQ(Run(words), 2) << one.Code;
    EXPECT_EQ(Err,
              "tessel: " + file.string() + one.Fault + "; what is new would become a part of it\n");
    EXPECT_EQ(files::ReadFile(file), head + one.Code);
  }
}

TEST_F(NewCommand, CodeThatHasItsEndsTakesWhatIsNew) {
  const fs::path file =
      File("M.bas",
           "Attribute VB_Name = \"M\"\r\n"
           "Private Type T: Type As Long: End Type\r\nPublic _\r\n  Enum E2\r\n  A\r\nEnd Enum\r\n"
           "#If X Then\r\nSub A(B)\r\n#Else\r\nSub A(C)\r\n#End If\r\n  If B Then End\r\n"
           "' Sub D()\r\nEnd Sub\r\nDeclare Sub F Lib \"f\" ()\r\nSub G(): End Sub ' Sub H()\r\n");
  EXPECT_EQ(Run({"property", "--name", "New1", "--type", "Long", "--into", file}), 0) << Err;
}

// What a file that says no code page can't take

TEST_F(NewCommand, ALonePlainFileTakesOtherLettersInANamedCodePageOnly) {
  const std::string before = "Attribute VB_Name = \"M\"\r\n", letter = "\xC3\xA9";
  const fs::path file = File("M.bas", before);
  for (const char* const option : {"--name", "--member-variable", "--description"}) {
    std::vector<std::string> words{"property", "--prefix", "p", "--into", file, option, letter};
    if (words[5] != "--name") words.insert(words.end(), {"--name", "A"});
    EXPECT_EQ(Run(words), 2);
    EXPECT_EQ(Err, "tessel: " + file.string() + ": nothing in it tells the code page of \"" +
                       letter + "\"; --code-page does, or the file of its project in --into\n");
    EXPECT_EQ(files::ReadFile(file), before);
  }
  ASSERT_EQ(Run({"procedure", "--name", letter, "--into", file, "--code-page", "1250"}), 0) << Err;
  EXPECT_NE(files::ReadFile(file).find("Sub \xE9 ()"), std::string::npos);
}

TEST_F(NewCommand, ALoneFileWhoseLettersTellTheirPageTakesOthersOfIt) {
  const fs::path file =
      File("M.bas", "Attribute VB_Name = \"M\"\r\n' \xCF\xF0\xE8\xE2\xE5\xF2\r\n");
  ASSERT_EQ(Run({"procedure", "--name", "\xD0\xB9", "--into", file}), 0) << Err;
  EXPECT_NE(files::ReadFile(file).find("Sub \xE9 ()"), std::string::npos);
}

// Fields that stand in each other's way

TEST_F(NewCommand, AnArgumentOfAnEmptyTypeHasNone) {
  Input = R"({"name": "P", "arguments": [{"name": "x", "type": ""}, {"name": "y", "type": " "}]})";
  ASSERT_EQ(Run({"procedure", "--from", "-"}), 0) << Err;
  EXPECT_TRUE(Out.starts_with("Public Sub P (x , y )\r\n")) << Out;
}

TEST_F(NewCommand, AFieldThatAnotherOneWouldHideIsRefused) {
  const std::pair<const char*, const char*> arguments[] = {
      {R"("default": "1")", R"("default" without "optional")"},
      {R"("array": true, "type": "Long")", R"("type" beside "array")"},
      {R"("array": true, "param-array": true)", R"("param-array" beside "array")"},
      {R"("array": true, "passing": "ByVal")", R"("passing" beside "array")"},
      {R"("array": true, "optional": true)", R"("optional" beside "array")"},
      {R"("param-array": true, "optional": true)", R"("optional" beside "param-array")"},
      {R"("param-array": true, "type": "Long")", R"("type" beside "param-array")"},
      {R"("param-array": true, "default": "1")", R"("default" beside "param-array")"},
  };
  for (const auto& [fields, fault] : arguments) {
    Input = std::string(R"({"name": "P", "arguments": [{"name": "x", )") + fields + "}]}";
    EXPECT_EQ(Run({"procedure", "--from", "-"}), 2) << Input;
    EXPECT_EQ(Err, std::string("tessel: standard input: the record.arguments[0] can't have ") +
                       fault + "\n");
  }
  const std::pair<const char*, const char*> records[] = {
      {R"("return-type": "Long")", R"("return-type": a Sub returns nothing)"},
      {R"("author": "A")", R"("author" without "header")"},
      {R"("date-time": "now")", R"("date-time" without "header")"},
  };
  for (const auto& [fields, fault] : records) {
    Input = std::string(R"({"name": "P", )") + fields + "}";
    EXPECT_EQ(Run({"procedure", "--from", "-"}), 2) << Input;
    EXPECT_EQ(Err, std::string("tessel: standard input: the record can't have ") + fault + "\n");
  }
  Input = R"json({"name": "P", "type": "Sub", "return-type": "(None)", "author": "",
    "arguments": [{"name": "x", "array": true, "type": "(None)", "optional": false}]})json";
  EXPECT_EQ(Run({"procedure", "--from", "-"}), 0) << "what says nothing hides nothing: " << Err;
}

// Members of an enum as text

TEST_F(NewCommand, AMemberIsANameOrANameAndAValue) {
  ASSERT_EQ(Run({"enum", "--name", "E", "--prefix", "e", "--member", "A=1", "--member",
                 " B  =  -2 ", "--member", "C ' last"}),
            0)
      << Err;
  EXPECT_EQ(Out, "Public Enum E\r\n   eA = 1\r\n   eB = -2\r\n   eC ' last\r\nEnd Enum\r\n\r\n");
  EXPECT_EQ(Run({"enum", "--name", "E", "--member", "A=1", "--member", "a=2"}), 2);
  EXPECT_EQ(Err, "tessel: the options: the record \"members\" has a twice\n");
  EXPECT_EQ(Run({"enum", "--name", "E", "--member", "A 1"}), 2);
  EXPECT_EQ(Err,
            "tessel: the options: the record.members[0] is neither a name nor a name, \"=\" and a "
            "value: \"A 1\"\n");
  EXPECT_EQ(Run({"enum", "--name", "E", "--member", "A ="}), 2);
  EXPECT_EQ(Err, "tessel: the options: the record.members[0] has no value behind its \"=\"\n");
  Input = R"({"name": "E", "prefix": "e", "members": [{"name": "A=1"}]})";
  EXPECT_EQ(Run({"enum", "--from", "-"}), 2);
  EXPECT_EQ(Err, "tessel: standard input: the record.members[0] \"name\" holds a blank or \"=\"\n");
}

// The words of the command line

TEST_F(NewCommand, ATextInBracketsIsTakenAsItStands) {
  EXPECT_EQ(Run({"enum", "--name", "E", "--member", "[_First]"}), 2);
  EXPECT_NE(Err.find("Impossible symbols"), std::string::npos) << Err;
  ASSERT_EQ(Run({"procedure", "--name", "P", "--argument", "[x, y]", "--argument", "z"}), 0) << Err;
  EXPECT_TRUE(Out.starts_with("Public Sub P ([x, y], z)\r\n")) << Out;
  ASSERT_EQ(Run({"procedure", "--name", "P", "--argument", "x", "y"}), 0) << Err;
  EXPECT_TRUE(Out.starts_with("Public Sub P (x, y)\r\n")) << Out;
}

TEST_F(NewCommand, WhatIsForAFileIsRefusedWithoutOne) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"--component", "M"}, "--component"},
      {{"--new-component"}, "--new-component"},
      {{"--code-page", "1252"}, "--code-page"}};
  for (const auto& [more, option] : cases) {
    std::vector<std::string> words{"procedure", "--name", "P"};
    words.insert(words.end(), more.begin(), more.end());
    EXPECT_EQ(Run(words), 2);
    EXPECT_EQ(Err, "tessel: " + option + " is for a file, which --into names\n");
    EXPECT_EQ(Out, "");
  }
}

TEST_F(NewCommand, AnEmptyWordIsNoFile) {
  for (const char* const option : {"--into", "--from", "--component", "--data"}) {
    EXPECT_THROW(Run({"procedure", "--name", "P", option, ""}), CLI::ValidationError) << option;
  }
}

// Which project and which component

class NewInGroup : public NewCommand {
 protected:
  void Project2(const std::string& name, const std::vector<std::string>& modules) {
    std::string entries = "Type=Exe\r\n";
    for (const std::string& module : modules) {
      const std::string vbName = module.substr(module.size() - 2);
      const bool isClass = vbName.front() == 'C';
      const std::string file = module + (isClass ? ".cls" : ".bas");
      entries += (isClass ? "Class=" : "Module=") + vbName + "; " + file + "\r\n";
      File(file, "Attribute VB_Name = \"" + vbName + "\"\r\n");
    }
    File(name + ".vbp", entries + "Name=\"" + name + "\"\r\n");
  }
  int Into(const std::string& file, std::vector<std::string> more) {
    std::vector<std::string> words{"enum",
                                   "--name",
                                   "E",
                                   "--member",
                                   "A",
                                   "--into",
                                   fs::path(fs::path(folder_.Path()) / file).string()};
    words.insert(words.end(), more.begin(), more.end());
    return Run(words);
  }
  [[nodiscard]] std::string Path(const std::string& name) const {
    return (fs::path(folder_.Path()) / name).string();
  }
  void Group() { File("G.vbg", "VBGROUP 5.0\r\nStartupProject=P1.vbp\r\nProject=P2.vbp\r\n"); }
};

TEST_F(NewInGroup, TheComponentIsFoundInWhicheverProjectHasIt) {
  Project2("P1", {"MA"});
  Project2("P2", {"MB"});
  Group();
  ASSERT_EQ(Into("G.vbg", {"--component", "mb"}), 0) << Err;
  EXPECT_EQ(Out, Path("MB.bas") + "\n");
  EXPECT_EQ(files::ReadFile(Path("MA.bas")), "Attribute VB_Name = \"MA\"\r\n");
}

TEST_F(NewInGroup, SeveralOfOneNameAreRefusedWithTheirFiles) {
  Project2("P1", {"xMM"});
  Project2("P2", {"yMM"});
  Group();
  EXPECT_EQ(Into("G.vbg", {"--component", "MM"}), 2);
  EXPECT_EQ(Err, "tessel: MM is the name of several components:\n  " + Path("xMM.bas") + "\n  " +
                     Path("yMM.bas") + "\n");
  Project2("P3", {"xMM", "yMM"});
  EXPECT_EQ(Into("P3.vbp", {"--component", "MM"}), 2) << "also in one project";
  EXPECT_NE(Err.find("is the name of several components"), std::string::npos);
  EXPECT_EQ(files::ReadFile(Path("xMM.bas")), "Attribute VB_Name = \"MM\"\r\n");
}

TEST_F(NewInGroup, AFileThatTwoProjectsShareIsOneComponent) {
  Project2("P1", {"MA"});
  Project2("P2", {"MA"});
  Group();
  EXPECT_EQ(Into("G.vbg", {"--component", "MA"}), 0) << Err;
}

TEST_F(NewInGroup, ANewComponentNeedsOneProject) {
  Project2("P1", {"MA"});
  Project2("P2", {"MB"});
  Group();
  EXPECT_EQ(Into("G.vbg", {"--component", "MC", "--new-component"}), 2);
  EXPECT_EQ(Err,
            "tessel: MC would be new, and the group has 2 projects: --into must name the project's "
            "file\n");
  EXPECT_EQ(Into("P2.vbp", {"--component", "MC", "--new-component"}), 0) << Err;
}

TEST_F(NewInGroup, ACollectionStandsBesideTheClassOfItsItems) {
  Project2("P1", {"MA"});
  Project2("P2", {"CB"});
  Group();
  ASSERT_EQ(Run({"collection", "--base-class", "CB", "--into", Path("G.vbg")}), 0) << Err;
  EXPECT_NE(files::ReadFile(Path("P2.vbp")).find("Class=CBS;"), std::string::npos);
  EXPECT_EQ(Run({"collection", "--base-class", "Order", "--into", Path("G.vbg")}), 2);
  EXPECT_NE(Err.find("the group has 2 projects"), std::string::npos) << Err;
}

TEST_F(NewInGroup, AComponentThatCannotBeReadStopsOnlyNewOnes) {
  Project2("P1", {"MA", "MB"});
  fs::remove(Path("MB.bas"));
  EXPECT_EQ(Into("P1.vbp", {"--component", "MA"}), 0) << Err;
  EXPECT_EQ(Out, Path("MA.bas") + "\n");
  EXPECT_NE(Err.find("MB.bas"), std::string::npos) << "the problem is told: " << Err;
  EXPECT_EQ(Into("P1.vbp", {"--component", "MB", "--new-component"}), 2);
  EXPECT_NE(Err.find("tessel: MB can't be read\n"), std::string::npos) << Err;
  EXPECT_EQ(Into("P1.vbp", {"--component", "MC", "--new-component"}), 2);
  EXPECT_NE(Err.find("tessel: MC is not made: "), std::string::npos) << Err;
}

}  // namespace
}  // namespace tessel::batch
