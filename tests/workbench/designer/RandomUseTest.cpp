// Whatever is done to a form by hand can be taken back to the last byte.

#include <random>

#include "hosts/workbench/designer/PropertiesWindow.h"
#include "tests/workbench/designer/Forms.h"

namespace tessel::workbench {
namespace {

class RandomUseTest : public DesignerTest {
 protected:
  int Below(int limit) { return static_cast<int>(Random() % static_cast<unsigned>(limit)); }
  QPoint Somewhere() { return {Below(Canvas()->width()), Below(Canvas()->height())}; }

  void PressKey() {
    constexpr int Keys[] = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,    Qt::Key_Down,
                            Qt::Key_Tab,  Qt::Key_Delete, Qt::Key_Escape};
    const bool shift = Below(3) == 0;
    QTest::keyClick(Canvas(), static_cast<Qt::Key>(Keys[Below(shift ? 4 : 7)]),
                    shift ? Qt::ShiftModifier : Qt::NoModifier);
  }
  void Pull() {
    constexpr Qt::KeyboardModifier Modifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                  Qt::ControlModifier};
    const auto modifier = Modifiers[Below(4)];
    const QPoint from = Somewhere(), to = Somewhere();
    QTest::mousePress(Canvas(), Qt::LeftButton, modifier, from);
    QTest::mouseMove(Canvas(), to);
    QTest::mouseRelease(Canvas(), Qt::LeftButton, modifier, to);
  }
  void DrawOne() {
    const auto classes = ToolboxClasses();
    View->SetTool(classes[static_cast<std::size_t>(Below(static_cast<int>(classes.size())))].Name);
    Pull();
  }
  void SetSomething() {
    const auto nodes = View->Selected();
    constexpr StringView Values[] = {u"7", u"\"seven\"", u"-1  'True"};
    (void)View->Editor()->SetValues({{nodes.back(), {{u"Tag", String(Values[Below(3)])}}}},
                                    QStringLiteral("Change"));
  }
  void GiveName() {
    const auto nodes = View->Selected();
    (void)View->Editor()->Rename(*nodes.back(), u"name" + vb::Str(Below(30)));
  }
  void Act() {
    switch (Below(8)) {
      case 0:
        return DrawOne();
      case 1:
        return SetSomething();
      case 2:
        return GiveName();
      case 3:
        return Below(2) == 0 ? View->Editor()->Undo() : View->Editor()->Redo();
      case 4:
      case 5:
        return Pull();
      default:
        return PressKey();
    }
  }

  std::mt19937 Random{7};
};

TEST_F(RandomUseTest, CanBeTakenBackByteForByte) {
  int all = 0;
  for (int round = 0; round < 12; ++round) {
    UseForm(SmallForm);
    const String begun = Text();
    for (int act = 0; act < 60; ++act) Act();
    QApplication::processEvents();
    const String done = Text();
    const int edits = View->UndoStack().index();
    View->UndoStack().setIndex(0);
    EXPECT_EQ(Text(), begun) << round;
    View->UndoStack().setIndex(edits);
    EXPECT_EQ(Text(), done) << round;
    View->UndoStack().setIndex(0);
    all += edits;
  }
  EXPECT_GT(all, 100);
}

TEST_F(RandomUseTest, StandsAnAddInThatChangesTheFormMeanwhile) {
  PropertiesWindow window;
  window.show();
  View->OnSelection = [&](const auto& nodes) {
    window.ShowObjects(Component, nodes, View->Editor());
  };
  for (int act = 0; act < 600; ++act) {
    Act();
    const auto controls = Tree().Controls();
    if (Below(4) == 0 && !controls.empty()) {
      auto* const node =
          controls[static_cast<std::size_t>(Below(static_cast<int>(controls.size())))];
      if (Below(2) == 0) {
        Component->OwnDesigner()->TakeControl(*node);
      } else {
        Tree().SetProperty(*node, u"Left", vb::Str(Below(4000)));
      }
    }
    if (Below(6) == 0) {
      Component->OwnDesigner()->AddControl(
          u"Frame", FreeControlName(Tree(), u"VB.Frame"),
          {{u"Left", u"600"}, {u"Top", u"600"}, {u"Width", u"1800"}, {u"Height", u"1200"}});
    }
    if (Below(3) == 0) QApplication::processEvents();
    if (act % 50 == 0) (void)Canvas()->grab();
  }
  // What it shows is what stands.
  QApplication::processEvents();
  EXPECT_EQ(View->Layout().Controls().size(), Tree().Controls().size());
  EXPECT_EQ(model::DesignerTree(Text()).Text(), Text());
}

}  // namespace
}  // namespace tessel::workbench
