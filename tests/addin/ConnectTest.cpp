#include "addin/Connect.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "connections/cConnectReestr.h"
#include "connections/cConnectionMDBs.h"
#include "forms/User.h"
#include "foundation/CAppSettings.h"
#include "foundation/CErrorHandler.h"
#include "hosts/model/CommandBars.h"
#include "store/Seeds.h"
#include "support/Modules.h"

namespace tessel {
namespace {

namespace fs = std::filesystem;

class AddIn : public testing::Test {
 protected:
  AddIn() {
    folder_ = fs::temp_directory_path() /
              ("tessel-addin-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
               "-" + std::to_string(reinterpret_cast<std::uintptr_t>(this)));
    fs::create_directories(folder_);
    world_.Services.AppService.Folder = folder_.u16string();
  }
  ~AddIn() override {
    if (connect_) connect_->AddinInstance_OnDisconnection();
    gErrorHandler.reset();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }

  void Start() {
    connect_ = std::make_shared<Connect>();
    connect_->AddinInstance_OnConnection(world_.Environment.VBE());
    connect_->AddinInstance_OnStartupComplete();
  }
  void Stop() {
    connect_->AddinInstance_OnDisconnection();
    connect_.reset();
  }
  [[nodiscard]] std::shared_ptr<host::CommandBar> Bar() const {
    return world_.Environment.VBE()->CommandBars()->Item(u"Tessel");
  }
  [[nodiscard]] std::shared_ptr<host::CommandBarControl> Item(
      std::initializer_list<StringView> path) const {
    auto controls = Bar()->Controls();
    std::shared_ptr<host::CommandBarControl> item;
    for (const StringView caption : path) {
      item = controls->Item(caption);
      controls = item->Controls();
    }
    return item;
  }
  void Click(std::initializer_list<StringView> path) const { Item(path)->Execute(); }
  void Put(StringView key, StringView value) {
    world_.Services.RegistryService.SetValue(
        platform::RootKey::CurrentUser, u"Software\\Norvane\\Tessel\\Settings", key, String(value));
  }
  [[nodiscard]] String Get(StringView key) {
    const auto value = world_.Services.RegistryService.GetValue(
        platform::RootKey::CurrentUser, u"Software\\Norvane\\Tessel\\Settings", key);
    return value ? std::get<String>(*value) : String(u"(none)");
  }
  /// Names of the delivered schemes are replaced by that many others.
  void FillSchemes(int count) {
    store::WriteStandardDatabases(folder_ / "Data", platform::Current().Files());
    auto connection = std::make_shared<store::Connection>();
    connection->DataSource = (folder_ / "Data" / "Personal.MDB").u16string();
    connection->Open();
    connection->Execute(u"DELETE FROM ErrorHandlerScheme");
    for (int number = 10; number < 10 + count; ++number) {
      connection->Execute(u"INSERT INTO ErrorHandlerScheme (NameError) VALUES (\"S" +
                          vb::Str(number) + u"\")");
    }
  }

