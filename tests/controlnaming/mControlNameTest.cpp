#include "controlnaming/mControlName.h"

#include <gtest/gtest.h>

#include <random>

#include "foundation/CErrorHandler.h"
#include "support/Modules.h"
#include "vb/Failure.h"

namespace tessel {
namespace {

using mControlName::NamesUpdated;
using mControlName::RunUpdateCodeName;

String Updated(StringView text) { return NamesUpdated(text, {}, u"Old", u"New"); }

TEST(NamesInText, AreReplacedBetweenBlanksPointsAndLineEnds) {
  const struct {
    StringView Left, Right;
  } table[] = {{u".", u"."},       {u" ", u" "},    {u".", u" "},   {u" ", u"."},
               {u"\r\n", u"\r\n"}, {u" ", u"\r\n"}, {u".", u"\r\n"}};
  for (const auto& by : table) {
    const auto enclosed = [&](StringView name) {
      return u"a" + String(by.Left) + String(name) + String(by.Right) + u"b";
    };
    EXPECT_EQ(Updated(enclosed(u"Old")), enclosed(u"New"));
  }
}

TEST(NamesInText, StayInEveryOtherPlace) {
  for (const StringView text :
       {StringView(u"f(Old)"), StringView(u"f(Old, 1)"), StringView(u"f(1, Old)"),
        StringView(u" Old, x"), StringView(u"Old.Text = 1"), StringView(u"a\r\nOld.Text = 1"),
        StringView(u"a\r\nOld = 1"), StringView(u" Older Bold "), StringView(u" old OLD "),
        StringView(u" Old(0).x"), StringView(u"x = Old"), StringView(u"\tOld\t")}) {
    EXPECT_EQ(Updated(text), text) << vb::ToUtf8(text);
  }
}

TEST(NamesInText, AreReplacedInCommentsAndStringsToo) {
  EXPECT_EQ(Updated(u"' the Old one\r\nx = \"an Old text\""),
            u"' the New one\r\nx = \"an New text\"");
}

TEST(NamesInText, OneThatSharesItsDelimiterWithTheOneAheadIsPassedOver) {
  EXPECT_EQ(Updated(u" Old Old "), u" New Old ");
  EXPECT_EQ(Updated(u".Old.Old."), u".New.Old.");
  EXPECT_EQ(Updated(u" Old.Old "), u" New.New ") << "the later row of the table finds the rest";
}

TEST(NamesInText, OfEventProceduresAreReplacedWhereverTheyStand) {
  EXPECT_EQ(NamesUpdated(u"Sub cmdOld_Click()\r\nx(cmdOld_Click)\r\n'cmdOld_Click2",
                         {u"cmdOld_Click"}, u"cmdOld", u"cmdNew"),
            u"Sub cmdNew_Click()\r\nx(cmdNew_Click)\r\n'cmdNew_Click2");
}

TEST(NamesInText, OfAnotherControlsProceduresChangeWhenTheyHoldTheOldName) {
  EXPECT_EQ(NamesUpdated(u"Sub fraOld_Click()\r\nfraOld.x", {u"fraOld_Click"}, u"Old", u"New"),
            u"Sub fraNew_Click()\r\nfraOld.x");
}

TEST(NamesInText, OfAProcedureThatBeginsAnothersNameAreChangedOnce) {
  EXPECT_EQ(NamesUpdated(u"Sub Wsk1_Connect()\r\nSub Wsk1_ConnectionRequest()\r\n",
                         {u"Wsk1_Connect", u"Wsk1_ConnectionRequest"}, u"Wsk1", u"wskWsk1"),
            u"Sub wskWsk1_Connect()\r\nSub wskWsk1_ConnectionRequest()\r\n");
  EXPECT_EQ(NamesUpdated(u"(Wsk1_ConnectionRequest)(Wsk1_Connect)",
                         {u"Wsk1_ConnectionRequest", u"Wsk1_Connect"}, u"Wsk1", u"wskWsk1"),
            u"(wskWsk1_ConnectionRequest)(wskWsk1_Connect)");
}

TEST(NamesInText, OfAProcedureThatStandsThereTwiceAreChangedOnce) {
  EXPECT_EQ(NamesUpdated(u"Sub Text2_Change()\r\n#Else\r\nSub Text2_Change()\r\n",
                         {u"Text2_Change", u"Text2_Change"}, u"Text2", u"txtText2"),
            u"Sub txtText2_Change()\r\n#Else\r\nSub txtText2_Change()\r\n");
}

/// Each name in turn, everywhere; what the names put in is not guarded.
String ProceduresOneAfterTheOther(String text, const std::vector<String>& procedures,
                                  StringView oldName, StringView newName) {
  for (const String& procedure : procedures) {
    text = vb::Replace(text, procedure, vb::Replace(procedure, oldName, newName));
  }
  return text;
}

TEST(NamesInText, OfProceduresChangeOneAfterTheOtherWhereNoneFindsWhatAnotherPutIn) {
  std::mt19937 random(7);
  const auto below = [&](unsigned most) { return static_cast<unsigned>(random() % most); };
  const auto name = [&](StringView letters, unsigned most) {
    String text;
    for (unsigned length = 1 + below(most); length > 0; --length) text += letters[below(2)];
    return text;
  };
  int changed = 0;
  for (int round = 0; round < 2000; ++round) {
    const String oldName = name(u"ab", 3), newName = u"N" + vb::Str(static_cast<int>(below(9)));
    std::vector<String> procedures;
    for (const char16_t last : StringView(u"PQRST")) {
      // With a last letter of its own no name is found across the end of another.
      procedures.push_back(name(u"ab", 2) + oldName + u"_" + name(u"cd", 3) + last);
    }
    String text;
    for (int word = 0; word < 30; ++word) {
      text += below(2) == 0 ? procedures[below(5)] : name(u"ab", 5);
      if (below(4) > 0) text += u"(,)"[below(3)];
    }
    const String expected = ProceduresOneAfterTheOther(text, procedures, oldName, newName);
    changed += expected != text ? 1 : 0;
    EXPECT_EQ(NamesUpdated(text, procedures, oldName, newName), expected);
  }
  EXPECT_GT(changed, 1000);
}

TEST(NamesInText, AnEmptyNewNameIsPutInLikeAnyOther) {
  EXPECT_EQ(NamesUpdated(u"x = Old.y", {}, u"Old", u""), u"x = .y");
}

class NamesInModule : public testing::Test {
 protected:
  ~NamesInModule() override { gErrorHandler.reset(); }

