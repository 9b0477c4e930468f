#include "hosts/batch/SchemesCommand.h"

#include <gtest/gtest.h>

#include <sstream>

#include "forms/RichTextBox.h"
#include "hosts/batch/PersonalDatabase.h"
#include "hosts/batch/SchemeText.h"
#include "support/MemoryPlatform.h"
#include "support/TemporaryFolder.h"
#include "vb/Failure.h"

namespace tessel::batch {
namespace {

namespace fs = std::filesystem;

constexpr const char* Text =
    "Name: House Style\n"
    "Insert-Line: yes\n"
    "Base-Number: 100\n"
    "Step: 10\n"
    "Change-Error: no\n"
    "Label:\n"
    "Header:\n"
    "    On Error GoTo Failed ' \xC3\xA9\n"
    "Footer:\n"
    "    Exit {MemberType}\n"
    "\n"
    "    Footer:\n"
    "      nested  \n";

class SchemeFile : public testing::Test {
 protected:
  SchemeFile() : scope_(services_) {}
  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_;
};

TEST_F(SchemeFile, ReadsAndWritesTheSameBytes) {
  const ErrorHandlerScheme scheme = ReadScheme(Text, "f");
  EXPECT_EQ(WriteScheme(scheme), Text);
  EXPECT_EQ(scheme.NameError, u"House Style");
  EXPECT_TRUE(scheme.InsertLine);
  EXPECT_EQ(scheme.BaseNumber, 100);
  EXPECT_EQ(forms::ReadRichText(scheme.Footer).Text,
            u"Exit {MemberType}\r\n\r\nFooter:\r\n  nested  ");
}

TEST_F(SchemeFile, GivesTheColoursOfTheEditor) {
  const auto text = forms::ReadRichText(ReadScheme(Text, "f").Footer);
  ASSERT_GE(text.Runs.size(), 2U);
  EXPECT_EQ(text.Runs[0], (forms::ColoredText::Run{5, 0}));
  EXPECT_EQ(text.Runs[1], (forms::ColoredText::Run{12, 0xFF0000})) << "{MemberType} is blue";
  const auto header = forms::ReadRichText(ReadScheme(Text, "f").Header);
  EXPECT_EQ(header.Runs.back().TextColor, 0U) << "the last line has no end to colour up to";
  const auto lines =
      forms::ReadRichText(ReadScheme("Name: N\nHeader:\n    x ' c\n    y\nFooter:\n", "f").Header);
  ASSERT_EQ(lines.Runs.size(), 3U);
  EXPECT_EQ(lines.Runs[1].TextColor, 32768U) << "a comment is green";
}

String Document(StringView text) {
  forms::ColoredText content{String(text), {}};
  if (!text.empty()) content.Runs = {{text.size(), forms::DefaultColor}};
  return forms::WriteRichText(content, {});
}

// Whatever a scheme holds comes back: empty lines at the ends, blanks, signs of the format itself.
TEST_F(SchemeFile, KeepsEveryTextExactly) {
  const StringView bodies[] = {u"",
                               u"x",
                               u"\r\n",
                               u"x\r\n",
                               u"\r\nx",
                               u"  ",
                               u"    \r\n ",
                               u"# x\r\n# y",
                               u"Header:",
                               u"\tx",
                               u"a\\b\\n",
                               u"Name: z",
                               u"\r\n\r\n\r\n",
                               u"\u0416\u4E00 {Date}"};
  for (const StringView header : bodies) {
    for (const StringView footer : bodies) {
      ErrorHandlerScheme scheme{
          u" a\\b\rc\nd\u00E9 ", Document(header), Document(footer), false, -7, 2147483647, true,
          u"{MemberName}_\\"};
      const std::string written = WriteScheme(scheme);
      const ErrorHandlerScheme read = ReadScheme(written, "f");
      EXPECT_EQ(forms::ReadRichText(read.Header).Text, header);
      EXPECT_EQ(forms::ReadRichText(read.Footer).Text, footer);
      EXPECT_EQ(WriteScheme(read), written);
      scheme.Header = read.Header;
      scheme.Footer = read.Footer;
      EXPECT_EQ(read, scheme);
    }
  }
}

TEST_F(SchemeFile, TakesOtherLineEndsAByteOrderMarkCommentsAndAbsentKeys) {
  const ErrorHandlerScheme scheme = ReadScheme(
      "\xEF\xBB\xBF# of our team\r\n\r\nName: N\r\nHeader:\r\n    a\r\n    b\r\nFooter:\r\n", "f");
  EXPECT_EQ(scheme.NameError, u"N");
  EXPECT_FALSE(scheme.InsertLine);
  EXPECT_EQ(forms::ReadRichText(scheme.Header).Text, u"a\r\nb");
  EXPECT_EQ(forms::ReadRichText(scheme.Footer).Text, u"");
}

struct Bad {
  const char* Bytes;
  const char* Message;
};

TEST_F(SchemeFile, NamesFileAndLineOfWhatIsWrong) {
  const Bad cases[] = {
      {"", "f:1: the line \"Header:\" is missing"},
      {"Name: a\nStep: 1\n", "f:2: the line \"Header:\" is missing"},
      {"Header:\nFooter:\n", "f:1: the scheme has no name"},
      {"Name: a\nColour: red\n", "f:2: there is no key \"Colour\""},
      {"Name: a\nhello\n", "f:2: a head line has the form \"Key: value\""},
      {"Name: a\nName: b\n", "f:2: \"Name\" stands twice"},
      {"Name: a\nStep: ten\n", "f:2: Step takes a whole number, not \"ten\""},
      {"Name: a\nStep: 3000000000\n", "f:2: Step takes a whole number, not \"3000000000\""},
      {"Name: a\nInsert-Line: on\n", "f:2: Insert-Line takes yes or no, not \"on\""},
      {"Name: a\\q\n", "f:1: behind \"\\\" stands \"\\\", \"r\" or \"n\""},
      {"Name: a\nHeader:\nx\nFooter:\n", "f:3: here the line \"Footer:\" is expected"},
      {"Name: a\nHeader:\n", "f:2: here the line \"Footer:\" is expected"},
      {"Name: a\nHeader:\nFooter:\n  x\n", "f:4: a line of a block begins with four blanks"},
  };
  for (const Bad& one : cases) {
    try {
      static_cast<void>(ReadScheme(one.Bytes, "f"));
      ADD_FAILURE() << one.Bytes;
    } catch (const vb::Failure& failure) {
      EXPECT_STREQ(failure.what(), one.Message) << one.Bytes;
    }
  }
}

TEST(SchemeFileName, HoldsWhatAFileNameCanHold) {
  EXPECT_EQ(SchemeFileName("Log to File"), "Log to File.scheme");
  EXPECT_EQ(SchemeFileName("../a:b%"), "%2E.%2Fa%3Ab%25.scheme");
}

class SchemesCommandTest : public testing::Test {
 protected:
  SchemesCommandTest() { request_.Data = folder_.Path() / "program"; }
  int Run(SchemesVerb verb) {
    request_.Verb = verb;
    out_.str("");
    err_.str("");
    SchemesCommand command;
    command.Request = request_;
    std::istringstream in;
    return command.Run({in, out_, err_});
  }
  int Import(const std::vector<std::string>& texts) {
    request_.Files.clear();
    for (const std::string& text : texts) {
      request_.Files.push_back(
          folder_.Write(std::to_string(request_.Files.size()) + ".scheme", text).string());
    }
    return Run(SchemesVerb::Import);
  }
  std::string List() {
    EXPECT_EQ(Run(SchemesVerb::List), 0) << err_.str();
    return out_.str();
  }
  test::TemporaryFolder folder_;
  SchemesRequest request_;
  std::ostringstream out_, err_;
};

constexpr const char* Delivered =
    "Message Box\nMessage Box, Unnumbered\nRaise to Caller\nRaise to Caller, Numbered\n"
    "Log to File\nLog to File, Unnumbered\nClean Up and Exit\nClean Up and Exit, Numbered\n";

TEST_F(SchemesCommandTest, ListsShowsAndImportsIntoADatabaseThatItMakes) {
  EXPECT_EQ(Import({Text}), 0) << err_.str();
  EXPECT_EQ(out_.str(), "added House Style\n");
  EXPECT_EQ(List(), std::string(Delivered) + "House Style\n");
  request_.Name = "house style";
  EXPECT_EQ(Run(SchemesVerb::Show), 0);
  EXPECT_EQ(out_.str(), Text);
  request_.Name = "Nobody's";
  EXPECT_EQ(Run(SchemesVerb::Show), 2);
  EXPECT_EQ(err_.str(), "tessel: there is no scheme \"Nobody's\"\n");
}

TEST_F(SchemesCommandTest, ExportsAllAndImportsThemUnchanged) {
  ASSERT_EQ(Import({Text}), 0);
  request_.Folder = folder_.Path() / "team" / "schemes";
  ASSERT_EQ(Run(SchemesVerb::Export), 0) << err_.str();
  EXPECT_EQ(folder_.Read("team/schemes/House Style.scheme"), Text);
  std::map<std::string, std::string> before;
  request_.Files.clear();
  for (const auto& file : fs::directory_iterator(request_.Folder)) {
    request_.Files.push_back(file.path().string());
    before[file.path().filename().string()] =
        folder_.Read("team/schemes/" + file.path().filename().string());
  }
  EXPECT_EQ(before.size(), 9U);
  request_.Replace = true;
  ASSERT_EQ(Run(SchemesVerb::Import), 0) << err_.str();
  request_.Folder = folder_.Path() / "again";
  ASSERT_EQ(Run(SchemesVerb::Export), 0);
  for (const auto& [name, text] : before) EXPECT_EQ(folder_.Read("again/" + name), text);
}

TEST_F(SchemesCommandTest, ExportsOneByItsName) {
  ASSERT_EQ(Import({Text}), 0);
  request_.Name = "HOUSE STYLE";
  request_.Folder = folder_.Path() / "one";
  ASSERT_EQ(Run(SchemesVerb::Export), 0);
  EXPECT_EQ(out_.str(), (request_.Folder / "House Style.scheme").string() + "\n");
}

TEST_F(SchemesCommandTest, RefusesAnExistingSchemeUnlessToldToReplace) {
  ASSERT_EQ(Import({Text}), 0);
  const std::string other = "Name: house style\nHeader:\n    x\nFooter:\n";
  EXPECT_EQ(Import({other}), 2);
  EXPECT_EQ(err_.str(), "tessel: " + request_.Files[0] +
                            ": the scheme \"house style\" exists (--replace writes it)\n");
  request_.Replace = true;
  EXPECT_EQ(Import({other}), 0) << err_.str();
  EXPECT_EQ(out_.str(), "replaced house style\n");
  EXPECT_EQ(List(), std::string(Delivered) + "house style\n");
  request_.Name = "house style";
  ASSERT_EQ(Run(SchemesVerb::Show), 0);
  EXPECT_NE(out_.str().find("Header:\n    x\nFooter:\n"), std::string::npos);
}

TEST_F(SchemesCommandTest, ImportsAllOrNone) {
  const std::string good = "Name: One\nHeader:\nFooter:\n";
  EXPECT_EQ(Import({good, "Name: Two\nStep: x\n"}), 2);
  EXPECT_EQ(err_.str(),
            "tessel: " + request_.Files[1] + ":2: Step takes a whole number, not \"x\"\n");
  EXPECT_EQ(Import({good, "Name: ONE\nHeader:\nFooter:\n"}), 2);
  EXPECT_NE(err_.str().find("comes from"), std::string::npos);
  EXPECT_EQ(Import({good, "Name: a\"b\nHeader:\nFooter:\n"}), 2);
  EXPECT_EQ(List(), Delivered);
}

TEST_F(SchemesCommandTest, AFailureInTheMiddleOfAnImportTakesBackWhatWasWritten) {
  ASSERT_EQ(Import({Text}), 0);
  {
    const auto connection = OpenPersonal(request_.Data);
    connection->Execute(
        u"CREATE TRIGGER Full BEFORE INSERT ON ErrorHandlerScheme WHEN NEW.NameError = 'Two' "
        u"BEGIN SELECT RAISE(ABORT, 'full'); END");
  }
  EXPECT_EQ(Import({"Name: One\nHeader:\nFooter:\n", "Name: Two\nHeader:\nFooter:\n"}), 2);
  EXPECT_NE(err_.str().find("full"), std::string::npos);
  EXPECT_EQ(List(), std::string(Delivered) + "House Style\n");
}

TEST_F(SchemesCommandTest, ListsAlsoTheOnlySchemeOfATable) {
  ASSERT_EQ(Import({Text}), 0);
  OpenPersonal(request_.Data)
      ->Execute(u"DELETE * FROM ErrorHandlerScheme WHERE NameError <> 'House Style'");
  EXPECT_EQ(List(), "House Style\n");
}

TEST_F(SchemesCommandTest, NamesADatabaseThatIsNotThere) {
  EXPECT_EQ(Run(SchemesVerb::List), 2);
  EXPECT_NE(err_.str().find("Personal.MDB: the file does not exist"), std::string::npos);
}

}  // namespace
}  // namespace tessel::batch