  test::World world_;
  fs::path folder_;
  std::shared_ptr<Connect> connect_;
};

// Life cycle

TEST_F(AddIn, OpensTheStandardDatabasesAndRegistersThem) {
  Start();
  EXPECT_EQ(gConnectionMDBs->Count(), 2U);
  EXPECT_EQ(gConnectReestr->GetAllConnect()->front().FileName,
            folder_.u16string() + u"\\Data\\VBCode.MDB");
  EXPECT_DOUBLE_EQ(connect_->VBEVersion(), 6.0);
  EXPECT_TRUE(world_.Services.DesktopService.Messages.empty());
  Stop();
  EXPECT_EQ(gConnectionMDBs, nullptr);
  EXPECT_EQ(gAppSettings, nullptr);
  EXPECT_NE(gErrorHandler, nullptr) << "it outlives the disconnection";
}

TEST_F(AddIn, ADatabaseThatCantBeOpenedVanishesFromTheList) {
  Start();
  gConnectReestr->SaveConnect(u"UserConnect1", u"/nowhere/at-all.mdb");
  Stop();
  Start();
  EXPECT_EQ(gConnectionMDBs->Count(), 2U);
  EXPECT_EQ(gConnectReestr->GetAllConnect()->size(), 2U);
  Stop();
  world_.Services.DesktopService.Messages.clear();
  Start();
  EXPECT_TRUE(world_.Services.DesktopService.Messages.empty()) << "it is forgotten by now";
}

TEST_F(AddIn, ComesUpOverSettingsThatCanOnlyBeRead) {
  Start();
  Stop();
  world_.Services.RegistryService.FailWrites = vb::Failure(7, u"the store can't be written");
  Start();
  EXPECT_TRUE(world_.Services.DesktopService.Messages.empty());
  EXPECT_EQ(gConnectionMDBs->Count(), 2U);
  EXPECT_NE(connect_->ExplorerWindow(), nullptr);
  world_.Services.RegistryService.FailWrites.reset();
}

TEST_F(AddIn, DatabasesThatCantBeRegisteredEndTheStartWithOneMessage) {
  world_.Services.RegistryService.FailWrites = vb::Failure(7, u"the store can't be written");
  Start();
  EXPECT_EQ(world_.Services.DesktopService.Messages.size(), 1U);
  EXPECT_EQ(connect_->ExplorerWindow(), nullptr);
  world_.Services.RegistryService.FailWrites.reset();
}

TEST_F(AddIn, TheFirstStartMakesAGuidAndTheSecondUsesIt) {
  Start();
  const String guid = connect_->ExplorerWindowGUID();
  EXPECT_EQ(Get(u"ProjectExplorerGUID"), guid);
  Stop();
  Start();
  EXPECT_EQ(connect_->ExplorerWindowGUID(), guid);
}

TEST_F(AddIn, TheWindowShowsAsSoonAsTheFirstProjectIsAdded) {
  Put(u"ProjectExplorerWindow", u"1");
  Start();
  EXPECT_FALSE(connect_->ExplorerWindow()->Visible());
  world_.Environment.NewProject(u"Project2", host::vbext_pt_StandardExe);
  EXPECT_TRUE(connect_->ExplorerWindow()->Visible());
  Stop();
  EXPECT_EQ(Get(u"ProjectExplorerWindow"), u"1");
}

TEST_F(AddIn, TheWindowShowsAtStartUpWhenItIsToldTo) {
  Put(u"DisplayOnConnect", u"1");
  Start();
  EXPECT_TRUE(connect_->ExplorerWindow()->Visible());
}

TEST_F(AddIn, AShutDownWithoutTheWindowWritesZero) {
  Put(u"ProjectExplorerWindow", u"1");
  world_.Environment.SetOperationHook([](std::string_view operation) {
    if (operation == "Windows.CreateToolWindow") throw vb::Failure(1, u"no window");
  });
  Start();
  ASSERT_EQ(world_.Services.DesktopService.Messages.size(), 1U);
  EXPECT_EQ(world_.Services.DesktopService.Messages[0].Text, u"no window");
  Stop();
  EXPECT_EQ(Get(u"ProjectExplorerWindow"), u"0");
}

// The bar

TEST_F(AddIn, TheFirstRunPlacesTheBarOnTheLastRowAtPositionOne) {
  Start();
  EXPECT_EQ(Bar()->Position(), 1);
  EXPECT_EQ(Bar()->RowIndex(), -1);
  EXPECT_TRUE(Bar()->Visible());
}

TEST_F(AddIn, ThePlaceOfTheBarIsKept) {
  Start();
  Bar()->SetPosition(4);
  Bar()->SetLeft(70);
  Bar()->SetTop(30);
  Bar()->SetVisible(false);
  Stop();
  EXPECT_THROW(static_cast<void>(Bar()), vb::Failure);
  Start();
  EXPECT_EQ(Bar()->Position(), 4);
  EXPECT_EQ(Bar()->Left(), 70);
  EXPECT_EQ(Bar()->Top(), 30);
  EXPECT_FALSE(Bar()->Visible());
}

String Dump(host::CommandBarControls& controls, const String& indent) {
  String text;
  for (int index = 1; index <= controls.Count(); ++index) {
    const auto control = controls.Item(index);
    auto& own = dynamic_cast<model::CommandBarControl&>(*control);
    text += indent + (control->BeginGroup() ? u"|" : u"") + control->Caption();
    if (own.PictureNumber() > 0) text += u" #" + vb::Str(own.PictureNumber());
    if (control->FaceId() > 0) text += u" @" + vb::Str(control->FaceId());
    if (!control->OnAction().empty()) text += u" (" + control->OnAction() + u")";
    text += control->Enabled() ? u"\n" : u" -\n";
    if (const auto below = control->Controls()) text += Dump(*below, indent + u"  ");
  }
  return text;
}

TEST_F(AddIn, TheBarHoldsEveryCommandInItsPlace) {
  Start();
  EXPECT_EQ(vb::ToUtf8(Dump(*Bar()->Controls(), u"")),
            R"(Project Explorer #105
|Snippet Manager #106
Insert Snippet #107
Store to Snippets #108
|Procedure Builder #104
Property Builder #103
Collection Builder #102
Enum Builder @3253
|Code Formatter #111
Insert Error Handler Code #109
Remove Error Handler Code #110
|Tessel
  Project Explorer #105 (ProjectExplorer)
  |Snippet Manager #106 (FragmentBuilder)
  Insert Snippet #107 (GetFromVbCode)
  Store to Snippets #108 (StoreToVbCode)
  |Procedure Builder #104 (ProcedureBuilder)
  Property Builder #103 (PropertyBuilder)
  Collection Builder #102 (CollectionBuilder)
  Enum Builder @3253 (EnumBuilder)
  |Setttings @1714 (Setttings)
  Code Formatter #111 (Code Formatter)
  Insert Error Handler Code #109 (Insert Error Handler Code)
  Remove Error Handler Code #110 (Remove Error Handler Code)
  |IF
    If ... Then
    If ... Then Else ... End If
    If ... Then ElseIF ... Then ... End If
    If ... Then ElseIF ... Then ... Else ... End If
  Select / With
    Select Case ... End Select
    With ... End With
  For / Do
    For ... Next
    For Each {E} In ... Next
    Do ... Loop Until
    Do ... Loop While
    Do While ... Loop
    Do Until ... Loop
    Do ... Loop
  On Error
    On Error Goto ...
    On Error GoTo 0
    On Error Resume Next
|Modifiers
  Message Box (Message Box)
  Message Box, Unnumbered (Message Box, Unnumbered)
  Raise to Caller (Raise to Caller)
  Raise to Caller, Numbered (Raise to Caller, Numbered)
  Log to File (Log to File)
  Log to File, Unnumbered (Log to File, Unnumbered)
  Clean Up and Exit (Clean Up and Exit)
  Clean Up and Exit, Numbered (Clean Up and Exit, Numbered)
  |Skip (Skip)
  |Edit Error Handler Scheme @3049 (Edit Error Handler Scheme)
|Help
  Help @984
  About @201
)");
}

/// Makes the n-th of the calls that come next fail, and counts all of them.
struct FailingCall {
  int Number, Calls = 0;
  std::string Operation{};
  void operator()(std::string_view operation) {
    if (++Calls != Number) return;
    Operation = operation;
    throw vb::Failure(7, u"once");
  }
};

/// The fixture with a user who answers every error dialog with one button.
class AddInFailing : public AddIn {
 protected:
  /// Connects with the n-th host call failing once; what the call was.
  FailingCall StartFailing(int number, StringView button) {
    FailingCall failing{number};
    world_.Environment.SetOperationHook([&](std::string_view operation) { failing(operation); });
    world_.Services.DesktopService.OnModal = [button](forms::Form& form) {
      forms::user::Press(*form.Find(button));
    };
    Start();
    world_.Environment.SetOperationHook({});
    return failing;
  }
  [[nodiscard]] std::string Place() const {
    const auto bar = Bar();
    return vb::ToUtf8(Dump(*bar->Controls(), u"")) + std::to_string(bar->Position()) +
           std::to_string(bar->RowIndex()) + std::to_string(bar->Visible());
  }
};

TEST_F(AddInFailing, RetryBehindAnyHostCallBuildsTheSameBar) {
  Start();
  const std::string whole = Place();
  Stop();
  const int calls = StartFailing(0, u"btnRetry").Calls;
  Stop();
  ASSERT_GT(calls, 300);
  for (int number = 5; number <= calls; number += 11) {
    const FailingCall failed = StartFailing(number, u"btnRetry");
    // Where no dialog came, the call stood at resume-next or ended the start in a plain box.
    if (!world_.Errors.Take().empty()) {
      EXPECT_EQ(Place(), whole) << failed.Operation << number;
    }
    Stop();
  }
}

TEST_F(AddInFailing, IgnoreLeavesOutTheStatementThatFailedAndNothingElse) {
  int captions = 0;
  world_.Environment.SetOperationHook([&](std::string_view operation) {
    if (operation == "CommandBarControl.Caption" && ++captions == 9) throw vb::Failure(7, u"once");
  });
  world_.Services.DesktopService.OnModal = [](forms::Form& form) {
    forms::user::Press(*form.Find(u"btnIgnore"));
  };
  Start();
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  const auto button = Bar()->Controls()->Item(9);
  EXPECT_EQ(button->Caption(), u"");
  EXPECT_EQ(dynamic_cast<model::CommandBarControl&>(*button).PictureNumber(), 111);
  int shown = 0;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    ++shown;
    forms::user::Press(*form.Find(u"btmCancel"));
  };
  button->Execute();
  EXPECT_EQ(shown, 1) << "it has its handler";
}

TEST_F(AddInFailing, AbortEndsTheButtonInHandAndTheBarGoesOn) {
  int groups = 0;
  world_.Environment.SetOperationHook([&](std::string_view operation) {
    if (operation == "CommandBarControl.BeginGroup" && ++groups == 1) throw vb::Failure(7, u"once");
  });
  std::vector<String> stack;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    stack = gErrorHandler->CallStack();
    forms::user::Press(*form.Find(u"btnAbort"));
  };
  Start();
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  EXPECT_EQ(stack, (std::vector<String>{u"Tessel.Connect.AddMenuCommandBarButton",
                                        u"Tessel.Connect.AddToAddInCommandBar"}));
  EXPECT_EQ(Bar()->Controls()->Count(), 14);
  EXPECT_EQ(Bar()->Controls()->Item(1)->Caption(), u"");
  EXPECT_EQ(Bar()->Controls()->Item(2)->Caption(), u"Snippet Manager");
}

