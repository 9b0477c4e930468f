#include "hosts/workbench/window/MainWindow.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QProcess>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolButton>
#include <fstream>
#include <iterator>

#include "hosts/workbench/designer/DesignerView.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

using Workbench = InWindow;

TEST_F(Workbench, ShowsTheBarAsTheAddinBuiltIt) {
  QAction* const format = BarAction(QStringLiteral("Code Formatter"));
  ASSERT_NE(format, nullptr);
  EXPECT_FALSE(format->icon().isNull());
  EXPECT_TRUE(format->isEnabled());
  QAction* const snippets = BarAction(QStringLiteral("Snippet Manager"));
  ASSERT_NE(snippets, nullptr);
  EXPECT_TRUE(snippets->isEnabled());
  QAction* const popup = BarAction(QStringLiteral("Tessel"));
  ASSERT_NE(popup, nullptr);
  ASSERT_NE(popup->menu(), nullptr);
  EXPECT_GT(popup->menu()->actions().size(), 12);
}

TEST_F(Workbench, FormatsUndoesAndSavesAModule) {
  OpenSample();
  const std::string before = BytesOf(SampleFile("modMain.bas"));
  const String text = Text(u"modMain");
  CodeWindow& code = Code(u"modMain");
  code.Editor().Select({10, 1, 10, 1});

  bool ran = false;
  When([] { return OpenForm("frmFormatText"); },
       [&](FormWindow* dialog) {
         auto* const scope = In<QComboBox>(dialog, "ComModule");
         const int index = scope->findText(QStringLiteral("Current Component [modMain]"));
         scope->setCurrentIndex(index);
         emit scope->activated(index);
         Press(dialog, "btmRun");
         ran = true;
       });
  BarAction(QStringLiteral("Code Formatter"))->trigger();
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return ran && OpenForm("frmFormatText") == nullptr; }, PatienceMs));
  const String formatted = Text(u"modMain");
  EXPECT_NE(formatted, text);
  EXPECT_EQ(FromQt(code.Editor().text()), vb::Replace(formatted, u"\r\n", u"\n"));
  EXPECT_TRUE(window_->SaveAll());
  EXPECT_NE(BytesOf(SampleFile("modMain.bas")), before);

  code.Editor().undo();
  EXPECT_EQ(Text(u"modMain"), text);
  EXPECT_TRUE(window_->SaveAll());
  EXPECT_EQ(BytesOf(SampleFile("modMain.bas")), before);
}

TEST_F(Workbench, SavingAnOpenedProjectChangesNoByte) {
  OpenSample();
  for (const auto& entry : fs::directory_iterator(folder_.Path() / "ledger")) {
    EXPECT_EQ(BytesOf(entry.path()), BytesOf(fs::path(TESSEL_SOURCE_DIR) / "samples" / "ledger" /
                                             entry.path().filename()));
  }
  for (const auto& component : window_->Root()->Active()->Components().All()) {
    if (component->Module()) window_->ShowCode(component);
  }
  EXPECT_TRUE(window_->SaveAll());
  for (const auto& entry : fs::directory_iterator(folder_.Path() / "ledger")) {
    EXPECT_EQ(BytesOf(entry.path()),
              BytesOf(fs::path(TESSEL_SOURCE_DIR) / "samples" / "ledger" / entry.path().filename()))
        << entry.path();
  }
}

TEST_F(Workbench, PutsAStatementTemplateAtTheCaret) {
  window_->NewProject(host::vbext_pt_StandardExe);
  window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, u"M",
                                      u"Sub A()\r\n    x\r\nEnd Sub");
  CodeWindow& code = Code(u"M");
  code.Editor().Select({2, 5, 2, 6});
  EXPECT_TRUE(
      window_->ClickCommand(u"Tessel", {u"Tessel", u"Select / With", u"With ... End With"}));
  EXPECT_NE(Text(u"M").find(u"With "), String::npos);
  EXPECT_NE(Text(u"M").find(u"End With"), String::npos);
  code.Editor().undo();
  EXPECT_EQ(Text(u"M"), u"Sub A()\r\n    x\r\nEnd Sub");
}

