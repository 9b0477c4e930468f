#include "formatter/mFormatText.h"

#include <gtest/gtest.h>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "foundation/CErrorHandler.h"
#include "support/Modules.h"
#include "support/Rules.h"
#include "support/SharedDatabase.h"

namespace tessel::mFormatText {
namespace {

class Formatter : public testing::Test {
 protected:
  test::World world_;
  FormatRun run_ = test::DefaultRun();

  String Format(StringView text) { return FormatTextComponent(run_, text); }
  static String InSub(StringView body) { return u"Sub A()\r\n" + String(body) + u"\r\nEnd Sub"; }
  /// What the engine makes of the body, without the member's own lines.
  String Body(StringView body) {
    const String text = Format(InSub(body));
    const std::size_t head = StringView(u"Sub A()\r\n").size();
    return text.substr(head, text.size() - head - StringView(u"End Sub\r\n").size());
  }
};

// Rules

TEST_F(Formatter, ADisabledRuleAnswersAsAnUnknownWordDoes) {
  test::SetRule(run_, u"IF", false, 3, 4);
  std::int32_t before = 7, after = 7;
  EXPECT_FALSE(ReturnBeforeAfter(run_, u"IF", before, after));
  EXPECT_EQ(before, 0);
  EXPECT_EQ(after, 0);
  before = after = 7;
  EXPECT_FALSE(ReturnBeforeAfter(run_, u"NOWHERE", before, after));
  EXPECT_EQ(before + after, 0);
}

TEST_F(Formatter, WithoutBlankLinesEveryWordAnswersFalseAndNothingIsIndented) {
  run_.InsertBlank = false;
  std::int32_t before = 0, after = 0;
  EXPECT_FALSE(ReturnBeforeAfter(run_, u"IF", before, after));
  EXPECT_EQ(Format(u"Sub A()\r\n  If x Then\r\n    y\r\n  End If\r\nEnd Sub"),
            u"Sub A()\r\nIf x Then\r\ny\r\nEnd If\r\nEnd Sub\r\n");
}

TEST_F(Formatter, AKeyComparesEqualInAnyCase) {
  test::SetRule(run_, u"END IF", true, 1, 2);
  std::int32_t before = 0, after = 0;
  EXPECT_TRUE(ReturnBeforeAfter(run_, u"End If", before, after));
  EXPECT_EQ(before, 1);
  EXPECT_EQ(after, 2);
}

TEST_F(Formatter, ATabWidthOfZeroOrNoneGivesALevelOfFour) {
  EXPECT_EQ(Body(u"x"), u"    x\r\n");
  world_.Services.RegistryService.SetValue(platform::RootKey::CurrentUser,
                                           u"Software\\Microsoft\\VBA\\6.0\\Common", u"TabWidth",
                                           std::uint32_t{0});
  EXPECT_EQ(Body(u"x"), u"    x\r\n");
  world_.Services.RegistryService.SetValue(platform::RootKey::CurrentUser,
                                           u"Software\\Microsoft\\VBA\\6.0\\Common", u"TabWidth",
                                           std::uint32_t{0x102});
  EXPECT_EQ(Body(u"x"), u"  x\r\n") << "only the low byte counts";
}

// Indentation

TEST_F(Formatter, IndentsEveryBlock) {
  EXPECT_EQ(Body(u"With a\r\n.b = 1\r\nEnd With\r\nFor i = 1 To 2\r\nx\r\nNext\r\nDo\r\ny\r\nLoop"),
            u"    With a\r\n        .b = 1\r\n    End With\r\n    For i = 1 To 2\r\n        x\r\n"
            u"    Next\r\n    Do\r\n        y\r\n    Loop\r\n");
}

TEST_F(Formatter, AnIfOfOneLineOpensNoBlockAndOneWithANoteDoes) {
  EXPECT_EQ(Body(u"If x Then y\r\nz"), u"    If x Then y\r\n    z\r\n");
  EXPECT_EQ(Body(u"If x Then ' note\r\nz\r\nEnd If"),
            u"    If x Then ' note\r\n        z\r\n    End If\r\n");
}

TEST_F(Formatter, CaseStandsOneLevelInOrNot) {
  EXPECT_EQ(Body(u"Select Case x\r\nCase 1\r\ny\r\nEnd Select"),
            u"    Select Case x\r\n        Case 1\r\n            y\r\n    End Select\r\n");
  run_.IndentCase = false;
  EXPECT_EQ(Body(u"Select Case x\r\nCase 1\r\ny\r\nEnd Select"),
            u"    Select Case x\r\n    Case 1\r\n        y\r\n    End Select\r\n");
}

TEST_F(Formatter, ElseAtTheOuterLevelWithoutIndentStandsAtColumnOne) {
  run_.IndentEntire = false;
  EXPECT_EQ(Body(u"Else\r\nx"), u"Else\r\nx\r\n");
}

TEST_F(Formatter, WhileIsNotIndentedAndThatStays) {
  EXPECT_EQ(Body(u"While x\r\ny\r\nWend"), u"    While x\r\n    y\r\n    Wend\r\n");
}

TEST_F(Formatter, BlankLinesOfAMemberWithoutKeyCommentStandAheadOfIt) {
  test::SetRule(run_, u"SUB", true, 2, 0);
  EXPECT_EQ(Format(u"Sub A()\r\nEnd Sub"), u"\r\rSub A()\r\nEnd Sub\r\n");
}

TEST_F(Formatter, BlankLinesOfAMemberWithAKeyCommentStandAheadOfTheComment) {
  test::SetRule(run_, u"SUB", true, 2, 0);
  EXPECT_EQ(Format(u"'errMarker: x\r\nSub A()\r\nEnd Sub\r\nSub B()\r\nEnd Sub"),
            u"\r\r'errMarker: x\r\nSub A()\r\nEnd Sub\r\n\r\rSub B()\r\nEnd Sub\r\n");
}

TEST_F(Formatter, PublicStaticSubIsAMember) {
  EXPECT_EQ(Format(u"Public Static Sub A()\r\nx\r\nEnd Sub"),
            u"Public Static Sub A()\r\n    x\r\nEnd Sub\r\n");
}

TEST_F(Formatter, RemIsAStatementAndSplitAtItsColon) {
  EXPECT_EQ(Body(u"Rem x: y"), u"    Rem x\r\n    y\r\n");
}

TEST_F(Formatter, ALineNumberStaysAtColumnOneAndALoneOneIsLost) {
  EXPECT_EQ(Body(u"10 x = 1\r\n10"), u"10  x = 1\r\n\r\n");
  EXPECT_EQ(Body(u"1000 x = 1"), u"1000 x = 1\r\n") << "the number fills the indent";
}

TEST_F(Formatter, ALabelStandsAtColumnOneAndElseIsNone) {
  EXPECT_EQ(Body(u"  Foo:"), u"Foo:\r\n");
  EXPECT_EQ(Body(u"If a Then\r\nb\r\nElse:\r\nc\r\nEnd If"),
            u"    If a Then\r\n        b\r\n    Else\r\n        c\r\n    End If\r\n");
  EXPECT_EQ(Body(u"Beep: DoEvents"), u"Beep:\r\n    DoEvents\r\n") << "any single word counts";
}

TEST_F(Formatter, AFirstItemWithABlankIsNoLabel) {
  EXPECT_EQ(Body(u"Debug.Print 1: Beep"), u"    Debug.Print 1\r\n    Beep\r\n");
  EXPECT_EQ(Body(u"a.b: c"), u"    a.b\r\n    c\r\n");
}

TEST_F(Formatter, ACommentBehindSeveralStatementsHasNoBlankAheadAndBehindOneItHas) {
  EXPECT_EQ(Body(u"a = 1: b = 2   ' c"), u"    a = 1\r\n    b = 2' c\r\n");
  EXPECT_EQ(Body(u"a = 1   ' c"), u"    a = 1 ' c\r\n");
}

TEST_F(Formatter, ACommentAboveElseStandsOneLevelDeeper) {
  EXPECT_EQ(
      Body(u"If a Then\r\nb\r\n' c\r\nElse\r\nd\r\nEnd If"),
      u"    If a Then\r\n        b\r\n        ' c\r\n    Else\r\n        d\r\n    End If\r\n");
}

TEST_F(Formatter, TwoBlanksBetweenEndAndIfAreNoEndIf) {
  EXPECT_EQ(Body(u"If a Then\r\nb\r\nEnd  If\r\nc"),
            u"    If a Then\r\n        b\r\n        End  If\r\n        c\r\n");
}

TEST_F(Formatter, PreprocessorLinesMoveNoLevel) {
  EXPECT_EQ(Body(u"#If a Then\r\nx\r\n#Else\r\ny\r\n#End If"),
            u"    #If a Then\r\n    x\r\n    #Else\r\n    y\r\n    #End If\r\n");
}

TEST_F(Formatter, AMemberClosedTooOftenRecoversAtTheNextOne) {
  EXPECT_EQ(
      Format(u"Sub A()\r\nEnd If\r\nEnd If\r\nx\r\n' c\r\nEnd Sub\r\nSub B()\r\ny\r\nEnd Sub"),
      u"Sub A()\r\nEnd If\r\nEnd If\r\nx\r\n' c\r\nEnd Sub\r\nSub B()\r\n    y\r\nEnd Sub\r\n");
}

TEST_F(Formatter, TheLookAheadTakesALineNumberOffTheLineBelowAKeyComment) {
  EXPECT_EQ(Format(u"'errMarker: x\r\n10 y = 1"), u"'errMarker: x\r\ny = 1\r\n");
}

TEST_F(Formatter, JoinsContinuationLinesWhateverTheOptionsSay) {
  run_.EnableCodeLines = false;
  EXPECT_EQ(Body(u"a = b _\r\n      + c"), u"    a = b + c\r\n");
}

TEST_F(Formatter, DropsBlankLinesAndGivesBlankTextBack) {
  EXPECT_EQ(Format(u"\r\n  \r\n"), u"\r\n  \r\n");
  EXPECT_EQ(Body(u"a\r\n\r\n\r\nb"), u"    a\r\n    b\r\n");
}

TEST_F(Formatter, ALineOfOneColonBecomesEmpty) { EXPECT_EQ(Body(u":"), u"\r\n"); }

TEST_F(Formatter, BlankLinesBehindAStatementPushItsCommentDown) {
  test::SetRule(run_, u"END IF", true, 0, 2);
  EXPECT_EQ(Body(u"End If ' c"), u"End If\r\r ' c\r\n");
}

TEST_F(Formatter, FormatsTheSameAgainAndWhateverTheMarginsWere) {
  const String once = Format(InSub(u"If a Then\r\nb: c\r\nElseIf e Then\r\n\r\nf\r\nEnd If"));
  EXPECT_EQ(Format(once), once);
  EXPECT_EQ(Format(InSub(u"   If a Then\r\n\r\n      b: c\r\n ElseIf e Then\r\nf\r\n   End If")),
            once);
}

// Small scanners

TEST(ProcessingColon, SparesStringsAndNamedArguments) {
  EXPECT_EQ(ProcessingColon(u"x = \"a:b\""), Pieces(std::vector<String>{u"x = \"a:b\""}));
  EXPECT_EQ(ProcessingColon(u"x = Foo(a:=1): y = 2"),
            Pieces(std::vector<String>{u"x = Foo(a:=1)", u"y = 2"}));
  EXPECT_EQ(ProcessingColon(u"Foo:"), Pieces(std::vector<String>{u"Foo"}));
  EXPECT_EQ(ProcessingColon(u"  x  "), Pieces(String(u"x")));
  EXPECT_EQ(ProcessingColon(u"  "), Pieces());
  EXPECT_EQ(ProcessingColon(u"x = \":=\""), Pieces(std::vector<String>{u"x = \":=\""}));
}

TEST(ProcessingCommentarary, FindsTheApostropheOutsideStrings) {
  EXPECT_EQ(ProcessingCommentarary(u"a = \"it's\""), 0U);
  EXPECT_EQ(ProcessingCommentarary(u"a = 1 ' it's"), 7U);
  EXPECT_EQ(ProcessingCommentarary(u"a = \"x\"\"'\" ' c"), 12U);
}

TEST(CheckTextLabel, RefusesTheKeywordsOfItsList) {
  for (const StringView word : {u"Else", u"end", u"DIM", u"a b", u"a.b"}) {
    String text(word);
    EXPECT_FALSE(CheckTextLabel(text)) << vb::ToUtf8(word);
  }
  String label = u"  Done ";
  EXPECT_TRUE(CheckTextLabel(label));
  EXPECT_EQ(label, u"Done");
}

// Wrapping

class Wrapping : public Formatter {
 protected:
  Wrapping() {
    run_.CompactWrapped = false;
    run_.LineCharacters = 40;
  }
};

TEST_F(Wrapping, AStatementOneShortOfTheLimitIsWholeAndOneOfTheLimitIsWrapped) {
  const String shorter =
      u"aaaaaaaaa bbbbbbbbb ccccccccc dddddd";  // 36 characters and an indent of 3
  EXPECT_EQ(RunLineWrapping(run_, u"   ", shorter.substr(0, 36)), u"   " + shorter.substr(0, 36));
  EXPECT_EQ(RunLineWrapping(run_, u"    ", shorter.substr(0, 36)),
            u"    aaaaaaaaa bbbbbbbbb ccccccccc _\r\n    \tdddddd\r\n");
}

TEST_F(Wrapping, ASingleLongWordIsWrittenWhole) {
  const String word = u"\"" + String(60, u'x') + u"\"";
  EXPECT_EQ(RunLineWrapping(run_, u"    ", word), u"    " + word + u"\r\n");
}

TEST_F(Wrapping, WithoutAdditionalTabsContinuationsAreFlushWithTheFirstLine) {
  run_.AdditionalTabs = 0;
  EXPECT_EQ(RunLineWrapping(run_, u"    ", u"aaaaaaaaa bbbbbbbbb ccccccccc dddddddddd"),
            u"    aaaaaaaaa bbbbbbbbb ccccccccc _\r\n    dddddddddd\r\n");
}

TEST_F(Wrapping, TheLastWordGoesOnALineOfItsOwnAndASingleCharacterLosesTheUnderscore) {
  EXPECT_EQ(RunLineWrapping(run_, u"", u"aaaaaaaaa bbbbbbbbb ccccccccc ddddddd = e"),
            u"aaaaaaaaa bbbbbbbbb ccccccccc ddddddd _\r\n\t= \r\n\te\r\n");
}

TEST_F(Wrapping, AFirstBlankPastTheLimitIsCutThere) {
  const String word(50, u'w');
  EXPECT_EQ(RunLineWrapping(run_, u"", word + u" x yy"), word + u" _\r\n\tx _\r\n\tyy\r\n");
}

TEST_F(Wrapping, AnIndentWiderThanTheLimitGivesEveryWordALineAndLosesNone) {
  const String lead(41, u' ');
  EXPECT_EQ(RunLineWrapping(run_, lead, u"a b"), lead + u"a _\r\n" + lead + u"\tb\r\n");
  EXPECT_EQ(RunLineWrapping(run_, lead, u"Beep"), lead + u"Beep\r\n");
  EXPECT_EQ(RunLineWrapping(run_, lead, u"x = \"a b\" & c"),
            lead + u"x _\r\n" + lead + u"\t= _\r\n" + lead + u"\t\"a b\" _\r\n" + lead +
                u"\t& _\r\n" + lead + u"\tc\r\n");
  EXPECT_EQ(RunLineWrapping(run_, lead, u"a  b"),
            lead + u"a _\r\n" + lead + u"\t _\r\n" + lead + u"\tb\r\n")
      << "a second blank is a word of nothing";
}

TEST_F(Wrapping, NestingBeyondTheLimitKeepsEveryStatement) {
  String code, ends;
  for (int level = 0; level < 12; ++level) {
    code += u"Do\r\n";
    ends += u"\r\nLoop";
  }
  const String text = Body(code + u"Beep\r\nx = 1" + ends);
  EXPECT_NE(text.find(vb::Space(52) + u"Beep\r\n"), String::npos) << vb::ToUtf8(text);
  EXPECT_NE(text.find(u"x _\r\n" + vb::Space(52) + u"\t= _\r\n" + vb::Space(52) + u"\t1\r\n"),
            String::npos);
}

TEST_F(Wrapping, AWrappedStatementHasAnEmptyLineBehindIt) {
  EXPECT_EQ(Body(u"aaaaaaaaa = bbbbbbbbb + ccccccccc + ddddddddd"),
            u"    aaaaaaaaa = bbbbbbbbb + ccccccccc _\r\n    \t+ _\r\n    \tddddddddd\r\n\r\n");
}

TEST_F(Wrapping, StringsAreNeverBroken) {
  EXPECT_EQ(RunLineWrapping(run_, u"", u"x = \"aaaaaaaaaa bbbbbbbbbbbb cccccccccccccc dddddd\""),
            u"x = _\r\n\t\"aaaaaaaaaa bbbbbbbbbbbb cccccccccccccc dddddd\"\r\n");
}

// Runs

class Run : public Formatter {
 protected:
  Run() { database_.Connection->Execute(u"UPDATE FormatText SET After = 0"); }
  test::SharedDatabase database_;
};

TEST_F(Run, AModuleWithOnlyDeclarationsIsNotRead) {
  EXPECT_FALSE(
      ReadModuleBodies(Statements(), world_.Module(u"M", u"Option Explicit\r\nDim x")).has_value());
  EXPECT_FALSE(ReadModuleBodies(Statements(), world_.Module(u"N", u"")).has_value());
}

TEST_F(Run, ReplacesTheBodiesOfAModuleWithoutDeclarations) {
  const auto module = world_.Module(u"M", u"Sub A()\r\nx\r\nEnd Sub");
  const auto bodies = ReadModuleBodies(Statements(), module);
  WriteModuleBodies(Statements(), module, *bodies, Format(bodies->Text));
  EXPECT_EQ(world_.Text(u"M"), u"Sub A()\r\n    x\r\nEnd Sub\r\n");
}

TEST_F(Run, FormatsOneMemberAndNothingAboveIt) {
  world_.Module(u"M", u"Sub A()\r\nx\r\nEnd Sub\r\n' about B\r\nSub B()\r\ny\r\nEnd Sub");
  world_.Caret(u"M", 6);
  const auto vbe = world_.Environment.VBE();
  const String scopes = scope::GetProjectForFormated(vbe, run_);
  RunFormatText(run_, vbe->ActiveVBProject()->VBComponents(), scopes.substr(0, scopes.find(u'|')));
  EXPECT_EQ(world_.Text(u"M"),
            u"Sub A()\r\nx\r\nEnd Sub\r\n' about B\r\nSub B()\r\n    y\r\nEnd Sub\r\n");
  EXPECT_EQ(world_.Selection().StartLine, 6);
}

TEST_F(Run, GivesTheKeyCommentOfOneMemberItsBlankLines) {
  database_.Connection->Execute(u"UPDATE FormatText SET Before = 2 WHERE KeyWords = \"SUB\"");
  world_.Module(u"M", u"Dim z\r\n'errMarker: S\r\nSub A()\r\nx\r\nEnd Sub");
  world_.Caret(u"M", 4);
  const auto vbe = world_.Environment.VBE();
  static_cast<void>(scope::GetProjectForFormated(vbe, run_));
  RunFormatText(run_, vbe->ActiveVBProject()->VBComponents(), u"Current Method    [A]");
  EXPECT_EQ(world_.Text(u"M"),
            u"Dim z\r\n\r\n\r\n'errMarker: S\r\nSub A()\r\n    x\r\nEnd Sub\r\n");
}

TEST_F(Run, NoBlankLinesForAKeyCommentIsAFailureBehindTheWrittenText) {
  world_.Module(u"M", u"'errMarker: S\r\nSub A()\r\nx\r\nEnd Sub");
  world_.Caret(u"M", 3);
  const auto vbe = world_.Environment.VBE();
  static_cast<void>(scope::GetProjectForFormated(vbe, run_));
  gErrorHandler = std::make_shared<CErrorHandler>();
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  RunFormatText(run_, vbe->ActiveVBProject()->VBComponents(), u"Current Method    [A]");
  gErrorHandler.reset();
  EXPECT_EQ(world_.Text(u"M"), u"'errMarker: S\r\nSub A()\r\n    x\r\nEnd Sub\r\n");
  ASSERT_EQ(world_.Services.DesktopService.Messages.size(), 1U);
  EXPECT_NE(world_.Services.DesktopService.Messages[0].Text.find(u"Error: 5,"), String::npos);
}

TEST_F(Run, CancelTakesEffectBehindTheModuleInHand) {
  world_.Module(u"M", u"Sub A()\r\nx\r\nEnd Sub");
  world_.Module(u"N", u"Sub A()\r\nx\r\nEnd Sub");
  world_.Services.ClockService.OnDoEvents = [&] {
    for (forms::Form* form : world_.Services.DesktopService.Shown) {
      if (auto* const cancel = dynamic_cast<forms::Button*>(form->Find(u"btmCancel"))) {
        cancel->Click();
      }
    }
  };
  RunFormatText(run_, world_.Environment.VBE()->ActiveVBProject()->VBComponents(),
                u"Current Project   [Project1]");
  EXPECT_EQ(world_.Text(u"M"), u"Sub A()\r\n    x\r\nEnd Sub\r\n");
  EXPECT_EQ(world_.Text(u"N"), u"Sub A()\r\nx\r\nEnd Sub");
}

TEST_F(Run, AFailedInsertionLeavesTheModuleAsItWas) {
  const auto module = world_.Module(u"M", u"Sub A()\r\nx\r\nEnd Sub");
  int calls = 0;
  world_.Environment.SetOperationHook([&](std::string_view operation) {
    if (operation == "CodeModule.InsertLines" && ++calls == 1) {
      throw vb::Failure(1, u"no");
    }
  });
  const auto bodies = ReadModuleBodies(Statements(), module);
  EXPECT_THROW(WriteModuleBodies(Statements(), module, *bodies, u"gone"), vb::Failure);
  EXPECT_EQ(world_.Text(u"M"), u"Sub A()\r\nx\r\nEnd Sub");
}

}  // namespace
}  // namespace tessel::mFormatText