TEST_F(AddInFailing, LookingUpTheBarFailsInSilence) {
  int calls = 0;
  world_.Environment.SetOperationHook([&](std::string_view operation) {
    if (operation == "VBE.CommandBars" && ++calls == 1) throw vb::Failure(7, u"once");
  });
  Start();
  EXPECT_EQ(Bar()->Controls()->Count(), 14);
}

TEST_F(AddInFailing, ModifiersLosesNothingButTheStatementThatFailed) {
  int calls = 0;
  world_.Environment.SetOperationHook([&](std::string_view operation) {
    // Twelve items of the menu come first; this is the first scheme.
    if (operation == "CommandBarControl.OnAction" && ++calls == 13) throw vb::Failure(7, u"once");
  });
  Start();
  const auto items = Item({u"Modifiers"})->Controls();
  EXPECT_EQ(items->Count(), 10);
  EXPECT_EQ(items->Item(1)->OnAction(), u"");
  EXPECT_EQ(items->Item(2)->OnAction(), u"Message Box, Unnumbered");
}

TEST_F(AddInFailing, SinksAreAskedForInTheOrderOfTheCommandTable) {
  // A control whose sink could not be had is dead, which tells its turn.
  const auto startWithout = [&](int number) {
    int asked = 0;
    world_.Environment.SetOperationHook([&](std::string_view operation) {
      if (operation == "Events.CommandBarEvents" && ++asked == number) throw vb::Failure(7, u"no");
    });
    world_.Services.DesktopService.OnModal = [](forms::Form& form) {
      forms::user::Press(*form.Find(u"btnIgnore"));
    };
    Start();
    world_.Environment.SetOperationHook({});
    world_.Errors.Take();
    return asked;
  };
  const int all = startWithout(0);
  int buttons = 0;
  for (int index = 1; index <= Bar()->Controls()->Count(); ++index) {
    const auto control = Bar()->Controls()->Item(index);
    if (!control->Controls() && control->Enabled()) ++buttons;
  }
  Stop();
  world_.Module(u"M", u"Sub A()\r\nEnd Sub");
  world_.Caret(u"M", 1);
  startWithout(buttons + 1);
  Click({u"Modifiers", u"Message Box"});
  EXPECT_EQ(world_.Text(u"M"), u"Sub A()\r\nEnd Sub") << "the schemes follow the buttons";
  Click({u"Modifiers", u"Message Box, Unnumbered"});
  EXPECT_NE(world_.Text(u"M"), u"Sub A()\r\nEnd Sub");
  Stop();
  startWithout(all);
  int shown = 0;
  world_.Services.DesktopService.OnModal = [&](forms::Form&) { ++shown; };
  Click({u"Help", u"About"});
  EXPECT_EQ(shown, 0) << "About comes last";
}

