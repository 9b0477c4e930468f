#include "hosts/workbench/window/CodeEditor.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <random>

#include "hosts/model/Observer.h"
#include "hosts/model/Vbe.h"
#include "hosts/workbench/platform/Text.h"
#include "support/Modules.h"

namespace tessel::workbench {
namespace {

/// Tells an editor what the main window tells it.
struct Follower : model::Observer {
  CodeEditor* Editor = nullptr;
  void LinesChanged(model::CodeModule&, int line, int removed, int added) override {
    if (Editor != nullptr) Editor->LinesChanged(line, removed, added);
  }
};

class Editing : public testing::Test {
 protected:
  Editing() { Root()->SetObserver(&follower_); }
  ~Editing() override {
    editor_.reset();
    Root()->SetObserver(nullptr);
  }

  [[nodiscard]] std::shared_ptr<model::Vbe> Root() const {
    return std::dynamic_pointer_cast<model::Vbe>(world_.Environment.VBE());
  }
  CodeEditor& Open(StringView text) {
    module_ = std::dynamic_pointer_cast<model::CodeModule>(world_.Module(u"M", text));
    EditorOptions options;
    options.Font = QFont(QStringLiteral("DejaVu Sans Mono"), 10);
    editor_ = std::make_unique<CodeEditor>(module_, options, nullptr);
    editor_->resize(600, 400);
    follower_.Editor = editor_.get();
    return *editor_;
  }
  [[nodiscard]] QString Shown() const { return editor_->text(); }
  [[nodiscard]] QString Kept() const {
    return ToQt(vb::Replace(world_.Text(u"M"), u"\r\n", u"\n"));
  }

