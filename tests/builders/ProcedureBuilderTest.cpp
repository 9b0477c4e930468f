#include "support/DialogChannel.h"

namespace tessel {
namespace {

class ProcedureBuilder : public test::DialogChannel {
 protected:
  void Begin(const std::string& text = "Option Explicit\r\n") {
    Connect();
    Project();
    Component(1, "Module1", text);
    Select("Module1");
    Open("Procedure Builder");
  }
  void AddArgument(const std::string& name, bool optional) {
    Press("btmAdd");
    Type("txtName", name);
    Check("chkOptional", optional ? 1 : 0);
    Press("btmOK");
  }
};

TEST_F(ProcedureBuilder, OpensWithTheDefaultsAndTheSelectedModule) {
  Begin();
  Form();
  const Json form = Play();
  EXPECT_EQ(form.at("caption"), "Procedure Builder");
  EXPECT_EQ(Control(form, "txtName").at("text"), "Name");
  EXPECT_EQ(Control(form, "ComType").at("text"), "Sub");
  EXPECT_EQ(Control(form, "ComAccessibility").at("list"),
            Json({"", "Public", "Private", "Friend"}));
  EXPECT_EQ(Control(form, "ComAccessibility").at("text"), "Public");
  EXPECT_EQ(Control(form, "ComStatic").at("text"), "");
  EXPECT_EQ(Control(form, "ComReturnValueType").at("enabled"), false);
  EXPECT_EQ(Control(form, "ComReturnValueType").at("list").front(), "(None)");
  EXPECT_EQ(Control(form, "ComModule").at("list"), Json({"Module1", "New Module"}));
  EXPECT_EQ(Control(form, "ComModule").at("text"), "Module1");
  EXPECT_EQ(Control(form, "chkHeader").at("value"), 1);
}

TEST_F(ProcedureBuilder, OpensWithWhatWasStored) {
  Setting("ComTypeProcedure", "function");
  Setting("ComReturnValueTypeProcedure", "LONG");
  Setting("ComAccessibilityProcedure", "");
  Setting("chkHeaderProcedure", "True");
  Setting("txtDescriptionProcedure", "What it does");
  Begin();
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "ComType").at("text"), "Function");
  EXPECT_EQ(Control(form, "ComReturnValueType").at("text"), "Long");
  EXPECT_EQ(Control(form, "ComReturnValueType").at("enabled"), true);
  EXPECT_EQ(Control(form, "ComAccessibility").at("text"), "");
  EXPECT_EQ(Control(form, "chkHeader").at("value"), 1);
  EXPECT_EQ(Control(form, "txtDescription").at("text"), "What it does");
}

TEST_F(ProcedureBuilder, ThePreviewFollowsEveryField) {
  Begin();
  Check("chkHeader", 0);
  Type("txtName", "GetTotal");
  Pick("ComType", "Function");
  Pick("ComReturnValueType", "Double");
  Form();
  EXPECT_EQ(Control(Play(), "RicViewProcedureBuilder").at("text"),
            "Public Function GetTotal ()  As Double\r\n"
            "   'TODO: Add 'GetTotal' body here.\r\n"
            "End Function\r\n");
}

TEST_F(ProcedureBuilder, AReturnTypeIsKeptForALaterSwitchBack) {
  Begin();
  Pick("ComType", "Function");
  Pick("ComReturnValueType", "Double");
  Pick("ComType", "Sub");
  Form();
  Pick("ComType", "Function");
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "ComReturnValueType").at("text"), "Double");
  EXPECT_EQ(Control(form, "ComReturnValueType").at("enabled"), true);
}

TEST_F(ProcedureBuilder, TheTextGoesToTheEndAndTheCaretToTheDeclaration) {
  Begin("Option Explicit\r\nSub A()\r\nEnd Sub");
  Type("txtDescription", "Does it");
  Press("btmOK");
  Ask({{"do", "pane"}});
  Text("Module1");
  const std::string text = Play().at("text");
  EXPECT_TRUE(text.starts_with("Option Explicit\r\nSub A()\r\nEnd Sub\r\n'=====")) << text;
  EXPECT_TRUE(
      text.ends_with("Public Sub Name ()\r\n   'TODO: Add 'Name' body here.\r\nEnd Sub\r\n"))
      << text;
  EXPECT_EQ(Replies[Replies.size() - 2].at("selection").at("line"), 10);
}

TEST_F(ProcedureBuilder, WithoutHeaderTheCaretStandsOnTheFirstLine) {
  Begin("Option Explicit");
  Check("chkHeader", 0);
  Type("txtDescription", "Does it");
  Press("btmOK");
  Ask({{"do", "pane"}});
  EXPECT_EQ(Play().at("selection").at("line"), 2);
}