TEST_F(AddInFailing, TheBarGoesWithWhatCouldBeReadOfItsPlace) {
  Start();
  Bar()->SetLeft(70);
  Bar()->SetRowIndex(3);
  world_.Environment.SetOperationHook([](std::string_view operation) {
    if (operation == "CommandBar.RowIndex") throw vb::Failure(7, u"no");
  });
  Stop();
  world_.Environment.SetOperationHook({});
  EXPECT_THROW(static_cast<void>(Bar()), vb::Failure);
  EXPECT_EQ(Get(u"ToolBarRowIndex"), u"(none)");
  EXPECT_EQ(Get(u"ToolBarLeft"), u"70");
}

TEST_F(AddIn, OfTwentyTwoSchemesTheLastGetsNoItem) {
  FillSchemes(22);
  Start();
  const auto items = Item({u"Modifiers"})->Controls();
  EXPECT_EQ(items->Count(), 23);
  EXPECT_EQ(items->Item(21)->Caption(), u"S30");
  EXPECT_EQ(items->Item(22)->Caption(), u"Skip");
}

TEST_F(AddIn, WithoutSchemesSkipAndTheEditorAreThere) {
  FillSchemes(0);
  Start();
  const auto items = Item({u"Modifiers"})->Controls();
  ASSERT_EQ(items->Count(), 2);
  EXPECT_EQ(items->Item(1)->Caption(), u"Skip");
  EXPECT_EQ(items->Item(2)->Caption(), u"Edit Error Handler Scheme");
}