  /// A form whose designer bears the new name already.
  std::shared_ptr<host::CodeModule> Form(StringView text) {
    const auto module = world_.Form(u"Form1", text);
    world_.Environment.AddControl(u"Form1", u"CommandButton", u"cmdNew", {});
    world_.Environment.AddControl(u"Form1", u"TextBox", u"txtName", {});
    return module;
  }
  [[nodiscard]] String Text() const { return world_.Text(u"Form1"); }

  test::World world_;
};

TEST_F(NamesInModule, TheOldNamesProceduresCountThoughTheDesignerBearsTheNewOne) {
  RunUpdateCodeName(Form(u"Private Sub CMDold_Click()\r\n  x\r\nEnd Sub\r\n"
                         u"Private Sub cmdOld_GotFocus()\r\n  cmdOld.SetFocus\r\nEnd Sub\r\n"),
                    u"cmdOld", u"cmdNew");
  EXPECT_EQ(Text(),
            u"Private Sub CMDold_Click()\r\n  x\r\nEnd Sub\r\n"
            u"Private Sub cmdNew_GotFocus()\r\n  cmdNew.SetFocus\r\nEnd Sub\r\n")
      << "case counts in the replacing alone";
}

TEST_F(NamesInModule, AProcedureOfNoControlKeepsItsName) {
  RunUpdateCodeName(Form(u"Sub DocmdOld_Now()\r\nEnd Sub\r\nSub cmdOld_Click()\r\nEnd Sub\r\n"),
                    u"cmdOld", u"cmdNew");
  EXPECT_EQ(Text(), u"Sub DocmdOld_Now()\r\nEnd Sub\r\nSub cmdNew_Click()\r\nEnd Sub\r\n");
}

TEST_F(NamesInModule, AControlArraysProceduresChangeAndItsIndexedUsesStay) {
  const auto module = Form(
      u"Private Sub optOld_Click(Index As Integer)\r\n  optOld(Index).Value = 1\r\nEnd Sub\r\n");
  for (const StringView index : {StringView(u"0"), StringView(u"1")}) {
    world_.Environment.AddControl(u"Form1", u"OptionButton", u"optNew",
                                  {{u"Index", String(index)}});
  }
  RunUpdateCodeName(module, u"optOld", u"optNew");
  EXPECT_EQ(
      Text(),
      u"Private Sub optNew_Click(Index As Integer)\r\n  optOld(Index).Value = 1\r\nEnd Sub\r\n");
}

TEST_F(NamesInModule, AnUnindentedUseAheadOfAPointStays) {
  RunUpdateCodeName(Form(u"Sub A()\r\nText1.Text = x\r\n  Text1.Text = y\r\nEnd Sub\r\n"), u"Text1",
                    u"txtName");
  EXPECT_EQ(Text(), u"Sub A()\r\nText1.Text = x\r\n  txtName.Text = y\r\nEnd Sub\r\n");
}

TEST_F(NamesInModule, WithoutAMemberNothingHappens) {
  const StringView declarations = u"Option Explicit\r\n' the cmdOld one\r\n";
  RunUpdateCodeName(Form(declarations), u"cmdOld", u"cmdNew");
  EXPECT_EQ(Text(), declarations);
}

TEST_F(NamesInModule, AnEmptyOrMissingModuleIsPassedOver) {
  RunUpdateCodeName(Form(u""), u"cmdOld", u"cmdNew");
  EXPECT_EQ(Text(), u"");
  RunUpdateCodeName(nullptr, u"cmdOld", u"cmdNew");
}

TEST_F(NamesInModule, AControlWithoutANameHasNoUsesInTheCode) {
  const StringView text = u"Sub cmdNew_Click()\r\n  With  cmdNew\r\n    .x = .y\r\nEnd Sub\r\n";
  RunUpdateCodeName(Form(text), u"", u"txtX");
  EXPECT_EQ(Text(), text);
}

TEST_F(NamesInModule, AModuleThatDoesNotMentionTheNameIsNotTouched) {
  const auto module = Form(u"Sub A()\r\nEnd Sub\r\n");
  bool written = false;
  world_.Environment.SetOperationHook(
      [&](std::string_view call) { written = written || call == "CodeModule.DeleteLines"; });
  RunUpdateCodeName(module, u"cmdOld", u"cmdNew");
  EXPECT_FALSE(written);
}

TEST_F(NamesInModule, WhateverCallFailsTheTextIsTheOldOneOrTheNew) {
  const StringView before = u"Private Sub cmdOld_Click()\r\n  cmdOld.Caption = 1\r\nEnd Sub\r\n";
  const StringView after = u"Private Sub cmdNew_Click()\r\n  cmdNew.Caption = 1\r\nEnd Sub\r\n";
  const auto module = Form(before);
  gErrorHandler = std::make_shared<CErrorHandler>();
  gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  auto& desktop = world_.Services.DesktopService;
  using platform::MessageAnswer;
  for (const auto answer : {MessageAnswer::Abort, MessageAnswer::Retry, MessageAnswer::Ignore}) {
    for (int nth = 1;; ++nth) {
      world_.Environment.SetText(u"Form1", before);
      desktop.Messages.clear();
      desktop.Answers.assign(10, answer);
      int calls = 0;
      world_.Environment.SetOperationHook([&](std::string_view) {
        if (++calls == nth) throw vb::Failure(7, u"no room");
      });
      RunUpdateCodeName(module, u"cmdOld", u"cmdNew");
      world_.Environment.SetOperationHook({});
      if (calls < nth) {
        EXPECT_GT(nth, 10);
        break;
      }
      const bool retried = answer == MessageAnswer::Retry && !desktop.Messages.empty();
      EXPECT_TRUE(Text() == after || (Text() == before && !retried))
          << "call " << nth << ", answer " << static_cast<int>(answer) << '\n'
          << vb::ToUtf8(Text());
    }
  }
}

}  // namespace
}  // namespace tessel
