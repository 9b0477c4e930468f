// The naming dialogs as a script sees them.

#include <algorithm>
#include <array>

#include "support/DialogChannel.h"

namespace tessel {
namespace {

class NamingDialogs : public test::DialogChannel {
 protected:
  static constexpr int FormType = 5;

  void Begin(const std::string& code = "Private Sub Form_Load()\r\n  x = 1\r\nEnd Sub\r\n") {
    Connect();
    Project();
    Component(FormType, "Form1", code);
  }
  void Add(const std::string& className, const std::string& name, Json properties) {
    Ask({{"do", "add-control"},
         {"component", "Form1"},
         {"class", className},
         {"name", name},
         {"properties", std::move(properties)}});
  }
  void AddButton(const std::string& name = "Command1") {
    Add("CommandButton", name, {{"Caption", name}});
  }
  void Rename(const std::string& name, const std::string& newName) {
    Ask({{"do", "rename-control"}, {"component", "Form1"}, {"name", name}, {"new-name", newName}});
  }
  void Close() { Ask({{"do", "close"}}); }
  void Controls() { Ask({{"do", "controls"}, {"component", "Form1"}}); }
  void Run(const std::string& handler) { Ask({{"do", "run"}, {"handler", handler}}); }
  void Bars() { Ask({{"do", "bars"}}); }
  void Caret(int line, int column, int endLine, int endColumn) {
    Ask({{"do", "caret"},
         {"component", "Form1"},
         {"line", line},
         {"column", column},
         {"end-line", endLine},
         {"end-column", endColumn}});
  }

  /// The replies to `form`, in order.
  [[nodiscard]] std::vector<Json> Dialogs() const {
    std::vector<Json> dialogs;
    for (const Json& reply : Replies) {
      if (reply.contains("form")) dialogs.push_back(reply);
    }
    return dialogs;
  }
  /// The last reply that tells of bars.
  [[nodiscard]] const Json& LastBars() const {
    return *std::find_if(Replies.rbegin(), Replies.rend(),
                         [](const Json& reply) { return reply.contains("bars"); });
  }
  /// The last reply to `controls`, which tells of no form.
  [[nodiscard]] const Json& LastControls() const {
    return *std::find_if(Replies.rbegin(), Replies.rend(), [](const Json& reply) {
      return reply.contains("controls") && !reply.contains("form");
    });
  }
  /// "NAME CAPTION" of each control in the last reply to `controls`.
  static std::vector<std::string> Named(const Json& reply, const char* property = "Caption") {
    std::vector<std::string> all;
    for (const Json& control : reply.at("controls")) {
      all.push_back(control.at("name").get<std::string>() + " " +
                    control.at("properties").value(property, "-"));
    }
    return all;
  }
  /// Whether the button of that caption on the add-in's bar is enabled in a reply to `bars`.
  static bool IsEnabled(const Json& reply, const std::string& caption) {
    for (const Json& bar : reply.at("bars")) {
      if (bar.at("name") != "Tessel") continue;
      for (const Json& control : bar.at("controls")) {
        if (control.at("caption") == caption) return control.at("enabled");
      }
    }
    ADD_FAILURE() << "no button " << caption;
    return false;
  }
  using Names = std::vector<std::string>;

