// What holds for any code: the samples and members generated from seeds.

#include <filesystem>

#include "errorhandlers/HandlersWorld.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "hosts/workspace/Workspace.h"
#include "scanning/mFunctions.h"
#include "support/BlockChecker.h"
#include "support/GeneratedMembers.h"

namespace tessel {
namespace {

namespace insert = mInsertErrorHandlerCode;

constexpr StringView OverProject = u"Current Project   [Project1]",
                     OverModule = u"Current Component [M]";
constexpr int Seeds = 10, MembersEach = 5;

struct Source {
  std::string Name;
  String Text;
};

/// What the rules read otherwise than the language, each with a test of its own: a member on one
/// line, where its header finds no place; a line that ends in a name with an underscore, which is
/// taken to go on.
bool IsMisread(StringView code) {
  if (code.find(u": End Sub") != StringView::npos) return true;
  if (code.find(u": End Property") != StringView::npos) return true;
  for (std::size_t at = code.find(u"_\r\n"); at != StringView::npos;
       at = code.find(u"_\r\n", at + 1)) {
    if (at > 0 && code[at - 1] != u' ') return true;
  }
  return false;
}

/// The modules of the samples that hold members, but for the misread ones.
std::vector<Source> Samples() {
  memory::MemoryPlatform services;
  const platform::ScopedPlatform scope(services);
  workspace::Workspace workspace(services);
  workspace.Open(std::filesystem::path(TESSEL_SOURCE_DIR) / "samples/samples.vbg");
  std::vector<Source> sources;
  const auto projects = workspace.VBE()->VBProjects();
  for (int project = 1; project <= projects->Count(); ++project) {
    const auto components = projects->Item(project)->VBComponents();
    for (int index = 1; index <= components->Count(); ++index) {
      const auto component = components->Item(index);
      const auto module = component->CodeModule();
      if (!module) continue;
      String text = module->Lines(1, module->CountOfLines());
      if (module->CountOfLines() == module->CountOfDeclarationLines()) continue;
      if (IsMisread(text)) continue;
      sources.push_back({vb::ToUtf8(component->Name()), std::move(text)});
    }
  }
  EXPECT_GT(sources.size(), 20U);
  return sources;
}

std::vector<Source> Generated(bool flat = false) {
  std::vector<Source> sources;
  for (int seed = 0; seed < Seeds; ++seed) {
    sources.push_back(
        {"seed " + std::to_string(seed),
         test::MemberGenerator(static_cast<std::uint64_t>(seed)).Module(MembersEach, flat)});
  }
  return sources;
}

const std::vector<Source>& All() {
  static const std::vector<Source> all = [] {
    std::vector<Source> made = Generated();
    for (Source& one : Samples()) made.push_back(std::move(one));
    return made;
  }();
  return all;
}

/// The code without margins, line numbers and blank lines; of the key comments only those that the
/// author wrote.
std::vector<String> Essence(StringView code) {
  std::vector<String> lines;
  for (const String& line : vb::Split(code, vb::CrLf)) {
    StringView text = vb::Trim(line);
    const std::size_t digits = text.find_first_not_of(u"0123456789");
    if (digits != StringView::npos && digits > 0 && text[digits] == u' ') {
      text = vb::Trim(text.substr(digits));
    }
    if (!text.empty() && !vb::StartsWithText(text, mFunctions::KeyCommentHead)) {
      lines.emplace_back(text);
    }
  }
  return lines;
}

class HandlersProperty : public test::HandlersWorld {
 protected:
  HandlersProperty() {
    insert::Init_mRecord_ErrorHandlerScheme(Context);
    Schemes = Context.mRecord_ErrorHandlerScheme;
  }

  std::shared_ptr<host::CodeModule> Put(const String& text) {
    if (!module_) module_ = Place.Module(u"M", u"");
    Environment().SetText(u"M", text);
    Context.FirstCaseFlag = false;
    return module_;
  }
  void InsertAll(const String& scheme) {
    Context.ModuleScheme = scheme;
    Insert(OverProject, scheme);
  }
  [[nodiscard]] String Text() { return Environment().Text(u"M"); }

  struct Lines {
    String Name, Text;
    bool operator==(const Lines&) const = default;
  };
  /// Every member, with the line above its statement when that is a key comment.
  std::vector<Lines> Members() {
    std::vector<Lines> members;
    const auto table = mFunctions::AllNameProcedures(module_, u"");
    if (!table) return members;
    for (const Member& member : *table) {
      String key;
      const int first =
          member.BodyLine - (mFunctions::GetKEYDeclare(module_, member.BodyLine, key) ? 1 : 0);
      const int last = member.StartLine + member.CountLines - 1;
      members.push_back({member.Name, module_->Lines(first, last - first + 1)});
    }
    return members;
  }

  std::vector<ErrorHandlerScheme> Schemes;