TEST_F(Workbench, ShowsAbout) {
  bool shown = false;
  When([] { return OpenForm("frmAbout"); },
       [&](FormWindow* about) {
         shown = true;
         EXPECT_TRUE(about->isModal());
         about->close();
       });
  EXPECT_TRUE(window_->ClickCommand(u"Tessel", {u"Help", u"About"}));
  EXPECT_TRUE(shown);
  EXPECT_EQ(OpenForm("frmAbout"), nullptr);
}

struct FailingHost {
  int Failures;
  std::string Operation;
  int Calls = 0;
  void operator()(std::string_view operation) {
    if (operation != Operation || Calls++ >= Failures) return;
    throw vb::Failure(vb::InvalidCall, u"The host said no", u"VBIDE");
  }
};

/// Clicks a template whose insertion fails once, answers the error dialog, and gives the text.
class Failing : public InWindow {
 protected:
  String After(const char* button) {
    window_->NewProject(host::vbext_pt_StandardExe);
    window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, u"M",
                                        u"Sub A()\r\n\r\nEnd Sub");
    Code(u"M").Editor().Select({2, 1, 2, 1});
    const auto fails = std::make_shared<FailingHost>(FailingHost{1, "CodeModule.InsertLines"});
    window_->Environment().SetOperationHook([fails](std::string_view name) { (*fails)(name); });
    When([] { return OpenForm("frmErrorMessage"); },
         [button](FormWindow* dialog) { Press(dialog, button); });
    window_->ClickCommand(u"Tessel", {u"Tessel", u"On Error", u"On Error Resume Next"});
    window_->Environment().SetOperationHook({});
    EXPECT_EQ(fails->Calls > 0, true);
    EXPECT_EQ(errors_.Take(), 1);
    return Text(u"M");
  }
};

TEST_F(Failing, RetryDoesTheStatementAgain) {
  EXPECT_NE(After("btnRetry").find(u"On Error Resume Next"), String::npos);
}

TEST_F(Failing, IgnoreGoesOnBehindIt) {
  EXPECT_EQ(After("btnIgnore").find(u"On Error Resume Next"), String::npos);
}

TEST_F(Failing, AbortLeavesTheWindowUsable) {
  EXPECT_EQ(After("btnAbort"), u"Sub A()\r\n\r\nEnd Sub");
  EXPECT_TRUE(window_->ClickCommand(u"Tessel", {u"Tessel", u"On Error", u"On Error Resume Next"}));
  EXPECT_NE(Text(u"M").find(u"On Error Resume Next"), String::npos);
}

TEST_F(Workbench, CancelsALongRunInTheMiddle) {
  OpenSample();
  std::map<String, String> before;
  for (const auto& component : window_->Root()->Active()->Components().All()) {
    if (component->Module()) before[component->PlainName()] = Text(component->PlainName());
  }
  When([] { return OpenForm("frmFormatText"); },
       [](FormWindow* dialog) {
         auto* const scope = In<QComboBox>(dialog, "ComModule");
         const int index = scope->findText(QStringLiteral("Current Project   [Ledger]"));
         scope->setCurrentIndex(index);
         emit scope->activated(index);
         When([] { return OpenForm("ProgressBarWindow"); },
              [](FormWindow* progress) { Press(progress, "btmCancel"); });
         Press(dialog, "btmRun");
       });
  window_->ClickCommand(u"Tessel", {u"Code Formatter"});
  ASSERT_TRUE(QTest::qWaitFor(
      [] {
        return OpenForm("frmFormatText") == nullptr && OpenForm("ProgressBarWindow") == nullptr;
      },
      PatienceMs));
  std::size_t same = 0;
  for (const auto& [name, text] : before) same += Text(name) == text ? 1U : 0U;
  EXPECT_GT(same, 0U) << "the run went through to its end";
}

TEST_F(Workbench, TellsTheAddinOfAControlFromTheDesigner) {
  window_->NewProject(host::vbext_pt_StandardExe);
  const auto form = Component(u"Form1");
  DesignerView* const view = window_->ShowDesigner(form);
  ASSERT_NE(view, nullptr);
  const auto sink = window_->Root()->Events()->VBControlsEvents();
  String added;
  sink->ItemAdded = [&](const auto& control) { added = control->ControlObjectName(); };
  view->AddControl(u"VB.CommandButton");
  EXPECT_EQ(added, u"Command1");
  EXPECT_EQ(form->OwnDesigner()->Tree().Controls().size(), 1U);
  view->UndoStack().undo();
  EXPECT_TRUE(form->OwnDesigner()->Tree().Controls().empty());
}

