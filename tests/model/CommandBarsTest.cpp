#include "hosts/model/CommandBars.h"

#include <gtest/gtest.h>

#include "tests/support/Modules.h"
#include "vb/Failure.h"

namespace tessel::model {
namespace {

template <class F>
int FailureOf(F&& call) {
  try {
    call();
  } catch (const vb::Failure& failure) {
    return failure.Number();
  }
  return 0;
}

struct Bench {
  Bench()
      : Hook(std::make_shared<OperationHook>()),
        Bars(BarContext{Hook, &Services, std::make_shared<Events>()}) {}
  std::shared_ptr<host::CommandBarControls> Bar() {
    return Bars.Add(u"Tessel", host::msoBarTop, true)->Controls();
  }
  memory::MemoryPlatform Services;
  model::Hook Hook;
  CommandBars Bars;
};

std::shared_ptr<host::CommandBarControl> Button(host::CommandBarControls& controls,
                                                StringView caption,
                                                std::optional<int> before = std::nullopt) {
  auto control = controls.Add(host::msoControlButton, before);
  control->SetCaption(caption);
  return control;
}

String Captions(host::CommandBarControls& controls) {
  String text;
  for (int index = 1; index <= controls.Count(); ++index) {
    text += controls.Item(index)->Caption() + u"|";
  }
  return text;
}

TEST(CommandBars, FailForAnUnknownNameOrPosition) {
  Bench bench;
  EXPECT_EQ(FailureOf([&] { (void)bench.Bars.Item(u"Tessel"); }), vb::InvalidCall);
  EXPECT_EQ(FailureOf([&] { (void)bench.Bars.Item(1); }), vb::InvalidCall);
  bench.Bar();
  EXPECT_EQ(FailureOf([&] { (void)bench.Bars.Item(0); }), vb::InvalidCall);
  EXPECT_EQ(FailureOf([&] { (void)bench.Bars.Item(2); }), vb::InvalidCall);
}

TEST(CommandBars, FindABarByNameInAnyCaseAndByPosition) {
  Bench bench;
  const auto bar = bench.Bars.Add(u"Tessel", host::msoBarLeft, true);
  EXPECT_EQ(bench.Bars.Item(u"tESSEL"), bar);
  EXPECT_EQ(bench.Bars.Item(1), bar);
  EXPECT_EQ(bar->Position(), host::msoBarLeft);
}

TEST(CommandBars, RefuseASecondBarOfOneName) {
  Bench bench;
  bench.Bar();
  EXPECT_EQ(FailureOf([&] { bench.Bars.Add(u"TESSEL", host::msoBarTop, true); }), vb::InvalidCall);
  EXPECT_EQ(bench.Bars.Count(), 1);
}

TEST(CommandBars, LoseABarThatIsDeleted) {
  Bench bench;
  bench.Bar();
  bench.Bars.Item(u"Tessel")->Delete();
  EXPECT_EQ(bench.Bars.Count(), 0);
  EXPECT_NE(FailureOf([&] { (void)bench.Bars.Item(u"Tessel"); }), 0);
}

TEST(CommandBars, KeepTheirPlace) {
  Bench bench;
  const auto bar = bench.Bars.Add(u"Tessel", host::msoBarTop, true);
  EXPECT_FALSE(bar->Visible());
  bar->SetVisible(true);
  bar->SetPosition(host::msoBarFloating);
  bar->SetTop(40);
  bar->SetLeft(30);
  bar->SetRowIndex(-1);
  EXPECT_TRUE(bar->Visible());
  EXPECT_EQ(bar->Position(), host::msoBarFloating);
  EXPECT_EQ(bar->Top(), 40);
  EXPECT_EQ(bar->Left(), 30);
  EXPECT_EQ(bar->RowIndex(), -1);
}

TEST(CommandBars, AddControlsAtTheEndOrAtAPlace) {
  Bench bench;
  const auto controls = bench.Bar();
  Button(*controls, u"b");
  Button(*controls, u"c");
  Button(*controls, u"a", 1);
  Button(*controls, u"d", 4);
  EXPECT_EQ(Captions(*controls), u"a|b|c|d|");
  EXPECT_EQ(FailureOf([&] { Button(*controls, u"x", 6); }), vb::InvalidCall);
  EXPECT_EQ(FailureOf([&] { Button(*controls, u"x", 0); }), vb::InvalidCall);
  EXPECT_EQ(controls->Count(), 4);
}

TEST(CommandBars, FindControlsByCaptionWithoutAccessKeyAndCase) {
  Bench bench;
  const auto controls = bench.Bar();
  const auto button = Button(*controls, u"Add Class &Module");
  EXPECT_EQ(controls->Item(u"add class module"), button);
  EXPECT_EQ(controls->Item(u"&Add Class Module"), button);
  EXPECT_EQ(FailureOf([&] { (void)controls->Item(u"Module"); }), vb::InvalidCall);
  EXPECT_EQ(FailureOf([&] { (void)controls->Item(2); }), vb::InvalidCall);
}

TEST(CommandBars, HoldControlsBelowAPopUpOnly) {
  Bench bench;
  const auto controls = bench.Bar();
  const auto popup = controls->Add(host::msoControlPopup);
  EXPECT_EQ(popup->Type(), host::msoControlPopup);
  ASSERT_NE(popup->Controls(), nullptr);
  Button(*popup->Controls(), u"inside");
  EXPECT_EQ(Captions(*popup->Controls()), u"inside|");
  EXPECT_EQ(Button(*controls, u"b")->Controls(), nullptr);
}

TEST(CommandBars, KeepWhatAControlIsTold) {
  Bench bench;
  const auto button = Button(*bench.Bar(), u"b");
  EXPECT_TRUE(button->Enabled());
  EXPECT_TRUE(button->Visible());
  EXPECT_FALSE(button->BeginGroup());
  button->SetEnabled(false);
  button->SetVisible(false);
  button->SetBeginGroup(true);
  button->SetOnAction(u"Skip");
  button->SetFaceId(984);
  button->SetStyle(2);
  EXPECT_FALSE(button->Enabled());
  EXPECT_FALSE(button->Visible());
  EXPECT_TRUE(button->BeginGroup());
  EXPECT_EQ(button->OnAction(), u"Skip");
  EXPECT_EQ(button->FaceId(), 984);
  EXPECT_EQ(button->Style(), 2);
}

TEST(CommandBars, PasteThePictureOfTheClipboard) {
  Bench bench;
  const auto button = Button(*bench.Bar(), u"b");
  const auto& own = dynamic_cast<CommandBarControl&>(*button);
  EXPECT_EQ(FailureOf([&] { button->PasteFace(); }), vb::InvalidCall);
  EXPECT_EQ(own.PictureNumber(), 0);
  bench.Services.DesktopService.SetPicture(105);
  button->PasteFace();
  EXPECT_EQ(own.PictureNumber(), 105);
}

TEST(CommandBars, CallTheHookAheadOfEveryChange) {
  Bench bench;
  const auto controls = bench.Bar();
  const auto button = Button(*controls, u"b");
  const auto tessel = bench.Bars.Item(1);
  std::vector<std::string> seen;
  bench.Hook->Before = [&](std::string_view operation) {
    seen.emplace_back(operation);
    throw vb::RuntimeFailure(vb::OutOfMemory);
  };
  EXPECT_EQ(FailureOf([&] { bench.Bars.Add(u"x", 1, true); }), vb::OutOfMemory);
  EXPECT_EQ(FailureOf([&] { controls->Add(host::msoControlButton); }), vb::OutOfMemory);
  EXPECT_EQ(FailureOf([&] { button->SetCaption(u"x"); }), vb::OutOfMemory);
  EXPECT_EQ(FailureOf([&] { button->PasteFace(); }), vb::OutOfMemory);
  EXPECT_EQ(FailureOf([&] { tessel->SetTop(5); }), vb::OutOfMemory);
  EXPECT_EQ(FailureOf([&] { tessel->Delete(); }), vb::OutOfMemory);
  EXPECT_EQ(seen, (std::vector<std::string>{
                      "CommandBars.Add", "CommandBarControls.Add", "CommandBarControl.Caption",
                      "CommandBarControl.PasteFace", "CommandBar.Top", "CommandBar.Delete"}));
  bench.Hook->Before = nullptr;
  EXPECT_EQ(bench.Bars.Count(), 1);
  EXPECT_EQ(controls->Count(), 1);
  EXPECT_EQ(button->Caption(), u"b");
  EXPECT_EQ(tessel->Top(), 0);
}

/// The Project menu of an environment.
host::CommandBarControls& ProjectMenu(model::Environment& environment) {
  return *environment.VBE()
              ->CommandBars()
              ->Item(u"Menu Bar")
              ->Controls()
              ->Item(u"Project")
              ->Controls();
}

constexpr StringView AddingCaptions[] = {
    u"Add Form",         u"Add MDI Form",      u"Add Module",           u"Add Class Module",
    u"Add User Control", u"Add Property Page", u"Add User Document",    u"Add WebClass",
    u"Add Data Report",  u"Add HTML Page",     u"Add Data Environment", u"Add File..."};

/// The captions of the adding commands that are not greyed.
String Usable(model::Environment& environment) {
  String usable;
  for (const StringView caption : AddingCaptions) {
    if (ProjectMenu(environment).Item(caption)->Enabled())
      usable += String(caption.substr(4)) + u"|";
  }
  return usable;
}

TEST(MenuBar, ShowsTheEnvironmentsMenus) {
  test::World world;
  const auto bar = world.Environment.VBE()->CommandBars()->Item(u"menu bar");
  EXPECT_TRUE(bar->Visible());
  EXPECT_EQ(vb::Replace(Captions(*bar->Controls()), u"&", u""),
            u"File|Edit|View|Project|Format|Debug|Run|Query|Diagram|Tools|Add-Ins|Window|Help|");
}

TEST(MenuBar, GreysTheAddingCommandsWithoutAProject) {
  memory::MemoryPlatform services;
  model::Environment environment(services);
  EXPECT_EQ(Usable(environment), u"");
}

TEST(MenuBar, OffersWhatAProjectOfItsKindCanHold) {
  test::World world;
  EXPECT_EQ(Usable(world.Environment),
            u"Form|MDI Form|Module|Class Module|User Control|Property Page|Data Report|"
            u"Data Environment|");
  world.Environment.NewProject(u"Server", host::vbext_pt_ActiveXDll);
  EXPECT_EQ(Usable(world.Environment),
            u"Form|MDI Form|Module|Class Module|User Control|Property Page|User Document|WebClass|"
            u"Data Report|HTML Page|Data Environment|");
  world.Environment.NewProject(u"Controls", host::vbext_pt_ActiveXControl);
  EXPECT_EQ(Usable(world.Environment),
            u"Form|Module|Class Module|User Control|Property Page|Data Report|Data Environment|");
}

TEST(MenuBar, AddsOneMdiFormAndNoSecondOne) {
  test::World world;
  const auto item = ProjectMenu(world.Environment).Item(u"Add MDI Form");
  EXPECT_TRUE(item->Enabled());
  item->Execute();
  EXPECT_FALSE(item->Enabled());
  world.Environment.RemoveComponent(u"", world.Environment.VBE()->SelectedVBComponent()->Name());
  EXPECT_TRUE(item->Enabled());
}

TEST(MenuBar, AddsAComponentOfTheItemsKindSelectsItAndTellsOfIt) {
  struct Case {
    StringView Caption;
    host::vbext_ComponentType Type;
  };
  const Case cases[] = {{u"Add Form", host::vbext_ct_VBForm},
                        {u"Add Module", host::vbext_ct_StdModule},
                        {u"Add Class Module", host::vbext_ct_ClassModule},
                        {u"Add User Control", host::vbext_ct_UserControl},
                        {u"Add Property Page", host::vbext_ct_PropPage},
                        {u"Add Data Report", host::vbext_ct_ActiveXDesigner}};
  for (const Case& one : cases) {
    test::World world;
    const auto sink = world.Environment.VBE()->Events()->VBComponentsEvents();
    std::shared_ptr<host::VBComponent> told;
    sink->ItemAdded = [&](const auto& component) { told = component; };
    ProjectMenu(world.Environment).Item(one.Caption)->Execute();
    ASSERT_NE(told, nullptr) << vb::ToUtf8(one.Caption);
    EXPECT_EQ(told->Type(), one.Type) << vb::ToUtf8(one.Caption);
    EXPECT_EQ(world.Environment.VBE()->SelectedVBComponent(), told);
    EXPECT_EQ(world.Environment.VBE()->ActiveVBProject()->VBComponents()->Count(), 1);
  }
}

}  // namespace
}  // namespace tessel::model
