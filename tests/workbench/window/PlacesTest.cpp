// Where the windows stand, and the keys that reach them.
#include <gtest/gtest.h>

#include <QMenuBar>
#include <QScreen>
#include <QTreeWidget>
#include <fstream>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/designer/PropertiesWindow.h"
#include "hosts/workbench/window/Colors.h"
#include "hosts/workbench/window/Settings.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

using Places = InWindow;

TEST_F(Places, ChildWindowsOpenWholeInsideTheirArea) {
  OpenSample();
  int opened = 0;
  for (const auto& component : window_->Root()->Active()->Components().All()) {
    if (!component->Module()) continue;
    CodeWindow& code = *window_->ShowCode(component);
    auto* const frame = qobject_cast<QMdiSubWindow*>(code.parentWidget());
    frame->showNormal();
    QApplication::processEvents();
    EXPECT_TRUE(window_->Children().viewport()->rect().contains(frame->geometry()))
        << component->PlainName().size() << " window " << opened;
    ++opened;
  }
  EXPECT_GT(opened, 12);
}

TEST_F(Places, ChildWindowsOpenMaximisedWhileThePresentOneIs) {
  OpenSample();
  const auto frameOf = [](QWidget& content) { return content.parentWidget(); };
  QWidget* const first = frameOf(Code(u"modMain"));
  EXPECT_TRUE(first->isMaximized());
  std::shared_ptr<model::VBComponent> form;
  for (const auto& one : window_->Root()->Active()->Components().All()) {
    if (one->PlainType() == host::vbext_ct_VBForm) form = one;
  }
  ASSERT_NE(form, nullptr);
  QWidget* const second = frameOf(*window_->ShowDesigner(form));
  EXPECT_TRUE(second->isMaximized());
  second->showNormal();
  QApplication::processEvents();
  EXPECT_FALSE(frameOf(*window_->ShowCode(form))->isMaximized());
}

TEST_F(Places, TheWindowFitsTheScreen) {
  const QRect room = window_->screen()->availableGeometry();
  window_->setGeometry(room.right() - 100, room.bottom() - 100, room.width() * 2,
                       room.height() * 2);
  Discard();
  window_ = std::make_unique<MainWindow>(services_, State());
  window_->show();
  QApplication::processEvents();
  EXPECT_TRUE(room.contains(window_->frameGeometry()))
      << window_->frameGeometry().width() << " by " << window_->frameGeometry().height();
}