TEST_F(Workbench, AControlThatIsDrawnIsNamedAndComesBackUnderItsName) {
  names_.stop();
  window_->NewProject(host::vbext_pt_StandardExe);
  const auto form = Component(u"Form1");
  DesignerView* const view = window_->ShowDesigner(form);
  int asked = 0;
  bool greyed = false;
  When([] { return OpenForm("frmAddControl"); },
       [&](FormWindow* dialog) {
         ++asked;
         greyed = !BarAction(QStringLiteral("Code Formatter"))->isEnabled();
         auto* const text = In<QLineEdit>(dialog, "txtText");
         text->selectAll();
         QTest::keyClicks(text, QStringLiteral("Save"));
         EXPECT_EQ(In<QLineEdit>(dialog, "txtName")->text(), QStringLiteral("cmdSave"));
         Press(dialog, "btmOK");
       });
  view->AddControl(u"VB.CommandButton");
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(greyed);
  const auto& tree = form->OwnDesigner()->Tree();
  ASSERT_EQ(tree.Controls().size(), 1U);
  EXPECT_EQ(tree.Controls()[0]->Name, u"cmdSave");
  EXPECT_EQ(tree.Controls()[0]->RawValue(u"Caption"), u"\"Save\"");
  EXPECT_EQ(view->Selected().back(), tree.Controls()[0]);
  view->UndoStack().undo();
  EXPECT_TRUE(tree.Controls().empty());
  view->UndoStack().redo();
  ASSERT_EQ(tree.Controls().size(), 1U);
  EXPECT_EQ(tree.Controls()[0]->Name, u"cmdSave");
  QApplication::processEvents();
  EXPECT_TRUE(BarAction(QStringLiteral("Code Formatter"))->isEnabled());
}

TEST_F(Workbench, ARenamedControlsCodeFollowsAsOneStepOfTheUndo) {
  window_->NewProject(host::vbext_pt_StandardExe);
  const auto form = Component(u"Form1");
  DesignerView* const view = window_->ShowDesigner(form);
  view->AddControl(u"VB.CommandButton");
  const StringView before =
      u"Private Sub Command1_Click()\r\n  Command1.Enabled = False\r\nEnd Sub\r\n";
  window_->Environment().SetText(u"Form1", before);
  CodeEditor& editor = Code(u"Form1").Editor();
  names_.stop();
  When([] { return OpenForm("frmControlName"); },
       [](FormWindow* dialog) { Press(dialog, "btmYes"); });
  ASSERT_TRUE(view->Editor()->Rename(*form->OwnDesigner()->Tree().Controls()[0], u"cmdGo"));
  EXPECT_EQ(Text(u"Form1"), u"Private Sub cmdGo_Click()\r\n  cmdGo.Enabled = False\r\nEnd Sub\r\n");
  editor.undo();
  EXPECT_EQ(Text(u"Form1"), before);
}

/// Counts the questions whether code is to follow a name, and answers them.
class CountedQuestions : public QTimer {
 public:
  explicit CountedQuestions(const char* button) {
    setInterval(5);
    connect(this, &QTimer::timeout, this, [this, button] {
      FormWindow* const dialog = OpenForm("frmControlName");
      if (dialog == nullptr) return;
      ++Asked;
      dialog->findChild<QAbstractButton*>(QLatin1String(button))->click();
    });
    start();
  }
  int Asked = 0;
};

