#include "hosts/workbench/forms/ToolWindowDocks.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include "forms/Controls.h"
#include "forms/Document.h"
#include "hosts/workbench/platform/Text.h"
#include "workbench/forms/Desk.h"

namespace tessel::workbench {
namespace {

struct udSample : forms::Document {
  udSample() : Document("udSample", u"Sample") {
    using namespace forms;
    mnuPop.SetVisible(false);
    mnuGrey.SetEnabled(false);
    mnuTicked.SetChecked(true);
    mnuPop.Click = [this] { mnuCode.SetCaption(u"View " + txtName.Text()); };
    mnuCode.Click = [this] { txtName.SetText(u"chosen"); };
    mnuDeep.Click = [this] { txtName.SetText(u"deep"); };
    btmPop.Click = [this] { PopupMenu(mnuPop, platform::SurfacePoint{5, 5}); };
    SetLayout(Column({Item(txtName), Item(btnStay), Item(btmPop)}));
  }
  forms::MenuItem mnuPop{this, "mnuPop", u"Pop"};
  forms::MenuItem mnuCode{&mnuPop, "mnuCode", u"View Code"};
  forms::MenuItem mnuLine{&mnuPop, "mnuLine", u"-"};
  forms::MenuItem mnuGrey{&mnuPop, "mnuGrey", u"Grey"};
  forms::MenuItem mnuTicked{&mnuPop, "mnuTicked", u"Ticked"};
  forms::MenuItem mnuAdd{&mnuPop, "mnuAdd", u"Add"};
  forms::MenuItem mnuDeep{&mnuAdd, "mnuDeep", u"Form"};
  forms::TextBox txtName{this, "txtName", {.Text = u"M"}};
  forms::ToggleButton btnStay{this, "btnStay", {.Caption = u"Show members"}};
  forms::Button btmPop{this, "btmPop", {.Caption = u"Pop"}};
};

class Docks : public testing::Test {
 protected:
  Docks() {
    made_ = windows_.CreateToolWindow([this](StringView) { return document_; }, u"Tessel.udSample",
                                      u"Sample", u"{1}");
    main_.resize(800, 600);
    main_.show();
    Follow();
  }
  void Follow() {
    docks_.FollowSoon();
    test::Desk::Turn();
  }
  QDockWidget& Dock() {
    QDockWidget* const dock = docks_.DockOf(u"udSample");
    if (dock == nullptr) throw std::runtime_error("no dock");
    return *dock;
  }
  template <class Widget>
  Widget& Find(const char* name) {
    return *Dock().findChild<Widget*>(QLatin1String(name));
  }
  /// Does something with the pop-up menu as soon as it is open.
  void WhenUp(const std::function<void(QMenu&)>& act) {
    QTimer::singleShot(1, qApp, [act] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      act(*menu);
      menu->close();
    });
  }

  test::Desk desk_;
  QMainWindow main_;
  model::Windows windows_{std::make_shared<model::OperationHook>()};
  std::shared_ptr<udSample> document_ = std::make_shared<udSample>();
  host::ToolWindow made_;
  ToolWindowDocks docks_{main_, desk_.Desktop(), [this] { return windows_.ToolWindows(); }};
};

TEST_F(Docks, ADockIsOpenAsLongAsItsWindowIs) {
  EXPECT_FALSE(Dock().isVisible());
  made_.Frame->SetVisible(true);
  Follow();
  EXPECT_TRUE(Dock().isVisible());
  EXPECT_EQ(Dock().windowTitle(), QStringLiteral("Sample"));
  Dock().close();
  test::Desk::Turn();
  EXPECT_FALSE(made_.Frame->Visible());
  EXPECT_FALSE(document_->Visible());
}

TEST_F(Docks, ADocumentIsUsedAsAFormIs) {
  made_.Frame->SetVisible(true);
  Follow();
  auto& line = Find<QLineEdit>("txtName");
  line.setFocus();
  line.selectAll();
  QTest::keyClicks(&line, QStringLiteral("typed"));
  EXPECT_EQ(document_->txtName.Text(), u"typed");
  Find<QPushButton>("btnStay").click();
  EXPECT_EQ(document_->btnStay.Value(), 1);
  document_->btnStay.SetValue(0);
  test::Desk::Turn();
  EXPECT_FALSE(Find<QPushButton>("btnStay").isChecked());
}

TEST_F(Docks, AMenuPopsUpOverTheDocument) {
  made_.Frame->SetVisible(true);
  Follow();
  QStringList seen;
  WhenUp([&](QMenu& menu) {
    for (const QAction* action : menu.actions()) {
      seen.append(action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    EXPECT_FALSE(menu.actions()[2]->isEnabled());
    EXPECT_TRUE(menu.actions()[3]->isChecked());
    menu.actions()[0]->trigger();
  });
  Find<QPushButton>("btmPop").click();
  EXPECT_EQ(seen.join(u' '), QStringLiteral("View M - Grey Ticked Add"));
  EXPECT_EQ(document_->txtName.Text(), u"chosen");
  WhenUp([](QMenu& menu) { menu.actions()[4]->menu()->actions()[0]->trigger(); });
  Find<QPushButton>("btmPop").click();
  EXPECT_EQ(document_->txtName.Text(), u"deep");
}

TEST_F(Docks, AWindowThatGoesTakesItsDockAlong) {
  made_ = {};
  document_.reset();
  Follow();
  EXPECT_EQ(docks_.DockOf(u"udSample"), nullptr);
  EXPECT_TRUE(main_.findChildren<QDockWidget*>().isEmpty());
}

TEST_F(Docks, APictureOnAButtonHasItsCaptionAsTip) {
  document_->btnStay.Picture = 122;
  made_.Frame->SetVisible(true);
  Follow();
  auto& button = Find<QPushButton>("btnStay");
  EXPECT_FALSE(button.icon().isNull());
  EXPECT_TRUE(button.text().isEmpty());
  EXPECT_EQ(button.toolTip(), QStringLiteral("Show members"));
  EXPECT_EQ(button.width(), button.height());
}

}  // namespace
}  // namespace tessel::workbench
