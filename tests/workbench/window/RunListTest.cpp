#include "hosts/workbench/window/RunList.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QStatusBar>

#include "hosts/workbench/window/Unsaved.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

/// Formats projects by the dialog and looks at the list behind the run.
class Runs : public InWindow {
 protected:
  void Open(const std::string& code, const std::string& other = "Sub B()\r\nx=2\r\nEnd Sub\r\n") {
    folder_.Write("A.bas", "Attribute VB_Name = \"A\"\r\n" + code);
    folder_.Write("B.bas", "Attribute VB_Name = \"B\"\r\n" + other);
    folder_.Write("P.vbp", "Type=Exe\r\nModule=A; A.bas\r\nModule=B; B.bas\r\nName=\"P\"\r\n");
    ASSERT_TRUE(window_->OpenFile(QString::fromStdString((folder_.Path() / "P.vbp").string())));
    Code(u"A");
  }
  void Format() { Run("frmFormatText", u"Code Formatter", "ComModule", "btmRun"); }
  void RemoveHandlers() {
    Run("frmRemoveErrorHandlerCode", u"Remove Error Handler Code", "ComRemoveFrom", "btmBegin");
  }
  /// Goes over the whole project with the dialog of a command.
  void Run(const char* form, StringView command, const char* scopes, const char* button) {
    bool ran = false;
    When([=] { return OpenForm(form); },
         [&](FormWindow* dialog) {
           auto* const scope = In<QComboBox>(dialog, scopes);
           const int index = scope->findText(QStringLiteral("Current Project   [P]"));
           scope->setCurrentIndex(index);
           emit scope->activated(index);
           Press(dialog, button);
           ran = true;
         });
    ASSERT_TRUE(window_->ClickCommand(u"Tessel", {String(command)}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return ran && OpenForm(form) == nullptr; }, PatienceMs));
    QTest::qWait(50);
  }
  [[nodiscard]] QTreeWidget& List() const {
    return *window_->findChild<QTreeWidget*>(QStringLiteral("runPlaces"));
  }
  [[nodiscard]] bool IsShown() const {
    return window_->findChild<QWidget*>(QStringLiteral("run"))->isVisible();
  }
};

constexpr const char* Telling = "Sub A()\r\nIf inIDE Then Stop: Resume Next\r\nx=1\r\nEnd Sub\r\n";

TEST_F(Runs, ListTheirPlacesAndEachIsAJump) {
  Open(Telling);
  Format();
  ASSERT_TRUE(IsShown());
  ASSERT_GT(List().topLevelItemCount(), 0);
  QTreeWidgetItem* const place = List().topLevelItem(0);
  EXPECT_EQ(place->text(0), QStringLiteral("P - A"));
  const int line = place->text(1).toInt();
  EXPECT_GT(line, 0);
  Code(u"B");
  emit List().itemActivated(place, 0);
  CodeWindow* const code = window_->Children().CurrentCode();
  ASSERT_NE(code, nullptr);
  EXPECT_EQ(code->Component()->PlainName(), u"A");
  EXPECT_EQ(code->Editor().Selected().StartLine, line);
}

TEST_F(Runs, AreTakenBackAsAWhole) {
  Open(Telling);
  const String a = Text(u"A"), b = Text(u"B");
  Format();
  ASSERT_TRUE(IsShown());
  EXPECT_NE(Text(u"A"), a);
  EXPECT_NE(Text(u"B"), b);
  Press(window_.get(), "takeBackRun");
  EXPECT_EQ(Text(u"A"), a);
  EXPECT_EQ(Text(u"B"), b);
  EXPECT_FALSE(IsUnsaved(*Component(u"A")));
  EXPECT_FALSE(IsUnsaved(*Component(u"B")));
  EXPECT_FALSE(IsShown());
}

TEST_F(Runs, AreKept) {
  Open(Telling);
  Format();
  const String a = Text(u"A");
  ASSERT_TRUE(IsShown());
  Press(window_.get(), "keepRun");
  EXPECT_FALSE(IsShown());
  EXPECT_EQ(Text(u"A"), a);
}

TEST_F(Runs, LeaveWhatWasEditedSinceAsItIs) {
  Open(Telling);
  const String b = Text(u"B");
  Format();
  ASSERT_TRUE(IsShown());
  Code(u"A").Editor().insertAt(QStringLiteral("'"), 0, 0);
  const String edited = Text(u"A");
  Press(window_.get(), "takeBackRun");
  EXPECT_EQ(Text(u"A"), edited);
  EXPECT_EQ(Text(u"B"), b);
  EXPECT_TRUE(IsShown()) << "it tells what was left";
}

TEST_F(Runs, ShowNoListWhenLayoutAloneIsOtherwise) {
  Open("Sub A()\r\nx=1\r\nEnd Sub\r\n");
  Format();
  EXPECT_FALSE(IsShown());
  EXPECT_TRUE(window_->statusBar()->currentMessage().contains(QStringLiteral("layout")));
}

TEST_F(Runs, OfTheErrorHandlersAreListedAndTakenBackToo) {
  Open("Sub A()\r\n    GoTo 10\r\n10  x = 1\r\nEnd Sub\r\n");
  const String before = Text(u"A");
  RemoveHandlers();
  ASSERT_TRUE(IsShown());
  ASSERT_EQ(List().topLevelItemCount(), 1);
  EXPECT_EQ(List().topLevelItem(0)->text(0), QStringLiteral("P - A"));
  EXPECT_TRUE(List().topLevelItem(0)->text(2).contains(QStringLiteral("line number 10")))
      << List().topLevelItem(0)->text(2).toStdString();
  EXPECT_NE(Text(u"A"), before);
  Press(window_.get(), "takeBackRun");
  EXPECT_EQ(Text(u"A"), before);
  EXPECT_FALSE(IsShown());
}

TEST_F(Runs, AreNotMadeOfOtherToolsEdits) {
  Open(Telling);
  Code(u"A").Editor().Select({2, 1, 2, 1});
  EXPECT_TRUE(window_->ClickCommand(u"Tessel", {u"Tessel", u"On Error", u"On Error Resume Next"}));
  QTest::qWait(50);
  EXPECT_FALSE(IsShown());
}

}  // namespace
}  // namespace tessel::workbench
