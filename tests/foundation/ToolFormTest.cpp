#include "foundation/ToolForm.h"

#include <gtest/gtest.h>

#include "forms/Controls.h"
#include "forms/User.h"
#include "support/FakeConnect.h"
#include "support/MemoryPlatform.h"

namespace tessel {
namespace {

struct Tool : ToolForm {
  Tool() : ToolForm("frmTool", u"Tool") {}
  using ToolForm::RunAndLeave;
  void Form_Load() override {
    Routine(u"frmTool.Form_Load", [&](const Statements& run) { RestorePlace(run); });
  }
  void Form_Unload() override {
    Leave(u"frmTool.Form_Unload", [&](const Statements& run) {
      OpenAtFirstStep = Connect != nullptr && Connect->DialogOpen();
      run([&] {
        if (Failing) throw vb::Failure(7, u"no room");
      });
    });
  }
  bool Failing = false, OpenAtFirstStep = true;
};

class ToolFormTest : public testing::Test {
 protected:
  ToolFormTest() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
    gAppSettings = std::make_shared<CAppSettings>();
    gAppSettings->Init(u"Norvane", u"Tessel");
    Form->Connect = Connect;
    Services.DesktopService.Placement = platform::WindowPlacement{};
  }
  ~ToolFormTest() override {
    Form->Unload();
    EXPECT_EQ(Services.DesktopService.Messages.size(), Expected) << "boxes that nobody asked for";
    gAppSettings.reset();
    gErrorHandler.reset();
  }
  memory::MemoryPlatform Services;
  platform::ScopedPlatform Scope{Services};
  std::shared_ptr<test::FakeConnect> Connect = std::make_shared<test::FakeConnect>();
  std::shared_ptr<Tool> Form = std::make_shared<Tool>();
  std::size_t Expected = 0;
};

TEST_F(ToolFormTest, LetsOtherDialogsOpenAheadOfItsOwnSteps) {
  Form->Load();
  Form->Unload();
  EXPECT_FALSE(Form->OpenAtFirstStep);
  EXPECT_FALSE(Connect->Open);
}

TEST_F(ToolFormTest, LetsOtherDialogsOpenWhateverFailsAsItGoes) {
  Form->Load();
  Form->Failing = true;
  Form->Unload();
  EXPECT_FALSE(Connect->Open);
  EXPECT_FALSE(Form->IsLoaded());
  Connect->Open = true;
  Form->Failing = false;
  Form->Load();
  Services.RegistryService.FailWrites = vb::Failure(5, u"no");
  Form->Unload();
  EXPECT_FALSE(Connect->Open);
  Services.RegistryService.FailWrites.reset();
  Expected = 2;
}

TEST_F(ToolFormTest, KeepsItsPlaceUnderItsName) {
  Services.DesktopService.Placement->Left = 77;
  Form->Load();
  Form->Unload();
  EXPECT_EQ(gAppSettings->GetText(u"Windows settings\\frmTool", u"NormalPosLeft", u""), u"77");
}

TEST_F(ToolFormTest, IsUnloadedBehindARunThatWasAborted) {
  Form->Show();
  Form->RunAndLeave(u"frmTool.btmRun_Click", [&](const Statements& run) {
    run([&] { Form->Hide(); });
    run([] { throw vb::Failure(7, u"no room"); });
  });
  EXPECT_FALSE(Form->IsLoaded());
  EXPECT_FALSE(Connect->Open);
  Expected = 1;
}

TEST_F(ToolFormTest, StaysWhereItsRunWasAbortedAheadOfTheHiding) {
  Form->Show();
  Form->RunAndLeave(u"frmTool.btmRun_Click",
                    [](const Statements& run) { run([] { throw vb::Failure(7, u"no room"); }); });
  EXPECT_TRUE(Form->Visible());
  EXPECT_TRUE(Connect->Open);
  Expected = 1;
}

TEST_F(ToolFormTest, IsUnloadedBehindARunWhoseFailurePassesThrough) {
  gErrorHandler.reset();
  Form->Show();
  EXPECT_THROW(Form->RunAndLeave(u"frmTool.btmRun_Click",
                                 [&](const Statements& run) {
                                   Form->Hide();
                                   run([] { throw vb::Failure(7, u"no room"); });
                                 }),
               vb::Failure);
  EXPECT_FALSE(Form->IsLoaded());
}

// The door

class DoorForm : public GuardedForm {
 public:
  DoorForm() : GuardedForm("DoorForm", u"Door") { SetLayout(forms::Item(btmGo)); }
  forms::Button btmGo{this, "btmGo"};
};

class Door : public testing::Test {
 protected:
  Door() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
    Form->btmGo.Click = [this] {
      ++Tries;
      throw vb::Failure(7, u"no");
    };
    Form->Show();
  }
  ~Door() override {
    gErrorHandler.reset();
    Form->Unload();
  }
  memory::MemoryPlatform Services;
  platform::ScopedPlatform Scope{Services};
  std::shared_ptr<DoorForm> Form = std::make_shared<DoorForm>();
  int Tries = 0;
};

TEST_F(Door, AFailureOfAHandlerIsAskedAboutAndGoesNoFurther) {
  Services.DesktopService.Answers = {platform::MessageAnswer::Retry,
                                     platform::MessageAnswer::Abort};
  EXPECT_NO_THROW(forms::user::Press(Form->btmGo));
  EXPECT_EQ(Tries, 2);
  EXPECT_EQ(Services.DesktopService.Messages.size(), 2U);
}

TEST_F(Door, WithoutAFailureServiceItIsToldInAPlainBox) {
  gErrorHandler.reset();
  EXPECT_NO_THROW(forms::user::Press(Form->btmGo));
  EXPECT_EQ(Tries, 1);
  ASSERT_EQ(Services.DesktopService.Messages.size(), 1U);
  EXPECT_EQ(Services.DesktopService.Messages[0].Text, u"no");
  EXPECT_EQ(Services.DesktopService.Messages[0].Style, platform::OKOnly);
}

TEST_F(Door, AFailureOfTheServiceItselfIsToldInAPlainBox) {
  gErrorHandler->SetErrorHandlerActions(ActionLogFile);
  gErrorHandler->SetErrorLogFile(u"/no/such/folder/log.txt");
  EXPECT_NO_THROW(forms::user::Press(Form->btmGo));
  ASSERT_EQ(Services.DesktopService.Messages.size(), 1U);
  EXPECT_EQ(Services.DesktopService.Messages[0].Text, u"CErrorHandler component failure");
}

TEST_F(Door, WhatAUserMayNotDoIsStillRefused) {
  Form->btmGo.SetEnabled(false);
  EXPECT_THROW(forms::user::Press(Form->btmGo), vb::Failure);
  EXPECT_EQ(Tries, 0);
}

}  // namespace
}  // namespace tessel
