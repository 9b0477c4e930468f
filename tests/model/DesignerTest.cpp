#include "hosts/model/Designer.h"

#include <gtest/gtest.h>

#include "hosts/model/Component.h"
#include "hosts/model/Vbe.h"
#include "tests/support/Modules.h"
#include "vb/Failure.h"

namespace tessel::model {
namespace {

/// A form with a frame that holds a label; notes the host's events.
class DesignerTest : public testing::Test {
 protected:
  DesignerTest() {
    world_.Form(u"Form1", u"");
    world_.Environment.AddControl(u"Form1", u"Frame", u"Frame1", {});
    Form().AddControl(u"Label", u"Label1", {{u"Caption", u"Inner"}},
                      Form().Find(u"Frame1", -1)->Node());
    sink_ = world_.Environment.VBE()->Events()->VBControlsEvents();
    sink_->ItemAdded = [this](const auto& control) {
      events_ += u"+" + control->ControlObjectName();
    };
    sink_->ItemRemoved = [this](const auto& control) {
      events_ += u"-" + control->ControlObjectName();
    };
  }
  Designer& Form() {
    return dynamic_cast<Designer&>(*world_.Environment.Component(u"Form1")->Designer());
  }

  test::World world_;
  std::shared_ptr<host::VBControlsEvents> sink_;
  String events_;
};

TEST_F(DesignerTest, PutsAControlIntoAContainer) {
  const auto label = Form().Find(u"Label1", -1);
  EXPECT_EQ(label->Node()->Parent->Name, u"Frame1");
  EXPECT_EQ(label->Node()->RawValue(u"Caption"), u"\"Inner\"");
}

TEST_F(DesignerTest, TellsOfEachControlThatGoesAndTakesNoneThatComesBackForANewOne) {
  const String before = Form().Tree().Text();
  const auto block = Form().TakeControl(*Form().Find(u"Frame1", -1)->Node());
  EXPECT_EQ(events_, u"-Label1-Frame1");
  EXPECT_EQ(Form().Count(), 0);
  Form().PutBackControl(block);
  EXPECT_EQ(events_, u"-Label1-Frame1");
  EXPECT_EQ(Form().Count(), 2);
  EXPECT_EQ(Form().Tree().Text(), before);
}

TEST_F(DesignerTest, KeepsNameAndClassOfAControlThatWentWithItsContainer) {
  const auto label = Form().Find(u"Label1", -1);
  world_.Environment.RemoveControl(u"Form1", u"Frame1");
  EXPECT_EQ(label->Node(), nullptr);
  EXPECT_EQ(label->ControlObjectName(), u"Label1");
  EXPECT_EQ(label->ClassName(), u"Label");
  EXPECT_EQ(label->Properties()->Count(), 1);
}

TEST_F(DesignerTest, RefusesToPutBackANameThatWasGivenAway) {
  const auto block = Form().TakeControl(*Form().Find(u"Frame1", -1)->Node());
  world_.Environment.AddControl(u"Form1", u"Timer", u"label1", {});
  const String before = Form().Tree().Text();
  EXPECT_THROW(Form().PutBackControl(block), vb::Failure);
  EXPECT_EQ(Form().Tree().Text(), before);
}

TEST_F(DesignerTest, PutsBackWhatSharedItsNameInTheFile) {
  Form().Tree().Add(*Form().Tree().Root(), u"VB.Label", u"Label1");
  const String before = Form().Tree().Text();
  const auto block = Form().TakeControl(*Form().Find(u"Frame1", -1)->Node());
  Form().PutBackControl(block);
  EXPECT_EQ(Form().Tree().Text(), before);
}

TEST_F(DesignerTest, PutsBackAnElementOfAControlArray) {
  auto& tree = Form().Tree();
  DesignerNode* elements[2];
  for (int index = 0; index < 2; ++index) {
    elements[index] = &tree.Add(*tree.Root(), u"VB.OptionButton", u"optKind");
    tree.SetProperty(*elements[index], u"Index", vb::Str(index));
  }
  const String before = tree.Text();
  const auto block = Form().TakeControl(*elements[0]);
  Form().PutBackControl(block);
  EXPECT_EQ(tree.Text(), before);
}

TEST_F(DesignerTest, TakesAnotherElementOfAControlArray) {
  Form().AddControl(u"OptionButton", u"optKind", {{u"Index", u"0"}});
  Form().AddControl(u"OptionButton", u"OPTKIND", {{u"Index", u"1"}});
  EXPECT_EQ(Form().Find(u"optKind", 1)->Node()->Name, u"OPTKIND");
  EXPECT_THROW(Form().AddControl(u"OptionButton", u"optKind", {{u"Index", u"1"}}), vb::Failure);
  EXPECT_THROW(Form().AddControl(u"OptionButton", u"optKind", {}), vb::Failure);
  EXPECT_THROW(Form().AddControl(u"Label", u"Frame1", {{u"Index", u"0"}}), vb::Failure);
}

TEST_F(DesignerTest, TakesNoWordOfTheLanguageAndNotTheFormsNameForAControl) {
  const auto label = Form().Find(u"Label1", -1);
  for (const StringView name : {u"Sub", u"end", u"ME", u"Form1", u"fOrM1"}) {
    try {
      Form().AddControl(u"Label", name, {});
      FAIL() << vb::ToUtf8(name);
    } catch (const vb::Failure& failure) {
      EXPECT_EQ(failure.Number(), 32813);
      EXPECT_NE(failure.Description().find(name), String::npos);
    }
    EXPECT_THROW(Form().RenameControl(label, name), vb::Failure) << vb::ToUtf8(name);
    EXPECT_THROW(label->Properties()->Item(u"Name")->SetValue(name), vb::Failure);
  }
  EXPECT_EQ(label->ControlObjectName(), u"Label1");
  EXPECT_EQ(Form().Count(), 2);
  EXPECT_EQ(events_, u"");
  Form().RenameControl(label, u"Text");
  EXPECT_EQ(label->ControlObjectName(), u"Text") << "a word that names may be";
}

TEST_F(DesignerTest, RefusesATakenOrBadNameForANewControl) {
  EXPECT_THROW(Form().AddControl(u"Label", u"FRAME1", {}), vb::Failure);
  EXPECT_THROW(Form().AddControl(u"Label", u"2x", {}), vb::Failure);
  EXPECT_EQ(events_, u"");
}

}  // namespace
}  // namespace tessel::model
