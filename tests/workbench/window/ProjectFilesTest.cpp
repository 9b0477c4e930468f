#include "hosts/workbench/window/ProjectFiles.h"

#include <gtest/gtest.h>

#include <QStatusBar>

#include <QMenu>
#include <QToolButton>
#include <QTreeWidget>
#include <fstream>
#include <iterator>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/window/Unsaved.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// Two small projects beside the sample.
class Files : public InWindow {
 protected:
  Files() {
    for (const std::string name : {"One", "Two"}) {
      folder_.Write(name + ".bas", "Attribute VB_Name = \"" + name + "M\"\r\n' as it was\r\n");
      folder_.Write(name + ".vbp", "Type=Exe\r\nModule=" + name + "M; " + name + ".bas\r\nName=\"" +
                                       name + "\"\r\n");
    }
    folder_.Write("Both.vbg", "VBGROUP 5.0\r\nStartupProject=One.vbp\r\nProject=Two.vbp\r\n");
    folder_.Write("Bad.vbp", "no project\r\n");
  }
  [[nodiscard]] QString Path(const char* name) const {
    return QString::fromStdString((folder_.Path() / name).string());
  }
  [[nodiscard]] QStringList Projects() const {
    QStringList names;
    for (const auto& project : window_->Root()->Projects().All()) {
      names.append(ToQt(project->PlainName()));
    }
    return names;
  }
  [[nodiscard]] std::shared_ptr<model::VBProject> Project(StringView name) const {
    return window_->Root()->Projects().Find(name);
  }
  [[nodiscard]] std::shared_ptr<model::VBComponent> In(StringView project) const {
    return Project(project)->Components().All().front();
  }
  /// A form of the sample with controls.
  [[nodiscard]] std::shared_ptr<model::VBComponent> Form() const {
    for (const auto& one : window_->Root()->Active()->Components().All()) {
      if (one->PlainType() == host::vbext_ct_VBForm &&
          !one->OwnDesigner()->Tree().Controls().empty()) {
        return one;
      }
    }
    return nullptr;
  }
};

TEST_F(Files, StayOpenWhenAnotherOneCantBeOpenedInTheirPlace) {
  ASSERT_TRUE(window_->OpenFile(Path("One.vbp")));
  In(u"One")->Module()->InsertLines(1, u"' mine");
  QString told;
  AnswerNext(QMessageBox::Discard);
  When([] { return OpenBox() && OpenBox()->button(QMessageBox::Ok) ? OpenBox() : nullptr; },
       [&](QMessageBox* box) {
         told = box->text();
         box->button(QMessageBox::Ok)->click();
       });
  window_->Files().OpenRecent(Path("Bad.vbp"));
  EXPECT_TRUE(told.contains(QStringLiteral("Bad.vbp"))) << told.toStdString();
  EXPECT_EQ(Projects(), QStringList{QStringLiteral("One")});
  EXPECT_EQ(In(u"One")->Module()->Lines(1, 1), u"' mine");
  AnswerNext(QMessageBox::Discard);
  window_->Files().OpenRecent(Path("Two.vbp"));
  EXPECT_EQ(Projects(), QStringList{QStringLiteral("Two")});
}

TEST_F(Files, AskForTheProjectAloneThatIsClosed) {
  ASSERT_TRUE(window_->OpenFile(Path("Both.vbg")));
  In(u"One")->Module()->InsertLines(1, u"' mine");
  EXPECT_TRUE(window_->Files().Close(Project(u"Two"))) << "nothing was to be asked";
  EXPECT_EQ(Projects(), QStringList{QStringLiteral("One")});
  QString asked;
  AnswerNext(QMessageBox::Cancel, &asked);
  EXPECT_FALSE(window_->Files().Close(Project(u"One")));
  EXPECT_TRUE(asked.contains(QStringLiteral("One.bas"))) << asked.toStdString();
}