  test::World world_;
  Follower follower_;
  std::shared_ptr<model::CodeModule> module_;
  std::unique_ptr<CodeEditor> editor_;
};

TEST_F(Editing, ShowsTheLinesOfTheModule) {
  EXPECT_EQ(Open(u"Sub A()\r\n  'ÄЖ漢\r\nEnd Sub").text(),
            QStringLiteral("Sub A()\n  'ÄЖ漢\nEnd Sub"));
  EXPECT_FALSE(editor_->isUndoAvailable());
}

TEST_F(Editing, PutsWhatTheUserTypesIntoTheModule) {
  CodeEditor& editor = Open(u"a\r\nb");
  editor.setCursorPosition(1, 1);
  QTest::keyClicks(&editor, QStringLiteral("x"));
  EXPECT_EQ(world_.Text(u"M"), u"a\r\nbx");
  QTest::keyClick(&editor, Qt::Key_Return);
  QTest::keyClicks(&editor, QStringLiteral("c"));
  EXPECT_EQ(world_.Text(u"M"), u"a\r\nbx\r\nc");
  for (int i = 0; i < 3; ++i) QTest::keyClick(&editor, Qt::Key_Backspace);
  EXPECT_EQ(world_.Text(u"M"), u"a\r\nb");
}

TEST_F(Editing, StaysAtItsLineWhenAToolWritesTheWholeTextAnewAndWhenThatIsUndone) {
  String text;
  for (int line = 1; line <= 200; ++line) text += u"  Old.x = " + vb::Str(line) + u"\r\n";
  CodeEditor& editor = Open(text);
  editor.show();
  const host::Selection caret{120, 3, 120, 6};
  editor.Select(caret);
  editor.SetTopLine(110);
  const auto expectThere = [&](const char* behind) {
    EXPECT_EQ(editor.Selected().StartLine, caret.StartLine) << behind;
    EXPECT_EQ(editor.Selected().StartColumn, caret.StartColumn) << behind;
    EXPECT_EQ(editor.Selected().EndLine, caret.EndLine) << behind;
    EXPECT_EQ(editor.TopLine(), 110) << behind;
  };
  const int count = module_->Buffer().Count();
  const String renamed = vb::Replace(module_->Buffer().Text(1, count), u"Old", u"txtNew");
  editor.BeginGroup();
  module_->DeleteLines(1, count);
  module_->InsertLines(1, renamed);
  editor.EndGroup();
  expectThere("the rewriting");
  editor.undo();
  EXPECT_TRUE(Shown().startsWith(QStringLiteral("  Old.x = 1\n")));
  expectThere("the undo");
  editor.redo();
  EXPECT_TRUE(Shown().startsWith(QStringLiteral("  txtNew.x = 1\n")));
  expectThere("the redo");
  QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_TRUE(Shown().startsWith(QStringLiteral("  Old.x = 1\n")));
  expectThere("the key of the undo");
  QTest::keyClick(&editor, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(Shown().startsWith(QStringLiteral("  txtNew.x = 1\n")));
  expectThere("the key of the redo");
}

TEST_F(Editing, PutsWhatAToolDoesIntoTheText) {
  Open(u"a\r\nb\r\nc");
  module_->InsertLines(2, u"x\r\ny");
  EXPECT_EQ(Shown(), Kept());
  module_->DeleteLines(5, 1);
  EXPECT_EQ(Shown(), Kept());
  module_->ReplaceLine(1, u"p\r\nq");
  EXPECT_EQ(Shown(), Kept());
  module_->InsertLines(99, u"last");
  EXPECT_EQ(Shown(), QStringLiteral("p\nq\nx\ny\nb\nlast"));
  module_->DeleteLines(1, 6);
  EXPECT_EQ(Shown(), QString());
  module_->InsertLines(1, u"again");
  EXPECT_EQ(Shown(), QStringLiteral("again"));
}

TEST_F(Editing, KeepsToolsAndUserInOneHistory) {
  CodeEditor& editor = Open(u"a");
  editor.setCursorPosition(0, 1);
  QTest::keyClicks(&editor, QStringLiteral("1"));
  editor.BeginGroup();
  module_->InsertLines(1, u"x");
  module_->InsertLines(1, u"y");
  editor.EndGroup();
  EXPECT_EQ(world_.Text(u"M"), u"y\r\nx\r\na1");
  editor.undo();
  EXPECT_EQ(world_.Text(u"M"), u"a1");
  editor.undo();
  EXPECT_EQ(world_.Text(u"M"), u"a");
  editor.redo();
  editor.redo();
  EXPECT_EQ(world_.Text(u"M"), u"y\r\nx\r\na1");
}

TEST_F(Editing, StaysInStepOverAnyMixOfEdits) {
  CodeEditor& editor = Open(u"Sub A()\r\n  x = 1\r\nEnd Sub");
  std::mt19937 random(7);
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(std::max(1, limit)));
  };
  static const QString Pieces[] = {QStringLiteral("x"), QStringLiteral("\n"),
                                   QStringLiteral("é漢\nb"), QStringLiteral("\n\n"),
                                   QStringLiteral("😀")};
  for (int round = 0; round < 600; ++round) {
    const int count = module_->Buffer().Count();
    switch (below(7)) {
      case 0:
        module_->InsertLines(1 + below(count + 1), FromQt(Pieces[below(5)]));
        break;
      case 1:
        if (count > 0) module_->DeleteLines(1 + below(count), 1);
        break;
      case 2:
        if (count > 0) module_->ReplaceLine(1 + below(count), u"r\r\ns");
        break;
      case 3:
        editor.undo();
        break;
      case 4:
        editor.redo();
        break;
      case 5: {
        const int line = below(editor.lines());
        editor.setSelection(line, 0, std::min(line + below(3), editor.lines() - 1), 1);
        editor.removeSelectedText();
        break;
      }
      default: {
        const int line = below(editor.lines());
        editor.insertAt(Pieces[below(5)], line, below(editor.lineLength(line)));
      }
    }
    ASSERT_EQ(Shown(), Kept()) << "round " << round;
  }
}

TEST_F(Editing, CountsColumnsInSixteenBitUnits) {
  CodeEditor& editor = Open(u"é漢\U0001F600x\r\nb");
  editor.Select({1, 5, 1, 6});
  EXPECT_EQ(editor.selectedText(), QStringLiteral("x"));
  EXPECT_EQ(editor.Selected(), (host::Selection{1, 5, 1, 6}));
  editor.Select({2, 9, 9, 9});
  EXPECT_EQ(editor.Selected(), (host::Selection{2, 2, 2, 2}));
}

TEST_F(Editing, ScrollsToALine) {
  String text;
  for (int i = 0; i < 500; ++i) text += u"x\r\n";
  CodeEditor& editor = Open(text);
  editor.show();
  editor.SetTopLine(120);
  EXPECT_EQ(editor.TopLine(), 120);
}

TEST_F(Editing, TidiesADeclarationWhenTheUserLeavesItsLine) {
  CodeEditor& editor = Open(u"\r\n\r\n");
  editor.setCursorPosition(0, 0);
  QTest::keyClicks(&editor, QStringLiteral("dim  a as integer"));
  EXPECT_EQ(module_->Lines(1, 1), u"dim  a as integer");
  QTest::keyClick(&editor, Qt::Key_Down);
  QApplication::processEvents();
  editor.TidyEntered();
  EXPECT_EQ(module_->Lines(1, 1), u"Dim a As Integer");
  editor.undo();
  EXPECT_EQ(module_->Lines(1, 1), u"dim  a as integer");
}

TEST_F(Editing, TidiesAStatementByWhatItsNamesAreDeclaredAs) {
  CodeEditor& editor = Open(u"Public Total As Long\r\nSub Go(Amount)\r\n\r\nEnd Sub");
  editor.setCursorPosition(2, 0);
  QTest::keyClicks(&editor, QStringLiteral("  if total=amount then go total-1"));
  QTest::keyClick(&editor, Qt::Key_Down);
  QApplication::processEvents();
  editor.TidyEntered();
  EXPECT_EQ(module_->Lines(3, 1), u"  If Total = Amount Then Go Total - 1");
  EXPECT_EQ(Shown(), Kept());
  editor.undo();
  EXPECT_EQ(module_->Lines(3, 1), u"  if total=amount then go total-1");
  editor.redo();
  EXPECT_EQ(module_->Lines(3, 1), u"  If Total = Amount Then Go Total - 1");
}

TEST_F(Editing, TidiesALineThatGoesOnByTheOnesAhead) {
  CodeEditor& editor = Open(u"' note _\r\n\r\nCall F(a, _\r\n\r\n");
  editor.setCursorPosition(1, 0);
  QTest::keyClicks(&editor, QStringLiteral("x=1"));
  editor.TidyEntered();
  EXPECT_EQ(module_->Lines(2, 1), u"x=1");
  editor.setCursorPosition(3, 0);
  QTest::keyClicks(&editor, QStringLiteral("  b+1)"));
  editor.TidyEntered();
  EXPECT_EQ(module_->Lines(4, 1), u"  b + 1)");
}

TEST_F(Editing, TidiesPastedLinesInTheStepThatPutsThemIn) {
  CodeEditor& editor = Open(u"Public Total As Long\r\nSub Go()\r\n\r\nEnd Sub");
  const QString before = Shown();
  QApplication::clipboard()->setText(
      QStringLiteral("if total=1 then\r\n  total=total+1\r\nend if\r\ndim  x"));
  editor.setCursorPosition(2, 0);
  QTest::keyClick(&editor, Qt::Key_V, Qt::ControlModifier);
  const QString after = QStringLiteral(
      "Public Total As Long\nSub Go()\nIf Total = 1 Then\n  Total = Total + 1\nEnd If\n"
      "dim  x\nEnd Sub");
  EXPECT_EQ(Shown(), after);
  EXPECT_EQ(Shown(), Kept());
  EXPECT_EQ(editor.Selected().StartLine, 6);
  EXPECT_EQ(editor.Selected().StartColumn, 7);
  editor.undo();
  EXPECT_EQ(Shown(), before);
  EXPECT_EQ(Shown(), Kept());
  editor.redo();
  EXPECT_EQ(Shown(), after);
}

TEST_F(Editing, TidiesTheLastPastedLineWhenItIsLeft) {
  CodeEditor& editor = Open(u"\r\n\r\n");
  QApplication::clipboard()->setText(QStringLiteral("x=1\ny=2"));
  editor.setCursorPosition(0, 0);
  editor.paste();
  EXPECT_EQ(module_->Lines(1, 2), u"x = 1\r\ny=2");
  editor.TidyEntered();
  EXPECT_EQ(module_->Lines(2, 1), u"y = 2");
}

TEST_F(Editing, LeavesWordsThatArePastedIntoALineToItsEnd) {
  CodeEditor& editor = Open(u"x=1");
  QApplication::clipboard()->setText(QStringLiteral("2+"));
  editor.setCursorPosition(0, 2);
  editor.paste();
  EXPECT_EQ(module_->Lines(1, 1), u"x=2+1");
  editor.TidyEntered();
  EXPECT_EQ(module_->Lines(1, 1), u"x = 2 + 1");
}

TEST_F(Editing, PastesAsItStandsWhenToldNotToTidy) {
  CodeEditor& editor = Open(u"");
  EditorOptions options;
  options.TidyLines = false;
  editor.SetOptions(options);
  QApplication::clipboard()->setText(QStringLiteral("x=1\ny=2\n"));
  editor.paste();
  EXPECT_EQ(module_->Lines(1, 2), u"x=1\r\ny=2");
}

TEST_F(Editing, WritesTheEndBehindAHead) {
  CodeEditor& editor = Open(u"");
  QTest::keyClicks(&editor, QStringLiteral("private sub foo"));
  QTest::keyClick(&editor, Qt::Key_Return);
  EXPECT_EQ(Shown(), QStringLiteral("private sub foo()\n\nEnd Sub"));
  EXPECT_EQ(Shown(), Kept());
  EXPECT_EQ(editor.Selected().StartLine, 2);
  editor.TidyEntered();
  EXPECT_EQ(Shown(), QStringLiteral("Private Sub foo()\n\nEnd Sub"));
  editor.undo();
  editor.undo();
  EXPECT_EQ(Shown(), QStringLiteral("private sub foo"));
}

TEST_F(Editing, WritesNoSecondEnd) {
  CodeEditor& editor = Open(u"Sub A()\r\nEnd Sub");
  editor.setCursorPosition(0, 7);
  QTest::keyClick(&editor, Qt::Key_Return);
  EXPECT_EQ(Shown(), QStringLiteral("Sub A()\n\nEnd Sub"));
  editor.setCursorPosition(0, 3);
  QTest::keyClick(&editor, Qt::Key_Return);
  EXPECT_EQ(Shown(), QStringLiteral("Sub\n A()\n\nEnd Sub"));
}

TEST_F(Editing, GoesFromProcedureToProcedure) {
  CodeEditor& editor =
      Open(u"Dim x\r\nSub A()\r\nEnd Sub\r\n\r\n' B\r\nSub B()\r\n  x = 1\r\nEnd Sub");
  editor.GoToProcedure(true);
  EXPECT_EQ(editor.Selected().StartLine, 2);
  editor.GoToProcedure(true);
  EXPECT_EQ(editor.Selected().StartLine, 6);
  editor.GoToProcedure(true);
  EXPECT_EQ(editor.Selected().StartLine, 6);
  editor.setCursorPosition(6, 2);
  editor.GoToProcedure(false);
  EXPECT_EQ(editor.Selected().StartLine, 6);
  editor.GoToProcedure(false);
  EXPECT_EQ(editor.Selected().StartLine, 2);
  editor.GoToProcedure(false);
  EXPECT_EQ(editor.Selected().StartLine, 1);
}

TEST_F(Editing, CutsTheLineOfTheCaret) {
  CodeEditor& editor = Open(u"a\r\nb\r\nc");
  editor.setCursorPosition(1, 1);
  editor.CutLine();
  EXPECT_EQ(Shown(), QStringLiteral("a\nc"));
  EXPECT_EQ(Shown(), Kept());
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("b\n"));
}