class WorkbenchRename : public Workbench {
 protected:
  /// A form with one button, and code in which its later name stands already.
  void Make() {
    window_->NewProject(host::vbext_pt_StandardExe);
    form_ = Component(u"Form1");
    view_ = window_->ShowDesigner(form_);
    view_->AddControl(u"VB.CommandButton");
    window_->Environment().SetText(u"Form1", Before);
    names_.stop();
  }
  [[nodiscard]] model::DesignerNode& Button() const {
    return *form_->OwnDesigner()->Tree().Controls()[0];
  }
  void ExpectThereAndBack() {
    CountedQuestions questions("btmYes");
    ASSERT_TRUE(view_->Editor()->Rename(Button(), u"cmdGo"));
    ASSERT_EQ(Text(u"Form1"), After);
    for (int times = 0; times < 2; ++times) {
      view_->UndoStack().undo();
      EXPECT_EQ(Button().Name, u"Command1");
      EXPECT_EQ(Text(u"Form1"), Before);
      view_->UndoStack().redo();
      EXPECT_EQ(Button().Name, u"cmdGo");
      EXPECT_EQ(Text(u"Form1"), After);
    }
    EXPECT_EQ(questions.Asked, 1);
    Code(u"Form1").Editor().undo();
    EXPECT_EQ(Text(u"Form1"), Before) << "still one step of the code's own history";
  }
  static constexpr StringView Before =
      u"Sub One()\r\n  Dim cmdGo As String\r\n  cmdGo = Command1.Caption\r\nEnd Sub\r\n";
  static constexpr StringView After =
      u"Sub One()\r\n  Dim cmdGo As String\r\n  cmdGo = cmdGo.Caption\r\nEnd Sub\r\n";
  std::shared_ptr<model::VBComponent> form_;
  DesignerView* view_ = nullptr;
};

TEST_F(WorkbenchRename, UndoAndRedoGiveTheCodeBackWithoutAQuestion) {
  Make();
  ExpectThereAndBack();
}

TEST_F(WorkbenchRename, UndoAndRedoGiveTheCodeInAnOpenWindowBackWithoutAQuestion) {
  Make();
  static_cast<void>(Code(u"Form1"));
  window_->ShowDesigner(form_);
  ExpectThereAndBack();
}

TEST_F(WorkbenchRename, UndoAsksAgainWhenTheCodeWasEditedMeanwhile) {
  Make();
  CountedQuestions questions("btmNo");
  ASSERT_TRUE(view_->Editor()->Rename(Button(), u"cmdGo"));
  view_->UndoStack().undo();
  view_->UndoStack().redo();
  EXPECT_EQ(questions.Asked, 1) << "nothing was carried through";
  window_->Environment().SetText(u"Form1", After);
  view_->UndoStack().undo();
  EXPECT_EQ(questions.Asked, 2);
  EXPECT_EQ(Text(u"Form1"), After);
  EXPECT_EQ(Button().Name, u"Command1");
}

/// Opens the list of members in a module and acts on it.
void ListMembers(MainWindow& window, CodeEditor& editor,
                 const std::function<void(FormWindow*)>& act) {
  window.activateWindow();
  editor.setFocus();
  QApplication::processEvents();
  When([] { return OpenForm("frmContextMenu"); }, act);
  QTest::keyClick(&editor, Qt::Key_Space, Qt::ControlModifier | Qt::ShiftModifier);
  QApplication::processEvents();
}

TEST_F(Workbench, AMemberFromTheListGoesInAtTheCaretAsOneStep) {
  window_->NewProject(host::vbext_pt_StandardExe);
  const StringView before = u"Sub One()\r\n  x = \r\nEnd Sub\r\nSub Two()\r\nEnd Sub";
  window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, u"M", before);
  CodeEditor& editor = Code(u"M").Editor();
  editor.Select({2, 7, 2, 7});
  bool seen = false;
  ListMembers(*window_, editor, [&](FormWindow* list) {
    seen = true;
    const QPoint caret = editor.mapToGlobal(editor.PlaceBelowCaret());
    EXPECT_LT((list->pos() - caret).manhattanLength(), 8);
    auto* const rows = In<QListWidget>(list, "lstMenu");
    EXPECT_TRUE(rows->hasFocus());
    QTest::keyClick(rows, Qt::Key_Down);
    QTest::keyClick(rows, Qt::Key_Down);
    QTest::keyClick(rows, Qt::Key_Return, Qt::ControlModifier);
  });
  EXPECT_TRUE(seen);
  EXPECT_EQ(Text(u"M"), u"Sub One()\r\n  x = Two\r\nEnd Sub\r\nSub Two()\r\nEnd Sub");
  EXPECT_EQ(editor.Selected(), (host::Selection{2, 10, 2, 10}));
  editor.undo();
  EXPECT_EQ(Text(u"M"), before);
}

