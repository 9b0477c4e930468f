// `tessel-workbench [FILE]`: reads the command line and opens the window.

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QTextStream>
#include <QTimer>

#include "hosts/linux/LinuxApp.h"
#include "hosts/linux/SqliteRegistry.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/Application.h"
#include "hosts/workbench/window/MainWindow.h"
#include "hosts/workbench/window/Screenshot.h"
#include "vb/Failure.h"

namespace {

using namespace tessel;

struct CommandLine {
  QCommandLineParser Parser;
  QCommandLineOption Data{QStringLiteral("data"),
                          QStringLiteral("Keep databases and logs below this folder."),
                          QStringLiteral("dir")};
  QCommandLineOption Registry{QStringLiteral("registry"),
                              QStringLiteral("Keep the settings in this file."),
                              QStringLiteral("file")};
  QCommandLineOption Screenshot{QStringLiteral("screenshot"),
                                QStringLiteral("Draw the window into a PNG file and end."),
                                QStringLiteral("file")};
  QCommandLineOption Dialog{
      QStringLiteral("dialog"),
      QStringLiteral("With --screenshot: draw the dialog of this command as well."),
      QStringLiteral("command")};
  QCommandLineOption Explorer{
      QStringLiteral("explorer"),
      QStringLiteral("With --screenshot: show the Project Explorer docked, narrow or floating."),
      QStringLiteral("place")};
  QCommandLineOption Find{QStringLiteral("find"),
                          QStringLiteral("With --explorer: type this above its tree."),
                          QStringLiteral("text")};

  CommandLine() {
    Parser.setApplicationDescription(QStringLiteral("Tools for Visual Basic 6 code in a window."));
    Parser.addHelpOption();
    Parser.addVersionOption();
    Parser.addOptions({Data, Registry, Screenshot, Dialog, Explorer, Find});
    Parser.addPositionalArgument(QStringLiteral("file"),
                                 QStringLiteral("A project, a group or a component file."),
                                 QStringLiteral("[file]"));
  }
  [[nodiscard]] std::filesystem::path PathOr(const QCommandLineOption& option,
                                             const std::filesystem::path& other) const {
    return Parser.isSet(option) ? std::filesystem::path(Parser.value(option).toStdString()) : other;
  }
};

QString StateFolder(const std::filesystem::path& registry) {
  return QFileInfo(QString::fromStdString(registry.string())).absolutePath();
}

int Run(workbench::Application& application, const CommandLine& line) {
  const auto registry = line.PathOr(line.Registry, linux_host::DefaultSettingsFile());
  workbench::WorkbenchPlatform platform(line.PathOr(line.Data, linux_host::DefaultDataDirectory()),
                                        registry);
  const platform::ScopedPlatform scope(platform);
  workbench::MainWindow window(platform, StateFolder(registry));
  application.OnFailure = [&window](const QString& text) { window.ShowFailure(text); };
  window.show();
  window.ConnectAddin();
  const QStringList files = line.Parser.positionalArguments();
  bool good = true;
  for (const QString& file : files) good = window.OpenFile(file) && good;
  if (!line.Parser.isSet(line.Screenshot)) {
    QTimer::singleShot(0, &window, [&window] { window.OfferRecovery(); });
    return workbench::Application::exec();
  }
  good = good && workbench::DrawScreenshots(
                     window, {line.Parser.value(line.Screenshot), line.Parser.value(line.Dialog),
                              line.Parser.value(line.Explorer), line.Parser.value(line.Find)});
  window.close();
  return good ? 0 : 2;
}

}  // namespace

int main(int argc, char** argv) {
  for (int at = 1; at < argc; ++at) {
    // A picture needs no screen.
    const QByteArray argument(argv[at]);
    if (argument.startsWith("--screenshot") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
      qputenv("QT_QPA_PLATFORM", "offscreen");
    }
  }
  workbench::Application application(argc, argv);
  workbench::LoadResources();
  CommandLine line;
  line.Parser.process(application);
  try {
    return Run(application, line);
  } catch (const vb::Failure& failure) {
    QTextStream(stderr) << "tessel-workbench: " << workbench::ToQt(failure.Description()) << '\n';
  } catch (const std::exception& failure) {
    QTextStream(stderr) << "tessel-workbench: " << failure.what() << '\n';
  }
  return 2;
}
