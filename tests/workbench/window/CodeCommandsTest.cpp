// The commands of the window that work on code, by their keys.
#include <Qsci/qscicommandset.h>

#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <set>

#include "hosts/workbench/designer/DesignerCanvas.h"
#include "hosts/workbench/designer/DesignerView.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

class CodeCommands : public InWindow {
 protected:
  CodeCommands() {
    window_->NewProject(host::vbext_pt_StandardExe);
    Add(host::vbext_ct_StdModule, u"First",
        u"Public Total As Long\r\nSub Work(Amount)\r\n  Total = Amount\r\nEnd Sub\r\n"
        u"Sub Other()\r\n  Work 1\r\nEnd Sub");
    Add(host::vbext_ct_StdModule, u"Second", u"Sub Main()\r\n  Work total\r\n  y = x\r\nEnd Sub");
  }
  void Add(host::vbext_ComponentType type, StringView name, StringView text) {
    window_->Environment().AddComponent(u"", type, name, text);
  }
  CodeEditor& Open(StringView name) const {
    CodeEditor& editor = Code(name).Editor();
    window_->activateWindow();
    editor.setFocus();
    QApplication::processEvents();
    return editor;
  }
  static void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&widget, static_cast<Qt::Key>(key), modifiers);
    QApplication::processEvents();
  }
  [[nodiscard]] std::string Place() const {
    const CodeWindow* const code = window_->Children().CurrentCode();
    if (code == nullptr) return "none";
    const host::Selection at = code->Editor().Selected();
    return vb::ToUtf8(code->Component()->PlainName()) + " " + std::to_string(at.StartLine) + "," +
           std::to_string(at.StartColumn);
  }
  FindBar& Find() const {
    return dynamic_cast<FindBar&>(*window_->findChild<QWidget*>(QStringLiteral("findBar")));
  }
  [[nodiscard]] QString FindMessage() const {
    return Find().findChild<QLabel*>(QStringLiteral("findMessage"))->text();
  }
  void Look(const char* what) const {
    Find().findChild<QLineEdit*>(QStringLiteral("findWhat"))->setText(QString::fromUtf8(what));
  }
};

constexpr auto Control = Qt::ControlModifier, Shift = Qt::ShiftModifier;

TEST_F(CodeCommands, GoToTheDefinitionAndBack) {
  CodeEditor& second = Open(u"Second");
  second.setCursorPosition(1, 9);
  Press(second, Qt::Key_F2, Shift);
  EXPECT_EQ(Place(), "First 1,8");
  CodeEditor& first = Open(u"First");
  first.setCursorPosition(2, 12);
  Press(first, Qt::Key_F2, Shift);
  EXPECT_EQ(Place(), "First 2,10");
  Press(first, Qt::Key_F2, Control | Shift);
  EXPECT_EQ(Place(), "First 3,13");
  Press(first, Qt::Key_F2, Control | Shift);
  EXPECT_EQ(Place(), "Second 2,10");
  Press(second, Qt::Key_F2, Control | Shift);
  EXPECT_EQ(Place(), "Second 2,10");
}

TEST_F(CodeCommands, SayThatANameIsNotDeclared) {
  CodeEditor& second = Open(u"Second");
  second.setCursorPosition(2, 2);
  Press(second, Qt::Key_F2, Shift);
  EXPECT_EQ(Place(), "Second 3,3");
  EXPECT_EQ(window_->statusBar()->currentMessage(),
            QStringLiteral("\"y\" isn't declared in this project"));
}

TEST_F(CodeCommands, GoByProcedure) {
  CodeEditor& editor = Open(u"First");
  editor.setCursorPosition(0, 0);
  Press(editor, Qt::Key_Down, Control);
  EXPECT_EQ(Place(), "First 2,1");
  Press(editor, Qt::Key_Down, Control);
  EXPECT_EQ(Place(), "First 5,1");
  Press(editor, Qt::Key_Up, Control);
  EXPECT_EQ(Place(), "First 2,1");
}

TEST_F(CodeCommands, CutTheLine) {
  CodeEditor& editor = Open(u"Second");
  editor.setCursorPosition(1, 4);
  Press(editor, Qt::Key_Y, Control);
  EXPECT_EQ(Text(u"Second"), u"Sub Main()\r\n  y = x\r\nEnd Sub");
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("  Work total\n"));
  Press(editor, Qt::Key_Z, Control);
  EXPECT_EQ(Text(u"Second"), u"Sub Main()\r\n  Work total\r\n  y = x\r\nEnd Sub");
}