 private:
  std::shared_ptr<host::CodeModule> module_;
};

TEST_F(HandlersProperty, TheCheckerFindsWhatIsWrong) {
  const std::pair<StringView, const char*> cases[] = {
      {u"Sub A()\r\nIf x Then\r\nEnd Sub", "logical line 3: the end of SUB inside IF"},
      {u"Sub A()\r\nDo\r\nNext\r\nEnd Sub", "logical line 3: the end of FOR inside DO"},
      {u"Sub A()\r\nB:\r\nB:\r\nEnd Sub", "logical line 3: the label B stands twice"},
      {u"Sub A()\r\n10 x = 1\r\n10 y = 1\r\nEnd Sub",
       "logical line 3: the line number 10 stands twice"},
      {u"Sub A()\r\nGoTo B\r\nEnd Sub", "logical line 3: no label B"},
      {u"Sub A()\r\n10 Select Case x\r\n20 Case 1\r\nEnd Select\r\nEnd Sub",
       "logical line 3: the first Case has a number"},
      {u"Sub A()\r\n", "logical line 2: still open at the end: SUB"}};
  for (const auto& [code, error] : cases) {
    const test::BlockChecker checked(code);
    ASSERT_FALSE(checked.Errors().empty()) << error;
    EXPECT_EQ(checked.Errors().front(), error);
  }
}

TEST_F(HandlersProperty, SamplesAndGeneratedMembersAreSoundThemselves) {
  for (const Source& source : All()) {
    EXPECT_EQ(test::BlockChecker(source.Text).Errors(), std::vector<std::string>()) << source.Name;
  }
}

TEST_F(HandlersProperty, RemovingAfterInsertingGivesTheCodeBackButForBlankLinesAndMargin) {
  ASSERT_EQ(Schemes.size(), 8U);
  for (const ErrorHandlerScheme& scheme : Schemes) {
    for (const Source& source : All()) {
      Put(source.Text);
      InsertAll(scheme.NameError);
      EXPECT_NE(Text(), source.Text) << source.Name;
      Remove(OverProject);
      EXPECT_EQ(Essence(Text()), Essence(source.Text))
          << source.Name << ", " << vb::ToUtf8(scheme.NameError);
    }
  }
}

TEST_F(HandlersProperty, ASecondInsertionChangesNothingButMargin) {
  for (const ErrorHandlerScheme& scheme : Schemes) {
    for (const Source& source : All()) {
      Put(source.Text);
      InsertAll(scheme.NameError);
      const String once = Text();
      InsertAll(scheme.NameError);
      EXPECT_EQ(Essence(Text()), Essence(once))
          << source.Name << ", " << vb::ToUtf8(scheme.NameError);
    }
  }
}

TEST_F(HandlersProperty, ASecondInsertionOfAnUnnumberedSchemeChangesNothingInFlatBodies) {
  for (const ErrorHandlerScheme& scheme : Schemes) {
    if (scheme.InsertLine) continue;
    for (const Source& source : Generated(true)) {
      Put(source.Text);
      InsertAll(scheme.NameError);
      const String once = Text();
      InsertAll(scheme.NameError);
      EXPECT_EQ(Text(), once) << source.Name << ", " << vb::ToUtf8(scheme.NameError);
    }
  }
}

// A line in column 1 that holds a blank doesn't count towards the margin, so a run can take what is
// nested for the body; after as many runs as there are levels nothing is left to move.
TEST_F(HandlersProperty, RepeatedInsertionsOfAnUnnumberedSchemeComeToRest) {
  constexpr int Levels = 15;
  for (const Source& source : Generated()) {
    Put(source.Text);
    for (int run = 0; run < Levels; ++run) InsertAll(u"Raise to Caller");
    const String rested = Text();
    InsertAll(u"Raise to Caller");
    EXPECT_EQ(Text(), rested) << source.Name;
  }
}

TEST_F(HandlersProperty, TheDeliveredSchemesLeaveSoundCode) {
  for (const ErrorHandlerScheme& scheme : Schemes) {
    for (const Source& source : All()) {
      Put(source.Text);
      for (int run = 0; run < 2; ++run) {
        InsertAll(scheme.NameError);
        EXPECT_EQ(test::BlockChecker(Text()).Errors(), std::vector<std::string>())
            << source.Name << ", " << vb::ToUtf8(scheme.NameError) << ", run " << run;
      }
      Remove(OverProject);
      EXPECT_EQ(test::BlockChecker(Text()).Errors(), std::vector<std::string>()) << source.Name;
    }
  }
}

TEST_F(HandlersProperty, TheDeliveredSchemesLeaveTheMemberAheadOfTheirHandler) {
  for (const ErrorHandlerScheme& scheme : Schemes) {
    const auto lines =
        vb::Split(insert::WorkTextComponentMember(
                      Context, u"Function F()\r\n    x = 1\r\nEnd Function", scheme.NameError),
                  vb::CrLf);
    const auto at = [&](StringView line) {
      return std::find(lines.begin(), lines.end(), line) - lines.begin();
    };
    Context.MemberName = u"F";
    const auto exit = at(u"Exit Function");
    EXPECT_LT(exit, static_cast<std::ptrdiff_t>(lines.size())) << vb::ToUtf8(scheme.NameError);
    EXPECT_LT(exit, at(u"F_Error:"));
    EXPECT_TRUE(scheme.ChangeError);
    EXPECT_EQ(scheme.LabelNameError, u"{MemberName}_Error");
  }
}

// Skip

TEST_F(HandlersProperty, AMemberMarkedSkipStaysToTheByte) {
  for (const Source& source : Generated()) {
    const auto module = Put(source.Text);
    test::MemberGenerator dice(source.Text.size());
    const auto table = *mFunctions::AllNameProcedures(module, u"");
    for (auto member = table.rbegin(); member != table.rend(); ++member) {
      if (dice.Draw(2) == 0) module->InsertLines(member->BodyLine, u"'errMarker: Skip");
    }
    const auto before = Members();
    const auto expectSkipped = [&](const char* run) {
      const auto after = Members();
      ASSERT_EQ(after.size(), before.size());
      for (std::size_t at = 0; at < before.size(); ++at) {
        if (before[at].Text.starts_with(u"'errMarker: Skip")) {
          EXPECT_EQ(after[at], before[at]) << source.Name << ", " << run;
        } else if (std::string_view(run) == "insertion") {
          EXPECT_NE(after[at], before[at]) << source.Name << ", " << run;
        }
      }
    };
    InsertAll(u"Message Box");
    expectSkipped("insertion");
    Insert(OverModule, u"Clean Up and Exit");
    expectSkipped("component");
    Remove(OverModule);
    expectSkipped("component removal");
    Remove(OverProject);
    expectSkipped("removal");
  }
}

// Cancel

class HandlersCancel : public HandlersProperty {
 protected:
  /// Presses Cancel in the progress window at the nth time that events are looked at.
  void CancelAt(int nth) {
    events_ = 0;
    Place.Services.ClockService.OnDoEvents = [this, nth] {
      if (++events_ != nth) return;
      for (forms::Form* form : Place.Services.DesktopService.Shown) {
        if (auto* const cancel = dynamic_cast<forms::Button*>(form->Find(u"btmCancel"))) {
          cancel->Click();
        }
      }
    };
  }