TEST_F(AddIn, HidingTheProcedureBuilderIsOneRoutineThatRefreshesTwice) {
  Start();
  world_.Services.DesktopService.OnModal = [](forms::Form& form) {
    gErrorHandler->SetTracingEnabled(true);
    forms::user::Press(*form.Find(u"btmCancel"));
    gErrorHandler->SetTracingEnabled(false);
  };
  Click({u"Procedure Builder"});
  std::ifstream in(folder_ / "Tracing Log.txt");
  const std::string trace{std::istreambuf_iterator<char>(in), {}};
  const auto entered = [&](const std::string& routine) {
    std::size_t times = 0;
    for (std::size_t at = trace.find(routine); at != std::string::npos;
         at = trace.find(routine, at + 1)) {
      ++times;
    }
    return times;
  };
  // Each routine leaves a line as it is entered, and one as it is left.
  EXPECT_EQ(entered("Connect.HideProcedureBuilder"), 2U) << trace;
  EXPECT_EQ(entered("Connect.RefreshTreeExplorer"), 4U) << trace;
}

TEST_F(AddIn, TheSettingsOpenFromTheirCommandOnTheFirstPage) {
  Start();
  std::vector<String> pages;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    EXPECT_EQ(form.Name(), u"frmSettings");
    pages.push_back(dynamic_cast<forms::ListBox&>(*form.Find(u"List1")).Text());
    forms::user::Press(*form.Find(u"btmExit"));
  };
  Click({u"Tessel", u"Setttings"});
  EXPECT_TRUE(connect_->RunUnhooked(u"MenuFastSetttings_Click"));
  connect_->ShowSettings(u"Control Type");
  connect_->ShowSettings(u"");
  EXPECT_EQ(pages, (std::vector<String>{u"Author", u"Author", u"Control Type", u"Author"}));
}

TEST_F(AddIn, TheSettingsOpenBesideAnotherDialogAndLeaveItsGuardAlone) {
  Start();
  int shown = 0;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    ++shown;
    forms::user::Press(*form.Find(u"btmExit"));
  };
  connect_->SetDialogOpen(true);
  Click({u"Tessel", u"Setttings"});
  EXPECT_EQ(shown, 1);
  EXPECT_TRUE(connect_->DialogOpen());
  Click({u"Procedure Builder"});
  EXPECT_EQ(shown, 1) << "the guard is still up";
}

TEST_F(AddIn, EventsRunAheadOfTheSettings) {
  Start();
  bool shown = false, before = false;
  platform::Current().Clock().StartTimer(0, [&] { before = !shown; });
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    shown = true;
    forms::user::Press(*form.Find(u"btmExit"));
  };
  connect_->ShowSettings(u"");
  EXPECT_TRUE(before);
}