TEST_F(Editing, CommentsABlockInOneStep) {
  CodeEditor& editor = Open(u"a\r\n\r\n  'b\r\nc");
  editor.Select({1, 1, 4, 1});
  editor.CommentBlock(true);
  EXPECT_EQ(Shown(), QStringLiteral("'a\n'\n'  'b\nc"));
  EXPECT_EQ(Shown(), Kept());
  editor.CommentBlock(false);
  EXPECT_EQ(Shown(), QStringLiteral("a\n\n  'b\nc"));
  editor.CommentBlock(false);
  EXPECT_EQ(Shown(), QStringLiteral("a\n\n  b\nc"));
  for (int step = 0; step < 3; ++step) editor.undo();
  EXPECT_EQ(Shown(), QStringLiteral("a\n\n  'b\nc"));
  EXPECT_FALSE(editor.isUndoAvailable());
}

TEST_F(Editing, CommentsAnEmptyLine) {
  CodeEditor& editor = Open(u"a\r\n\r\nb");
  editor.setCursorPosition(1, 0);
  editor.CommentBlock(true);
  EXPECT_EQ(Shown(), QStringLiteral("a\n'\nb"));
}

TEST_F(Editing, KeepsBookmarksOnTheirLines) {
  CodeEditor& editor = Open(u"a\r\nb\r\nc\r\nd");
  editor.GoToBookmark(true);
  EXPECT_EQ(editor.Selected().StartLine, 1);
  for (const int line : {1, 3}) {
    editor.setCursorPosition(line, 0);
    editor.ToggleBookmark();
  }
  editor.insertAt(QStringLiteral("new\n"), 0, 0);
  editor.setCursorPosition(0, 0);
  editor.GoToBookmark(true);
  EXPECT_EQ(editor.Selected().StartLine, 3);
  editor.GoToBookmark(true);
  EXPECT_EQ(editor.Selected().StartLine, 5);
  editor.GoToBookmark(true);
  EXPECT_EQ(editor.Selected().StartLine, 3);
  editor.GoToBookmark(false);
  EXPECT_EQ(editor.Selected().StartLine, 5);
  editor.ToggleBookmark();
  editor.GoToBookmark(false);
  EXPECT_EQ(editor.Selected().StartLine, 3);
  editor.ClearBookmarks();
  editor.setCursorPosition(0, 0);
  editor.GoToBookmark(true);
  EXPECT_EQ(editor.Selected().StartLine, 1);
}

