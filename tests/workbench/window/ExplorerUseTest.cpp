// A person at work in a large project while the Explorer stands open: whatever is done, its tree
// tells the truth a moment later, and the keys stay with the code.

#include <QMenu>
#include <random>

#include "explorer/PlainReading.h"
#include "explorer/udProjectExplorer.h"
#include "forms/User.h"
#include "hosts/workbench/window/ExplorerCommands.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

class ExplorerInUse : public InWindow {
 protected:
  static constexpr int Components = 200, Members = 5;

  ExplorerInUse() {
    std::string project = "Type=Exe\r\n";
    for (int number = 0; number < Components; ++number) {
      project += Write(number);
      names_.push_back(u"Part" + vb::Str(number));
    }
    folder_.Write("Large.vbp", project + "Name=\"Large\"\r\n");
    EXPECT_TRUE(window_->OpenFile(QString::fromStdString((folder_.Path() / "Large.vbp").string())));
    EXPECT_TRUE(window_->ClickCommand(u"Tessel", {u"Project Explorer"}));
    explorer_ = ExplorerOf(*window_);
    Focus(u"Part0");
  }

  /// A file of the project; its line in the project file.
  std::string Write(int number) const {
    constexpr const char* Lines[] = {"Module=%; %.bas\r\n", "Class=%; %.cls\r\n", "Form=%.frm\r\n"};
    constexpr const char* Ends[] = {".bas", ".cls", ".frm"};
    constexpr const char* Heads[] = {
        "", "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n",
        "VERSION 5.00\r\nBegin VB.Form % \r\n   ClientHeight    =   3000\r\n"
        "   ClientWidth     =   4000\r\nEnd\r\n"};
    const std::string name = "Part" + std::to_string(number);
    const auto named = [&](std::string text) {
      for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%')) {
        text.replace(at, 1, name);
      }
      return text;
    };
    const auto kind = static_cast<std::size_t>(number % 3);
    std::string text = named(Heads[kind]) + "Attribute VB_Name = \"" + name + "\"\r\n";
    for (int member = 0; member < Members; ++member) {
      text += "Sub Do" + std::to_string(member) + "()\r\n    x = 1\r\nEnd Sub\r\n\r\n";
    }
    folder_.Write(name + Ends[kind], text);
    return named(Lines[kind]);
  }

  [[nodiscard]] std::vector<std::string> FreshReading() const {
    return test::PlainReading(*window_->Root(), true, true, true).Rows;
  }
  /// Within the Explorer's timers the tree is as a fresh reading has it.
  void ExpectTruth(const std::string& where) {
    const auto isTrue = [&] { return test::RowsIn(explorer_->fgTree) == FreshReading(); };
    EXPECT_TRUE(QTest::qWaitFor(isTrue, PatienceMs)) << where;
  }
  CodeEditor& Focus(StringView name) {
    CodeEditor& editor = Code(name).Editor();
    editor.setFocus();
    QApplication::processEvents();
    return editor;
  }
  /// Types as a person does, key by key, and the keys stay there.
  void Type(CodeEditor& editor, int line, int column, const QString& text) {
    editor.Select({line, column, line, column});
    for (const QChar sign : text) {
      if (sign == u'\n') {
        QTest::keyClick(&editor, Qt::Key_Return);
      } else {
        QTest::keyClick(&editor, sign.toLatin1());
      }
    }
    EXPECT_TRUE(editor.hasFocus());
  }
  /// Chooses an item of the menu of the Explorer's first row.
  void AddByPopUp(const char* item) {
    QTimer::singleShot(20, qApp, [item] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      for (QAction* const action : menu->findChildren<QAction*>()) {
        if (action->objectName() == QLatin1String(item)) action->trigger();
      }
      menu->close();
    });
    window_->RunTool([&] { forms::user::RightClick(explorer_->fgTree, 0); });
  }
  int Random(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  /// One thing that a person does; what it was.
  std::string Act(int number) {
    const int at = Random(Components);
    const String name = names_[static_cast<std::size_t>(at)];
    const QString own = QStringLiteral("New%1").arg(number);
    switch (Random(7)) {
      case 0:
        Type(Focus(name), 1, 1, QStringLiteral("Sub %1()\nEnd Sub\n").arg(own));
        return "a member typed into " + vb::ToUtf8(name);
      case 1: {
        CodeEditor& editor = Focus(name);
        const auto members = Component(name)->Module()->Index().Members();
        if (members.empty()) return "nothing";
        const int line = members.front().Lines.Body;
        Type(editor, line, 5, QStringLiteral("Re%1").arg(number));
        QTest::keyClick(&editor, Qt::Key_Down);
        return "a member renamed in " + vb::ToUtf8(name);
      }
      case 2: {
        CodeEditor& editor = Focus(name);
        Type(editor, 1, 1, QStringLiteral("Sub %1()\nEnd Sub\n").arg(own));
        for (int times = Random(6); times >= 0; --times) {
          QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
        }
        EXPECT_TRUE(editor.hasFocus());
        return "typed into and undone in " + vb::ToUtf8(name);
      }
      case 3:
        if (QMdiSubWindow* const frame = window_->Children().activeSubWindow()) frame->close();
        return "a window closed";
      case 4:
        Focus(name);
        return "a window opened";
      case 5:
        AddByPopUp(Random(2) == 0 ? "mnuModuleVB6" : "mnuClassModuleVB6");
        return "a component added";
      default:
        names_[static_cast<std::size_t>(at)] = u"Named" + vb::Str(number);
        window_->Environment().RenameComponent(u"", name, names_[static_cast<std::size_t>(at)]);
        return "a component renamed";
    }
  }

  std::shared_ptr<udProjectExplorer> explorer_;
  std::vector<String> names_;
  std::mt19937 random_{5};
};

TEST_F(ExplorerInUse, WhateverIsDoneTheTreeTellsTheTruthAndTheKeysStayWithTheCode) {
  ExpectTruth("at first");
  EXPECT_GT(explorer_->fgTree.Rows(), Components * (Members + 1));
  constexpr int Actions = 45;
  for (int action = 0; action < Actions; ++action) {
    const std::string what = Act(action);
    ExpectTruth("action " + std::to_string(action) + ": " + what);
    const auto* const tree = window_->findChild<QWidget*>(QStringLiteral("fgTree"));
    const QWidget* const keys = QApplication::focusWidget();
    EXPECT_FALSE(keys != nullptr && tree != nullptr && (keys == tree || tree->isAncestorOf(keys)))
        << what;
  }
}

TEST_F(ExplorerInUse, ALongLineOfKeysBecomesMembersWithoutAPause) {
  CodeEditor& editor = Focus(u"Part3");
  QString text;
  for (int member = 0; member < 30; ++member) {
    text += QStringLiteral("Sub Fast%1()\nEnd Sub\n").arg(member);
  }
  Type(editor, 1, 1, text);
  ExpectTruth("behind the typing");
  EXPECT_TRUE(editor.hasFocus());
  const forms::Grid& grid = explorer_->fgTree;
  ASSERT_GE(grid.Row(), 0);
  EXPECT_EQ(grid.TextMatrix(grid.Row(), 5), u"Part3") << "the selection follows the caret";
}

}  // namespace
}  // namespace tessel::workbench
