// Ways of the runs that look odd and are kept.

#include "errorhandlers/HandlersWorld.h"
#include "forms/Form.h"

namespace tessel {
namespace {

namespace insert = mInsertErrorHandlerCode;
namespace drop = mRemoveErrorHandlerCode;

constexpr StringView Project = u"Current Project   [Project1]", Module = u"Current Component [M]";
constexpr StringView Sub = u"Option Explicit\r\nSub A()\r\nx = 1\r\nEnd Sub";

class HandlerQuirks : public test::HandlersWorld {
 protected:
  HandlerQuirks() {
    NoSchemes();
    Scheme({u"Plain", u"h", u"f", false, 0, 0, true, u"Failed"});
    Scheme({u"Other", u"o", u"p", false, 0, 0, false, u""});
    Scheme({u"Numbered", u"", u"", true, 100, 10, false, u""});
    Scheme({u"Typed", u"", u"", false, 0, 0, true, u"{MemberType}_Failed"});
    insert::Init_mRecord_ErrorHandlerScheme(Context);
  }
  [[nodiscard]] String Text(StringView name = u"M") { return Environment().Text(name); }
  [[nodiscard]] bool Holds(StringView what, StringView name = u"M") {
    return Text(name).find(what) != String::npos;
  }
};

TEST_F(HandlerQuirks, EachNumberedRunShiftsTheBodyByOneColumn) {
  Place.Module(u"M", u"Option Explicit\r\nSub A()\r\n    x = 1\r\nEnd Sub");
  for (const StringView blanks : {u"", u" ", u"  ", u"   "}) {
    Insert(Module, u"Numbered");
    EXPECT_TRUE(Holds(u"\r\n100 " + String(blanks) + u"x = 1\r\n")) << vb::ToUtf8(Text());
  }
}

TEST_F(HandlerQuirks, TheCaseFlagSurvivesMembersComponentsAndRuns) {
  Place.Module(u"M", u"Option Explicit\r\nSub A()\r\nSelect Case x\r\nEnd Select\r\nEnd Sub");
  Place.Module(u"N", u"Option Explicit\r\nSub B()\r\nCase 1\r\nCase 2\r\nEnd Sub");
  Insert(Module, u"Numbered");
  EXPECT_TRUE(Context.FirstCaseFlag);
  Insert(u"Current Component [N]", u"Numbered");
  EXPECT_TRUE(Holds(u"\r\n    Case 1\r\n100 Case 2\r\n", u"N")) << vb::ToUtf8(Text(u"N"));
}

TEST_F(HandlerQuirks, AClassGoesWithTheModulesChoiceAndItsOwnIsUsedNowhere) {
  Environment().AddComponent(u"", host::vbext_ct_ClassModule, u"C", Sub);
  Environment().AddComponent(u"", host::vbext_ct_DocObject, u"D", Sub);
  Context.ModuleScheme = u"Plain";
  Context.ClassScheme = Context.DocumentScheme = u"Other";
  Insert(Project, u"");
  EXPECT_TRUE(Holds(u"'errMarker: Plain\r\n", u"C"));
  EXPECT_TRUE(Holds(u"'errMarker: Plain\r\n", u"D"));
}

TEST_F(HandlerQuirks, TypesWithoutAChoiceKeepWhatTheComponentBeforeThemHad) {
  Environment().AddComponent(u"", host::vbext_ct_UserControl, u"U", Sub);
  Environment().AddComponent(u"", host::vbext_ct_VBForm, u"F", Sub);
  Environment().AddComponent(u"", host::vbext_ct_PropPage, u"P", Sub);
  Context.FormScheme = u"Plain";
  Insert(Project, u"Other");
  EXPECT_TRUE(Holds(u"'errMarker: Other\r\n", u"U")) << "the single scheme, until a choice comes";
  EXPECT_TRUE(Holds(u"'errMarker: Plain\r\n", u"F"));
  EXPECT_TRUE(Holds(u"'errMarker: Plain\r\n", u"P"));
}

TEST_F(HandlerQuirks, ATypeWithoutAChoiceThatComesFirstIsStrippedAndNotDressed) {
  Environment().AddComponent(u"", host::vbext_ct_UserControl, u"U",
                             u"Option Explicit\r\nSub A()\r\n\r\n10 x = 1\r\nEnd Sub");
  Insert(Project, u"");
  EXPECT_EQ(Text(u"U"), u"'errMarker: \r\nOption Explicit\r\nSub A()\r\n x = 1\r\nEnd Sub");
}

TEST_F(HandlerQuirks, ABlockThatIsNotClosedSwallowsToTheEndOfTheMember) {
  Place.Module(u"M", u"Option Explicit\r\nSub A()\r\nx = 1\r\n'<errFooter>\r\ny = 1\r\nEnd Sub");
  Remove(Module);
  EXPECT_EQ(Text(), u"Option Explicit\r\nSub A()\r\nx = 1") << "the End statement goes as well";
}

TEST_F(HandlerQuirks, ALabelMissesWhenTheTypeOfTheLastInsertionIsAnother) {
  const StringView code =
      u"Option Explicit\r\nSub A()\r\nOn Error GoTo 0\r\nEnd Sub\r\nFunction B()\r\nOn Error GoTo "
      u"0\r\nEnd Function";
  Place.Module(u"M", code);
  Insert(Module, u"Typed");
  EXPECT_TRUE(Holds(u"On Error GoTo Sub_Failed"));
  EXPECT_TRUE(Holds(u"On Error GoTo Function_Failed"));
  Remove(Module);
  EXPECT_EQ(Context.MemberType, u"Function") << "as the insertion left it";
  EXPECT_TRUE(Holds(u"On Error GoTo Sub_Failed"));
  EXPECT_TRUE(Holds(u"Function B()\r\nOn Error GoTo 0"));
}

TEST_F(HandlerQuirks, JumpsAreChangedInTheirExactCaseOnly) {
  Place.Module(u"M",
               u"Option Explicit\r\nSub A()\r\nOn Error Goto 0\r\nOn Error GoTo 0\r\nEnd Sub");
  Insert(Module, u"Plain");
  EXPECT_TRUE(Holds(u"On Error Goto 0\r\nOn Error GoTo Failed\r\n"));
  Environment().SetText(u"M",
                        u"'errMarker: plain\r\n\r\nSub A()\r\nOn Error GoTo failed\r\nOn "
                        u"Error GoTo Failed\r\nEnd Sub");
  Remove(Module);
  EXPECT_TRUE(Holds(u"On Error GoTo failed\r\nOn Error GoTo 0\r\n"))
      << "the scheme's name is found in any case, its label in its own";
}

// Keys

struct KeyCase {
  const char* Mode;
  StringView ModuleKey, MemberKey, Chosen, Used;
};

TEST_F(HandlerQuirks, TheKeyThatCountsDependsOnTheScope) {
  const KeyCase cases[] = {
      {"project", u"", u"", u"Plain", u"Plain"},
      {"project", u"Other", u"", u"Plain", u"Other"},
      {"project", u"Other", u"Numbered", u"Plain", u"Numbered"},
      {"project", u"Skip", u"Plain", u"Other", u"Plain"},
      {"project", u"Skip", u"", u"Plain", u""},
      {"component", u"Other", u"", u"Plain", u"Plain"},
      {"component", u"Other", u"Numbered", u"Plain", u"Numbered"},
      {"component", u"Skip", u"", u"Plain", u"Plain"},
      {"component", u"", u"Skip", u"Plain", u""},
      {"method", u"Other", u"Numbered", u"Plain", u"Plain"},
      {"method", u"Other", u"Skip", u"Plain", u"Plain"},
      {"method", u"", u"", u"Skip", u""},
  };
  const auto marks = [](StringView scheme) -> StringView {
    if (scheme == u"Plain") return u"'<errHeader>\r\nh\r\n";
    if (scheme == u"Other") return u"'<errHeader>\r\no\r\n";
    return scheme == u"Numbered" ? u"100 x = 1" : u"Sub A()\r\nx = 1\r\n";
  };
  Place.Module(u"M", u"");
  for (const KeyCase& one : cases) {
    const auto key = [](StringView name) {
      return name.empty() ? String() : u"'errMarker: " + String(name) + u"\r\n";
    };
    Environment().SetText(u"M", key(one.ModuleKey) + u"Option Explicit\r\n" + key(one.MemberKey) +
                                    u"Sub A()\r\nx = 1\r\nEnd Sub");
    Place.Caret(u"M", static_cast<int>(vb::Split(Text(), vb::CrLf).size()) - 1);
    Context.ModuleScheme = one.Chosen;
    const std::string mode = one.Mode;
    Insert(mode == "project"     ? Project
           : mode == "component" ? Module
                                 : StringView(u"Current Method    [A]"),
           String(one.Chosen));
    EXPECT_TRUE(Holds(marks(one.Used)))
        << one.Mode << ' ' << vb::ToUtf8(one.ModuleKey) << ' ' << vb::ToUtf8(one.MemberKey) << '\n'
        << vb::ToUtf8(Text());
    for (const StringView other : {u"Plain", u"Other", u"Numbered"}) {
      if (other != one.Used) {
        EXPECT_FALSE(Holds(marks(other))) << vb::ToUtf8(Text());
      }
    }
  }
}

TEST_F(HandlerQuirks, AProjectRunLeavesTheModulesKeyAndAComponentRunReplacesIt) {
  Place.Module(u"M", u"'ERRMARKER: Numbered\r\n" + String(Sub));
  Context.ModuleScheme = u"Plain";
  Insert(Project, u"");
  EXPECT_EQ(Text().substr(0, 20), u"'ERRMARKER: Numbered");
  Insert(Module, u"Plain");
  EXPECT_EQ(Text().substr(0, 36), u"'errMarker: Plain\r\nOption Explicit\r\n");
}

TEST_F(HandlerQuirks, AModuleWithoutMembersGetsNoKeyComment) {
  Place.Module(u"M", u"Option Explicit\r\nDim q");
  Insert(Module, u"Plain");
  EXPECT_EQ(Text(), u"Option Explicit\r\nDim q");
}

TEST_F(HandlerQuirks, ARemovalDeletesNoKeyComment) {
  const String code =
      u"'errMarker: Plain\r\nOption Explicit\r\n'errMarker: Other\r\nSub A()\r\nx = 1\r\nEnd Sub";
  Place.Module(u"M", code);
  Place.Caret(u"M", 5);
  for (const StringView scope : {Project, Module, StringView(u"Current Method    [A]")}) {
    Remove(scope);
    EXPECT_EQ(Text(), code);
  }
}

TEST_F(HandlerQuirks, TheKeyOnLineOneBindsAlsoTheMemberRightBelowIt) {
  Place.Module(u"M",
               u"'errMarker: Other\r\nSub A()\r\nx = 1\r\nEnd Sub\r\nSub B()\r\ny\r\nEnd Sub");
  Insert(Module, u"Plain");
  EXPECT_TRUE(Holds(u"'errMarker: Plain\r\nSub A()\r\n'<errHeader>\r\no\r\n"));
  EXPECT_TRUE(Holds(u"Sub B()\r\n'<errHeader>\r\nh\r\n"));
}

TEST_F(HandlerQuirks, OnlyTheExactWordSkipIsReserved) {
  Scheme({u"skip", u"of the table", u"", false, 0, 0, false, u""});
  Place.Module(u"M", u"Option Explicit\r\n'errMarker: SKIP\r\nSub A()\r\nx = 1\r\nEnd Sub");
  Insert(Module, u"Plain");
  EXPECT_TRUE(Holds(u"'<errHeader>\r\nof the table\r\n"));
}

// The table of schemes

TEST_F(HandlerQuirks, ATableOfOneSchemeCountsAsNoneSoMembersAreStrippedOnly) {
  NoSchemes();
  Scheme({u"Plain", u"h", u"f", false, 0, 0, false, u""});
  Context.mRecord_ErrorHandlerScheme.clear();
  Place.Module(u"M", u"Option Explicit\r\nSub A()\r\n\r\n10 x = 1\r\nEnd Sub");
  Insert(Module, u"Plain");
  EXPECT_EQ(Text(), u"'errMarker: Plain\r\nOption Explicit\r\nSub A()\r\n x = 1\r\nEnd Sub");
}

TEST_F(HandlerQuirks, SchemesReadEarlierStayWhenTheTableHoldsFewerThanTwo) {
  NoSchemes();
  insert::Init_mRecord_ErrorHandlerScheme(Context);
  EXPECT_EQ(Context.mRecord_ErrorHandlerScheme.size(), 4U);
  EXPECT_EQ(insert::ReturnIndexErrorHandlerScheme(Context, u"PLAIN"), 0);
}

TEST_F(HandlerQuirks, ASchemeNamedInAnyCaseIsFound) {
  Place.Module(u"M", String(Sub));
  Insert(Module, u"pLAIN");
  EXPECT_TRUE(Holds(u"'errMarker: pLAIN\r\n")) << "and written as it was given";
  EXPECT_TRUE(Holds(u"'<errHeader>\r\nh\r\n"));
}

// Members

TEST_F(HandlerQuirks, APropertyLetAboveItsGetIsHandledTwiceAndTheGetNotAtAll) {
  Place.Module(u"M",
               u"Option Explicit\r\nProperty Let V(o)\r\nx = 1\r\nEnd Property\r\nProperty Get "
               u"V()\r\ny = 1\r\nEnd Property");
  Insert(Module, u"Numbered");
  EXPECT_TRUE(Holds(u"100  x = 1\r\n")) << "shifted by the second time";
  EXPECT_TRUE(Holds(u"Property Get V()\r\ny = 1\r\nEnd Property"));
}

TEST_F(HandlerQuirks, AMemberOnOneLineGetsItsHeaderBehindIt) {
  Place.Module(u"M", u"Option Explicit\r\nSub A(): x = 1: End Sub\r\nSub B()\r\ny\r\nEnd Sub");
  Insert(Module, u"Other");
  EXPECT_TRUE(Holds(u"Sub A(): x = 1: End Sub\r\n'<errHeader>\r\no\r\n'</errHeader>\r\nSub B()"));
}

TEST_F(HandlerQuirks, AContinuationLineThatBeginsWithANumberLosesIt) {
  EXPECT_EQ(insert::WorkTextComponentMember(
                Context, u"Sub A()\r\nx = y + _\r\n1 + _\r\n2\r\nEnd Sub", u"Gone"),
            u"Sub A()\r\nx = y + _\r\n  + _\r\n2\r\nEnd Sub");
}

TEST_F(HandlerQuirks, ALineThatEndsInANameWithAnUnderscoreCountsAsContinued) {
  EXPECT_EQ(insert::WorkTextComponentMember(Context, u"Sub A()\r\nGoTo Out_\r\nEnd Sub", u"Other"),
            u"Sub A()\r\n'<errHeader>\r\no\r\n'</errHeader>\r\nGoTo Out_\r\nEnd Sub")
      << "so the member's end gets no footer";
}

TEST_F(HandlerQuirks, AHeadBehindAHundredSignsIsTypedByWhatStandsInThem) {
  Context.MemberName = u"Long";
  EXPECT_EQ(insert::WorkTextComponentMember(Context,
                                            u"Property _\r\n" + String(110, u' ') +
                                                u"Get Long()\r\nOn Error GoTo 0\r\nEnd Property",
                                            u"Typed"),
            u"Property _\r\nGet Long()\r\n\r\nOn Error GoTo _Failed\r\n\r\nEnd Property");
  EXPECT_EQ(Context.MemberType, u"");
}

TEST_F(HandlerQuirks, AnEventOfAControlIsHandledAsASub) {
  Place.Form(u"F", u"Option Explicit\r\nSub Command1_Click()\r\nx = 1\r\nEnd Sub");
  Environment().AddControl(u"F", u"VB.CommandButton", u"Command1", {});
  Context.FormScheme = u"Plain";
  Insert(Project, u"");
  EXPECT_TRUE(Holds(u"Command1_Click()\r\n'<errHeader>\r\n", u"F"));
  EXPECT_EQ(Context.CurrentMemberKind, 0);
}

TEST_F(HandlerQuirks, ACommentBetweenHidesTheKeyOfAMember) {
  Place.Module(u"M",
               u"Option Explicit\r\n'errMarker: Skip\r\n' about A\r\nSub A()\r\nx\r\nEnd Sub");
  Insert(Module, u"Plain");
  EXPECT_TRUE(Holds(u"Sub A()\r\n'<errHeader>"));
}

// Scopes

TEST_F(HandlerQuirks, AScopeIsKnownByItsFirstSeventeenSigns) {
  Place.Module(u"M", String(Sub));
  Insert(u"CURRENT COMPONENT whatever [m]", u"Plain");
  EXPECT_TRUE(Holds(u"'errMarker: Plain"));
  const String before = Text();
  Insert(u"Current Modules   [M]", u"Other");
  EXPECT_EQ(Text(), before);
}

TEST_F(HandlerQuirks, AComponentRunBringsItsPaneToTheFirstLineAndAMethodRunBehindTheHead) {
  Place.Module(u"M", String(Sub));
  Place.Caret(u"M", 3);
  Insert(Module, u"Plain");
  EXPECT_EQ(Place.Selection(), (host::Selection{1, 1, 1, 1}));
  Place.Caret(u"M", 5);
  Insert(u"Current Method    [A]", u"Plain");
  EXPECT_EQ(Place.Selection(), (host::Selection{5, 1, 5, 1}));
}

// The control of the dialog, which also shows what it turned into plain text.
struct Dialog : forms::Form {
  Dialog() : Form("Dialog", u"") {}
  forms::RichTextBox Preview{this, "Preview"};
};

TEST_F(HandlerQuirks, StoredTextIsReadThroughTheControlOfTheRunContext) {
  const auto dialog = std::make_shared<Dialog>();
  Context.PreviewRichText = &dialog->Preview;
  EXPECT_EQ(insert::ReturnHeader(Context, u"{\\rtf1 a\\par b}", u"  ", u"", u"", u"", u"", u""),
            u"  '<errHeader>\r\na\r\nb\r\n  '</errHeader>\r\n");
  EXPECT_EQ(dialog->Preview.Text(), u"a\r\nb");
  EXPECT_EQ(insert::ReturnFooter(Context, u"", u"  ", u"", u"", u"", u"", u""), u"\r\n");
  Context.PreviewRichText = nullptr;
}

}  // namespace
}  // namespace tessel