TEST_F(CodeCommands, CutNoLineWhileAnotherFieldHasTheKeys) {
  Open(u"Second");
  Find().Open(false);
  QApplication::processEvents();
  auto* const field = Find().findChild<QLineEdit*>(QStringLiteral("findWhat"));
  Press(*field, Qt::Key_Y, Control);
  EXPECT_EQ(Text(u"Second"), u"Sub Main()\r\n  Work total\r\n  y = x\r\nEnd Sub");
}

TEST_F(CodeCommands, TidyByTheDeclarationsOfOtherModules) {
  CodeEditor& editor = Open(u"Second");
  editor.setCursorPosition(1, 0);
  QTest::keyClicks(&editor, QStringLiteral("TOTAL=total+1"));
  Press(editor, Qt::Key_Return);
  editor.TidyEntered();
  EXPECT_EQ(Text(u"Second"),
            u"Sub Main()\r\nTotal = Total + 1\r\n  Work total\r\n  y = x\r\nEnd Sub");
}

TEST_F(CodeCommands, TidyByModulesThatNobodyOpened) {
  OpenSample();
  const auto unread = Component(u"modText");
  ASSERT_NE(unread, nullptr);
  EXPECT_FALSE(unread->Module()->IsLoaded());
  Open(u"modMain");
  EXPECT_TRUE(QTest::qWaitFor([&] { return unread->Module()->IsLoaded(); }, PatienceMs));
  EXPECT_TRUE(window_->Environment().ChangedFiles().empty());
}

TEST_F(CodeCommands, FindInTheProjectForwardAndBack) {
  Open(u"First").setCursorPosition(0, 0);
  Find().Open(false);
  Find().SetScope(FindBar::InProject);
  Look("work");
  Find().FindNext();
  EXPECT_EQ(Place(), "First 2,5");
  Find().FindNext();
  EXPECT_EQ(Place(), "First 6,3");
  Find().FindNext();
  EXPECT_EQ(Place(), "Second 2,3");
  Find().FindNext();
  EXPECT_EQ(Place(), "First 2,5");
  Press(Open(u"First"), Qt::Key_F3, Shift);
  EXPECT_EQ(Place(), "Second 2,3");
  Press(Open(u"Second"), Qt::Key_F3);
  EXPECT_EQ(Place(), "First 2,5");
}

TEST_F(CodeCommands, KeepTheKeysInTheFieldWhileFinding) {
  Open(u"First").setCursorPosition(0, 0);
  Find().Open(false);
  Find().SetScope(FindBar::InProject);
  auto* const field = Find().findChild<QLineEdit*>(QStringLiteral("findWhat"));
  QTest::keyClicks(field, QStringLiteral("work"));
  for (const char* const place : {"First 2,5", "First 6,3", "Second 2,3", "First 2,5"}) {
    Press(*field, Qt::Key_Return);
    EXPECT_EQ(Place(), place);
    EXPECT_EQ(QApplication::focusWidget(), field);
  }
}

TEST_F(CodeCommands, ListWhatIsFoundAndJumpThere) {
  Open(u"First");
  Find().Open(false);
  Find().SetScope(FindBar::InProject);
  Look("TOTAL");
  Find().FindAll();
  auto* const list = Find().findChild<QTreeWidget*>(QStringLiteral("hits"));
  ASSERT_EQ(list->topLevelItemCount(), 3);
  EXPECT_EQ(FindMessage(), QStringLiteral("3 found in 2 modules"));
  EXPECT_TRUE(list->isVisible());
  QTreeWidgetItem* const last = list->topLevelItem(2);
  EXPECT_EQ(last->text(0) + last->text(1) + last->text(2), QStringLiteral("Second2Work total"));
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(last).center());
  EXPECT_EQ(Place(), "Second 2,8");
  Look("nowhere");
  Find().FindAll();
  EXPECT_EQ(FindMessage(), QStringLiteral("Not found"));
  EXPECT_FALSE(list->isVisible());
}

TEST_F(CodeCommands, ReplaceInTheProjectAsOneStepOfEachWindow) {
  CodeEditor& first = Open(u"First");
  Find().Open(true);
  Find().SetScope(FindBar::InProject);
  Look("Work");
  Find().findChild<QLineEdit*>(QStringLiteral("replaceWith"))->setText(QStringLiteral("Toil"));
  const String firstBefore = Text(u"First"), secondBefore = Text(u"Second");
  EXPECT_EQ(Find().ReplaceAll(), 3);
  EXPECT_EQ(Text(u"Second"), u"Sub Main()\r\n  Toil total\r\n  y = x\r\nEnd Sub");
  first.undo();
  EXPECT_EQ(Text(u"First"), firstBefore);
  Open(u"Second").undo();
  EXPECT_EQ(Text(u"Second"), secondBefore);
}