TEST_F(Places, KeysShowAndFocusTheDockedWindows) {
  const auto act = [&](const char* caption) {
    for (QAction* const action : window_->findChildren<QAction*>()) {
      if (action->text() == QString::fromLatin1(caption)) return action;
    }
    return static_cast<QAction*>(nullptr);
  };
  OpenSample();
  window_->activateWindow();
  QAction* const projects = act("&Project Window");
  QAction* const properties = act("Properties &Window");
  ASSERT_NE(projects, nullptr);
  ASSERT_NE(properties, nullptr);
  EXPECT_EQ(projects->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
  EXPECT_EQ(properties->shortcut(), QKeySequence(Qt::Key_F4));
  for (const char* const name : {"project", "properties"}) {
    auto* const dock = window_->findChild<QDockWidget*>(QString::fromLatin1(name));
    QAction* const action = dock->objectName() == QStringLiteral("project") ? projects : properties;
    dock->hide();
    for (int times = 0; times < 2; ++times) {
      Code(u"modMain");
      action->trigger();
      EXPECT_TRUE(dock->isVisible()) << name;
      EXPECT_TRUE(dock->isAncestorOf(window_->focusWidget())) << name;
    }
  }
}

/// Each key of a menu's items, with the menus below it.
void CheckKeys(const QMenu& menu, const QString& path, std::map<QString, QString>& shortcuts) {
  std::map<QChar, QString> keys;
  for (QAction* const action : menu.actions()) {
    if (!action->isVisible() || action->isSeparator()) continue;
    const QString place = path + u'/' + action->text();
    const QKeySequence key = QKeySequence::mnemonic(action->text());
    if (!key.isEmpty()) {
      const QChar letter = key.toString().back().toUpper();
      EXPECT_TRUE(keys.emplace(letter, place).second)
          << place.toStdString() << " has the key of " << keys[letter].toStdString();
    }
    const QString shortcut = action->shortcut().toString();
    if (!shortcut.isEmpty()) {
      EXPECT_TRUE(shortcuts.emplace(shortcut, place).second)
          << place.toStdString() << " and " << shortcuts[shortcut].toStdString();
    }
    if (action->menu() != nullptr) CheckKeys(*action->menu(), place, shortcuts);
  }
}

TEST_F(Places, NoTwoItemsOfAMenuShareAKey) {
  OpenSample();
  for (const auto& component : window_->Root()->Active()->Components().All()) {
    if (component->Module()) window_->ShowCode(component);
  }
  std::map<QString, QString> shortcuts;
  std::map<QChar, QString> bar;
  for (QAction* const action : window_->menuBar()->actions()) {
    const QChar letter = QKeySequence::mnemonic(action->text()).toString().back().toUpper();
    EXPECT_TRUE(bar.emplace(letter, action->text()).second) << action->text().toStdString();
    emit action->menu()->aboutToShow();
    for (QAction* const below : action->menu()->actions()) {
      if (below->menu() != nullptr) emit below->menu()->aboutToShow();
    }
    CheckKeys(*action->menu(), action->text(), shortcuts);
  }
  EXPECT_GT(shortcuts.size(), 10U);
}

TEST_F(Places, ANewComponentIsOpened) {
  window_->NewProject(host::vbext_pt_StandardExe);
  ASSERT_NE(window_->Children().CurrentDesigner(), nullptr);
  EXPECT_EQ(window_->Children().CurrentDesigner()->Component()->PlainName(), u"Form1");
  ASSERT_TRUE(window_->ClickCommand(u"Menu Bar", {u"Project", u"Add Module"}));
  ASSERT_NE(window_->Children().CurrentCode(), nullptr);
  EXPECT_EQ(window_->Children().CurrentComponent()->PlainName(), u"Module1");
}

class Tree : public InWindow {
 protected:
  /// Captions of what lies in a folder of the only project.
  QStringList In(const char* folder) {
    QApplication::processEvents();
    QStringList captions;
    auto* const tree = window_->findChild<QTreeWidget*>(QStringLiteral("projects"));
    for (QTreeWidgetItem* const found :
         tree->findItems(QString::fromLatin1(folder), Qt::MatchExactly | Qt::MatchRecursive)) {
      for (int at = 0; at < found->childCount(); ++at) captions.append(found->child(at)->text(0));
    }
    return captions;
  }
};

TEST_F(Tree, IsSortedWithoutRegardToCase) {
  window_->NewProject(host::vbext_pt_ActiveXDll);
  for (const char16_t* const name : {u"Zebra", u"apple", u"Banana", u"cherry"}) {
    window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, name, u"");
  }
  EXPECT_EQ(In("Modules"), QStringList({"apple*", "Banana*", "cherry*", "Zebra*"}));
}

TEST_F(Tree, MarksWhatHasChanged) {
  OpenSample();
  const auto marked = [this] {
    return In("Modules").contains(QStringLiteral("modMain* (modMain.bas)"));
  };
  EXPECT_FALSE(marked());
  CodeWindow& code = Code(u"modMain");
  code.Editor().insertAt(QStringLiteral("x"), 0, 0);
  EXPECT_TRUE(QTest::qWaitFor(marked, PatienceMs));
  code.Editor().undo();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !marked(); }, PatienceMs));
}

TEST_F(Tree, KnowsComponentsOfOneNameApart) {
  folder_.Write("A.bas", "Attribute VB_Name = \"M\"\r\n' a\r\n");
  folder_.Write("B.bas", "Attribute VB_Name = \"M\"\r\n' b\r\n");
  folder_.Write("P.vbp", "Type=Exe\r\nModule=M; A.bas\r\nModule=M; B.bas\r\nName=\"P\"\r\n");
  ASSERT_TRUE(window_->OpenFile(QString::fromStdString((folder_.Path() / "P.vbp").string())));
  QApplication::processEvents();
  auto* const tree = window_->findChild<QTreeWidget*>(QStringLiteral("projects"));
  for (const char* const file : {"A", "B"}) {
    const auto found = tree->findItems(QStringLiteral("M (%1.bas)").arg(QLatin1String(file)),
                                       Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1);
    tree->setCurrentItem(found.front());
    emit tree->itemActivated(found.front(), 0);
    ASSERT_NE(window_->Children().CurrentCode(), nullptr);
    EXPECT_EQ(window_->Children().CurrentCode()->Editor().text().trimmed(),
              QStringLiteral("' %1").arg(QLatin1String(file).front()).toLower());
    EXPECT_EQ(tree->currentItem(), found.front());
  }
}

TEST(MutedText, CanBeReadOnEveryPaletteOfTheWindow) {
  for (const ColorScheme scheme : {ColorScheme::Light, ColorScheme::Dark}) {
    const QPalette palette = PaletteOf(scheme);
    const int text = MutedText(palette).lightness();
    EXPECT_GT(std::abs(text - palette.color(QPalette::Window).lightness()), 80);
    EXPECT_LT(std::abs(text - palette.color(QPalette::WindowText).lightness()), 160);
  }
}

}  // namespace
}  // namespace tessel::workbench
