// What windows hear of a user, and of the environment's own work.

#include "hosts/model/UserInput.h"

#include <gtest/gtest.h>

#include "hosts/model/Component.h"
#include "support/Modules.h"

namespace tessel::model {
namespace {

using platform::WindowHandle;
using platform::WindowMessage;

struct Message {
  std::uint32_t Number;
  std::intptr_t WParam;
  WindowHandle Child;
  bool operator==(const Message&) const = default;
};

/// Hears everything that a window gets.
struct Ear : platform::WindowHook {
  Ear() { After.All = true; }
  [[nodiscard]] bool HasOwner() const override { return true; }
  void OnBefore(bool&, std::intptr_t&, const WindowMessage&) override {}
  void OnAfter(std::intptr_t&, const WindowMessage& message) override {
    Heard.push_back({message.Number, message.WParam, message.LParam});
    if (Inside) Inside(message);
  }
  std::vector<Message> Take() { return std::exchange(Heard, {}); }
  std::vector<Message> Heard;
  std::function<void(const WindowMessage&)> Inside;
};

class Environmental : public testing::Test {
 protected:
  Environmental() { Windows().Hook(client_, clientEar_); }
  WindowTable& Windows() { return world_.Environment.OwnWindows(); }
  [[nodiscard]] std::shared_ptr<VBComponent> Component(StringView name) const {
    return std::dynamic_pointer_cast<VBComponent>(world_.Environment.Component(name));
  }
  WindowHandle PaneOf(StringView name) {
    return Component(name)->Module()->OpenPane()->OwnWindow().Handle();
  }
  std::shared_ptr<Ear> Listen(WindowHandle window) {
    auto ear = std::make_shared<Ear>();
    Windows().Hook(window, ear);
    return ear;
  }
  using Heard = std::vector<Message>;
  static constexpr std::uint32_t Notify = platform::WM_ParentNotify;

