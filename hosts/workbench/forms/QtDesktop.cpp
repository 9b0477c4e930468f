#include "hosts/workbench/forms/QtDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QWindow>

#include "forms/Form.h"
#include "forms/RichTextBox.h"
#include "hosts/workbench/forms/DocumentOpener.h"
#include "hosts/workbench/forms/KeyStrokes.h"
#include "hosts/workbench/forms/ScreenPlace.h"
#include "hosts/workbench/forms/StandardBoxes.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

using platform::WindowPlacement;

constexpr int ShowNormal = 1, ShowMinimized = 2, ShowMaximized = 3;
constexpr int PictureSide = 32;

/// The program's own mark of a picture on the clipboard; others see the picture itself.
const QString& PictureFormat() {
  static const QString format = QStringLiteral("application/x-tessel-picture");
  return format;
}

int CommandOf(const QWidget& window) {
  if (window.isMaximized()) return ShowMaximized;
  return window.isMinimized() ? ShowMinimized : ShowNormal;
}

WindowPlacement PlacementOf(const QRect& place, int command) {
  WindowPlacement placement;
  placement.ShowCommand = command;
  placement.Left = place.left();
  placement.Top = place.top();
  placement.Right = place.left() + place.width();
  placement.Bottom = place.top() + place.height();
  return placement;
}

QRect PlaceOf(const WindowPlacement& placement) {
  return {placement.Left, placement.Top, placement.Right - placement.Left,
          placement.Bottom - placement.Top};
}

}  // namespace

QtDesktop::QtDesktop() {
  gate_.Wrap = [this](const ActionGate::Action& action) {
    if (const auto hook = RunTool) {
      hook(action);
    } else {
      action();
    }
  };
  gate_.OnFailure = [this](const vb::Failure& failure) { Report(failure); };
  gate_.OnIdle = [this] { StopBlocking(); };
}

QtDesktop::~QtDesktop() {
  for (const auto& [form, window] : windows_) delete window.data();
  delete help_.data();
}

QWidget* QtDesktop::Front() const {
  if (QWidget* const modal = QApplication::activeModalWidget()) return modal;
  QWidget* const active = QApplication::activeWindow();
  return active != nullptr ? active : parent_.data();
}

void QtDesktop::Report(const vb::Failure& failure) {
  const String source = failure.Source().empty() ? String() : u"\r\n" + failure.Source();
  static_cast<void>(
      ShowMessage(failure.Description() + u"\r\n\r\nError " + vb::Str(failure.Number()) + source,
                  u"Tessel", platform::Critical));
}

platform::MessageAnswer QtDesktop::ShowMessage(StringView text, StringView title, int style) {
  return AskMessage(Front(), text, title, style);
}

std::optional<String> QtDesktop::InputBox(StringView prompt, StringView title, StringView text) {
  return AskInput(Front(), prompt, title, text);
}

std::vector<String> QtDesktop::FileDialog(const platform::FileDialogRequest& request) {
  return AskFiles(Front(), request);
}

bool QtDesktop::FontDialog(forms::Font& font, StringView title) {
  return AskFont(Front(), font, title);
}

FormWindow* QtDesktop::WindowOf(const forms::Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.data();
}

FormWindow& QtDesktop::Window(forms::Form& form) {
  DropLostWindows();
  QPointer<FormWindow>& window = windows_[&form];
  if (!window) window = new FormWindow(form.shared_from_this(), gate_, parent_);
  return *window;
}

/// A hidden form can go without a word; another one may stand at its address by now.
void QtDesktop::DropLostWindows() {
  std::erase_if(windows_, [](const auto& one) {
    if (one.second && one.second->FormOf()) return false;
    if (one.second) {
      one.second->Detach();
      one.second->deleteLater();
    }
    return true;
  });
}

void QtDesktop::Show(forms::Form& form, platform::ShowStyle style) {
  const bool modal = style == platform::ShowStyle::Modal;
  QWidget* const front = Front();
  const QPointer<FormWindow> window(&Window(form));
  window->Open(modal || IsBusy(), front);
  if (!modal) return;
  window->WaitUntilHidden();
  // The program is being closed around an open form.
  if (form.Visible()) form.CloseByFrame();
  if (form.Visible()) form.Hide();
}

void QtDesktop::Hidden(forms::Form& form, bool gone) {
  const QPointer<FormWindow> window = WindowOf(form);
  if (gone) {
    windows_.erase(&form);
    form.SetView(nullptr);
  }
  if (!window) return;
  if (!gone) {
    window->Leave();
    return;
  }
  window->Detach();
  window->deleteLater();
}

void QtDesktop::SetForeground(forms::Form& form) {
  FormWindow* const window = WindowOf(form);
  if (window == nullptr || !window->isVisible()) return;
  if (window->isMinimized()) window->showNormal();
  window->raise();
  window->activateWindow();
}

void QtDesktop::StopBlocking() {
  for (const auto& [form, window] : windows_) {
    if (window) window->StopBlocking();
  }
}

std::optional<WindowPlacement> QtDesktop::GetPlacement(forms::Form& form) {
  FormWindow& window = Window(form);
  return PlacementOf(window.Place().Get(), CommandOf(window));
}

// A form never opens minimized: nothing would show that it waits.
void QtDesktop::SetPlacement(forms::Form& form, const WindowPlacement& placement) {
  Window(form).Place().Set(PlaceOf(placement), placement.ShowCommand == ShowMaximized);
}

std::optional<WindowPlacement> QtDesktop::DesktopPlacement() {
  const QPoint place = parent_ ? parent_->frameGeometry().center() : QPoint();
  return PlacementOf(ScreenAround(place), ShowNormal);
}

String QtDesktop::ClipboardText() {
  return forms::WithCrLf(FromQt(QGuiApplication::clipboard()->text()));
}

void QtDesktop::SetClipboardText(StringView text) {
  QGuiApplication::clipboard()->setText(ToQt(vb::Replace(text, vb::CrLf, u"\n")));
}

void QtDesktop::SetClipboardPicture(int picture) {
  auto* const data = new QMimeData;
  data->setImageData(Picture(picture).pixmap(PictureSide).toImage());
  data->setData(PictureFormat(), QByteArray::number(picture));
  QGuiApplication::clipboard()->setMimeData(data);
}

int QtDesktop::ClipboardPicture() {
  const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
  return data == nullptr ? 0 : data->data(PictureFormat()).toInt();
}

void QtDesktop::ClearClipboard() { QGuiApplication::clipboard()->clear(); }

void QtDesktop::SendKeys(StringView keys) { SendStrokes(ReadKeys(keys)); }

void QtDesktop::Beep() { QApplication::beep(); }

int QtDesktop::OpenDocument(StringView target, StringView verb, StringView parameters) {
  return OpenTarget(target, verb, parameters);
}

/// A dialog that takes all input leaves it to the windows that belong to it alone; whether one does
/// is decided when it is shown.
void QtDesktop::UnblockHelp() {
  const QWidget* const modal = QApplication::activeModalWidget();
  QWindow* const owner = modal == nullptr ? nullptr : modal->window()->windowHandle();
  help_->winId();
  if (help_->windowHandle()->transientParent() == owner) return;
  help_->hide();
  help_->windowHandle()->setTransientParent(owner);
}

// The topics travel inside the program, whatever file they once came in.
void QtDesktop::ShowHelp(StringView, StringView topic) {
  if (!help_) help_ = new HelpWindow;
  UnblockHelp();
  help_->ShowTopic(topic);
}

}  // namespace tessel::workbench
