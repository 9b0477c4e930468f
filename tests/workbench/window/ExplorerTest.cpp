// The Explorer in a dock of the window.

#include <QDockWidget>
#include <QHelpEvent>
#include <QLineEdit>
#include <QToolTip>
#include <QTreeView>

#include "explorer/udProjectExplorer.h"
#include "forms/User.h"
#include "hosts/workbench/window/ExplorerCommands.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

class ExplorerDock : public InWindow {
 protected:
  ExplorerDock() { OpenSample(); }

  std::shared_ptr<udProjectExplorer> Document() {
    auto found = ExplorerOf(*window_);
    if (!found) throw std::runtime_error("no document");
    return found;
  }
  QDockWidget* Dock() {
    for (QDockWidget* const dock : window_->findChildren<QDockWidget*>()) {
      if (dock->windowTitle() == QStringLiteral("Tessel Project Explorer")) return dock;
    }
    return nullptr;
  }
  QTreeView* Tree() { return In<QTreeView>(Dock(), "fgTree"); }
  void Show() {
    ASSERT_TRUE(window_->ClickCommand(u"Tessel", {u"Project Explorer"}));
    Settle();
  }
  static void Settle() {
    for (int turn = 0; turn < 3; ++turn) QApplication::processEvents();
  }
  int RowOf(StringView caption) {
    const forms::Grid& grid = Document()->fgTree;
    for (int row = 0; row < grid.Rows(); ++row) {
      if (grid.TextMatrix(row, 0) == caption) return row;
    }
    return -1;
  }
};

TEST_F(ExplorerDock, OpensByItsCommandAndLeavesTheKeysToTheCode) {
  CodeEditor& editor = Code(u"modText").Editor();
  editor.setFocus();
  ASSERT_TRUE(editor.hasFocus());
  EXPECT_TRUE(Dock() == nullptr || Dock()->isHidden());
  Show();
  ASSERT_NE(Dock(), nullptr);
  EXPECT_TRUE(Dock()->isVisible());
  EXPECT_TRUE(editor.hasFocus());
  EXPECT_GT(Document()->fgTree.Rows(), 5);
  EXPECT_GT(Tree()->model()->rowCount(), 0);
}

TEST_F(ExplorerDock, HasRoomForItsRowsTheFirstTimeAndKeepsTheUsersHeight) {
  window_->resize(1000, 800);
  window_->show();
  Show();
  EXPECT_GT(Dock()->height(), window_->height() / 3);
  window_->resizeDocks({Dock()}, {210}, Qt::Vertical);
  Settle();
  const int own = Dock()->height();
  EXPECT_LT(own, window_->height() / 3);
  Dock()->close();
  Settle();
  Show();
  EXPECT_NEAR(Dock()->height(), own, 40);
}

TEST_F(ExplorerDock, StandsLeftRightOrFloatsAndIsThereAgainAfterARestart) {
  Show();
  window_->addDockWidget(Qt::LeftDockWidgetArea, Dock());
  EXPECT_EQ(window_->dockWidgetArea(Dock()), Qt::LeftDockWidgetArea);
  Discard();
  Start();
  OpenSample();
  Settle();
  ASSERT_NE(Dock(), nullptr);
  EXPECT_TRUE(Dock()->isVisible()) << "it was open when the window was closed";
  EXPECT_EQ(window_->dockWidgetArea(Dock()), Qt::LeftDockWidgetArea);
  Dock()->setFloating(true);
  Settle();
  Discard();
  Start();
  OpenSample();
  Settle();
  EXPECT_TRUE(Dock()->isFloating());
  EXPECT_TRUE(Dock()->isVisible());
  Dock()->close();
  Settle();
  EXPECT_FALSE(Document()->Visible());
  Discard();
  Start();
  OpenSample();
  Settle();
  EXPECT_TRUE(Dock()->isHidden()) << "it was closed";
}

TEST_F(ExplorerDock, ADoubleClickOpensTheCodeAndGivesItTheKeys) {
  Show();
  const int row = RowOf(u"modText");
  ASSERT_GE(row, 0);
  forms::user::SelectRow(Document()->fgTree, row, 0);
  Settle();
  Tree()->setFocus();
  QTest::keyClick(Tree(), Qt::Key_Return);
  Settle();
  CodeWindow* const code = window_->Children().CurrentCode();
  ASSERT_NE(code, nullptr);
  EXPECT_EQ(code->Pane()->Module()->Component()->PlainName(), u"modText");
}

