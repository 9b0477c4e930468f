#include "hosts/workbench/window/Reloader.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QStatusBar>
#include <fstream>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/window/Unsaved.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

/// A project with long modules; notes every box that comes.
class Reloading : public InWindow {
 protected:
  Reloading() {
    for (const std::string name : {"A", "B"}) Write(name, "");
    folder_.Write("P.vbp", "Type=Exe\r\nModule=A; A.bas\r\nModule=B; B.bas\r\nName=\"P\"\r\n");
    EXPECT_TRUE(window_->OpenFile(QString::fromStdString((folder_.Path() / "P.vbp").string())));
    QTest::qWait(700);  // until the files are watched
    boxes_.setInterval(5);
    QObject::connect(&boxes_, &QTimer::timeout, [this] {
      QMessageBox* const box = OpenBox();
      if (box == nullptr || box == answered_) return;
      answered_ = box;
      asked_.append(box->text());
      defaults_.append(box->standardButton(box->defaultButton()));
      if (answer_) {
        answer_(*box);
      } else {
        ADD_FAILURE() << box->text().toStdString();
        box->reject();
      }
    });
    boxes_.start();
  }
  ~Reloading() override { boxes_.stop(); }

  /// A module of 60 procedures of five lines, behind one line of its own.
  void Write(const std::string& name, const std::string& line) const {
    std::string text = "Attribute VB_Name = \"" + name + "\"\r\n' head" + line + "\r\n";
    for (int number = 0; number < 60; ++number) {
      text += "Sub P" + std::to_string(number) + "()\r\n    x = 1\r\n    y = 2\r\nEnd Sub\r\n\r\n";
    }
    folder_.Write(name + ".bas", text);
  }
  [[nodiscard]] String FirstLine(StringView name) const {
    return Component(name)->Module()->Lines(1, 1);
  }
  [[nodiscard]] bool Becomes(StringView name, StringView line) const {
    return QTest::qWaitFor([&] { return FirstLine(name) == line; }, PatienceMs);
  }
  void AnswerAll(QMessageBox::StandardButton button) {
    answer_ = [button](QMessageBox& box) { box.button(button)->click(); };
  }

  QTimer boxes_;
  QPointer<QMessageBox> answered_;
  QStringList asked_;
  QList<QMessageBox::StandardButton> defaults_;
  std::function<void(QMessageBox&)> answer_;
};

TEST_F(Reloading, LoadsModulesWithoutChangesInSilenceAndKeepsWhatIsInSight) {
  CodeEditor& editor = Code(u"A").Editor();
  editor.SetTopLine(100);
  editor.Select({104, 3, 104, 6});
  editor.foldLine(6);  // the second procedure: it stays closed
  QTest::qWait(20);
  const int top = editor.TopLine();
  ASSERT_FALSE(editor.SendScintilla(QsciScintilla::SCI_GETFOLDEXPANDED, 6UL));
  Write("A", " two\r\n' lines");
  ASSERT_TRUE(Becomes(u"A", u"' head two"));
  EXPECT_TRUE(asked_.isEmpty());
  EXPECT_EQ(editor.Selected(), (host::Selection{105, 3, 105, 6}));
  EXPECT_EQ(editor.TopLine(), top + 1);
  EXPECT_FALSE(editor.SendScintilla(QsciScintilla::SCI_GETFOLDEXPANDED, 7UL));
  EXPECT_FALSE(IsUnsaved(*Component(u"A")));
  EXPECT_TRUE(window_->statusBar()->currentMessage().contains(QStringLiteral("loaded again")));
}

TEST_F(Reloading, IsAStepOfItsOwnThatCanBeTakenBack) {
  CodeEditor& editor = Code(u"A").Editor();
  window_->RunTool([&] { Component(u"A")->CodeModule()->InsertLines(2, u"' by a tool"); });
  ASSERT_TRUE(window_->SaveAll());
  Write("A", " otherwise");
  ASSERT_TRUE(Becomes(u"A", u"' head otherwise"));
  editor.undo();
  EXPECT_EQ(Component(u"A")->Module()->Lines(1, 2), u"' head\r\n' by a tool");
  EXPECT_TRUE(IsUnsaved(*Component(u"A"))) << "the file holds something else now";
  editor.undo();
  EXPECT_EQ(Component(u"A")->Module()->Lines(1, 2), u"' head\r\nSub P0()");
  editor.redo();
  editor.redo();
  EXPECT_FALSE(IsUnsaved(*Component(u"A")));
}