TEST_F(AddIn, ABuilderOpensWithWhatTheSettingsSaved) {
  Start();
  world_.Module(u"M", u"Option Explicit");
  std::vector<String> names;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    if (form.Name() == u"frmSettings") {
      forms::user::Type(*form.Find(u"txtDescriptionProcedure"), u"Does it");
      forms::user::Pick(*form.Find(u"ComTypeProcedure"), u"Function");
      forms::user::Press(*form.Find(u"btmSave"));
      forms::user::Press(*form.Find(u"btmExit"));
      return;
    }
    names.push_back(dynamic_cast<forms::TextBox&>(*form.Find(u"txtDescription")).Text());
    names.push_back(dynamic_cast<forms::ComboBox&>(*form.Find(u"ComType")).Text());
    forms::user::Press(*form.Find(u"btmCancel"));
  };
  Click({u"Tessel", u"Setttings"});
  Click({u"Procedure Builder"});
  EXPECT_EQ(names, (std::vector<String>{u"Does it", u"Function"}));
}

TEST_F(AddIn, WhileANamingDialogIsUpTwoTemplatesStayEnabled) {
  Start();
  connect_->SetWindowsFormFennick(true);
  EXPECT_TRUE(Item({u"Tessel", u"For / Do", u"For Each {E} In ... Next"})->Enabled());
  EXPECT_TRUE(Item({u"Tessel", u"For / Do", u"Do ... Loop Until"})->Enabled());
  EXPECT_FALSE(Item({u"Tessel", u"For / Do", u"Do ... Loop While"})->Enabled());
  EXPECT_FALSE(Item({u"Code Formatter"})->Enabled());
  EXPECT_TRUE(Item({u"Help", u"About"})->Enabled());
  EXPECT_TRUE(Item({u"Modifiers", u"Skip"})->Enabled());
  connect_->SetWindowsFormFennick(false);
  EXPECT_TRUE(Item({u"Code Formatter"})->Enabled());
}

TEST_F(AddIn, HelpShowsTheStartPage) {
  Start();
  Click({u"Help", u"Help"});
  EXPECT_EQ(world_.Services.DesktopService.Journal.back(),
            "help " + folder_.string() + "\\Marlow.CHM support.htm");
}

// Dialogs

TEST_F(AddIn, ASecondClickWhileTheDialogIsOpenDoesNothing) {
  Start();
  int shown = 0;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    ++shown;
    EXPECT_TRUE(connect_->DialogOpen());
    Click({u"Tessel", u"Code Formatter"});
    EXPECT_EQ(form.Name(), u"frmFormatText");
    forms::user::Press(*form.Find(u"btmCancel"));
  };
  Click({u"Code Formatter"});
  EXPECT_EQ(shown, 1);
  EXPECT_FALSE(connect_->DialogOpen());
}

TEST_F(AddIn, TheDialogClosedByItsFrameOpensAgain) {
  Start();
  int shown = 0;
  world_.Services.DesktopService.OnModal = [&](forms::Form&) { ++shown; };
  Click({u"Code Formatter"});
  EXPECT_FALSE(connect_->DialogOpen());
  Click({u"Code Formatter"});
  EXPECT_EQ(shown, 2);
}

TEST_F(AddIn, TheHostMayDropTheRootUnderAnOpenDialog) {
  Start();
  const std::weak_ptr<Connect> root = connect_;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    Stop();
    EXPECT_FALSE(root.expired()) << "its routine still runs";
    forms::user::Press(*form.Find(u"btmCancel"));
    EXPECT_FALSE(form.IsLoaded());
  };
  Click({u"Code Formatter"});
  EXPECT_TRUE(root.expired());
}

TEST_F(AddIn, ADialogThatCantBeShownLeavesTheToolsOpen) {
  Start();
  world_.Services.DesktopService.OnModal = [](forms::Form&) { throw vb::Failure(7, u"no screen"); };
  Click({u"Code Formatter"});
  EXPECT_FALSE(connect_->DialogOpen());
}

TEST_F(AddIn, AboutOpensBesideAnotherDialog) {
  Start();
  std::vector<String> shown;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    shown.push_back(form.Name());
    if (shown.size() == 1) Click({u"Help", u"About"});
  };
  Click({u"Code Formatter"});
  EXPECT_EQ(shown, (std::vector<String>{u"frmFormatText", u"frmAbout"}));
}

