// The workbench beside a bare editor in the same run: time from a process's start to its first
// picture, with a project of a million lines open beside a program that shows an empty editor; and
// the time from a key to its picture in a module of 20,000 lines, beside an editor with the same
// text and nothing of ours behind it. Prints a table and ends with 1 when a ratio is above its
// limit.

#include <QApplication>
#include <QFontDatabase>
#include <QProcess>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "GeneratedCode.h"
#include "KeyTimes.h"
#include "hosts/workbench/forms/WorkbenchPlatform.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/window/BasicLexer.h"
#include "hosts/workbench/window/MainWindow.h"
#include "support/TemporaryFolder.h"

namespace {

using namespace tessel;
using namespace tessel::bench;

constexpr int Components = 1000, LinesEach = 1000, TypedLines = 20000, Keys = 3000, Starts = 7;
constexpr double Limit = 1.3;

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

struct World {
  explicit World(const QString& folder)
      : Services(folder.toStdString() + "/data", folder.toStdString() + "/state/settings"),
        Window(Services, folder + QStringLiteral("/state")) {}
  workbench::WorkbenchPlatform Services;
  platform::ScopedPlatform Scope{Services};
  workbench::MainWindow Window;

  workbench::CodeWindow& Open(const char* file, StringView component) {
    Window.OpenFile(folder() + u'/' + QString::fromLatin1(file));
    return *Window.ShowCode(Window.Root()->Projects().All().front()->Components().Find(component));
  }
  static QString& folder() {
    static QString path;
    return path;
  }
};

// The two programs whose start is measured; each ends at its first picture.

int ShowEmptyEditor() {
  QsciScintilla editor;
  editor.resize(1280, 840);
  const FirstPaint painted(*editor.viewport());
  editor.show();
  painted.Wait();
  return 0;
}

int ShowWorkbench(const QString& folder) {
  World::folder() = folder;
  World world(folder);
  workbench::CodeWindow& code = world.Open("P.vbp", u"M500");
  const FirstPaint painted(*code.Editor().viewport());
  world.Window.show();
  painted.Wait();
  std::fflush(nullptr);
  std::_Exit(0);  // closing isn't measured
}

/// Time of a process from its start to its end.
double ProcessTime(const QStringList& arguments) {
  return Milliseconds([&] {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), arguments);
    process.waitForFinished(-1);
  });
}

/// An editor with the same text and colours and nothing of ours behind it.
std::vector<double> BareTyping(const std::string& code) {
  QsciScintilla editor;
  editor.setUtf8(true);
  editor.setLexer(new workbench::BasicLexer(QFontDatabase::systemFont(QFontDatabase::FixedFont),
                                            false, &editor));
  editor.setFolding(QsciScintilla::BoxedTreeFoldStyle, 2);
  editor.setMarginType(0, QsciScintilla::NumberMargin);
  editor.setMarginWidth(0, QStringLiteral("99999"));
  editor.setText(QString::fromStdString(code));
  editor.resize(960, 620);
  editor.show();
  editor.setCursorPosition(TypedLines / 2 + 1, 0);
  QApplication::processEvents();
  return TypingTimes(editor, Keys);
}

std::vector<double> WorkbenchTyping() {
  World world(World::folder());
  world.Window.resize(1280, 840);
  world.Window.show();
  workbench::CodeWindow& code = world.Open("Long.bas", u"Long");
  code.Editor().setCursorPosition(TypedLines / 2 + 1, 0);
  QApplication::processEvents();
  return TypingTimes(code.Editor(), Keys);
}

bool Report(const char* what, double ours, const char* peer, double plain) {
  const double ratio = ours / plain;
  std::printf("%-30s %8.2f ms   %-18s %8.2f ms   ratio %.2f\n", what, ours, peer, plain, ratio);
  return ratio <= Limit;
}

int Measure() {
  const test::TemporaryFolder folder;
  WriteProject(folder);
  World::folder() = QString::fromStdString(folder.Path().string());
  std::vector<double> empty, ours;
  for (int at = 0; at < Starts; ++at) {
    empty.push_back(ProcessTime({QStringLiteral("--empty")}));
    ours.push_back(ProcessTime({QStringLiteral("--workbench"), World::folder()}));
  }
  bool good = Report("start to first paint, median", Median(ours), "empty editor", Median(empty));
  const std::vector<double> plain = BareTyping(bench::Code(TypedLines)), typed = WorkbenchTyping();
  good = Report("key to paint, median", Median(typed), "bare editor", Median(plain)) && good;
  good = Report("key to paint, 99th percentile", Percentile99(typed), "bare editor",
                Percentile99(plain)) &&
         good;
  return good ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.contains(QStringLiteral("--empty"))) return ShowEmptyEditor();
  workbench::LoadResources();
  if (arguments.contains(QStringLiteral("--workbench"))) return ShowWorkbench(arguments.last());
  return Measure();
}
