#include "hosts/workbench/window/Screenshot.h"

#include <QApplication>
#include <QFileInfo>
#include <QPixmap>
#include <QTimer>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/platform/Text.h"
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

}  // namespace

bool DrawScreenshots(MainWindow& window, const QString& file, const QString& command) {
  OpenWindows(window);
  window.Children().tileSubWindows();
  Settle();
  bool drawn = window.grab().save(file);
  if (command.isEmpty()) return drawn;
  QTimer::singleShot(SettleMs, &window, [&] {
    for (QWidget* const top : QApplication::topLevelWidgets()) {
      if (top == &window || !top->isVisible() || !top->inherits("QDialog")) continue;
      drawn = top->grab().save(DialogFile(file)) && drawn;
      top->close();
    }
  });
  const bool clicked = window.ClickCommand(u"Tessel", {u"Tessel", FromQt(command)});
  Settle();
  Settle();
  return drawn && clicked;
}

}  // namespace tessel::workbench
