// What a user does in the windows of code and designers, as it reaches who listens.

#include "hosts/workbench/window/WindowMessages.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QScrollBar>

#include "hosts/workbench/designer/DesignerCanvas.h"
#include "hosts/workbench/designer/DesignerView.h"
#include "watchers/clsEventCODE.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

using platform::WindowHandle;
using platform::WindowMessage;

struct Ear : platform::WindowHook {
  Ear() { After.All = true; }
  [[nodiscard]] bool HasOwner() const override { return true; }
  void OnBefore(bool&, std::intptr_t&, const WindowMessage&) override {}
  void OnAfter(std::intptr_t&, const WindowMessage& message) override {
    Heard.emplace_back(message.Number, message.WParam);
  }
  std::vector<std::pair<std::uint32_t, std::intptr_t>> Heard;
};

class Messages : public InWindow {
 protected:
  Messages() { OpenSample(); }
  ~Messages() override { ExplorerStarted = false; }

  model::WindowTable& Windows() { return window_->Environment().OwnWindows(); }
  std::shared_ptr<Ear> Listen(WindowHandle window) {
    auto ear = std::make_shared<Ear>();
    EXPECT_TRUE(Windows().Hook(window, ear));
    return ear;
  }
  static WindowHandle HandleOf(const CodeWindow& code) { return code.Pane()->OwnWindow().Handle(); }
  using Heard = std::vector<std::pair<std::uint32_t, std::intptr_t>>;
  static Heard Take(Ear& ear) {
    QApplication::processEvents();
    return std::exchange(ear.Heard, {});
  }
  WindowHandle Client() { return Windows().Parent(HandleOf(Code(u"modMain"))); }
  /// Stands where the Explorer does.
  void ListenToNotices() {
    ExplorerStarted = true;
    gEventCODE->Tree = [this](std::int32_t kind, std::int32_t) {
      kinds_.push_back(kind);
      Rearm();
    };
    Rearm();
  }
  static void Rearm() {
    gEventCODE->SetRunEvents(true);
    gEventCODE->SetRunEventsProject(true);
    gEventCODE->SetRunEventsComponent(true);
    gEventCODE->SetRunEventsCode(true);
  }
  void Settle() {
    QTest::qWait(500);
    kinds_.clear();
  }
  std::vector<std::int32_t> kinds_;
  static constexpr std::uint32_t Notify = platform::WM_ParentNotify;
};

TEST_F(Messages, AKeyIsHeardWhenItIsLetGoAndOnce) {
  CodeWindow& code = Code(u"modMain");
  const auto ear = Listen(HandleOf(code));
  QTest::keyPress(&code.Editor(), Qt::Key_Right);
  EXPECT_TRUE(Take(*ear).empty());
  QTest::keyRelease(&code.Editor(), Qt::Key_Right);
  EXPECT_EQ(Take(*ear), (Heard{{platform::WM_KeyUp, 0}}));
}

TEST_F(Messages, AClickInTheTextIsTheWindowsOwnAndOneAboveItAChilds) {
  CodeWindow& code = Code(u"modMain");
  const auto ear = Listen(HandleOf(code));
  const auto client = Listen(Client());
  Take(*client);
  QTest::mouseClick(code.Editor().viewport(), Qt::LeftButton, {}, {60, 30});
  EXPECT_EQ(Take(*ear), (Heard{{platform::WM_LButtonDown, 0}, {platform::WM_LButtonUp, 0}}));
  EXPECT_EQ(Take(*client), (Heard{{Notify, platform::WM_LButtonDown}}));
  auto* const objects = code.findChild<QComboBox*>(QStringLiteral("objects"));
  QTest::mousePress(objects, Qt::LeftButton);
  EXPECT_EQ(Take(*ear), (Heard{{Notify, platform::WM_LButtonDown}}));
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  Take(*ear);
  QTest::mouseClick(code.Editor().viewport(), Qt::RightButton, {}, {60, 30});
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  QTest::mousePress(code.Editor().verticalScrollBar(), Qt::LeftButton);
  QTest::mouseRelease(code.Editor().verticalScrollBar(), Qt::LeftButton);
  EXPECT_TRUE(Take(*ear).empty()) << "the right button and what scrolls are nobody's";
}

TEST_F(Messages, ACommandByItsKeyIsHeardByTheCodeInFront) {
  CodeWindow& code = Code(u"modMain");
  const auto ear = Listen(HandleOf(code));
  code.Editor().setFocus();
  QTest::keyClick(window_.get(), Qt::Key_G, Qt::ControlModifier | Qt::AltModifier);
  Take(*ear);
  QTest::keyClick(&code.Editor(), Qt::Key_S, Qt::ControlModifier);
  const Heard heard = Take(*ear);
  EXPECT_EQ(std::count(heard.begin(), heard.end(),
                       std::pair<std::uint32_t, std::intptr_t>(platform::WM_Command, 0x10000)),
            1);
}

TEST_F(Messages, ADesignerHearsClicksAndKeysOnItsForm) {
  std::shared_ptr<model::VBComponent> form;
  for (const auto& one : window_->Root()->Active()->Components().All()) {
    if (one->PlainType() == host::vbext_ct_VBForm) form = one;
  }
  DesignerView& view = *window_->ShowDesigner(form);
  const auto ear = Listen(form->DesignerHandle());
  QTest::mouseClick(&view.Canvas(), Qt::LeftButton, {}, {40, 40});
  EXPECT_EQ(Take(*ear), (Heard{{Notify, platform::WM_LButtonDown}, {platform::WM_LButtonUp, 0}}));
  QTest::keyClick(&view.Canvas(), Qt::Key_Right);
  EXPECT_EQ(Take(*ear), (Heard{{platform::WM_KeyUp, 0}}));
}

