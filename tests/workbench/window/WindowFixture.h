// The real window over a copy of the sample, driven as a user does.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>

#include "hosts/workbench/forms/FormWindow.h"
#include "hosts/workbench/forms/WorkbenchPlatform.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/MainWindow.h"
#include "support/TemporaryFolder.h"

namespace tessel::workbench {

constexpr int PatienceMs = 8000;

/// The window of an open form; null when there is none.
inline FormWindow* OpenForm(const char* name) {
  for (QWidget* const top : QApplication::topLevelWidgets()) {
    auto* const window = dynamic_cast<FormWindow*>(top);
    const auto form = window != nullptr && window->isVisible() ? window->FormOf() : nullptr;
    if (form && form->Name() == vb::FromUtf8(name)) return window;
  }
  return nullptr;
}

/// Runs `act` as soon as `ready` gives something; needed where a call comes back only when the user
/// is done.
template <class Ready, class Act>
void When(Ready ready, Act act) {
  auto* const timer = new QTimer(qApp);
  timer->setInterval(10);
  QObject::connect(timer, &QTimer::timeout, timer, [=] {
    const auto found = ready();
    if (!found) return;
    timer->deleteLater();
    timer->stop();
    act(found);
  });
  timer->start();
}

inline QMessageBox* OpenBox() {
  return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

/// Answers the next message box with a standard button.
inline void AnswerNext(QMessageBox::StandardButton button, QString* text = nullptr) {
  When(OpenBox, [=](QMessageBox* box) {
    if (text != nullptr) *text = box->text();
    box->button(button)->click();
  });
}

/// Counts the windows of the error dialog as they come up. At its end those that nobody took fail
/// the test.
class ErrorWindows : public QObject {
 public:
  ErrorWindows() { qApp->installEventFilter(this); }
  ~ErrorWindows() override {
    EXPECT_EQ(shown_, 0) << "error dialogs that the test did not ask for";
  }
  ErrorWindows(const ErrorWindows&) = delete;
  ErrorWindows& operator=(const ErrorWindows&) = delete;

  /// How many came since the last call: these were asked for.
  int Take() { return std::exchange(shown_, 0); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show) {
      const auto* const window = dynamic_cast<FormWindow*>(watched);
      const auto form = window != nullptr ? window->FormOf() : nullptr;
      if (form && form->Name() == u"frmErrorMessage") ++shown_;
    }
    return false;
  }

 private:
  int shown_ = 0;
};

/// Leaves controls their names, and code as it is, whenever the add-in asks; until it is stopped.
class KeptNames : public QTimer {
 public:
  KeptNames() {
    setInterval(5);
    QObject::connect(this, &QTimer::timeout, this, [] {
      PressIn("frmAddControl", "btmCansel");
      PressIn("frmControlName", "btmNo");
    });
    start();
  }

 private:
  static void PressIn(const char* form, const char* button) {
    FormWindow* const window = OpenForm(form);
    if (window == nullptr) return;
    if (auto* const found = window->findChild<QAbstractButton*>(QLatin1String(button))) {
      found->click();
    }
  }
};

class InWindow : public testing::Test {
 protected:
  InWindow()
      : services_(folder_.Path() / "program", folder_.Path() / "state" / "settings"),
        scope_(services_) {
    std::filesystem::copy(std::filesystem::path(TESSEL_SOURCE_DIR) / "samples" / "ledger",
                          folder_.Path() / "ledger", std::filesystem::copy_options::recursive);
    Start();
  }
  ~InWindow() override {
    if (window_) Discard();
  }

  void Start() {
    window_ = std::make_unique<MainWindow>(services_, State());
    window_->resize(1280, 840);
    window_->show();
    window_->ConnectAddin();
    QApplication::processEvents();
  }
  /// Closes the window; unsaved changes are lost.
  void Discard() {
    QTimer answer;
    answer.setInterval(10);
    QObject::connect(&answer, &QTimer::timeout, [] {
      if (QMessageBox* const box = OpenBox()) box->button(QMessageBox::Discard)->click();
    });
    answer.start();
    window_->close();
    window_.reset();
  }

  [[nodiscard]] QString State() const {
    return QString::fromStdString((folder_.Path() / "state").string());
  }
  [[nodiscard]] std::filesystem::path SampleFile(const std::string& name) const {
    return folder_.Path() / "ledger" / name;
  }
  void OpenSample() {
    ASSERT_TRUE(window_->OpenFile(QString::fromStdString(SampleFile("Ledger.vbp").string())));
    QApplication::processEvents();
  }
  [[nodiscard]] std::shared_ptr<model::VBComponent> Component(StringView name) const {
    return std::dynamic_pointer_cast<model::VBComponent>(window_->Environment().Component(name));
  }
  CodeWindow& Code(StringView name) const { return *window_->ShowCode(Component(name)); }
  [[nodiscard]] String Text(StringView name) const { return window_->Environment().Text(name); }

  /// The tool bar's action with that text.
  [[nodiscard]] QAction* BarAction(const QString& caption) const {
    for (QToolBar* const bar : window_->findChildren<QToolBar*>()) {
      if (bar->objectName() != QStringLiteral("bar:Tessel")) continue;
      for (QAction* const action : bar->actions()) {
        if (action->text() == caption) return action;
      }
    }
    return nullptr;
  }
  template <class Widget>
  static Widget* In(QWidget* window, const char* name) {
    Widget* const found = window->findChild<Widget*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  static void Press(QWidget* window, const char* name) {
    QTest::mouseClick(In<QAbstractButton>(window, name), Qt::LeftButton);
  }

  ErrorWindows errors_;
  KeptNames names_;
  test::TemporaryFolder folder_;
  WorkbenchPlatform services_;
  platform::ScopedPlatform scope_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace tessel::workbench
