#include "foundation/ToolForm.h"

#include <gtest/gtest.h>

#include "hosts/memory/MemoryPlatform.h"
#include "support/FakeConnect.h"

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

}  // namespace
}  // namespace tessel
