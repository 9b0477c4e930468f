// The Explorer in a dock of the window.

#include <QDockWidget>
#include <QFile>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolTip>
#include <QTreeView>
#include <QTreeWidget>

#include "explorer/udProjectExplorer.h"
#include "forms/User.h"
#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/designer/PropertiesWindow.h"
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

TEST_F(ExplorerDock, TheObjectsOfAClosedProjectAreNoLongerInThePropertiesWindow) {
  Show();
  ASSERT_NE(window_->ShowDesigner(Component(u"frmFind")), nullptr);
  Settle();
  PropertiesWindow* properties = nullptr;
  for (QWidget* const widget : window_->findChildren<QWidget*>()) {
    if (auto* const one = dynamic_cast<PropertiesWindow*>(widget)) properties = one;
  }
  ASSERT_NE(properties, nullptr);
  ASSERT_EQ(properties->Component(), Component(u"frmFind"));
  // As somebody may who looks at it still.
  const auto held = properties->Component()->Project();
  ASSERT_TRUE(window_->CloseProjects());
  Settle();
  EXPECT_TRUE(QTest::qWaitFor([&] { return properties->Component() == nullptr; }, 1500));
}

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

TEST_F(ExplorerDock, AnotherKeyOpensItAndGoesToTheLineForFinding) {
  CodeWindow& code = Code(u"modText");
  code.Editor().setFocus();
  for (const char* const where : {"closed", "open", "floating"}) {
    QTest::keyClick(&code.Editor(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_NE(Dock(), nullptr) << where;
    EXPECT_TRUE(Dock()->isVisible()) << where;
    EXPECT_TRUE(In<QLineEdit>(Dock(), "txtFind")->hasFocus()) << where;
    if (where == std::string_view("open")) Dock()->setFloating(true);
    Settle();
    window_->activateWindow();
    code.Editor().setFocus();
  }
}

TEST_F(ExplorerDock, ShiftF10OpensThePopUpOfTheRow) {
  Show();
  const int row = RowOf(u"modText");
  forms::user::SelectRow(Document()->fgTree, row, 0);
  Settle();
  bool seen = false;
  QTimer::singleShot(50, qApp, [&] {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    seen = true;
    menu->close();
  });
  Tree()->setFocus();
  QTest::keyClick(Tree(), Qt::Key_F10, Qt::ShiftModifier);
  QTest::qWait(100);
  EXPECT_TRUE(seen);
  EXPECT_EQ(Document()->fgTree.Row(), row);
}

TEST_F(ExplorerDock, LeavesALowWindowAsLowAsItIs) {
  window_->resize(692, 414);
  Settle();
  const int height = window_->height();
  Show();
  Settle();
  ASSERT_TRUE(Dock()->isVisible());
  EXPECT_EQ(window_->height(), height);
  EXPECT_LE(height, 450);
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
  static_cast<void>(tip(project));
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); })) << "what is whole needs none";
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
  EXPECT_TRUE(QTest::qWaitFor([&] { return RowOf(u"Module1") >= 0; }, PatienceMs));
}

TEST_F(ExplorerDock, WhatAToolWritesInAModuleWithoutAWindowIsShownAndGoesWhenItIsTakenBack) {
  Show();
  const auto component = Component(u"modText");
  const String before = Text(u"modText");
  window_->RunTool([&] { component->Module()->InsertLines(1, u"Sub AtTheHead()\r\nEnd Sub\r\n"); });
  EXPECT_TRUE(QTest::qWaitFor([&] { return RowOf(u"AtTheHead") >= 0; }, PatienceMs));
  auto* const runs = window_->findChild<RunDock*>(QStringLiteral("run"));
  ASSERT_NE(runs, nullptr);
  ASSERT_TRUE(runs->List().OnTakeBack(component, before, Text(u"modText")));
  EXPECT_TRUE(QTest::qWaitFor([&] { return RowOf(u"AtTheHead") < 0; }, PatienceMs));
}

TEST_F(ExplorerDock, EditsThatAreChosenFromTheMenuAreShown) {
  Show();
  CodeEditor& editor = Code(u"modText").Editor();
  editor.setFocus();
  editor.Select({1, 1, 1, 1});
  editor.insert(QStringLiteral("Sub AtTheHead()\nEnd Sub\n"));
  const auto choose = [&](const char* caption) {
    for (QMenu* const menu : window_->menuBar()->findChildren<QMenu*>()) {
      for (QAction* const action : menu->actions()) {
        if (action->text() != QLatin1String(caption)) continue;
        emit menu->aboutToShow();
        EXPECT_TRUE(action->isEnabled()) << caption;
        return action->trigger();
      }
    }
    FAIL() << caption;
  };
  const auto shows = [&](bool there) {
    return QTest::qWaitFor([&] { return (RowOf(u"AtTheHead") >= 0) == there; }, PatienceMs);
  };
  QTest::keyClick(&editor, Qt::Key_Down);
  ASSERT_TRUE(shows(true));
  choose("&Undo");
  EXPECT_TRUE(shows(false));
  choose("&Redo");
  EXPECT_TRUE(shows(true));
  editor.Select({1, 1, 3, 1});
  choose("Cu&t");
  EXPECT_TRUE(shows(false));
  choose("&Paste");
  EXPECT_TRUE(shows(true));
  editor.Select({1, 1, 2, 8});
  choose("Co&mment Block");
  EXPECT_TRUE(shows(false));
  choose("Unc&omment Block");
  EXPECT_TRUE(shows(true));
  EXPECT_TRUE(editor.hasFocus());
}