TEST_F(AddIn, RunsTheFormatterFromItsCommand) {
  world_.Module(u"M", u"Sub A()\r\nx\r\nEnd Sub");
  Start();
  world_.Services.DesktopService.OnModal = [](forms::Form& form) {
    forms::user::Press(*form.Find(u"btmRun"));
  };
  Click({u"Code Formatter"});
  EXPECT_EQ(world_.Text(u"M"), u"Sub A()\r\n    x\r\nEnd Sub\r\n\r\n");
  EXPECT_TRUE(gErrorHandler->CallStack().empty());
}

// Templates

constexpr StringView Code = u"Option Explicit\r\nSub A()\r\n    x = 1\r\nEnd Sub";

TEST_F(AddIn, ATemplateGoesAheadOfTheCaretsLineOneBlankFurtherRight) {
  world_.Module(u"M", Code);
  world_.Caret(u"M", 3, 5);
  Start();
  Click({u"Tessel", u"IF", u"If ... Then"});
  EXPECT_EQ(world_.Text(u"M"),
            u"Option Explicit\r\nSub A()\r\n     If Condition Then\r\n\r\n    x = 1\r\nEnd Sub");
  EXPECT_EQ(world_.Selection(), (host::Selection{3, 9, 3, 18}));
}

TEST_F(AddIn, InTheDeclarationsAndOnTheHeadNothingIsInserted) {
  world_.Module(u"M", Code);
  Start();
  for (const int line : {1, 2}) {
    world_.Caret(u"M", line);
    Click({u"Tessel", u"IF", u"If ... Then"});
    EXPECT_EQ(world_.Text(u"M"), Code);
  }
}

TEST_F(AddIn, OnErrorResumeNextLeavesAnEmptySelection) {
  world_.Module(u"M", Code);
  world_.Caret(u"M", 3, 5);
  Start();
  Click({u"Tessel", u"On Error", u"On Error Resume Next"});
  EXPECT_EQ(world_.Selection(), (host::Selection{3, 6, 3, 6}));
}

TEST_F(AddIn, AHeadOverThreeLinesPushesTheTemplateTwoLinesDown) {
  world_.Module(u"M", u"Sub A( _\r\n  x, _\r\n  y)\r\nz\r\nw\r\nEnd Sub");
  world_.Caret(u"M", 3);
  Start();
  Click({u"Tessel", u"Select / With", u"With ... End With"});
  EXPECT_EQ(
      world_.Text(u"M"),
      u"Sub A( _\r\n  x, _\r\n  y)\r\nz\r\n With object\r\n \r\n End With\r\n\r\nw\r\nEnd Sub");
}

struct Template {
  StringView Popup, Caption;
  StringView Text;  ///< lines separated by "|"
  StringView Placeholder;
};
constexpr Template Templates[] = {
    {u"IF", u"If ... Then", u"If Condition Then", u"Condition"},
    {u"IF", u"If ... Then Else ... End If", u"If Condition Then||Else||End If", u"Condition"},
    {u"IF", u"If ... Then ElseIF ... Then ... End If",
     u"If Condition Then||ElseIf Condition Then||End If", u"Condition"},
    {u"IF", u"If ... Then ElseIF ... Then ... Else ... End If",
     u"If Condition Then||ElseIf Condition Then||Else||End If", u"Condition"},
    {u"Select / With", u"Select Case ... End Select",
     u"Select Case testexpression||Case ?||Case Else||End Select", u"testexpression"},
    {u"Select / With", u"With ... End With", u"With object||End With", u"object"},
    {u"For / Do", u"For ... Next", u"For counter = start_ To end_||Next", u"counter = start_"},
    {u"For / Do", u"For Each {E} In ... Next", u"For Each element In||Next", u"element"},
    {u"For / Do", u"Do ... Loop Until", u"Do|||Loop Until Condition", u"Condition"},
    {u"For / Do", u"Do ... Loop While", u"Do|||Loop While Condition", u"Condition"},
    {u"For / Do", u"Do While ... Loop", u"Do While Condition|||Loop", u"Condition"},
    {u"For / Do", u"Do Until ... Loop", u"Do Until Condition|||Loop", u"Condition"},
    {u"For / Do", u"Do ... Loop", u"Do|||Loop", u""},
    {u"On Error", u"On Error Goto ...", u"On Error Goto Label", u"Label"},
    {u"On Error", u"On Error GoTo 0", u"On Error GoTo 0", u"0"},
    {u"On Error", u"On Error Resume Next", u"On Error Resume Next", u""}};