TEST_F(ExplorerDock, TheKeyPutsTheSelectionOnTheMemberAtTheCaret) {
  CodeWindow& code = Code(u"modText");
  const auto members = Component(u"modText")->Module()->Index().Members();
  ASSERT_GT(members.size(), 1U);
  const int line = members[1].Lines.Body;
  code.Editor().Select({line, 1, line, 1});
  Settle();
  QTest::keyClick(&code.Editor(), Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier);
  Settle();
  ASSERT_NE(Dock(), nullptr);
  EXPECT_TRUE(Dock()->isVisible()) << "it was closed";
  const forms::Grid& grid = Document()->fgTree;
  ASSERT_GE(grid.Row(), 0);
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 0), members[1].Name);
  EXPECT_EQ(Tree()->currentIndex().data().toString(), ToQt(members[1].Name));
  EXPECT_TRUE(code.Editor().hasFocus());
}

TEST_F(ExplorerDock, TypingAboveTheTreeNarrowsItAndEscapeGivesItBack) {
  Show();
  const int rows = Document()->fgTree.Rows();
  auto* const line = In<QLineEdit>(Dock(), "txtFind");
  line->setFocus();
  QTest::keyClicks(line, QStringLiteral("modtext"));
  Settle();
  EXPECT_LT(Document()->fgTree.Rows(), rows);
  EXPECT_GT(Document()->fgTree.Rows(), 2);
  QTest::keyClick(line, Qt::Key_Escape);
  Settle();
  EXPECT_EQ(Document()->fgTree.Rows(), rows);
  EXPECT_TRUE(line->text().isEmpty());
}

TEST_F(ExplorerDock, ANarrowDockBreaksTheLineOfButtonsAndTellsCutCaptionsByATip) {
  Show();
  window_->addDockWidget(Qt::LeftDockWidgetArea, Dock());
  window_->resizeDocks({Dock()}, {40}, Qt::Horizontal);
  Settle();
  const QRect inside = Dock()->widget()->rect();
  EXPECT_LT(inside.width(), 230) << "less than the buttons have side by side";
  const auto place = [&](const char* name) {
    auto* const button = In<QAbstractButton>(Dock(), name);
    return QRect(button->mapTo(Dock()->widget(), QPoint(0, 0)), button->size());
  };
  EXPECT_GT(place("btmCode").top(), place("btnCollapse").bottom()) << "a second line";
  for (const char* const name : {"btnCollapse", "btnRefresh", "btmObject", "btmCode"}) {
    EXPECT_TRUE(inside.contains(place(name))) << name;
  }
  QTreeView& tree = *Tree();
  tree.expandAll();
  tree.setFixedWidth(90);
  Settle();
  const auto tip = [&](const QModelIndex& index) {
    const QPoint middle = tree.visualRect(index).center();
    QHelpEvent event(QEvent::ToolTip, middle, tree.viewport()->mapToGlobal(middle));
    QApplication::sendEvent(tree.viewport(), &event);
    return QToolTip::text();
  };
  const QModelIndex project = tree.model()->index(0, 0);
  EXPECT_EQ(tip(project), project.data().toString());
  tree.setFixedWidth(900);
  Settle();
  EXPECT_NE(tip(project), project.data().toString()) << "what is whole needs no tip";
}

TEST_F(ExplorerDock, TheLineAboveTheTreeSaysWhatItIsFor) {
  Show();
  EXPECT_EQ(In<QLineEdit>(Dock(), "txtFind")->placeholderText(), QStringLiteral("Find"));
}

TEST_F(ExplorerDock, WhatThePopUpAddsIsOpenedAndHasItsRow) {
  Show();
  forms::Grid& grid = Document()->fgTree;
  QTimer::singleShot(50, qApp, [] {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    for (QAction* const action : menu->findChildren<QAction*>()) {
      if (action->objectName() == QStringLiteral("mnuModuleVB6")) action->trigger();
    }
    menu->close();
  });
  forms::user::RightClick(grid, 1);
  Settle();
  ASSERT_NE(window_->Children().CurrentCode(), nullptr);
  EXPECT_EQ(window_->Children().CurrentCode()->Pane()->Module()->Component()->PlainName(),
            u"Module1");
  Press(Dock(), "btnRefresh");
  EXPECT_GE(RowOf(u"Module1"), 0);
}

}  // namespace
}  // namespace tessel::workbench
