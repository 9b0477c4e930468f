// Everything at once: files change outside while the user types, undoes and saves, tools run and
// boxes stand. Widgets, model and disk agree behind it.
#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QFile>
#include <QTreeWidget>
#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>

#include "explorer/udProjectExplorer.h"
#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/window/Unsaved.h"
#include "scanning/mFunctions.h"
#include "workbench/window/WindowFixture.h"

namespace tessel::workbench {
namespace {

using ComponentPtr = std::shared_ptr<model::VBComponent>;

class Storm : public InWindow {
 protected:
  static constexpr int Modules = 6, Steps = 220;

  Storm() {
    std::string project = "Type=Exe\r\nForm=F.frm\r\n";
    for (int number = 0; number < Modules; ++number) {
      const std::string name = "M" + std::to_string(number);
      project += "Module=" + name + "; " + name + ".bas\r\n";
      WriteModule(number);
    }
    folder_.Write("F.frm",
                  "VERSION 5.00\r\nBegin VB.Form F \r\n   Caption         =   \"F\"\r\n"
                  "   ClientHeight    =   3000\r\n   ClientWidth     =   4000\r\nEnd\r\n"
                  "Attribute VB_Name = \"F\"\r\nSub A()\r\nEnd Sub\r\n");
    folder_.Write("P.vbp", project + "Name=\"P\"\r\n");
    EXPECT_TRUE(window_->OpenFile(QString::fromStdString((folder_.Path() / "P.vbp").string())));
    EXPECT_TRUE(window_->ClickCommand(u"Tessel", {u"Project Explorer"}));
    answers_.setInterval(3);
    QObject::connect(&answers_, &QTimer::timeout, [this] { Answer(); });
    answers_.start();
  }

  /// Never the same text twice.
  void WriteModule(int number) {
    const std::string name = "M" + std::to_string(number);
    std::string text =
        "Attribute VB_Name = \"" + name + "\"\r\n' version " + std::to_string(++version_) + "\r\n";
    const int members = 1 + Random(8);
    for (int member = 0; member < members; ++member) {
      text += "Sub P" + std::to_string(member) + "()\r\n    x = " + std::to_string(version_) +
              "\r\nEnd Sub\r\n";
    }
    folder_.Write(name + ".bas", text);
  }
  [[nodiscard]] int Random(int below) {
    return std::uniform_int_distribution<int>(0, below - 1)(random_);
  }
  [[nodiscard]] ComponentPtr Any() {
    const auto& all = window_->Root()->Active()->Components().All();
    return all[static_cast<std::size_t>(Random(static_cast<int>(all.size())))];
  }

  /// A person who answers every box by its sense, and remembers what was asked.
  void Answer() {
    QMessageBox* const box = OpenBox();
    if (box == nullptr || box == answered_) return;
    answered_ = box;
    most_ = std::max(most_, Boxes());
    const QString text = box->text();
    if (text.startsWith(QStringLiteral("These files were changed outside"))) {
      // The same question about the same bytes would be one too many.
      for (const QString& line : text.split(u'\n')) {
        QFile file(line);
        if (!line.startsWith(u'/') || !file.open(QIODevice::ReadOnly)) continue;
        const QByteArray state = QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha1);
        EXPECT_TRUE(asked_.emplace(line, state).second) << "asked twice: " << line.toStdString();
      }
      box->button(Random(2) == 0 ? QMessageBox::Yes : QMessageBox::No)->click();
    } else if (box->button(QMessageBox::Yes) != nullptr) {
      EXPECT_TRUE(text.contains(QStringLiteral("Changed by another program")))
          << text.toStdString();
      box->button(QMessageBox::Yes)->click();
    } else if (box->objectName() == QStringLiteral("own")) {
      QTimer::singleShot(40, box, [box] { box->accept(); });
    } else {
      EXPECT_TRUE(text.contains(QStringLiteral("no longer there"))) << text.toStdString();
      box->accept();
    }
  }
  static int Boxes() {
    int boxes = 0;
    for (QWidget* const top : QApplication::topLevelWidgets()) {
      boxes += qobject_cast<QMessageBox*>(top) != nullptr && top->isVisible() ? 1 : 0;
    }
    return boxes;
  }

