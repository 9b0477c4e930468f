// The workbench beside an empty editor window in the same run: time to the first paint with a
// project of a million lines open, and the time from a key to its picture in a module of 20,000
// lines. Prints a table and ends with 1 when a ratio is above its limit.

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "GeneratedCode.h"
#include "hosts/workbench/forms/WorkbenchPlatform.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/window/MainWindow.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace tessel;

constexpr int Components = 1000, LinesEach = 1000, TypedLines = 20000, Keys = 3000, Starts = 7;
constexpr double Limit = 1.3;

/// Notes when a widget was painted first.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    Seen |= event->type() == QEvent::Paint;
    return false;
  }
  void Wait() const {
    while (!Seen) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  bool Seen = false;
};

double Milliseconds(const std::function<void()>& work) {
  QElapsedTimer timer;
  timer.start();
  work();
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

double Percentile99(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() * 99 / 100];
}

void WriteProject(const test::TemporaryFolder& folder) {
  std::string project = "Type=Exe\r\n";
  const std::string code = bench::Code(LinesEach);
  for (int number = 0; number < Components; ++number) {
    const std::string name = "M" + std::to_string(number);
    project += "Module=" + name + "; " + name + ".bas\r\n";
    folder.Write(name + ".bas", "Attribute VB_Name = \"" + name + "\"\r\n" + code);
  }
  folder.Write("P.vbp", project + "Name=\"P\"\r\n");
  folder.Write("Long.bas", "Attribute VB_Name = \"Long\"\r\n" + bench::Code(TypedLines));
}

double EmptyStart() {
  return Milliseconds([] {
    QsciScintilla editor;
    editor.resize(1280, 840);
    const FirstPaint painted(*editor.viewport());
    editor.show();
    painted.Wait();
  });
}

struct World {
  explicit World(const test::TemporaryFolder& folder)
      : Services(folder.Path() / "data", folder.Path() / "state" / "settings"),
        Window(Services, QString::fromStdString((folder.Path() / "state").string())) {}
  workbench::WorkbenchPlatform Services;
  platform::ScopedPlatform Scope{Services};
  workbench::MainWindow Window;
};

/// Time until the window shows a module of the project.
double WorkbenchStart(const test::TemporaryFolder& folder) {
  std::unique_ptr<World> world;
  const double time = Milliseconds([&] {
    world = std::make_unique<World>(folder);
    world->Window.OpenFile(QString::fromStdString((folder.Path() / "P.vbp").string()));
    workbench::CodeWindow* const code = world->Window.ShowCode(
        world->Window.Root()->Projects().All().front()->Components().Find(u"M500"));
    const FirstPaint painted(*code->Editor().viewport());
    world->Window.show();
    painted.Wait();
  });
  return time;
}

/// Time of each key from its event to the end of its painting.
std::vector<double> TypingTimes(QsciScintilla& editor) {
  std::vector<double> times;
  static const QString Text = QStringLiteral("    Result = Value + 1 ' note\n");
  for (int key = 0; key < Keys; ++key) {
    const QChar sign = Text[key % Text.size()];
    times.push_back(Milliseconds([&] {
      if (sign == u'\n') {
        QTest::keyClick(&editor, Qt::Key_Return);
      } else {
        QTest::keyClick(&editor, sign.toLatin1());
      }
      QApplication::processEvents();
    }));
  }
  return times;
}

std::vector<double> EmptyTyping() {
  QsciScintilla editor;
  editor.resize(960, 620);
  editor.show();
  QApplication::processEvents();
  return TypingTimes(editor);
}

std::vector<double> WorkbenchTyping(const test::TemporaryFolder& folder) {
  World world(folder);
  world.Window.show();
  world.Window.OpenFile(QString::fromStdString((folder.Path() / "Long.bas").string()));
  workbench::CodeWindow* const code = world.Window.ShowCode(
      world.Window.Root()->Projects().All().front()->Components().Find(u"Long"));
  code->Editor().setCursorPosition(TypedLines / 2 + 1, 0);
  QApplication::processEvents();
  return TypingTimes(code->Editor());
}

bool Report(const char* what, double ours, double plain) {
  const double ratio = ours / plain;
  std::printf("%-34s %9.2f ms   empty editor %9.2f ms   ratio %.2f\n", what, ours, plain, ratio);
  return ratio <= Limit;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  workbench::LoadResources();
  const test::TemporaryFolder folder;
  WriteProject(folder);
  EmptyStart();  // fonts and styles are loaded once
  std::vector<double> empty, ours;
  for (int at = 0; at < Starts; ++at) {
    empty.push_back(EmptyStart());
    ours.push_back(WorkbenchStart(folder));
  }
  bool good = Report("start to first paint, median", Median(ours), Median(empty));
  const std::vector<double> plain = EmptyTyping(), typed = WorkbenchTyping(folder);
  good = Report("key to paint, median", Median(typed), Median(plain)) && good;
  good = Report("key to paint, 99th percentile", Percentile99(typed), Percentile99(plain)) && good;
  return good ? 0 : 1;
}