TEST_F(Files, OfOtherProjectsStayAsTheyAreWhenOneIsSavedAndClosed) {
  ASSERT_TRUE(window_->OpenFile(Path("Both.vbg")));
  In(u"Two")->Module()->InsertLines(1, u"' two");
  In(u"One")->Module()->InsertLines(1, u"' one");
  AnswerNext(QMessageBox::Save);
  EXPECT_TRUE(window_->Files().Close(Project(u"Two")));
  EXPECT_NE(BytesOf(folder_.Path() / "Two.bas").find("' two"), std::string::npos);
  EXPECT_EQ(BytesOf(folder_.Path() / "One.bas").find("' one"), std::string::npos);
  EXPECT_TRUE(IsUnsaved(*In(u"One")));
}

TEST_F(Files, CountAsSavedWhenTheTextIsThatOfTheFileAgain) {
  ASSERT_TRUE(window_->OpenFile(Path("One.vbp")));
  const auto component = In(u"One");
  CodeWindow& code = *window_->ShowCode(component);
  code.Editor().insertAt(QStringLiteral("x"), 0, 0);
  EXPECT_TRUE(IsUnsaved(*component));
  code.Editor().undo();
  EXPECT_FALSE(IsUnsaved(*component));
  code.Editor().redo();
  EXPECT_TRUE(IsUnsaved(*component));
  ASSERT_TRUE(window_->SaveAll());
  EXPECT_FALSE(IsUnsaved(*component));
  code.Editor().undo();
  EXPECT_TRUE(IsUnsaved(*component)) << "the file holds the x now";
  code.Editor().redo();
  EXPECT_FALSE(IsUnsaved(*component));
  EXPECT_EQ(BytesOf(folder_.Path() / "One.bas"),
            "Attribute VB_Name = \"OneM\"\r\nx' as it was\r\n");
}

TEST_F(Files, DontCountAsSavedByUndoWhatWasChangedAheadOfTheWindow) {
  ASSERT_TRUE(window_->OpenFile(Path("One.vbp")));
  const auto component = In(u"One");
  component->Module()->InsertLines(1, u"' by another hand");
  CodeWindow& code = *window_->ShowCode(component);
  code.Editor().insertAt(QStringLiteral("x"), 0, 0);
  code.Editor().undo();
  EXPECT_TRUE(IsUnsaved(*component));
}

TEST_F(Files, CountAsSavedWhenTheFormIsThatOfTheFileAgain) {
  OpenSample();
  const auto form = Form();
  ASSERT_NE(form, nullptr);
  DesignerView& view = *window_->ShowDesigner(form);
  view.AddControl(u"VB.CommandButton");
  EXPECT_TRUE(IsUnsaved(*form));
  view.UndoStack().undo();
  EXPECT_FALSE(IsUnsaved(*form));
}

TEST_F(Files, DontCountAFormAsSavedThatOtherHandsHaveChanged) {
  OpenSample();
  const auto form = Form();
  ASSERT_NE(form, nullptr);
  DesignerView& view = *window_->ShowDesigner(form);
  view.AddControl(u"VB.CommandButton");
  form->Properties()->Item(u"Caption")->SetValue(u"otherwise");
  view.UndoStack().undo();
  EXPECT_TRUE(IsUnsaved(*form));
}

TEST_F(Files, ThatCantBeKeptForACrashAreToldOnce) {
  ASSERT_TRUE(window_->OpenFile(Path("One.vbp")));
  // A file in the place of the folder, which stops whoever may write everywhere as well.
  const std::filesystem::path recovery = folder_.Path() / "state" / "recovery";
  std::filesystem::remove_all(recovery);
  folder_.Write("state/recovery", "");
  const auto told = [this] {
    return window_->statusBar()->currentMessage().contains(QStringLiteral("recovery"));
  };
  In(u"One")->Module()->InsertLines(1, u"' mine");
  window_->Files().KeepWork();
  EXPECT_TRUE(told());
  window_->statusBar()->clearMessage();
  window_->Files().KeepWork();
  EXPECT_FALSE(told());
  std::filesystem::remove(recovery);
  std::filesystem::create_directory(recovery);
  window_->Files().KeepWork();
  std::filesystem::remove_all(recovery);
  folder_.Write("state/recovery", "");
  window_->Files().KeepWork();
  EXPECT_TRUE(told()) << "it went well in between";
}