 private:
  int events_ = 0;
};

TEST_F(HandlersCancel, BetweenMembersLeavesExactlyTheMembersDoneSoFarChanged) {
  for (const Source& source : Generated()) {
    Put(source.Text);
    const auto before = Members();
    Insert(OverModule, u"Log to File");
    const auto after = Members();
    for (std::size_t done = 1; done < before.size(); ++done) {
      Put(source.Text);
      CancelAt(static_cast<int>(done));
      Insert(OverModule, u"Log to File");
      const auto now = Members();
      ASSERT_EQ(now.size(), before.size());
      for (std::size_t at = 0; at < now.size(); ++at) {
        EXPECT_EQ(now[at], at < done ? after[at] : before[at]) << source.Name << ", " << done;
      }
      EXPECT_EQ(Text().find(u"errMarker"), String::npos) << "no key comment is written then";
    }
    Place.Services.ClockService.OnDoEvents = nullptr;
  }
}

TEST_F(HandlersCancel, AheadOfAComponentInAProjectRunHandlesItsFirstMemberStill) {
  const StringView code = u"Sub A()\r\nx\r\nEnd Sub\r\nSub B()\r\ny\r\nEnd Sub\r\n";
  Put(String(code));
  Place.Module(u"N", code);
  CancelAt(1);
  InsertAll(u"Log to File");
  EXPECT_NE(Text().find(u"Sub A()\r\n    '<errHeader>"), String::npos);
  EXPECT_NE(Text().find(u"Sub B()\r\ny\r\nEnd Sub"), String::npos);
  EXPECT_EQ(Environment().Text(u"N"), code);
}

TEST_F(HandlersCancel, ARemovalFinishesTheModuleThatItHasBegun) {
  const StringView code = u"Sub A()\r\n10 x\r\nEnd Sub\r\nSub B()\r\n10 y\r\nEnd Sub";
  Put(String(code));
  Place.Module(u"N", code);
  CancelAt(2);
  Remove(OverProject);
  EXPECT_EQ(Text(), u"Sub A()\r\n x\r\nEnd Sub\r\nSub B()\r\n y\r\nEnd Sub");
  EXPECT_EQ(Environment().Text(u"N"), code);
}

}  // namespace
}  // namespace tessel
