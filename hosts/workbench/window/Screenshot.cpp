#include "hosts/workbench/window/Screenshot.h"

#include <QApplication>
#include <QDockWidget>
#include <QFileInfo>
#include <QPixmap>
#include <QTimer>

#include "explorer/udProjectExplorer.h"
#include "forms/User.h"
#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/forms/SurfaceWidget.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ExplorerCommands.h"
#include "hosts/workbench/window/MainWindow.h"

namespace tessel::workbench {
namespace {

constexpr int SettleMs = 700;

void Settle() {
  QEventLoop loop;
  QTimer::singleShot(SettleMs, &loop, &QEventLoop::quit);
  loop.exec();
}

/// The first component that a test accepts.
template <class Accept>
std::shared_ptr<model::VBComponent> FirstComponent(MainWindow& window, const Accept& accept) {
  for (const auto& project : window.Root()->Projects().All()) {
    for (const auto& component : project->Components().All()) {
      if (accept(*component)) return component;
    }
  }
  return nullptr;
}

/// Opens the code of a component and puts the caret into its first member.
void OpenCode(MainWindow& window, const std::shared_ptr<model::VBComponent>& component) {
  CodeWindow* const shown = component ? window.ShowCode(component) : nullptr;
  if (shown == nullptr) return;
  const auto members = component->Module()->Index().Members();
  if (members.empty()) return;
  const int line = members.front().Lines.Body + 1;
  shown->Editor().Select({line, 5, line, 5});
}

/// Opens a form, its code, and the code of a module of its project.
void OpenWindows(MainWindow& window) {
  const auto form = FirstComponent(window, [](const auto& one) {
    return one.PlainType() == host::vbext_ct_VBForm &&
           one.OwnDesigner()->Tree().Controls().size() > 3;
  });
  const auto code = FirstComponent(window, [](const auto& one) {
    return one.PlainType() == host::vbext_ct_StdModule && one.Module()->Buffer().Count() > 40;
  });
  OpenCode(window, form);
  if (form) window.ShowDesigner(form);
  OpenCode(window, code);
}

QString DialogFile(const QString& file) {
  const QFileInfo info(file);
  return info.path() + u'/' + info.completeBaseName() + QStringLiteral("-dialog.") + info.suffix();
}

QDockWidget* DockOf(MainWindow& window, const forms::Document& document) {
  for (QDockWidget* const dock : window.findChildren<QDockWidget*>()) {
    const auto* const content = dynamic_cast<const SurfaceWidget*>(dock->widget());
    if (content != nullptr && content->SurfaceOf().get() == &document) return dock;
  }
  return nullptr;
}

/// Opens the Explorer with the tree on the member at the caret, and says what is to be drawn; null
/// when it can't be opened as wanted.
QWidget* ShowExplorer(MainWindow& window, const Pictures& pictures) {
  constexpr QSize Floating(320, 480);
  constexpr int Narrow = 40;
  const auto explorer = ExplorerOf(window);
  if (!explorer || !window.ClickCommand(u"Tessel", {u"Project Explorer"})) return nullptr;
  Settle();
  QDockWidget* const dock = DockOf(window, *explorer);
  if (dock == nullptr) return nullptr;
  if (pictures.Explorer != QStringLiteral("floating")) {
    window.addDockWidget(Qt::LeftDockWidgetArea, dock);
    const bool narrow = pictures.Explorer == QStringLiteral("narrow");
    window.resizeDocks({dock}, {narrow ? Narrow : Floating.width()}, Qt::Horizontal);
    window.resizeDocks({dock}, {window.height() * 2 / 3}, Qt::Vertical);
  } else {
    dock->setFloating(true);
    dock->resize(Floating);
  }
  window.RunTool([&] {
    explorer->SelectAtCaret();
    if (!pictures.Find.isEmpty()) forms::user::Type(explorer->txtFind, FromQt(pictures.Find));
  });
  return dock->isFloating() ? static_cast<QWidget*>(dock) : &window;
}

}  // namespace

bool DrawScreenshots(MainWindow& window, const Pictures& pictures) {
  OpenWindows(window);
  window.Children().tileSubWindows();
  QWidget* shown = &window;
  if (!pictures.Explorer.isEmpty()) shown = ShowExplorer(window, pictures);
  Settle();
  if (shown == nullptr) return false;
  bool drawn = shown->grab().save(pictures.File);
  if (pictures.Command.isEmpty()) return drawn;
  QTimer::singleShot(SettleMs, &window, [&] {
    for (QWidget* const top : QApplication::topLevelWidgets()) {
      if (top == &window || !top->isVisible() || !top->inherits("QDialog")) continue;
      drawn = top->grab().save(DialogFile(pictures.File)) && drawn;
      top->close();
    }
  });
  const bool clicked = window.ClickCommand(u"Tessel", {u"Tessel", FromQt(pictures.Command)});
  Settle();
  Settle();
  return drawn && clicked;
}

}  // namespace tessel::workbench