TEST_F(Messages, WindowsThatOpenAndCloseAreHeardByTheClientArea) {
  const auto client = Listen(Client());
  Take(*client);
  std::shared_ptr<model::VBComponent> form;
  for (const auto& one : window_->Root()->Active()->Components().All()) {
    if (one->PlainType() == host::vbext_ct_VBForm) form = one;
  }
  const auto times = [&](std::intptr_t event) {
    const Heard heard = Take(*client);
    return std::count(heard.begin(), heard.end(), std::pair(Notify, event));
  };
  DesignerView* const view = window_->ShowDesigner(form);
  EXPECT_GE(times(platform::WM_Create), 1);
  const WindowHandle handle = form->DesignerHandle();
  EXPECT_EQ(Windows().ClassName(handle), u"DesignerWindow");
  view->parentWidget()->close();
  QTest::qWait(50);
  EXPECT_GE(times(platform::WM_Destroy), 1);
  EXPECT_EQ(form->DesignerHandle(), 0);
  EXPECT_EQ(Windows().ClassName(handle), u"");
  CodeWindow& code = Code(u"modMain");
  const WindowHandle pane = HandleOf(code);
  Take(*client);
  code.parentWidget()->close();
  EXPECT_GE(times(platform::WM_Destroy), 1);
  EXPECT_EQ(Windows().ClassName(pane), u"");
}

TEST_F(Messages, AWindowTellsItsPlaceAndTakesTheFocus) {
  CodeWindow& first = Code(u"modMain");
  const WindowHandle handle = HandleOf(first);
  const auto place = Windows().Rectangle(handle);
  ASSERT_TRUE(place);
  EXPECT_EQ(QPoint(place->Left, place->Top), first.mapToGlobal(QPoint()));
  EXPECT_EQ(place->Right - place->Left, first.width());
  EXPECT_FALSE(Windows().Rectangle(Client())) << "it holds what is shown, and is nothing itself";
  std::shared_ptr<model::VBComponent> other;
  for (const auto& one : window_->Root()->Active()->Components().All()) {
    if (one->Module() && one->PlainName() != u"modMain") other = one;
  }
  window_->ShowCode(other);
  EXPECT_NE(window_->Children().CurrentCode(), &first);
  services_.Windows().SetFocus(handle);
  EXPECT_EQ(window_->Children().CurrentCode(), &first);
  EXPECT_EQ(services_.Windows().Focus(), handle);
}

TEST_F(Messages, TypingIsTold) {
  CodeWindow& code = Code(u"modMain");
  QApplication::processEvents();
  ListenToNotices();
  Settle();
  QTest::keyClick(&code.Editor(), Qt::Key_Right);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !kinds_.empty(); }, PatienceMs));
  EXPECT_EQ(kinds_, (std::vector<std::int32_t>{2}));
}

TEST_F(Messages, ATickLeavesTheLineThatIsBeingTypedAsItIs) {
  CodeWindow& code = Code(u"modMain");
  QApplication::processEvents();
  ListenToNotices();
  Settle();
  const int lines = code.Pane()->Module()->Buffer().Count();
  code.Editor().Select({lines, 1, lines, 1});
  QTest::keyClick(&code.Editor(), Qt::Key_End);
  QTest::keyClick(&code.Editor(), Qt::Key_Return);
  QTest::keyClicks(&code.Editor(), QStringLiteral("private  const  q=1"));
  kinds_.clear();
  QTest::keyClick(&code.Editor(), Qt::Key_2);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !kinds_.empty(); }, PatienceMs));
  const auto& buffer = code.Pane()->Module()->Buffer();
  EXPECT_EQ(buffer.Line(code.Editor().Selected().EndLine), u"private  const  q=12");
}

TEST_F(Messages, TheTwitchReachesTheCodeAndLeavesTheCaretWhereItWas) {
  CodeWindow& code = Code(u"modMain");
  code.Editor().setFocus();
  QApplication::processEvents();
  ListenToNotices();
  Settle();
  code.Editor().Select({3, 1, 3, 1});
  const auto ear = Listen(HandleOf(code));
  gEventCODE->SetTwitchCursor(true);
  gEventCODE->RunTimerActiveWindowCode();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !kinds_.empty(); }, PatienceMs));
  EXPECT_EQ(kinds_, (std::vector<std::int32_t>{2}));
  EXPECT_EQ(Take(*ear), (Heard{{platform::WM_KeyUp, 0}, {platform::WM_KeyUp, 0}}));
  EXPECT_EQ(code.Editor().Selected().StartLine, 3);
  EXPECT_EQ(code.Editor().Selected().StartColumn, 1);
}

TEST_F(Messages, ClosingTheProgramWithTimersInTheAirIsQuiet) {
  CodeWindow& code = Code(u"modMain");
  ListenToNotices();
  QTest::keyClick(&code.Editor(), Qt::Key_Right);
  QApplication::processEvents();
  gEventCODE->RunTimerActiveWindowCode();
  Discard();
  QTest::qWait(400);
  EXPECT_EQ(gEventCODE, nullptr);
}

}  // namespace
}  // namespace tessel::workbench
