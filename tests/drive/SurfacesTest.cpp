// Menus, documents and windows through the channel.

#include <gtest/gtest.h>

#include <sstream>

#include "forms/Controls.h"
#include "forms/Document.h"
#include "forms/Form.h"
#include "hosts/drive/Session.h"
#include "support/TemporaryFolder.h"

namespace tessel::drive {
namespace {

using namespace tessel::forms;

/// A document with a pop-up menu, as the environment's tool windows hold one.
struct udSample : Document {
  udSample() : Document("udSample", u"Sample") {
    mnuPop.SetVisible(false);
    mnuRemove.SetEnabled(false);
    mnuHidden.SetVisible(false);
    mnuPop.Click = [this] { mnuCode.SetCaption(u"View " + txtName.Text()); };
    mnuAdd.Click = [this] { mnuForm.SetChecked(true); };
    mnuForm.Click = [this] { txtName.SetText(u"form added"); };
    btmPop.Click = [this] { PopupMenu(mnuPop); };
    SetLayout(Column({Group(u"Information:", {Item(txtName)}), Item(btmPop)}));
  }
  MenuItem mnuPop{this, "mnuPop", u"Pop"};
  MenuItem mnuCode{&mnuPop, "mnuCode", u"View Code"};
  MenuItem mnuLine{&mnuPop, "mnuLine", u"-"};
  MenuItem mnuAdd{&mnuPop, "mnuAdd", u"Add"};
  MenuItem mnuForm{&mnuAdd, "mnuForm", u"Form"};
  MenuItem mnuRemove{&mnuPop, "mnuRemove", u"Remove"};
  MenuItem mnuHidden{&mnuPop, "mnuHidden", u"Hidden"};
  TextBox txtName{this, "txtName", {.Text = u"M"}};
  Button btmPop{this, "btmPop"};
};

class Surfaces : public testing::Test {
 protected:
  std::vector<Json> Play(const std::string& requests) {
    std::istringstream in(requests);
    std::ostringstream out;
    {
      Session session({folder_.Path() / "program", folder_.Path() / "settings.sqlite", false}, in,
                      out);
      const auto made = session.Environment().VBE()->Windows()->CreateToolWindow(
          [](StringView) { return std::make_shared<udSample>(); }, u"Tessel.udSample", u"Sample",
          u"{1}");
      made.Frame->SetVisible(true);
      session.Run();
    }
    std::vector<Json> replies;
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);) replies.push_back(Json::parse(line));
    return replies;
  }
  static Json ControlNamed(const Json& reply, const std::string& name) {
    for (const Json& control : reply["controls"]) {
      if (control["name"] == name) return control;
    }
    return nullptr;
  }
  test::TemporaryFolder folder_;
};

TEST_F(Surfaces, ADocumentIsReachedByItsNameAndIsNeverInFront) {
  const auto replies = Play(R"({"do":"form","form":"UDSAMPLE"}
{"do":"type","form":"udSample","control":"txtName","text":"typed"}
{"do":"form","form":"udSample"}
{"do":"form"}
)");
  EXPECT_EQ(replies[0]["caption"], "Sample");
  EXPECT_EQ(replies[0]["visible"], true);
  EXPECT_TRUE(replies[1]["front"].is_null());
  EXPECT_EQ(ControlNamed(replies[2], "txtName")["text"], "typed");
  EXPECT_EQ(replies[3]["error"], "no form is open");
}

TEST_F(Surfaces, GroupsAreToldAsLabels) {
  const auto replies = Play(R"({"do":"form","form":"udSample"}
)");
  const Json group = ControlNamed(replies[0], "");
  EXPECT_EQ(group["kind"], "Label");
  EXPECT_EQ(group["caption"], "Information:");
  EXPECT_EQ(group["visible"], true);
}

TEST_F(Surfaces, AMenuThatPopsUpWaitsForAnItem) {
  const auto replies = Play(R"({"do":"press","form":"udSample","control":"btmPop"}
{"do":"menu","item":"mnuRemove"}
{"do":"menu","item":"mnuAdd"}
{"do":"menu","item":"mnuLine"}
{"do":"form","form":"udSample"}
{"do":"answer","button":"OK"}
{"do":"menu","item":"mnuForm"}
{"do":"form","form":"udSample"}
)");
  ASSERT_EQ(replies.size(), 8U);
  const Json& menu = replies[0]["front"]["menu"];
  ASSERT_EQ(menu.size(), 4U) << "the hidden item isn't there";
  EXPECT_EQ(menu[0].dump(), R"({"item":"mnuCode","caption":"View M","enabled":true,)"
                            R"("checked":false,"items":[]})");
  EXPECT_EQ(menu[1]["caption"], "-");
  EXPECT_EQ(menu[2]["items"].dump(), R"([{"item":"mnuForm","caption":"Form","enabled":true,)"
                                     R"("checked":true,"items":[]}])");
  EXPECT_EQ(menu[3]["enabled"], false);
  EXPECT_EQ(replies[1]["error"], "Menu item \"mnuRemove\" is disabled");
  EXPECT_EQ(replies[2]["error"], "Menu item \"mnuAdd\" is a menu of its own");
  EXPECT_EQ(replies[3]["error"], "Menu item \"mnuLine\" is not there");
  EXPECT_EQ(replies[4]["error"], "a menu is open: choose an item or close it");
  EXPECT_EQ(replies[5]["error"], "a menu is open: choose an item or close it");
  EXPECT_TRUE(replies[6]["front"].is_null());
  EXPECT_EQ(ControlNamed(replies[7], "txtName")["text"], "form added");
}

TEST_F(Surfaces, AMenuIsClosedWithoutAChoice) {
  const auto replies = Play(R"({"do":"press","form":"udSample","control":"btmPop"}
{"do":"close"}
{"do":"form","form":"udSample"}
{"do":"menu","item":"mnuForm"}
)");
  EXPECT_TRUE(replies[1]["front"].is_null());
  EXPECT_EQ(ControlNamed(replies[2], "txtName")["text"], "M");
  EXPECT_EQ(replies[3]["error"], "no form is open");
}

TEST_F(Surfaces, WindowsAreToldWithTheirParentsAndTakeMessages) {
  const auto replies = Play(R"({"do":"windows"}
{"do":"message","window":65552,"message":257,"wparam":0,"lparam":0}
{"do":"message","window":3,"message":257}
)");
  const Json& windows = replies[0]["windows"];
  ASSERT_EQ(windows.size(), 5U);
  EXPECT_EQ(windows[0]["parent"], 0);
  EXPECT_EQ(windows[1]["class"], "MDIClient");
  EXPECT_EQ(windows[1]["parent"], windows[0]["handle"]);
  EXPECT_EQ(windows[4]["caption"], "Sample");
  EXPECT_EQ(windows[4]["parent"], windows[1]["handle"]);
  EXPECT_EQ(windows[4]["visible"], true);
  EXPECT_EQ(replies[1]["result"], 0);
  EXPECT_EQ(replies[2]["error"], "there is no window 3");
}

}  // namespace
}  // namespace tessel::drive