TEST_F(Workbench, ALetterOverTheListOfMembersGoesIntoTheCode) {
  window_->NewProject(host::vbext_pt_StandardExe);
  window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, u"M",
                                      u"Sub One()\r\n  x = \r\nEnd Sub");
  CodeEditor& editor = Code(u"M").Editor();
  editor.Select({2, 7, 2, 7});
  ListMembers(*window_, editor, [&](FormWindow* list) {
    QTest::keyClicks(In<QListWidget>(list, "lstMenu"), QStringLiteral("q"));
  });
  EXPECT_EQ(OpenForm("frmContextMenu"), nullptr);
  EXPECT_NE(Text(u"M").find(u"  x = q"), String::npos) << vb::ToUtf8(Text(u"M"));
  QTest::keyClicks(&editor, QStringLiteral("w"));
  EXPECT_NE(Text(u"M").find(u"  x = qw"), String::npos) << "typing goes on where it was";
}

TEST_F(Workbench, OpensTheEventProcedureOfAControl) {
  window_->NewProject(host::vbext_pt_StandardExe);
  DesignerView* const view = window_->ShowDesigner(Component(u"Form1"));
  view->AddControl(u"VB.CommandButton");
  view->OpenCode();
  EXPECT_EQ(Text(u"Form1"), u"Private Sub Command1_Click()\r\n\r\nEnd Sub");
  view->Select({Component(u"Form1")->OwnDesigner()->Tree().Root()});
  view->OpenCode();
  EXPECT_NE(Text(u"Form1").find(u"Private Sub Form_Load()\r\n\r\nEnd Sub"), String::npos);
}

TEST_F(Workbench, AddsComponentsByTheProjectMenu) {
  window_->NewProject(host::vbext_pt_StandardExe);
  EXPECT_TRUE(window_->ClickCommand(u"Menu Bar", {u"Project", u"Add Module"}));
  EXPECT_TRUE(window_->ClickCommand(u"Menu Bar", {u"Project", u"Add MDI Form"}));
  EXPECT_FALSE(window_->ClickCommand(u"Menu Bar", {u"Project", u"Add MDI Form"}));
  EXPECT_FALSE(window_->ClickCommand(u"Menu Bar", {u"Project", u"Add WebClass"}));
  EXPECT_EQ(Component(u"Module1")->PlainType(), host::vbext_ct_StdModule);
}

TEST_F(Workbench, SaysWhereTheCaretIs) {
  OpenSample();
  CodeWindow& code = Code(u"modMain");
  const auto members = Component(u"modMain")->Module()->Index().Members();
  code.Editor().Select({members[1].Lines.Body, 3, members[1].Lines.Body, 3});
  const auto label = [&](const char* name) {
    return window_->findChild<QLabel*>(QString::fromLatin1(name))->text();
  };
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return label("member") == ToQt(members[1].Name); }, PatienceMs));
  EXPECT_EQ(label("place"), QStringLiteral("Ln %1, Col 3").arg(members[1].Lines.Body));
  EXPECT_EQ(window_->findChild<QToolButton*>(QStringLiteral("codePage"))->text(),
            QStringLiteral("Code page 1251"));
  auto* const procedures = code.findChild<QComboBox*>(QStringLiteral("procedures"));
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return procedures->currentText().startsWith(ToQt(members[1].Name)); }, PatienceMs));
}

TEST_F(Workbench, KeepsCaretAndTopLineInStepWithThePane) {
  window_->NewProject(host::vbext_pt_StandardExe);
  String text;
  for (int line = 0; line < 300; ++line) text += u"    x\r\n";
  window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, u"M", text);
  CodeWindow& code = Code(u"M");
  const auto pane = window_->Root()->ActiveCodePane();
  pane->SetTopLine(120);
  pane->SetSelection({125, 2, 126, 3});
  EXPECT_EQ(code.Editor().TopLine(), 120);
  EXPECT_EQ(code.Editor().Selected(), (host::Selection{125, 2, 126, 3}));
  code.Editor().setCursorPosition(129, 4);
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        return pane->GetSelection() == host::Selection{130, 5, 130, 5};
      },
      PatienceMs));
  EXPECT_EQ(pane->TopLine(), code.Editor().TopLine());
}