/// Two projects whose forms bear one name and hold a button and its code.
class ExplorerOfTwins : public ExplorerDock {
 protected:
  ExplorerOfTwins() {
    for (const std::string name : {"P1", "P2"}) {
      folder_.Write(
          name + "/Form1.frm",
          "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   Caption         =   \"Form1\"\r\n"
          "   ClientHeight    =   3000\r\n   ClientWidth     =   4000\r\n"
          "   Begin VB.CommandButton Command1 \r\n      Caption         =   \"Command1\"\r\n"
          "      Height          =   855\r\n      Left            =   240\r\n"
          "      Top             =   240\r\n      Width           =   2655\r\n   End\r\n"
          "End\r\nAttribute VB_Name = \"Form1\"\r\nPrivate Sub Command1_Click()\r\n"
          "End Sub\r\nSub Only" +
              name + "()\r\nEnd Sub\r\n");
      const auto file = folder_.Write(name + "/" + name + ".vbp",
                                      "Type=Exe\r\nForm=Form1.frm\r\nName=\"" + name + "\"\r\n");
      EXPECT_TRUE(window_->OpenFile(QString::fromStdString(file.string())));
    }
    Settle();
  }
  std::shared_ptr<model::VBComponent> FormOf(StringView project) {
    return window_->Root()->Projects().Find(project)->Components().Find(u"Form1");
  }
  static String TextOf(const model::VBComponent& component) {
    const auto& buffer = component.Module()->Buffer();
    return buffer.Text(1, buffer.Count());
  }
  /// Captions below the row of a project.
  std::vector<String> RowsOf(StringView project) {
    const forms::Grid& grid = Document()->fgTree;
    std::vector<String> rows;
    for (int row = 0; row < grid.Rows(); ++row) {
      if (grid.TextMatrix(row, 2) == project && grid.RowAt(row).Level == 3) {
        rows.push_back(grid.TextMatrix(row, 0));
      }
    }
    return rows;
  }
};

TEST_F(ExplorerOfTwins, ARenamedControlsCodeIsThatOfTheFormInFront) {
  DesignerView* const first = window_->ShowDesigner(FormOf(u"P1"));
  window_->ShowDesigner(FormOf(u"P2"));
  Settle();
  // By its title bar.
  window_->Children().setActiveSubWindow(qobject_cast<QMdiSubWindow*>(first->parentWidget()));
  Settle();
  EXPECT_EQ(window_->Root()->Active()->PlainName(), u"P1");
  // A project's line of the project window makes that one active, and the designer stays in front.
  window_->Root()->Activate(window_->Root()->Projects().Find(u"P2"));
  names_.stop();
  When([] { return OpenForm("frmControlName"); },
       [](FormWindow* dialog) { Press(dialog, "btmYes"); });
  const auto& tree = FormOf(u"P1")->OwnDesigner()->Tree();
  ASSERT_TRUE(first->Editor()->Rename(*tree.Controls()[0], u"cmdGo"));
  EXPECT_EQ(TextOf(*FormOf(u"P1")),
            u"Private Sub cmdGo_Click()\r\nEnd Sub\r\nSub OnlyP1()\r\nEnd Sub");
  EXPECT_EQ(TextOf(*FormOf(u"P2")),
            u"Private Sub Command1_Click()\r\nEnd Sub\r\nSub OnlyP2()\r\nEnd Sub");
}

TEST_F(ExplorerOfTwins, TheKeysThatComeBackFromADockTurnTheChoiceToTheirWindow) {
  Show();
  CodeWindow* const code = window_->ShowCode(FormOf(u"P1"));
  Settle();
  auto* const tree = window_->findChild<QTreeWidget*>(QStringLiteral("projects"));
  tree->setFocus();
  for (QTreeWidgetItem* const item :
       tree->findItems(QStringLiteral("Form1 ("), Qt::MatchStartsWith | Qt::MatchRecursive)) {
    if (item != tree->currentItem()) {
      tree->setCurrentItem(item);
      break;
    }
  }
  Settle();
  ASSERT_EQ(window_->Root()->Selected(), FormOf(u"P2"));
  code->Editor().setFocus();
  EXPECT_EQ(window_->Root()->Selected(), FormOf(u"P1"));
  EXPECT_EQ(window_->Root()->Active()->PlainName(), u"P1");
  QTest::qWait(400);
  QTest::keyClick(&code->Editor(), Qt::Key_Down);
  QTest::qWait(400);
  EXPECT_EQ(RowsOf(u"P1"), (std::vector<String>{u"Command1_Click", u"OnlyP1"}));
  EXPECT_EQ(RowsOf(u"P2"), (std::vector<String>{u"Command1_Click", u"OnlyP2"}));
}

TEST_F(ExplorerOfTwins, AComponentThatChangedOutsideShowsItsNewMembers) {
  Show();
  QTest::qWait(700);  // until the files are watched
  const auto file = folder_.Path() / "P1" / "Form1.frm";
  QFile on(QString::fromStdString(file.string()));
  ASSERT_TRUE(on.open(QIODevice::ReadOnly));
  const std::string text = on.readAll().replace("OnlyP1", "Changed").toStdString();
  on.close();
  folder_.Write("P1/Form1.frm", text);
  EXPECT_TRUE(QTest::qWaitFor(
      [&] {
        return RowsOf(u"P1") == std::vector<String>{u"Command1_Click", u"Changed"};
      },
      PatienceMs));
}

}  // namespace
}  // namespace tessel::workbench