TEST_F(AddIn, EveryTemplatePutsItsLinesAndSelectsItsPlaceholder) {
  world_.Module(u"M", Code);
  Start();
  for (const Template& one : Templates) {
    world_.Environment.SetText(u"M", Code);
    world_.Caret(u"M", 3, 3);
    Click({u"Tessel", one.Popup, one.Caption});
    String lines;
    for (const String& line : vb::Split(one.Text, u"|")) lines += u"   " + line + u"\r\n";
    EXPECT_EQ(world_.Text(u"M"),
              u"Option Explicit\r\nSub A()\r\n" + lines + u"\r\n    x = 1\r\nEnd Sub");
    const host::Selection at = world_.Selection();
    ASSERT_EQ(at.StartLine, at.EndLine);
    const String line = world_.Environment.Component(u"M")->CodeModule()->Lines(at.StartLine, 1);
    EXPECT_EQ(vb::Mid(line, static_cast<std::size_t>(at.StartColumn),
                      static_cast<std::size_t>(at.EndColumn - at.StartColumn)),
              one.Placeholder)
        << vb::ToUtf8(one.Caption);
  }
  EXPECT_EQ(std::size(Templates), TemplateTable().size());
}

// Markers

TEST_F(AddIn, ASecondSchemeReplacesTheMarker) {
  world_.Module(u"M", Code);
  world_.Caret(u"M", 3, 2);
  Start();
  Click({u"Modifiers", u"Message Box"});
  EXPECT_EQ(world_.Text(u"M"),
            u"Option Explicit\r\n'errMarker: Message Box\r\nSub A()\r\n    x = 1\r\nEnd Sub");
  EXPECT_EQ(world_.Selection(), (host::Selection{4, 2, 4, 2}));
  Click({u"Modifiers", u"Log to File"});
  EXPECT_EQ(world_.Text(u"M"),
            u"Option Explicit\r\n'errMarker: Log to File\r\nSub A()\r\n    x = 1\r\nEnd Sub");
}

TEST_F(AddIn, SkipInTheDeclarationsMarksTheModule) {
  world_.Module(u"M", Code);
  world_.Caret(u"M", 1, 3);
  Start();
  Click({u"Modifiers", u"Skip"});
  EXPECT_EQ(world_.Text(u"M").substr(0, 18), u"'errMarker: Skip\r\n");
  EXPECT_EQ(world_.Selection(), (host::Selection{2, 3, 2, 3}));
}

TEST_F(AddIn, AFailedHostCallAsksAndRetryGoesOn) {
  world_.Module(u"M", Code);
  world_.Caret(u"M", 3);
  Start();
  int failures = 1;
  world_.Environment.SetOperationHook([&](std::string_view operation) {
    if (operation == "CodeModule.InsertLines" && failures-- > 0) throw vb::Failure(7, u"full");
  });
  std::vector<String> stack;
  world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
    stack = gErrorHandler->CallStack();
    forms::user::Press(*form.Find(u"btnRetry"));
  };
  Click({u"Tessel", u"IF", u"If ... Then"});
  EXPECT_EQ(world_.Errors.Take().size(), 1U);
  ASSERT_EQ(stack.size(), 2U);
  EXPECT_EQ(stack[0], u"Tessel.Connect.InsertTextInComponent");
  EXPECT_EQ(stack[1], u"Tessel.Connect.MenuComBarIf_Click");
  EXPECT_NE(world_.Text(u"M").find(u"If Condition"), String::npos);
}

TEST_F(AddIn, WithoutAProjectEveryToolDoesNothing) {
  Start();
  world_.Environment.RemoveProject(u"Project1");
  Click({u"Tessel", u"IF", u"If ... Then"});
  Click({u"Modifiers", u"Skip"});
  for (const StringView tool :
       {u"Code Formatter", u"Insert Error Handler Code", u"Remove Error Handler Code"}) {
    int shown = 0;
    world_.Services.DesktopService.OnModal = [&](forms::Form& form) {
      ++shown;
      EXPECT_NE(form.Name(), u"frmErrorMessage");
    };
    Click({tool});
    EXPECT_EQ(shown, 1) << vb::ToUtf8(tool);
  }
  EXPECT_TRUE(world_.Services.DesktopService.Messages.empty());
  EXPECT_TRUE(gErrorHandler->CallStack().empty());
}

}  // namespace
}  // namespace tessel