  test::World world_;
  WindowHandle client_ = Windows().Find(Windows().Find(0, 0, {}, {}), 0, u"MDIClient", {});
  std::shared_ptr<Ear> clientEar_ = std::make_shared<Ear>();
};

TEST_F(Environmental, AClickIsHeardByTheWindowAndByItsParent) {
  world_.Module(u"Module1", u"Sub A()\r\nEnd Sub");
  world_.Caret(u"Module1", 1);
  const WindowHandle pane = PaneOf(u"Module1");
  const auto ear = Listen(pane);
  clientEar_->Take();
  world_.Caret(u"Module1", 2);
  EXPECT_EQ(clientEar_->Take(), (Heard{{Notify, platform::WM_LButtonDown, 0}}));
  EXPECT_EQ(ear->Take(), (Heard{{platform::WM_LButtonDown, 0, 0}, {platform::WM_LButtonUp, 0, 0}}));
  EXPECT_EQ(Windows().Focus(), pane);
}

TEST_F(Environmental, TypingIsAKeyWhereThePaneShows) {
  world_.Module(u"Module1", u"Sub A()\r\nEnd Sub");
  const auto hidden = Listen(PaneOf(u"Module1"));
  world_.Environment.SetText(u"Module1", u"' one");
  EXPECT_TRUE(hidden->Take().empty());
  world_.Caret(u"Module1", 1);
  const auto shown = Listen(PaneOf(u"Module1"));
  world_.Environment.SetText(u"Module1", u"' two");
  EXPECT_EQ(shown->Take(), (Heard{{platform::WM_KeyUp, 0, 0}}));
}

TEST_F(Environmental, ChildrenAndAcceleratorsAreToldApart) {
  const WindowHandle window = Windows().Create(u"VbaWindow", {}, client_);
  const auto ear = Listen(window);
  ClickChild(Windows(), window);
  EXPECT_EQ(ear->Take(), (Heard{{Notify, platform::WM_LButtonDown, 0}}));
  Accelerator(Windows(), window);
  EXPECT_EQ(ear->Take(), (Heard{{platform::WM_Command, 0x10000, 0}}));
  ClickChild(Windows(), 4711);
  Accelerator(Windows(), 4711);
}

TEST_F(Environmental, APaneAndADesignerComeOnceAndGoOnce) {
  world_.Form(u"Form1", u"");
  const WindowHandle designer = Component(u"Form1")->DesignerHandle();
  EXPECT_EQ(Windows().ClassName(designer), u"DesignerWindow") << "made with the form, not shown";
  EXPECT_FALSE(Windows().IsVisible(designer));
  clientEar_->Take();
  const auto pane = Component(u"Form1")->CodeModule()->CodePane();
  const WindowHandle code = pane->Window()->HWnd();
  EXPECT_EQ(clientEar_->Take(), (Heard{{Notify, platform::WM_Create, code}}));
  pane->Show();
  Component(u"Form1")->Activate();
  EXPECT_TRUE(clientEar_->Take().empty());
  EXPECT_TRUE(Windows().IsVisible(designer));
  world_.Environment.ClosePane(u"Form1");
  Component(u"Form1")->CloseDesigner();
  Component(u"Form1")->CloseDesigner();
  EXPECT_EQ(clientEar_->Take(), (Heard{{Notify, platform::WM_Destroy, code},
                                       {Notify, platform::WM_Destroy, designer}}));
}

TEST_F(Environmental, APaneThatIsHeldAfterItsClosingGetsAnotherWindow) {
  const auto module = world_.Module(u"Module1", u"");
  const auto pane = module->CodePane();
  pane->Show();
  const WindowHandle first = pane->Window()->HWnd();
  world_.Environment.ClosePane(u"Module1");
  EXPECT_TRUE(Windows().ClassName(first).empty()) << "whoever holds the pane";
  EXPECT_FALSE(pane->Window()->Visible());
  EXPECT_EQ(world_.Environment.VBE()->ActiveCodePane(), nullptr);
  pane->Show();
  const WindowHandle second = pane->Window()->HWnd();
  EXPECT_NE(second, first);
  EXPECT_TRUE(Windows().IsVisible(second));
  EXPECT_EQ(module->CodePane(), pane);
  EXPECT_EQ(world_.Environment.VBE()->ActiveCodePane(), pane);
}

TEST_F(Environmental, WindowsThatGoAreToldOfWhenTheModelIsWholeAgain) {
  world_.Form(u"Form1", u"");
  world_.Module(u"Module1", u"");
  world_.Caret(u"Form1", 1);
  std::vector<int> counts;
  clientEar_->Inside = [&](const WindowMessage& message) {
    if (message.WParam != platform::WM_Destroy) return;
    counts.push_back(world_.Environment.VBE()->ActiveVBProject()->VBComponents()->Count());
    EXPECT_EQ(world_.Environment.VBE()->ActiveCodePane(), nullptr);
  };
  world_.Environment.RemoveComponent({}, u"Form1");
  EXPECT_EQ(counts, (std::vector<int>{1, 1})) << "code and designer";
  clientEar_->Inside = nullptr;
}

TEST_F(Environmental, ClosingAProjectClosesAllItsWindows) {
  world_.Form(u"Form1", u"");
  world_.Module(u"Module1", u"");
  world_.Caret(u"Form1", 1);
  EXPECT_EQ(Windows().All().size(), 7U);
  world_.Environment.RemoveProject(u"Project1");
  EXPECT_EQ(Windows().All().size(), 4U);
}

TEST_F(Environmental, ARenamedComponentNamesItsWindowsAnew) {
  world_.Form(u"Form1", u"");
  world_.Caret(u"Form1", 1);
  world_.Environment.RenameComponent({}, u"Form1", u"frmMain");
  EXPECT_EQ(Windows().Text(PaneOf(u"frmMain")), u"frmMain (Code)");
  EXPECT_EQ(Windows().Text(Component(u"frmMain")->DesignerHandle()), u"frmMain");
}

/// The properties window shows another object or value by a field, a child of the client area.
TEST_F(Environmental, ThePropertiesWindowIsHeardWhenItTurnsToSomethingElse) {
  world_.Module(u"Module1", u"");
  world_.Module(u"Module2", u"");
  const auto turns = [&](const std::function<void()>& act) {
    clientEar_->Take();
    act();
    int fields = 0;
    for (const Message& message : clientEar_->Take()) {
      if (message.Number == Notify && message.WParam == platform::WM_Create) ++fields;
    }
    return fields;
  };
  EXPECT_EQ(turns([&] { world_.Environment.SelectComponent(u"Module1"); }), 1);
  EXPECT_EQ(turns([&] { world_.Environment.SelectComponent(u"Module1"); }), 0) << "it is there";
  EXPECT_EQ(turns([&] { world_.Environment.RenameComponent({}, u"Module1", u"A"); }), 1);
  world_.Caret(u"A", 1);
  EXPECT_EQ(turns([&] { world_.Environment.RemoveComponent({}, u"A"); }), 0)
      << "the end of its window is told";
  world_.Environment.ClosePane(u"Module2");
  EXPECT_EQ(turns([&] { world_.Environment.RemoveComponent({}, u"Module2"); }), 1)
      << "it has no window whose end could be told";
  EXPECT_EQ(turns([&] { world_.Environment.NewProject(u"P2", host::vbext_pt_StandardExe); }), 1);
  EXPECT_EQ(turns([&] { world_.Environment.ActivateProject(u"Project1"); }), 1);
  EXPECT_EQ(turns([&] { world_.Environment.RemoveProject(u"P2"); }), 1);
}

TEST_F(Environmental, WorkOnAFormIsAClickInItsDesigner) {
  world_.Form(u"Form1", u"");
  const auto ear = Listen(Component(u"Form1")->DesignerHandle());
  world_.Environment.AddControl(u"Form1", u"VB.CommandButton", u"Command1", {});
  world_.Environment.RenameControl(u"Form1", u"Command1", u"cmdSave");
  world_.Environment.RemoveControl(u"Form1", u"cmdSave");
  const Message click{Notify, platform::WM_LButtonDown, 0};
  EXPECT_EQ(ear->Take(), (Heard{click, click, click}));
}

TEST_F(Environmental, CallsOfWhoHearsAMessageAreTheAddIns) {
  world_.Module(u"Module1", u"");
  std::vector<std::string> calls;
  world_.Environment.SetOperationHook([&](std::string_view call) { calls.emplace_back(call); });
  clientEar_->Inside = [&](const WindowMessage&) {
    (void)world_.Environment.VBE()->SelectedVBComponent();
  };
  {
    const auto byHand = world_.Environment.WhoseCalls(CallsOf::Environment);
    Windows().Create(u"Edit", {}, client_);
    (void)world_.Environment.VBE()->ActiveCodePane();
  }
  world_.Environment.SetOperationHook({});
  clientEar_->Inside = nullptr;
  EXPECT_EQ(calls, (std::vector<std::string>{"VBE.SelectedVBComponent"}));
}

TEST_F(Environmental, AHostMayPutMessagesOff) {
  std::vector<std::function<void()>> later;
  Windows().Deliver = [&](std::function<void()> send) { later.push_back(std::move(send)); };
  const WindowHandle window = Windows().Create(u"VbaWindow", {}, client_);
  Windows().Destroy(window);
  EXPECT_TRUE(clientEar_->Take().empty());
  Windows().Deliver = nullptr;
  for (const auto& send : later) send();
  EXPECT_EQ(clientEar_->Take(),
            (Heard{{Notify, platform::WM_Create, window}, {Notify, platform::WM_Destroy, window}}));
}

}  // namespace
}  // namespace tessel::model