TEST_F(Reloading, AsksOnceForAllWithNoAsTheDefaultWhereWorkWouldBeLost) {
  Component(u"A")->Module()->InsertLines(1, u"' mine");
  Component(u"B")->Module()->InsertLines(1, u"' mine");
  AnswerAll(QMessageBox::No);
  Write("A", " outside");
  Write("B", " outside");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !asked_.isEmpty(); }, PatienceMs));
  QTest::qWait(1500);
  ASSERT_EQ(asked_.size(), 1) << asked_.join(u'\n').toStdString();
  EXPECT_TRUE(asked_[0].contains(QStringLiteral("A.bas")));
  EXPECT_TRUE(asked_[0].contains(QStringLiteral("B.bas")));
  EXPECT_EQ(defaults_[0], QMessageBox::No);
  EXPECT_EQ(FirstLine(u"A"), u"' mine");
  EXPECT_EQ(FirstLine(u"B"), u"' mine");
}

TEST_F(Reloading, OpensAProjectAgainWhoseFileChangedWhenTheUserWantsIt) {
  AnswerAll(QMessageBox::Yes);
  folder_.Write("P.vbp", "Type=Exe\r\nModule=A; A.bas\r\nName=\"Q\"\r\n");
  ASSERT_TRUE(QTest::qWaitFor(
      [&] {
        const auto& all = window_->Root()->Projects().All();
        return all.size() == 1 && all.front()->PlainName() == u"Q";
      },
      PatienceMs));
  EXPECT_EQ(window_->Root()->Active()->Components().All().size(), 1U);
  EXPECT_EQ(asked_.size(), 1);
  EXPECT_EQ(defaults_.value(0), QMessageBox::Yes);
}

TEST_F(Reloading, KeepsAProjectWithUnsavedWorkByDefault) {
  Code(u"A").Editor().insertAt(QStringLiteral("'"), 0, 0);
  AnswerAll(QMessageBox::No);
  folder_.Write("P.vbp", "Type=Exe\r\nModule=A; A.bas\r\nName=\"Q\"\r\n");
  ASSERT_TRUE(QTest::qWaitFor([&] { return asked_.size() == 1; }, PatienceMs));
  EXPECT_EQ(defaults_.value(0), QMessageBox::No);
  QTest::qWait(500);
  EXPECT_EQ(asked_.size(), 1) << asked_.join(u'|').toStdString();
  EXPECT_EQ(window_->Root()->Active()->PlainName(), u"P");
}

TEST_F(Reloading, WaitsWhileABoxIsOpenAndAsksOneQuestionAtATime) {
  Component(u"A")->Module()->InsertLines(1, u"' mine");
  int open = 0, most = 0;
  bool wrote = false;
  answer_ = [&](QMessageBox& box) {
    most = std::max(most, ++open);
    if (!std::exchange(wrote, true)) {
      Component(u"B")->Module()->InsertLines(1, u"' mine");
      Write("B", " outside");
    }
    // The box stands for a while, as it does with people.
    QTimer::singleShot(900, &box, [&open, &box] {
      --open;
      box.button(QMessageBox::No)->click();
    });
  };
  Write("A", " outside");
  ASSERT_TRUE(QTest::qWaitFor([&] { return asked_.size() == 2; }, PatienceMs));
  EXPECT_TRUE(QTest::qWaitFor([&] { return open == 0 && OpenBox() == nullptr; }, PatienceMs));
  EXPECT_EQ(most, 1);
  EXPECT_FALSE(asked_[1].contains(QStringLiteral("A.bas"))) << "that was answered";
}

TEST_F(Reloading, WaitsUntilAToolIsThrough) {
  services_.Desktop().RunAction([&] {
    Write("A", " outside");
    QTest::qWait(1200);
    EXPECT_EQ(FirstLine(u"A"), u"' head") << "in the middle of a tool";
  });
  EXPECT_TRUE(Becomes(u"A", u"' head outside"));
}

TEST_F(Reloading, AsksNothingWhenTheFileIsThatOfBeforeAgain) {
  Component(u"A")->Module()->InsertLines(1, u"' mine");
  services_.Desktop().RunAction([&] {
    Write("A", " outside");
    QTest::qWait(1000);
    Write("A", "");
  });
  QTest::qWait(1200);
  EXPECT_TRUE(asked_.isEmpty()) << asked_.join(u'\n').toStdString();
}

TEST_F(Reloading, DropsTheStepsOfAFormThatWasLoadedAgain) {
  OpenSample();
  const auto form = Component(u"frmFind");
  ASSERT_NE(form, nullptr);
  DesignerView& view = *window_->ShowDesigner(form);
  view.AddControl(u"VB.CommandButton");
  ASSERT_TRUE(window_->SaveAll());
  QTest::qWait(700);
  EXPECT_TRUE(view.UndoStack().canUndo());
  const std::filesystem::path file(form->Storage()->FileName());
  std::ifstream in(file, std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(in), {}};
  bytes += "' outside\r\n";
  std::ofstream(file, std::ios::binary) << bytes;
  ASSERT_TRUE(QTest::qWaitFor([&] { return !view.UndoStack().canUndo(); }, PatienceMs));
  EXPECT_FALSE(IsUnsaved(*form));
  view.AddControl(u"VB.Label");
  view.UndoStack().undo();
  EXPECT_FALSE(IsUnsaved(*form));
}

}  // namespace
}  // namespace tessel::workbench
