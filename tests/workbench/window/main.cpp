// Runs the tests of the window; called with --edit-and-die FOLDER it edits the sample there and is
// killed as soon as its work is kept.
#include <gtest/gtest.h>
#include <signal.h>

#include <QApplication>
#include <QDir>
#include <QTest>

#include "hosts/workbench/forms/WorkbenchPlatform.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/window/MainWindow.h"

namespace {

int EditAndDie(const QString& folder) {
  using namespace tessel;
  const std::filesystem::path root(folder.toStdString());
  workbench::WorkbenchPlatform services(root / "program2", root / "state" / "settings2");
  const platform::ScopedPlatform scope(services);
  workbench::MainWindow window(services, QDir(folder).filePath(QStringLiteral("state")));
  window.show();
  if (!window.OpenFile(QDir(folder).filePath(QStringLiteral("ledger/Ledger.vbp")))) return 2;
  workbench::CodeWindow* const code =
      window.ShowCode(window.Root()->Active()->Components().Find(u"modMain"));
  code->Editor().selectAll();
  code->Editor().replaceSelectedText(QString());
  QTest::keyClicks(&code->Editor(), QStringLiteral("' typed before the end"));
  const QDir kept(QDir(folder).filePath(QStringLiteral("state/recovery")));
  const bool safe =
      QTest::qWaitFor([&] { return !kept.entryList({QStringLiteral("*.json")}).isEmpty(); }, 10000);
  if (safe) ::raise(SIGKILL);
  return 3;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  tessel::workbench::LoadResources();
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() == 3 && arguments[1] == QStringLiteral("--edit-and-die")) {
    return EditAndDie(arguments[2]);
  }
  return RUN_ALL_TESTS();
}