TEST_F(ProcedureBuilder, ArgumentsComeMoveAndGo) {
  Begin();
  AddArgument("A", false);
  AddArgument("B", false);
  AddArgument("C", false);
  Press("btmMoveUp");
  Form();
  Press("btmMoveUp");
  Press("btmMoveUp");
  Form();
  Press("btmMoweDown");
  Press("btmMoweDown");
  Press("btmMoweDown");
  Press("btmDel");
  Form();
  Press("btmDel");
  Press("btmDel");
  Press("btmDel");
  Form();
  const Json last = Play();
  const auto list = [](const Json& reply) { return Control(reply, "ListProcedureArguments"); };
  std::vector<Json> forms;
  for (const Json& form : Forms()) forms.push_back(list(form));
  EXPECT_EQ(forms.at(0).at("list"), Json({"ByRef A ", "ByRef C ", "ByRef B "}));
  EXPECT_EQ(forms.at(0).at("list-index"), 1);
  EXPECT_EQ(forms.at(1).at("list"), Json({"ByRef C ", "ByRef A ", "ByRef B "}));
  EXPECT_EQ(forms.at(1).at("list-index"), 0) << "at the top nothing moves";
  EXPECT_EQ(forms.at(2).at("list"), Json({"ByRef A ", "ByRef B "}));
  EXPECT_EQ(forms.at(2).at("list-index"), 1) << "the last one is selected behind a deletion";
  EXPECT_EQ(list(last).at("list"), Json::array());
}

TEST_F(ProcedureBuilder, AnArgumentBehindAnOptionalOneIsRefusedAndSelected) {
  Begin();
  AddArgument("A", true);
  AddArgument("B", false);
  Press("btmOK");
  Answer("OK");
  Form();
  const Json form = Play();
  EXPECT_EQ(FormOf(form), "frmProcedureBuilder");
  EXPECT_EQ(MessageOf(Replies[Replies.size() - 3]), "Argument must have the meaning \"Optional\"");
  EXPECT_EQ(Control(form, "ListProcedureArguments").at("list-index"), 1);
  EXPECT_EQ(Control(form, "ListProcedureArguments").at("focus"), true);
}

TEST_F(ProcedureBuilder, AParamArrayThatIsNotTheLastIsRefusedAndSelected) {
  Begin();
  Press("btmAdd");
  Check("chkParamArray", 1);
  Press("btmOK");
  AddArgument("B", false);
  Press("btmOK");
  Answer("OK");
  Form();
  const Json form = Play();
  EXPECT_EQ(MessageOf(Replies[Replies.size() - 3]),
            "The meaning \"ParamArray\" must be the last in the list of parameters");
  EXPECT_EQ(Control(form, "ListProcedureArguments").at("list-index"), 0);
  EXPECT_EQ(Control(form, "ListProcedureArguments").at("focus"), true);
}

TEST_F(ProcedureBuilder, AFunctionWithoutAReturnTypeIsRefused) {
  Setting("ComTypeProcedure", "Function");
  Setting("ComReturnValueTypeProcedure", "NoSuchType");
  Begin();
  Press("btmOK");
  Answer("OK");
  Form();
  const Json form = Play();
  EXPECT_EQ(MessageOf(Replies[Replies.size() - 3]),
            "It is required to fill in the filed: \"Return Value Type\"");
  EXPECT_EQ(Control(form, "ComReturnValueType").at("focus"), true);
}

TEST_F(ProcedureBuilder, LinesTypedIntoAFieldOfOneLineStayOneLine) {
  Begin("Option Explicit\r\n");
  Check("chkHeader", 0);
  Type("txtDescription", "one\r\nKill \"x\"");
  Press("btmOK");
  Text("Module1");
  const std::string text = Play().at("text");
  EXPECT_NE(text.find("' Description: one Kill \"x\"\r\n"), std::string::npos) << text;
}

TEST_F(ProcedureBuilder, BadNamesAreRefusedAndKeepTheFocus) {
  const std::vector<std::pair<std::string, std::string>> cases{
      {"1abc", "Number can not be the first symbol in the name, field: \"Name\""},
      {"", "It is required to fill in the filed: \"Name\""},
      {"a b", "Impossible symbols in the field: \"Name\"  \"\""}};
  Begin();
  for (const auto& [name, message] : cases) {
    Type("txtName", name);
    Press("btmOK");
    Answer("OK");
  }
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "txtName").at("focus"), true);
  const auto messages = Messages();
  ASSERT_EQ(messages.size(), cases.size());
  for (std::size_t at = 0; at < cases.size(); ++at) EXPECT_EQ(messages[at], cases[at].second);
}

TEST_F(ProcedureBuilder, ALineThatTheLanguageDoesNotTakeIsRefusedWithItsField) {
  Begin("Option Explicit");
  Type("txtDescription", std::string(1100, 'd'));
  Press("btmOK");
  Answer("OK");
  Form();
  Text("Module1");
  EXPECT_EQ(Play().at("text"), "Option Explicit");
  EXPECT_EQ(Messages(),
            (std::vector<std::string>{"A line would have 1115 characters, more than 1023, field: "
                                      "\"Description\""}));
  EXPECT_EQ(Control(Forms().back(), "txtDescription").at("focus"), true);
}