  /// Gives a name that the environment refuses, answers so, and lets another control come.
  void GiveABadName(const std::string& answer) {
    Begin();
    AddButton();
    Type("txtText", "Save");
    Type("txtName", "bad name");
    Press("btmOK");
    Form();
    Press(answer);
    Controls();
    Bars();
    AddButton("Command2");
    EXPECT_EQ(FormOf(Play(/*errors=*/1)), "frmAddControl") << "the next one is asked for";
    EXPECT_TRUE(IsEnabled(LastBars(), "Code Formatter"));
    const std::string report = Control(Dialogs().at(0), "txtErrorMessage").at("text");
    EXPECT_NE(report.find("in Tessel.Connect.ctrFennickEvents_ItemAdded"), std::string::npos);
  }
};

// A control is added

TEST_F(NamingDialogs, ANewControlIsProposedThePrefixAheadOfItsDefaultName) {
  Begin();
  AddButton();
  Form();
  const Json form = Play();
  EXPECT_EQ(FormOf(form), "frmAddControl");
  EXPECT_EQ(form.at("caption"), "Add Conrtol");
  EXPECT_EQ(Control(form, "txtName").at("text"), "cmdCommand1");
  EXPECT_EQ(Control(form, "txtText").at("text"), "Command1");
  EXPECT_EQ(Control(form, "txtText").at("tool-tip"), "Caption");
  EXPECT_EQ(Control(form, "txtText").at("enabled"), true);
  EXPECT_EQ(Control(form, "lblText").at("caption"),
            "Use this feature to modify the Name and Text/Caption properties of the selected "
            "control according to the naming standard");
}

TEST_F(NamingDialogs, OkWithoutTouchingAnythingTakesTheProposal) {
  Begin();
  AddButton();
  Press("btmOK");
  Controls();
  EXPECT_EQ(Named(Play()), Names{"cmdCommand1 Command1"});
}

TEST_F(NamingDialogs, AControlThatIsDrawnShowsItsNameWithoutBeingTold) {
  for (const auto& [className, name, property, named] :
       {std::array{"CommandButton", "Command1", "Caption", "cmdCommand1 Command1"},
        std::array{"TextBox", "Text1", "Text", "txtText1 Text1"}}) {
    Begin();
    Add(className, name, Json::object());
    Press("btmOK");
    Controls();
    EXPECT_EQ(Named(Play(), property), Names{named});
    Forget();
  }
}

/// The user works on a form of one project while another one is active: that one turns to it.
TEST_F(NamingDialogs, AControlIsNamedInItsOwnProjectWhicheverWasActive) {
  Begin("Private Sub Command1_Click()\r\n  Command1.Enabled = 1\r\nEnd Sub\r\n");
  Ask({{"do", "new-project"}, {"name", "Other"}});
  AddButton();
  Press("btmOK");
  Ask({{"do", "activate-project"}, {"project", "Other"}});
  Rename("cmdCommand1", "Command1");
  Press("btmNo");
  Ask({{"do", "activate-project"}, {"project", "Other"}});
  Rename("Command1", "cmdGo");
  Press("btmYes");
  Controls();
  Text("Form1");
  EXPECT_EQ(Play().at("text"), "Private Sub cmdGo_Click()\r\n  cmdGo.Enabled = 1\r\nEnd Sub\r\n");
  EXPECT_EQ(Named(LastControls()), Names{"cmdGo Command1"});
}

TEST_F(NamingDialogs, TheNameFollowsTheTextThatIsTyped) {
  Begin();
  AddButton();
  Type("txtText", "Save");
  Form();
  Press("btmOK");
  Controls();
  EXPECT_EQ(Named(Play()), Names{"cmdSave Save"});
  EXPECT_EQ(Control(Dialogs().at(0), "txtName").at("text"), "cmdSave");
}

TEST_F(NamingDialogs, ANameThatIsTypedBehindTheTextIsTaken) {
  Begin();
  AddButton();
  Type("txtText", "Save it!");
  Type("txtName", "cmdSave");
  Press("btmOK");
  Controls();
  EXPECT_EQ(Named(Play()), Names{"cmdSave Save it!"});
}

TEST_F(NamingDialogs, CancelKeepsNameAndText) {
  Begin();
  AddButton();
  Type("txtText", "Save");
  Press("btmCansel");
  Controls();
  EXPECT_EQ(Named(Play()), Names{"Command1 Command1"});
}

TEST_F(NamingDialogs, ADialogThatIsClosedByItsFrameWasCancelled) {
  Begin();
  AddButton();
  Press("btmOK");
  AddButton("Command2");
  Type("txtText", "Save");
  Close();
  Controls();
  EXPECT_EQ(Named(Play()), (Names{"cmdCommand1 Command1", "Command2 Command2"}))
      << "what the dialog ahead left counts no more";
}

TEST_F(NamingDialogs, ATextBoxGetsItsTextAndTheLaterOfTwoTextsCounts) {
  Begin();
  Add("TextBox", "Text1", {{"Text", "Text1"}});
  Type("txtText", "Name");
  Press("btmOK");
  Add("Weird", "Weird1", {{"caption", "a"}, {"TEXT", "b"}, {"Width", "3"}});
  Form();
  Type("txtText", "Both");
  Press("btmOK");
  Controls();
  const Json reply = Play();
  EXPECT_EQ(Named(reply, "Text"), (Names{"txtName Name", "WeiBoth -"}));
  EXPECT_EQ(Control(Dialogs().at(0), "txtText").at("tool-tip"), "TEXT")
      << "as the property is called";
  EXPECT_EQ(reply.at("controls")[1].at("properties").at("TEXT"), "Both");
  EXPECT_EQ(reply.at("controls")[1].at("properties").at("caption"), "a");
}

TEST_F(NamingDialogs, AnUnknownClassGetsItsFirstThreeCharactersAsTheyStand) {
  Begin();
  Add("fmGauge", "fmGauge1", {{"Caption", "fmGauge1"}});
  Form();
  Press("btmCansel");
  Add("XY", "XY1", {{"Caption", "XY1"}});
  Form();
  Play();
  EXPECT_EQ(Control(Dialogs().at(0), "txtName").at("text"), "fmGfmGauge1");
  EXPECT_EQ(Control(Dialogs().at(1), "txtName").at("text"), "XYXY1");
}

TEST_F(NamingDialogs, AClassWhoseRowIsSwitchedOffCountsAsUnknown) {
  Begin();
  Ask({{"do", "query"},
       {"connection", "PersonalMarlow"},
       {"sql", "UPDATE ControlType SET Enable=No WHERE Name=\"CommandButton\""}});
  AddButton();
  Form();
  EXPECT_EQ(Control(Play(), "txtName").at("text"), "ComCommand1");
}

TEST_F(NamingDialogs, ATimerHasNoTextAndNeedsItsNameTypedWhole) {
  Begin();
  Add("Timer", "Timer1", {{"Interval", "100"}});
  Form();
  Type("txtName", "");
  Press("btmOK");
  Answer("OK");
  Form();
  Type("txtName", "tmrTick");
  Press("btmOK");
  Controls();
  EXPECT_EQ(Named(Play(), "Interval"), Names{"tmrTick 100"});
  const Json form = Dialogs().at(0);
  EXPECT_EQ(Control(form, "txtText").at("enabled"), false);
  EXPECT_EQ(Control(form, "txtText").at("text"), "");
  EXPECT_EQ(Control(form, "txtName").at("text"), "tmr");
  EXPECT_EQ(Messages(), Names{"It is required to fill in the filed: \"\""});
  EXPECT_EQ(Control(Dialogs().at(1), "txtName").at("focus"), true);
}

TEST_F(NamingDialogs, ATimersBarePrefixIsANameLikeAnyOther) {
  Begin();
  Add("Timer", "Timer1", {{"Interval", "100"}});
  Press("btmOK");
  Controls();
  Add("Timer", "Timer2", {{"Interval", "200"}});
  Press("btmOK");
  Answer("OK");
  Type("txtName", "tmrSecond");
  Press("btmOK");
  Controls();
  EXPECT_EQ(Named(Play(), "Interval"), (Names{"tmr 100", "tmrSecond 200"}));
  EXPECT_EQ(Messages(), Names{"The name of the control: \"tmr\" is already in use on the form"})
      << "only an empty field and a name that is taken are refused";
}

TEST_F(NamingDialogs, ANameThatTheFormHasIsRefusedWhateverItsCase) {
  Begin();
  AddButton();
  Press("btmOK");
  AddButton("Command2");
  Type("txtName", "CMDCOMMAND1");
  Press("btmOK");
  Answer("OK");
  Type("txtName", "Command2");
  Press("btmOK");
  Answer("OK");
  Press("btmCansel");
  Play();
  EXPECT_EQ(Messages(),
            (Names{"The name of the control: \"CMDCOMMAND1\" is already in use on the form",
                   "The name of the control: \"Command2\" is already in use on the form"}))
      << "the new control's own default name is in use as well";
}

TEST_F(NamingDialogs, AnElementOfAnArrayIsNamedAndLeavesItOrStaysByCancel) {
  Begin();
  Add("OptionButton", "optKind", {{"Caption", "One"}, {"Index", "0"}});
  Press("btmCansel");
  Add("OptionButton", "optKind", {{"Caption", "Two"}, {"Index", "1"}});
  Press("btmCansel");
  Add("OptionButton", "optKind", {{"Caption", "Three"}, {"Index", "2"}});
  Form();
  Type("txtText", "Other");
  Press("btmOK");
  Controls();
  EXPECT_EQ(Named(Play()), (Names{"optKind One", "optKind Two", "optOther Other"}));
  EXPECT_EQ(Control(Dialogs().at(0), "txtName").at("text"), "optoptKind");
}

TEST_F(NamingDialogs, OneControlBehindAnotherIsAskedForEach) {
  Begin();
  AddButton();
  Press("btmOK");
  AddButton("Command2");
  Press("btmOK");
  Controls();
  EXPECT_EQ(Named(Play()), (Names{"cmdCommand1 Command1", "cmdCommand2 Command2"}));
}

TEST_F(NamingDialogs, AControlThatComesWhileTheDialogIsUpKeepsItsName) {
  Begin();
  AddButton();
  AddButton("Command2");
  Form();
  Press("btmOK");
  Controls();
  EXPECT_EQ(Named(Play()), (Names{"cmdCommand1 Command1", "Command2 Command2"}));
  EXPECT_EQ(Control(Dialogs().at(0), "txtText").at("text"), "Command1") << "of the first one";
}

TEST_F(NamingDialogs, TheNameThatTheDialogGivesOpensNoOtherDialog) {
  Begin();
  AddButton();
  Press("btmOK");
  Bars();
  const Json reply = Play();
  EXPECT_EQ(reply.at("front"), nullptr);
  EXPECT_TRUE(IsEnabled(reply, "Code Formatter"));
}

TEST_F(NamingDialogs, ABadNameIsRefusedByTheEnvironmentAndAbortFreesTheGuard) {
  GiveABadName("btnAbort");
  EXPECT_EQ(Named(LastControls()), Names{"Command1 Command1"});
}

TEST_F(NamingDialogs, ABadNameThatIsIgnoredLeavesTheTextToBeSet) {
  GiveABadName("btnIgnore");
  EXPECT_EQ(Named(LastControls()), Names{"Command1 Save"});
}

TEST_F(NamingDialogs, TheCommandsAreGreyedWhileADialogIsUp) {
  Begin();
  AddButton();
  Bars();
  Press("btmCansel");
  Rename("Command1", "cmdGo");
  Bars();
  Press("btmNo");
  Bars();
  Play();
  std::vector<bool> enabled;
  for (const Json& reply : Replies) {
    if (reply.contains("bars")) enabled.push_back(IsEnabled(reply, "Code Formatter"));
  }
  EXPECT_EQ(enabled, (std::vector<bool>{false, false, true}));
}

TEST_F(NamingDialogs, StandardsOpensTheTableOfThePrefixes) {
  Begin();
  AddButton();
  Press("btmStandards");
  Form();
  Close();
  const Json last = Play();
  const Json settings = Dialogs().at(0);
  EXPECT_EQ(settings.at("form"), "frmSettings");
  EXPECT_EQ(Control(settings, "List1").at("text"), "Control Type");
  EXPECT_EQ(FormOf(last), "frmAddControl") << "the dialog still waits";
}

TEST_F(NamingDialogs, HelpShowsTheTopic) {
  Begin();
  AddButton();
  Press("btmHelp");
  Ask({{"do", "journal"}});
  const Json entry = Play().at("journal").back();
  EXPECT_EQ(entry.at("kind"), "help");
  EXPECT_EQ(entry.at("topic"), "controlnaming.htm");
}

// A control is renamed

constexpr const char* Code =
    "Private Sub cmdOld_Click()\r\n  cmdOld.Caption = 1\r\nEnd Sub\r\n"
    "Private Sub Form_Load()\r\nEnd Sub\r\n";

TEST_F(NamingDialogs, YesCarriesTheNewNameIntoTheCode) {
  Begin(Code);
  AddButton("cmdOld");
  Press("btmCansel");
  Rename("cmdOld", "cmdNew");
  Form();
  Press("btmYes");
  Text("Form1");
  EXPECT_EQ(Play().at("text"),
            "Private Sub cmdNew_Click()\r\n  cmdNew.Caption = 1\r\nEnd Sub\r\n"
            "Private Sub Form_Load()\r\nEnd Sub\r\n");
  const Json form = Dialogs().at(0);
  EXPECT_EQ(form.at("caption"), "Control Name  Change");
  EXPECT_EQ(Control(form, "lblText").at("caption"), "Update code to reflect the new control name?");
  EXPECT_EQ(Control(form, "lblOldName").at("caption"), "cmdOld");
  EXPECT_EQ(Control(form, "lblNewName").at("caption"), "cmdNew");
}

TEST_F(NamingDialogs, NoAndTheFrameLeaveTheCodeAlone) {
  Begin(Code);
  AddButton("cmdOld");
  Press("btmCansel");
  Rename("cmdOld", "cmdNew");
  Press("btmNo");
  Rename("cmdNew", "cmdOld");
  Close();
  Text("Form1");
  EXPECT_EQ(Play().at("text"), Code);
}

TEST_F(NamingDialogs, AnElementOfAnArrayIsRenamedInTheCodeToo) {
  Begin("Private Sub optOld_Click(Index As Integer)\r\nEnd Sub\r\nSub A()\r\nEnd Sub\r\n");
  for (const char* index : {"0", "1"}) {
    Add("OptionButton", "optOld", {{"Index", index}, {"Caption", "x"}});
    Press("btmCansel");
  }
  Ask({{"do", "rename-control"},
       {"component", "Form1"},
       {"name", "optOld"},
       {"index", 1},
       {"new-name", "optNew"}});
  Press("btmYes");
  Text("Form1");
  EXPECT_EQ(Play().at("text"),
            "Private Sub optNew_Click(Index As Integer)\r\nEnd Sub\r\nSub A()\r\nEnd Sub\r\n");
}

TEST_F(NamingDialogs, ARenamedControlOfAFormThatWentMeanwhileIsReported) {
  Begin(Code);
  AddButton("cmdOld");
  Press("btmCansel");
  Rename("cmdOld", "cmdNew");
  Ask({{"do", "remove-component"}, {"component", "Form1"}});
  Press("btmYes");
  Press("btnIgnore");
  const Json last = Play(/*errors=*/1);
  EXPECT_EQ(last.at("front"), nullptr) << "the dialog is gone, nothing was written";
}

// By hand

TEST_F(NamingDialogs, ByHandTheSelectedWordIsTheOldNameAndTheControlsAreListed) {
  Begin(Code);
  AddButton("cmdNew");
  Press("btmCansel");
  Add("Timer", "tmrNew", Json::object());
  Press("btmCansel");
  Caret(1, 13, 1, 19);
  Run("MenuUpdateControlName_Click");
  Form();
  Press("btmYes");
  Text("Form1");
  EXPECT_EQ(Play().at("text"),
            "Private Sub cmdNew_Click()\r\n  cmdNew.Caption = 1\r\nEnd Sub\r\n"
            "Private Sub Form_Load()\r\nEnd Sub\r\n");
  const Json form = Dialogs().at(0);
  EXPECT_EQ(form.at("form"), "frmUpdateControlName");
  EXPECT_EQ(form.at("caption"), "Control Name");
  EXPECT_EQ(Control(form, "lblText").at("caption"), "Update code to reflect the new control name?");
  EXPECT_EQ(Control(form, "txtOldName").at("text"), "cmdOld");
  EXPECT_EQ(Control(form, "cmbNewName").at("list"), Json({"cmdNew", "tmrNew"}));
  EXPECT_EQ(Control(form, "cmbNewName").at("text"), "cmdNew");
}

TEST_F(NamingDialogs, ByHandASelectionOverTwoLinesProposesNothing) {
  Begin(Code);
  Caret(1, 13, 2, 1);
  Run("MenuFastUpdateControlName_Click");
  Form();
  const Json form = Play();
  EXPECT_EQ(Control(form, "txtOldName").at("text"), "");
  EXPECT_EQ(Control(form, "cmbNewName").at("list"), Json::array());
}

TEST_F(NamingDialogs, ByHandAnEmptyOrBadOldNameIsRefusedAndTheNewOneIsTakenAsItIs) {
  Begin(Code);
  Caret(2, 1, 2, 1);
  Run("MenuUpdateControlName_Click");
  Press("btmYes");
  Answer("OK");
  Type("txtOldName", "cmd old");
  Press("btmYes");
  Answer("OK");
  Form();
  Type("txtOldName", "cmdOld");
  Type("cmbNewName", "no name!");
  Press("btmYes");
  Text("Form1");
  EXPECT_EQ(Play().at("text"),
            "Private Sub no name!_Click()\r\n  no name!.Caption = 1\r\nEnd Sub\r\n"
            "Private Sub Form_Load()\r\nEnd Sub\r\n");
  EXPECT_EQ(Messages(), (Names{"It is required to fill in the filed: \"Old Name\"",
                               "Impossible symbols in the field: \"Old Name\"  "
                               "\"!:\\/?*[]() @#$%^&*+-'`~|><\"\""}));
  EXPECT_EQ(Control(Dialogs().at(0), "txtOldName").at("focus"), true);
}

TEST_F(NamingDialogs, ByHandNothingHappensWithoutAPaneOrWhileAnotherDialogNames) {
  Begin(Code);
  Run("MenuUpdateControlName_Click");
  Caret(1, 1, 1, 1);
  AddButton();
  Run("MenuUpdateControlName_Click");
  const Json last = Play();
  EXPECT_EQ(FormOf(Replies[3]), "");
  EXPECT_EQ(FormOf(last), "frmAddControl");
}

TEST_F(NamingDialogs, DisconnectingUnderADialogTakesItAway) {
  Begin();
  AddButton();
  Ask({{"do", "disconnect"}});
  Controls();
  EXPECT_EQ(Named(Play()), Names{"Command1 Command1"});
}

}  // namespace
}  // namespace tessel