TEST_F(Workbench, GroupsTheEditsOfOneActionInEachWindow) {
  window_->NewProject(host::vbext_pt_StandardExe);
  for (const char16_t* const name : {u"A", u"B"}) {
    window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, name, u"one");
    Code(name);
  }
  window_->RunTool([&] {
    for (const char16_t* const name : {u"A", u"B"}) {
      const auto module = Component(name)->CodeModule();
      module->InsertLines(1, u"two");
      window_->RunTool([&] { module->InsertLines(1, u"three"); });
    }
  });
  EXPECT_EQ(Text(u"A"), u"three\r\ntwo\r\none");
  Code(u"A").Editor().undo();
  EXPECT_EQ(Text(u"A"), u"one");
  EXPECT_EQ(Text(u"B"), u"three\r\ntwo\r\none");
  Code(u"B").Editor().undo();
  EXPECT_EQ(Text(u"B"), u"one");
}

TEST_F(Workbench, TakesBackWhatAToolDidToAModuleWithoutAWindow) {
  window_->NewProject(host::vbext_pt_StandardExe);
  window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, u"A", u"one\r\ntwo");
  window_->RunTool([&] {
    const auto module = Component(u"A")->CodeModule();
    module->DeleteLines(1, 2);
    module->InsertLines(1, u"three");
    module->InsertLines(2, u"four");
  });
  EXPECT_EQ(Text(u"A"), u"three\r\nfour");
  CodeWindow& code = Code(u"A");
  EXPECT_EQ(code.Editor().text(), QStringLiteral("three\nfour"));
  code.Editor().undo();
  EXPECT_EQ(Text(u"A"), u"one\r\ntwo");
  code.Editor().redo();
  EXPECT_EQ(Text(u"A"), u"three\r\nfour");
}

TEST_F(Workbench, AsksAboutUnsavedChanges) {
  OpenSample();
  window_->Environment().SetText(u"modMain", u"' changed");
  QString asked;
  AnswerNext(QMessageBox::Cancel, &asked);
  EXPECT_FALSE(window_->CloseProjects());
  EXPECT_TRUE(asked.contains(QStringLiteral("modMain.bas"))) << asked.toStdString();
  EXPECT_EQ(Text(u"modMain"), u"' changed");
  AnswerNext(QMessageBox::Save);
  EXPECT_TRUE(window_->CloseProjects());
  EXPECT_NE(BytesOf(SampleFile("modMain.bas")).find("' changed"), std::string::npos);
}

TEST_F(Workbench, OffersToReloadWhatChangedOutsideAndHere) {
  OpenSample();
  Code(u"modMain").Editor().insertAt(QStringLiteral("'"), 0, 0);
  AnswerNext(QMessageBox::Yes);
  std::ofstream(SampleFile("modMain.bas"), std::ios::binary)
      << "Attribute VB_Name = \"modMain\"\r\n' from outside\r\n";
  ASSERT_TRUE(QTest::qWaitFor([&] { return Text(u"modMain") == u"' from outside"; }, PatienceMs));
  EXPECT_EQ(Code(u"modMain").Editor().text(), QStringLiteral("' from outside"));
}

TEST_F(Workbench, NamesAFileThatCantBeOpened) {
  QString text;
  AnswerNext(QMessageBox::Ok, &text);
  EXPECT_FALSE(window_->OpenFile(QStringLiteral("/nowhere/None.vbp")));
  EXPECT_TRUE(text.contains(QStringLiteral("/nowhere/None.vbp")));
}

TEST_F(Workbench, SaysThatAFilesNameIsEmpty) {
  QString text;
  AnswerNext(QMessageBox::Ok, &text);
  EXPECT_FALSE(window_->OpenFile(QString()));
  EXPECT_EQ(text, QStringLiteral("There is no file to open: its name is empty."));
}

TEST_F(Workbench, NamesTheComponentsThatAreLeftOut) {
  fs::remove(SampleFile("modMain.bas"));
  QString text;
  AnswerNext(QMessageBox::Ok, &text);
  EXPECT_TRUE(window_->OpenFile(QString::fromStdString(SampleFile("Ledger.vbp").string())));
  EXPECT_TRUE(text.contains(QStringLiteral("modMain.bas"))) << text.toStdString();
  EXPECT_GT(window_->Root()->Active()->Components().All().size(), 20U);
}