TEST_F(ProcedureBuilder, ANewModuleIsMadeTwiceUnderTwoNames) {
  for (int round = 0; round < 2; ++round) {
    if (round == 0) {
      Begin();
    } else {
      Open("Procedure Builder");
    }
    Pick("ComModule", "New Module");
    Press("btmOK");
  }
  Ask({{"do", "projects"}});
  const Json components = Play().at("projects").at(0).at("components");
  ASSERT_EQ(components.size(), 3U);
  EXPECT_EQ(components.at(1).at("name"), "NewModule");
  EXPECT_NE(components.at(2).at("name"), "NewModule");
}

TEST_F(ProcedureBuilder, CancelInsertsNothing) {
  Begin("Option Explicit");
  Press("btmCancel");
  Text("Module1");
  EXPECT_EQ(Play().at("text"), "Option Explicit");
}

TEST_F(ProcedureBuilder, AnInsertionThatIsGivenUpKeepsTheDialogAndWhatWasTyped) {
  Begin("Option Explicit");
  Type("txtName", "Mine");
  Fail("CodeModule.InsertLines");
  Press("btmOK");
  Press("btnAbort");
  Form();
  const Json form = Play(1);
  EXPECT_EQ(FormOf(form), "frmProcedureBuilder");
  EXPECT_EQ(Control(form, "txtName").at("text"), "Mine");
}

TEST_F(ProcedureBuilder, RetryGoesOnWhereTheInsertionFailed) {
  Begin("Option Explicit");
  Check("chkHeader", 0);
  Fail("CodeModule.InsertLines");
  Press("btmOK");
  Press("btnRetry");
  Text("Module1");
  EXPECT_EQ(Play(1).at("text"),
            "Option Explicit\r\nPublic Sub Name ()\r\n   'TODO: Add 'Name' body here.\r\nEnd "
            "Sub\r\n");
}

class ArgumentBuilder : public ProcedureBuilder {};

TEST_F(ArgumentBuilder, OpensWithTheStoredDefaultsAndTheFirstType) {
  Setting("chkOptional", "0");
  Setting("OptByRef", "0");
  Setting("OptByVal", "1");
  Setting("ComTypeArgument", "Long");
  Begin();
  Press("btmAdd");
  Form();
  const Json form = Play();
  EXPECT_EQ(FormOf(form), "frmArgumentBuilder");
  EXPECT_EQ(Control(form, "ComType").at("text"), "(None)") << "the stored type isn't read";
  EXPECT_EQ(Control(form, "OptByVal").at("value"), 1);
  EXPECT_EQ(Control(form, "OptByRef").at("value"), 0);
  EXPECT_EQ(Control(form, "txtDefaultValue").at("enabled"), false);
  EXPECT_EQ(Control(form, "lblResult").at("caption"), "ByVal N ");
}

TEST_F(ArgumentBuilder, WithBothPassingsOffNeitherWordIsWritten) {
  Setting("chkOptional", "0");
  Setting("OptByRef", "0");
  Setting("OptByVal", "0");
  Begin();
  Press("btmAdd");
  Pick("ComType", "Long");
  Form();
  EXPECT_EQ(Control(Play(), "lblResult").at("caption"), "N  As Long");
}

TEST_F(ArgumentBuilder, AnArrayDisablesTheRestAndItsValuesAreNotWritten) {
  Begin();
  Press("btmAdd");
  Type("txtDefaultValue", "5");
  Check("chkArray", 1);
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "lblResult").at("caption"), "N()");
  for (const char* name :
       {"chkOptional", "OptByRef", "OptByVal", "chkParamArray", "txtDefaultValue", "ComType"}) {
    EXPECT_EQ(Control(form, name).at("enabled"), false) << name;
  }
}

TEST_F(ArgumentBuilder, AParameterArrayLeavesTheArrayToChoose) {
  Begin();
  Press("btmAdd");
  Check("chkParamArray", 1);
  Form();
  Check("chkArray", 1);
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "lblResult").at("caption"), "N()");
  const Json before = Forms().at(0);
  EXPECT_EQ(Control(before, "chkArray").at("enabled"), true);
  EXPECT_EQ(Control(before, "lblResult").at("caption"), "ParamArray N()");
}

TEST_F(ArgumentBuilder, CancelAndTheFrameAddNothing) {
  Begin();
  Press("btmAdd");
  Press("btmCansel");
  Press("btmAdd");
  Ask({{"do", "close"}});
  Form();
  const Json form = Play();
  EXPECT_EQ(FormOf(form), "frmProcedureBuilder");
  EXPECT_EQ(Control(form, "ListProcedureArguments").at("list"), Json::array());
}

TEST_F(ArgumentBuilder, ABadNameIsRefused) {
  Begin();
  Press("btmAdd");
  Type("txtName", "1abc");
  Press("btmOK");
  Answer("OK");
  Form();
  EXPECT_EQ(FormOf(Play()), "frmArgumentBuilder");
}

}  // namespace
}  // namespace tessel
