#include "foundation/GuardedDocument.h"

#include <gtest/gtest.h>

#include <optional>

#include "forms/Controls.h"
#include "forms/User.h"
#include "foundation/CErrorHandler.h"
#include "support/MemoryPlatform.h"

namespace tessel {
namespace {

struct Guarded : GuardedDocument {
  Guarded() : GuardedDocument("udGuarded", u"Guarded") {
    btm.Click = [this] { Note(u"click"); };
  }
  void UserDocument_Initialize() override { Note(u"initialize"); }
  void UserDocument_Show() override { Note(u"show"); }
  void UserDocument_Hide() override { Note(u"hide"); }
  void Note(StringView event) {
    Log.emplace_back(event);
    if (Failing == event) throw vb::Failure(7, u"no room for " + String(event));
  }
  forms::Button btm{this, "btm"};
  String Failing;
  std::vector<String> Log;
};

class GuardedDocumentTest : public testing::Test {
 protected:
  GuardedDocumentTest() {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->SetErrorHandlerActions(ActionMessageBox);
  }
  ~GuardedDocumentTest() override {
    EXPECT_EQ(Services.DesktopService.Messages.size(), Expected) << "boxes that nobody asked for";
    gErrorHandler.reset();
  }
  memory::MemoryPlatform Services;
  platform::ScopedPlatform Scope{Services};
  std::shared_ptr<Guarded> Document = std::make_shared<Guarded>();
  std::size_t Expected = 0;
};

TEST_F(GuardedDocumentTest, LetsNoFailureOutAtTheEnvironmentThatOpensAndClosesItsWindow) {
  for (const StringView event : {u"initialize", u"show", u"hide"}) {
    const auto document = std::make_shared<Guarded>();
    document->Failing = event;
    EXPECT_NO_THROW(document->Initialize());
    EXPECT_NO_THROW(document->Show());
    EXPECT_TRUE(document->Visible());
    EXPECT_NO_THROW(document->Hide());
    EXPECT_FALSE(document->Visible());
    EXPECT_EQ(document->Log, (std::vector<String>{u"initialize", u"show", u"hide"}));
    ASSERT_EQ(Services.DesktopService.Messages.size(), ++Expected);
    EXPECT_NE(Services.DesktopService.Messages.back().Text.find(u"no room for " + String(event)),
              String::npos);
  }
}

TEST_F(GuardedDocumentTest, LetsNoFailureOutAtTheUserOfItsControls) {
  Document->Show();
  Document->Failing = u"click";
  EXPECT_NO_THROW(forms::user::Press(Document->btm));
  Expected = 1;
}

}  // namespace
}  // namespace tessel