TEST_F(Workbench, ClosesThePaneWithItsWindow) {
  OpenSample();
  CodeWindow& code = Code(u"modMain");
  EXPECT_EQ(window_->Root()->ActiveCodePane(), code.Pane());
  code.parentWidget()->close();
  EXPECT_EQ(window_->Root()->ActiveCodePane(), nullptr);
  window_->Environment().SetCaret(u"modMain", {3, 1, 3, 1});
  EXPECT_NE(window_->Root()->ActiveCodePane(), nullptr);
  window_->Environment().ClosePane(u"modMain");
  EXPECT_EQ(window_->Root()->ActiveCodePane(), nullptr);
}

TEST_F(Workbench, KeepsTheBarsPlaceOverARestart) {
  QToolBar* bar = nullptr;
  for (QToolBar* const one : window_->findChildren<QToolBar*>()) {
    if (one->objectName() == QStringLiteral("bar:Tessel")) bar = one;
  }
  ASSERT_NE(bar, nullptr);
  window_->addToolBar(Qt::BottomToolBarArea, bar);
  Discard();
  Start();
  for (QToolBar* const one : window_->findChildren<QToolBar*>()) {
    if (one->objectName() != QStringLiteral("bar:Tessel")) continue;
    EXPECT_EQ(window_->toolBarArea(one), Qt::BottomToolBarArea);
  }
}

TEST_F(Workbench, FindsAndReplacesInOneStep) {
  window_->NewProject(host::vbext_pt_StandardExe);
  window_->Environment().AddComponent(u"", host::vbext_ct_StdModule, u"M",
                                      u"one\r\ntwo one\r\nONE");
  CodeWindow& code = Code(u"M");
  auto* const find =
      dynamic_cast<FindBar*>(window_->findChild<QWidget*>(QStringLiteral("findBar")));
  ASSERT_NE(find, nullptr);
  find->Open(true);
  find->findChild<QLineEdit*>(QStringLiteral("findWhat"))->setText(QStringLiteral("one"));
  find->findChild<QLineEdit*>(QStringLiteral("replaceWith"))->setText(QStringLiteral("oneone"));
  EXPECT_EQ(find->ReplaceAll(), 3);
  EXPECT_EQ(Text(u"M"), u"oneone\r\ntwo oneone\r\noneone");
  code.Editor().undo();
  EXPECT_EQ(Text(u"M"), u"one\r\ntwo one\r\nONE");
}

TEST_F(Workbench, OpensAComponentByADoubleClickInTheProjectWindow) {
  OpenSample();
  auto* const tree = window_->findChild<QTreeWidget*>(QStringLiteral("projects"));
  ASSERT_NE(tree, nullptr);
  const auto found = tree->findItems(QStringLiteral("modMain (modMain.bas)"),
                                     Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1);
  tree->scrollToItem(found.front());
  const QPoint place = tree->visualItemRect(found.front()).center();
  QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place);
  QApplication::processEvents();
  EXPECT_EQ(window_->Root()->SelectedVBComponent(), Component(u"modMain"));
  QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, place);
  QApplication::processEvents();
  ASSERT_NE(window_->Root()->ActiveCodePane(), nullptr);
  EXPECT_EQ(window_->Root()->ActiveCodePane()->CodeModule()->Name(), u"modMain");
}

TEST_F(Workbench, BringsBackWorkAfterAKill) {
  // Another process of this program edits and is killed in the middle.
  const QString folder = QString::fromStdString(folder_.Path().string());
  QProcess victim;
  victim.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--edit-and-die"), folder});
  ASSERT_TRUE(victim.waitForFinished(60000));
  EXPECT_EQ(victim.exitStatus(), QProcess::CrashExit);

  When(OpenBox, [](QMessageBox* box) {
    for (QAbstractButton* const button : box->buttons()) {
      if (box->buttonRole(button) == QMessageBox::AcceptRole) button->click();
    }
  });
  window_->OfferRecovery();
  EXPECT_EQ(Text(u"modMain"), u"' typed before the end");
  EXPECT_TRUE(window_->Environment().IsModified(*window_->Environment().Component(u"modMain")));
}

}  // namespace
}  // namespace tessel::workbench
