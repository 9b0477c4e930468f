#include "hosts/workbench/forms/FormWindow.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMenuBar>
#include <QVBoxLayout>
#include <QWindow>

#include "forms/Popup.h"
#include "forms/User.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int LeastColumns = 48;

bool IsPopup(const forms::Form& form) {
  return dynamic_cast<const forms::Popup*>(&form) != nullptr;
}

Qt::WindowFlags FlagsOf(const forms::Form& form) {
  if (IsPopup(form)) return Qt::Popup | Qt::FramelessWindowHint;
  const Qt::WindowFlags frame = Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
  switch (form.Border) {
    case forms::BorderStyle::Sizable:
      return Qt::Dialog | frame | Qt::WindowMinMaxButtonsHint;
    case forms::BorderStyle::ToolWindow:
      return Qt::Tool | frame;
    default:
      return Qt::Dialog | frame;
  }
}

}  // namespace

FormWindow::FormWindow(const std::shared_ptr<forms::Form>& form, ActionGate& gate, QWidget* parent)
    : QDialog(parent, FlagsOf(*form)), form_(form), surface_(new SurfaceWidget(form, gate)) {
  setObjectName(ToQt(form->Name()));
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  if (IsPopup(*form)) {
    for (QLayout* const layout : surface_->findChildren<QLayout*>()) layout->setContentsMargins({});
  } else {
    // A minimum of the widget itself would hide what its layout needs.
    whole->addStrut(LeastColumns * fontMetrics().averageCharWidth());
  }
  whole->addWidget(surface_);
  if (surface_->Menus() != nullptr) whole->setMenuBar(surface_->Menus());
  surface_->FrameChanged = [this] { ShowFrame(); };
  ShowFrame();
}

void FormWindow::ShowFrame() {
  const auto form = form_.lock();
  if (!form) return;
  setWindowTitle(ToQt(form->Caption()));
  if (form->Icon != 0) setWindowIcon(Picture(form->Icon));
}

void FormWindow::Open(bool blocks, QWidget* behind) {
  // A window without a frame takes all input by itself, and gives it back to a click beside it.
  const bool popup = windowType() == Qt::Popup;
  setWindowModality(blocks && !popup ? Qt::ApplicationModal : Qt::NonModal);
  surface_->Refresh();
  surface_->FocusFirst();
  place_.Prepare();
  StandInFrontOf(behind);
  if (place_.IsMaximized()) {
    showMaximized();
  } else {
    show();
  }
  raise();
  activateWindow();
}

void FormWindow::StandInFrontOf(QWidget* behind) {
  if (behind == nullptr || behind == this) return;
  winId();
  if (QWindow* const other = behind->window()->windowHandle()) {
    windowHandle()->setTransientParent(other);
  }
}

void FormWindow::StopBlocking() {
  if (wait_ || !isVisible() || windowModality() == Qt::NonModal) return;
  // The modality of a window in sight can't be changed.
  hide();
  setWindowModality(Qt::NonModal);
  show();
}

void FormWindow::WaitUntilHidden() {
  QEventLoop loop;
  wait_ = &loop;
  loop.exec();
}

void FormWindow::Leave() {
  hide();
  if (wait_) wait_->quit();
}

void FormWindow::reject() {}  // Escape is the Cancel button's, the frame asks the form

void FormWindow::closeEvent(QCloseEvent* event) {
  CloseByFrame();
  event->setAccepted(!isVisible());
}

void FormWindow::CloseByFrame() {
  const auto form = form_.lock();
  if (!form || !form->Visible()) return;
  surface_->Finish();
  surface_->Run([&] { forms::user::Close(*form); });
}

void FormWindow::Detach() {
  form_.reset();
  surface_->Detach();
  Leave();
}

// Without a control that has the focus the keys come to the window itself.
void FormWindow::keyPressEvent(QKeyEvent* event) { surface_->HandleKey(event); }

}  // namespace tessel::workbench