  void Type(model::VBComponent& component) {
    CodeEditor& editor = window_->ShowCode(component.shared_from_this())->Editor();
    const int line = Random(editor.lines());
    editor.insertAt(QStringLiteral("' typed %1\n").arg(++version_), line, 0);
    LetGo(editor);
  }
  /// The key that did it comes up.
  static void LetGo(CodeEditor& editor) { QTest::keyRelease(&editor, Qt::Key_Shift); }
  void Tool(model::VBComponent& component) {
    services_.Desktop().RunAction([&] {
      const auto module = component.CodeModule();
      module->InsertLines(1 + Random(module->CountOfLines() + 1), u"' by a tool");
      if (Random(3) == 0) QTest::qWait(10);
      if (module->CountOfLines() > 3) module->DeleteLines(1 + Random(2), 1);
    });
  }
  void Step() {
    const ComponentPtr component = Any();
    const int what = Random(12);
    switch (what) {
      case 0:
      case 1:
        return Type(*component);
      case 2:
      case 3: {
        CodeEditor& editor = window_->ShowCode(component)->Editor();
        if (what == 2) {
          editor.undo();
        } else {
          editor.redo();
        }
        return LetGo(editor);
      }
      case 4:
        return Tool(*component);
      case 5:
      case 6:
        return WriteModule(Random(Modules));
      case 7: {
        const int number = Random(Modules);
        std::filesystem::remove(folder_.Path() / ("M" + std::to_string(number) + ".bas"));
        if (Random(2) == 0) QTest::qWait(350);
        return WriteModule(number);
      }
      case 8:
        window_->SaveAll();
        return;
      case 9: {
        QMessageBox box(QMessageBox::Information, {}, QStringLiteral("a box"), QMessageBox::Ok,
                        window_.get());
        box.setObjectName(QStringLiteral("own"));
        QTimer::singleShot(5, &box, [this] { WriteModule(Random(Modules)); });
        box.exec();
        return;
      }
      case 10: {
        DesignerView* const view = window_->ShowDesigner(Component(u"F"));
        if (Random(2) == 0) return view->UndoStack().undo();
        return view->AddControl(u"VB.CommandButton");
      }
      default:
        if (QMdiSubWindow* const frame = window_->Children().activeSubWindow()) frame->close();
        QTest::qWait(Random(120));
    }
  }

  void CheckWidgets() {
    for (const auto& [module, code] : window_->Children().Codes()) {
      const int count = code->Editor().Module()->Buffer().Count();
      const String text = count == 0 ? String() : code->Editor().Module()->Buffer().Text(1, count);
      EXPECT_EQ(FromQt(code->Editor().text()), vb::Replace(text, u"\r\n", u"\n"));
    }
    bool unsaved = false;
    auto* const tree = window_->findChild<QTreeWidget*>(QStringLiteral("projects"));
    for (const auto& component : window_->Root()->Active()->Components().All()) {
      unsaved |= IsUnsaved(*component);
      const QString name = ToQt(component->PlainName());
      const QString caption = IsUnsaved(*component) ? name + u'*' : name;
      EXPECT_EQ(
          tree->findItems(caption + QStringLiteral(" ("), Qt::MatchStartsWith | Qt::MatchRecursive)
              .size(),
          1)
          << caption.toStdString();
    }
    EXPECT_EQ(window_->isWindowModified(), unsaved);
  }
  /// Rows "LEVEL CAPTION LINE" of the Explorer and of what is open.
  std::vector<std::string> ShownRows() {
    std::vector<std::string> rows;
    for (const auto& one : window_->Root()->OwnWindows().ToolWindows()) {
      const auto tree = std::dynamic_pointer_cast<udProjectExplorer>(one.Document.lock());
      for (int row = 0; tree && row < tree->fgTree.Rows(); ++row) {
        if (tree->fgTree.RowAt(row).Level < 2) continue;
        rows.push_back(
            vb::ToUtf8(tree->fgTree.TextMatrix(row, 0) + u" " + tree->fgTree.TextMatrix(row, 8)));
      }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }
  std::vector<std::string> TrueRows() {
    std::vector<std::string> rows;
    for (const auto& component : window_->Root()->Active()->Components().All()) {
      rows.push_back(vb::ToUtf8(component->PlainName() + u" "));
      std::set<String> seen;
      const auto table = mFunctions::AllNameProcedures(component->Module(), u"");
      for (const Member& member : table.value_or(std::vector<Member>())) {
        if (!seen.insert(vb::UCase(member.Name)).second) continue;
        rows.push_back(vb::ToUtf8(member.Name + u" " + vb::Str(member.StartLine)));
      }
    }
    std::sort(rows.begin(), rows.end());
    return rows;
  }
  /// What counts as saved is what a fresh look at the files finds.
  void CheckDisk() {
    workspace::Workspace fresh(services_);
    fresh.Open(folder_.Path() / "P.vbp");
    for (const auto& component : window_->Root()->Active()->Components().All()) {
      if (IsUnsaved(*component)) continue;
      EXPECT_EQ(fresh.Text(component->PlainName()), Text(component->PlainName()))
          << ToQt(component->PlainName()).toStdString();
    }
  }

  /// Another storm for each value of $TESSEL_STORM.
  static unsigned Seed() {
    const char* const chosen = std::getenv("TESSEL_STORM");
    return chosen == nullptr ? 20261121U : static_cast<unsigned>(std::stoul(chosen));
  }

  std::mt19937 random_{Seed()};
  int version_ = 0, most_ = 0;
  QTimer answers_;
  QPointer<QMessageBox> answered_;
  std::set<std::pair<QString, QByteArray>> asked_;
};

TEST_F(Storm, LeavesWidgetsModelAndDiskInAgreement) {
  for (int step = 0; step < Steps; ++step) {
    Step();
    QApplication::processEvents();
  }
  QTest::qWait(2000);
  EXPECT_EQ(ShownRows(), TrueRows());
  EXPECT_LE(most_, 1) << "one box at a time";
  EXPECT_GT(asked_.size(), 3U) << "the storm was a breeze";
  CheckWidgets();
  CheckDisk();
  EXPECT_TRUE(window_->SaveAll());
  QTest::qWait(1000);
  CheckWidgets();
  for (const auto& component : window_->Root()->Active()->Components().All()) {
    EXPECT_FALSE(IsUnsaved(*component));
  }
  CheckDisk();
}

}  // namespace
}  // namespace tessel::workbench