TEST_F(Editing, DrawsALineBetweenProcedures) {
  CodeEditor& editor = Open(u"Dim x\r\nSub A()\r\nEnd Sub\r\nSub B()\r\nEnd Sub\r\n");
  constexpr unsigned Separator = 1U << 2U;
  const auto separated = [&] {
    std::string lines;
    for (int line = 0; line < editor.lines(); ++line) {
      if ((editor.markersAtLine(line) & Separator) != 0) lines += std::to_string(line + 1) + " ";
    }
    return lines;
  };
  EXPECT_EQ(separated(), "1 3 ");
  editor.append(QStringLiteral("Sub C()\nEnd Sub\n"));
  QTest::qWait(400);
  EXPECT_EQ(separated(), "1 3 5 ");
  module_->DeleteLines(4, 4);
  QTest::qWait(400);
  EXPECT_EQ(separated(), "1 ");
}

TEST_F(Editing, LeavesLinesAloneWhenToldTo) {
  CodeEditor& editor = Open(u"\r\n");
  EditorOptions options;
  options.TidyLines = false;
  editor.SetOptions(options);
  editor.setCursorPosition(0, 0);
  QTest::keyClicks(&editor, QStringLiteral("dim  a"));
  editor.TidyEntered();
  EXPECT_EQ(module_->Lines(1, 1), u"dim  a");
}

