#include "contextmenu/frmContextMenu.h"

#include <gtest/gtest.h>

#include "forms/User.h"
#include "support/MemoryPlatform.h"

namespace tessel {
namespace {

namespace user = forms::user;

class ContextMenu : public testing::Test {
 protected:
  ContextMenu() {
    services_.WindowsService.Use(windows_);
    form_->ArrayMenu = {u"One", u"Two", u"Three"};
  }

  /// Shows the list and does something while it is up.
  void Show(const std::function<void()>& meanwhile) {
    services_.DesktopService.OnModal = [&](forms::Form&) { meanwhile(); };
    form_->Show(platform::ShowStyle::Modal);
  }
  [[nodiscard]] std::vector<std::string>& Journal() { return services_.DesktopService.Journal; }

  memory::MemoryPlatform services_;
  platform::ScopedPlatform scope_{services_};
  model::WindowTable windows_;
  std::shared_ptr<frmContextMenu> form_ = std::make_shared<frmContextMenu>();
};

TEST_F(ContextMenu, ListsTheEntriesInTheirOrderAndSelectsNone) {
  Show([&] {
    EXPECT_EQ(form_->lstMenu.List(), form_->ArrayMenu);
    EXPECT_EQ(form_->lstMenu.ListIndex(), -1);
  });
}

TEST_F(ContextMenu, IsFilledAnewWheneverItIsShown) {
  Show([&] { form_->Hide(); });
  form_->ArrayMenu = {u"Four"};
  Show([&] { EXPECT_EQ(form_->lstMenu.List(), std::vector<String>{u"Four"}); });
}

TEST_F(ContextMenu, ARowIsLowerTheMoreThereAre) {
  struct Case {
    int Rows, Height;
  };
  for (const Case& one :
       {Case{1, 225}, Case{8, 8 * 225}, Case{9, 9 * 215}, Case{12, 12 * 215}, Case{13, 13 * 205},
        Case{24, 24 * 205}, Case{25, 25 * 200}, Case{300, 300 * 200}}) {
    form_->ArrayMenu.assign(static_cast<std::size_t>(one.Rows), u"x");
    Show([&] {
      EXPECT_EQ(form_->lstMenu.Height, one.Height) << one.Rows;
      form_->Hide();
    });
  }
}

TEST_F(ContextMenu, StandsAtThePlaceInTheCodeWindow) {
  const auto code = windows_.Create(u"VbaWindow", u"", 0);
  windows_.PlaceOf = [&](std::intptr_t window) -> std::optional<platform::WindowRectangle> {
    if (window != code) return std::nullopt;
    return platform::WindowRectangle{100, 50, 500, 400};
  };
  form_->hwndCODE = code;
  form_->CodeX = 20;
  form_->CodeY = 30;
  Show([] {});
  const auto& at = services_.DesktopService.Placement;
  ASSERT_TRUE(at);
  EXPECT_EQ(at->Left, 120);
  EXPECT_EQ(at->Top, 80);
  EXPECT_EQ(at->Right - at->Left, 0) << "its size is that of the list";
}

TEST_F(ContextMenu, WithoutAPlaceOfTheWindowItStandsInTheCornerOfTheScreen) {
  form_->CodeX = 20;
  form_->CodeY = 30;
  Show([] {});
  EXPECT_EQ(services_.DesktopService.Placement->Left, 20);
  EXPECT_EQ(services_.DesktopService.Placement->Top, 30);
}

TEST_F(ContextMenu, ADoubleClickTakesTheRow) {
  Show([&] {
    user::DoubleClick(form_->lstMenu, 1);
    EXPECT_FALSE(form_->Visible());
  });
  EXPECT_EQ(form_->ItemMenu, u"Two");
}

TEST_F(ContextMenu, EscapeAndTheLineFeedTakeTheSelectedRow) {
  for (const int key : {27, 10}) {
    Show([&] {
      user::Pick(form_->lstMenu, 2);
      user::Key(form_->lstMenu, key);
      EXPECT_FALSE(form_->Visible());
    });
    EXPECT_EQ(form_->ItemMenu, u"Three") << key;
    EXPECT_TRUE(Journal().empty());
  }
}

TEST_F(ContextMenu, EscapeWithoutASelectedRowTakesNothing) {
  form_->ItemMenu = u"old";
  Show([&] { user::Key(form_->lstMenu, 27); });
  EXPECT_EQ(form_->ItemMenu, u"");
}

TEST_F(ContextMenu, ALetterClosesTheListAndGoesIntoTheCode) {
  form_->ItemMenu = u"old";
  Show([&] {
    user::Pick(form_->lstMenu, 0);
    user::Key(form_->lstMenu, u'a');
    EXPECT_FALSE(form_->Visible());
  });
  EXPECT_EQ(form_->ItemMenu, u"");
  EXPECT_EQ(Journal(), std::vector<std::string>{"keys a"});
}

TEST_F(ContextMenu, SignsThatMeanKeysAreTypedAsThemselves) {
  struct Case {
    int Key;
    const char* Sent;
  };
  for (const Case& one : {Case{u'(', "keys {(}"}, Case{u'+', "keys {+}"}, Case{u'}', "keys {}}"},
                          Case{13, "keys {ENTER}"}, Case{8, "keys {BACKSPACE}"},
                          Case{9, "keys {TAB}"}, Case{u' ', "keys  "}, Case{u'.', "keys ."}}) {
    Journal().clear();
    Show([&] { user::Key(form_->lstMenu, one.Key); });
    EXPECT_EQ(Journal(), std::vector<std::string>{one.Sent});
  }
}

TEST_F(ContextMenu, AListThatIsClickedAwayWasCancelled) {
  form_->ItemMenu = u"old";
  Show([&] {
    user::Pick(form_->lstMenu, 0);
    user::Close(*form_);
  });
  EXPECT_EQ(form_->ItemMenu, u"");
}

}  // namespace
}  // namespace tessel
