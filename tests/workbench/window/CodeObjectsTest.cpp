#include "hosts/workbench/window/CodeObjects.h"

#include <gtest/gtest.h>

#include "hosts/workbench/window/ControlEvents.h"
#include "support/Modules.h"

namespace tessel::workbench {
namespace {

class Objects : public testing::Test {
 protected:
  Objects() {
    world_.Form(u"Form1",
                u"Dim x\r\nPrivate Sub Form_Load()\r\nEnd Sub\r\nSub cmd_Go()\r\nEnd Sub\r\n"
                u"Private Sub cmd_Go_Click()\r\nEnd Sub\r\nProperty Get P()\r\nEnd Property\r\n"
                u"Property Let P(v)\r\nEnd Property");
    world_.Environment.AddControl(u"Form1", u"VB.CommandButton", u"cmd_Go", {});
    world_.Environment.AddControl(u"Form1", u"VB.Label", u"cmd", {});
    component_ =
        std::dynamic_pointer_cast<model::VBComponent>(world_.Environment.Component(u"Form1"));
  }
  [[nodiscard]] String Names(std::size_t object) const {
    String names;
    for (const auto& one : ProceduresOf(*component_, ObjectsOf(*component_), object)) {
      if (one.Line > 0) names += one.Caption + u" ";
    }
    return names;
  }

  test::World world_;
  std::shared_ptr<model::VBComponent> component_;
};

TEST_F(Objects, AreTheModuleItsFormAndItsControlsByName) {
  const auto objects = ObjectsOf(*component_);
  ASSERT_EQ(objects.size(), 4U);
  EXPECT_EQ(objects[0].Name, u"");
  EXPECT_EQ(objects[1].Name, u"Form");
  EXPECT_EQ(objects[2].Name, u"cmd");
  EXPECT_EQ(objects[3].Class, u"VB.CommandButton");
}

TEST_F(Objects, HoldTheirOwnProcedures) {
  EXPECT_EQ(Names(0), u"(Declarations) P [Property Get] P [Property Let] ");
  EXPECT_EQ(Names(1), u"Load ");
}

TEST_F(Objects, TakeAProcedureForTheControlWithTheLongestName) {
  EXPECT_EQ(Names(2), u"Go ");
  EXPECT_EQ(Names(3), u"Click ");
}

TEST_F(Objects, OfferTheEventsThatHaveNoProcedureYet) {
  bool found = false;
  for (const auto& one : ProceduresOf(*component_, ObjectsOf(*component_), 1)) {
    found |=
        one.Member == u"Form_Unload" && one.Line == 0 && one.Parameters == u"Cancel As Integer";
  }
  EXPECT_TRUE(found);
}

TEST_F(Objects, CountTheElementsOfAControlArrayOnce) {
  component_->AddDesigner(std::make_shared<model::DesignerTree>(
      u"VERSION 5.00\r\nBegin VB.Form Form1 \r\n   Begin VB.TextBox txt \r\n      Index = 0\r\n   "
      u"End\r\n"
      u"   Begin VB.TextBox txt \r\n      Index = 1\r\n   End\r\nEnd\r\n"));
  EXPECT_EQ(ObjectsOf(*component_).size(), 3U);
}

TEST(ControlEvents, BeginWithTheOneThatADoubleClickOpens) {
  EXPECT_EQ(EventsOf(u"vb.commandbutton").front().Name, u"Click");
  EXPECT_EQ(EventsOf(u"VB.TextBox").front().Name, u"Change");
  EXPECT_EQ(EventsOf(u"VB.Form").front().Name, u"Load");
  EXPECT_EQ(EventsOf(u"VB.ComboBox").front().Name, u"Change");
  EXPECT_EQ(EventsOf(u"VB.UserControl").front().Name, u"Initialize");
  EXPECT_TRUE(EventsOf(u"MSComctlLib.TreeView").empty());
}

}  // namespace
}  // namespace tessel::workbench