TEST_F(Editing, FoldsByMember) {
  CodeEditor& editor =
      Open(u"Dim x\r\n\r\nSub A()\r\n  x = 1\r\nEnd Sub\r\n\r\nSub B()\r\nEnd Sub");
  const auto level = [&](int line) {
    return editor.SendScintilla(QsciScintillaBase::SCI_GETFOLDLEVEL,
                                static_cast<unsigned long>(line - 1));
  };
  EXPECT_EQ(level(1) & QsciScintillaBase::SC_FOLDLEVELHEADERFLAG, 0);
  EXPECT_NE(level(3) & QsciScintillaBase::SC_FOLDLEVELHEADERFLAG, 0);
  EXPECT_GT(level(4) & QsciScintillaBase::SC_FOLDLEVELNUMBERMASK,
            level(3) & QsciScintillaBase::SC_FOLDLEVELNUMBERMASK);
  EXPECT_NE(level(7) & QsciScintillaBase::SC_FOLDLEVELHEADERFLAG, 0);
}

TEST_F(Editing, TakesAHundredThousandLinesAtOnce) {
  Open(u"Sub A()\r\nEnd Sub");
  String text;
  for (int i = 0; i < 100000; ++i) text += u"    x = x + 1\r\n";
  text.resize(text.size() - 2);
  module_->InsertLines(2, text);
  EXPECT_EQ(editor_->lines(), 100002);
  EXPECT_EQ(module_->CountOfLines(), 100002);
}

TEST_F(Editing, KeepsBytesThatStandForNoCharacter) {
  String text = u"a?\r\nb";
  text[1] = 0xDC81;
  CodeEditor& editor = Open(text);
  editor.insertAt(QStringLiteral("x"), 0, 0);
  String expected = u"xa?\r\nb";
  expected[2] = 0xDC81;
  EXPECT_TRUE(world_.Text(u"M") == expected);
}

}  // namespace
}  // namespace tessel::workbench