TEST_F(CodeCommands, LookInASelectionOfSeveralLinesOnly) {
  CodeEditor& editor = Open(u"First");
  editor.Select({2, 1, 4, 1});
  Find().Open(true);
  Look("o");
  Find().findChild<QLineEdit*>(QStringLiteral("replaceWith"))->setText(QStringLiteral("00"));
  EXPECT_EQ(Find().ReplaceAll(), 4);
  EXPECT_EQ(Text(u"First"),
            u"Public Total As Long\r\nSub W00rk(Am00unt)\r\n  T00tal = Am00unt\r\nEnd Sub\r\n"
            u"Sub Other()\r\n  Work 1\r\nEnd Sub");
  editor.undo();
  editor.setCursorPosition(0, 0);
  Find().FindNext();
  EXPECT_EQ(Place(), "First 2,6");
}

TEST_F(CodeCommands, ReplaceOneAfterTheOther) {
  CodeEditor& editor = Open(u"First");
  editor.setCursorPosition(0, 0);
  Find().Open(true);
  Look("Work");
  Find().findChild<QLineEdit*>(QStringLiteral("replaceWith"))->setText(QStringLiteral("Workers"));
  Find().ReplaceNext();
  EXPECT_EQ(Place(), "First 2,5");
  Find().ReplaceNext();
  EXPECT_EQ(Place(), "First 6,3");
  Find().ReplaceNext();
  EXPECT_EQ(Text(u"First"),
            u"Public Total As Long\r\nSub Workers(Amount)\r\n  Total = Amount\r\nEnd Sub\r\n"
            u"Sub Other()\r\n  Workers 1\r\nEnd Sub");
}

/// The shortcuts of a menu and of the menus in it.
void Collect(const QMenu& menu, std::set<QKeySequence>& keys) {
  for (const QAction* const action : menu.actions()) {
    if (!action->shortcut().isEmpty()) keys.insert(action->shortcut());
    if (action->menu() != nullptr) Collect(*action->menu(), keys);
  }
}

TEST_F(CodeCommands, HaveKeysThatTheEditorDoesNotTake) {
  CodeEditor& editor = Open(u"First");
  // What the editor does with these is what the menu does.
  const std::set<QKeySequence> same{
      QKeySequence::Undo,  QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
      QKeySequence::Cut,   QKeySequence::Copy,
      QKeySequence::Paste, QKeySequence::SelectAll};
  std::set<QKeySequence> keys;
  for (const QAction* const top : window_->menuBar()->actions()) Collect(*top->menu(), keys);
  EXPECT_GT(keys.size(), 20U);
  for (const QKeySequence& key : keys) {
    if (same.count(key) != 0) continue;
    const int code = key[0].toCombined();
    EXPECT_EQ(editor.standardCommands()->boundTo(code), nullptr) << key.toString().toStdString();
  }
}

TEST_F(CodeCommands, LeaveTheKeysOfTheFindBarToIt) {
  std::set<QString> taken;
  for (const QAction* const top : window_->menuBar()->actions()) {
    taken.insert(QKeySequence::mnemonic(top->text()).toString());
  }
  for (const QAbstractButton* const button : Find().findChildren<QAbstractButton*>()) {
    const QString key = QKeySequence::mnemonic(button->text()).toString();
    if (key.isEmpty()) continue;
    EXPECT_TRUE(taken.insert(key).second) << button->text().toStdString();
  }
}

TEST_F(CodeCommands, LeaveCtrlAndArrowsToADesigner) {
  const auto form = Component(u"Form1");
  ASSERT_NE(form, nullptr);
  DesignerView* const view = window_->ShowDesigner(form);
  view->AddControl(u"VB.CommandButton");
  const auto nodes = view->Selected();
  const String before = *nodes.back()->RawValue(u"Top");
  view->Canvas().setFocus();
  QApplication::processEvents();
  Press(view->Canvas(), Qt::Key_Down, Control);
  EXPECT_NE(*nodes.back()->RawValue(u"Top"), before);
}

}  // namespace
}  // namespace tessel::workbench