TEST_F(Files, AreNotOverwrittenUnseen) {
  ASSERT_TRUE(window_->OpenFile(Path("One.vbp")));
  In(u"One")->Module()->InsertLines(1, u"' mine");
  const std::string outside = "Attribute VB_Name = \"OneM\"\r\n' from outside\r\n";
  folder_.Write("One.bas", outside);
  QString told;
  AnswerNext(QMessageBox::No, &told);
  EXPECT_FALSE(window_->SaveAll());
  EXPECT_TRUE(told.contains(QStringLiteral("One.bas"))) << told.toStdString();
  EXPECT_TRUE(told.contains(QStringLiteral("line 2"))) << told.toStdString();
  EXPECT_EQ(BytesOf(folder_.Path() / "One.bas"), outside);
  EXPECT_TRUE(IsUnsaved(*In(u"One")));
  window_->ShowCode(In(u"One"));
  AnswerNext(QMessageBox::Yes);
  EXPECT_TRUE(window_->SaveCurrent());
  EXPECT_NE(BytesOf(folder_.Path() / "One.bas").find("' mine"), std::string::npos);
}

TEST_F(Files, ThatCannotBeLoadedAreShownGreyedAndTheRestOpens) {
  folder_.Write("Three.vbp",
                "Type=Exe\r\nModule=OneM; One.bas\r\nModule=Lost; Lost.bas\r\nName=\"Three\"\r\n");
  QString told;
  AnswerNext(QMessageBox::Ok, &told);
  ASSERT_TRUE(window_->OpenFile(Path("Three.vbp")));
  EXPECT_TRUE(told.contains(QStringLiteral("Lost.bas"))) << told.toStdString();
  QApplication::processEvents();
  auto* const tree = window_->findChild<QTreeWidget*>(QStringLiteral("projects"));
  const auto lost =
      tree->findItems(QStringLiteral("Lost (Lost.bas)"), Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(lost.size(), 1);
  EXPECT_TRUE(lost.front()->isDisabled());
  EXPECT_TRUE(lost.front()->toolTip(0).contains(QStringLiteral("Lost.bas")));
  EXPECT_EQ(lost.front()->parent()->text(0), QStringLiteral("Modules"));
  EXPECT_EQ(lost.front()->parent()->childCount(), 2);
}

TEST_F(Files, OpenAgainInAnotherCodePage) {
  folder_.Write("One.bas", "Attribute VB_Name = \"OneM\"\r\n' caf\xE9\r\n");
  ASSERT_TRUE(window_->OpenFile(Path("One.vbp")));
  window_->ShowCode(In(u"One"));
  QApplication::processEvents();
  auto* const button = window_->findChild<QToolButton*>(QStringLiteral("codePage"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return button->isVisible(); }, PatienceMs));
  EXPECT_EQ(button->text(), QStringLiteral("Code page 1252"));
  EXPECT_EQ(In(u"One")->Module()->Lines(1, 1), u"' caf\u00E9");
  emit button->menu()->aboutToShow();
  QAction* cyrillic = nullptr;
  for (QAction* const action : button->menu()->actions()) {
    if (action->text().startsWith(QStringLiteral("1251"))) cyrillic = action;
  }
  ASSERT_NE(cyrillic, nullptr);
  cyrillic->trigger();
  EXPECT_EQ(Projects(), QStringList{QStringLiteral("One")});
  EXPECT_EQ(In(u"One")->Module()->Lines(1, 1), u"' caf\u0439");
  EXPECT_FALSE(IsUnsaved(*In(u"One")));
}

}  // namespace
}  // namespace tessel::workbench
