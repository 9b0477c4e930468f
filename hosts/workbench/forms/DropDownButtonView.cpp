#include "hosts/workbench/forms/DropDownButtonView.h"

#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "forms/User.h"
#include "hosts/workbench/forms/ButtonFace.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

DropDownButtonView::DropDownButtonView(forms::DropDownButton& button, ViewHost& host)
    : ControlView(button, host),
      button_(button),
      menu_(new QMenu),
      widget_(button.Click ? MakeSplit() : MakeWhole()) {
  menu_->setParent(widget_, menu_->windowFlags());
  QObject::connect(menu_, &QMenu::aboutToShow, widget_, [this] { FillMenu(); });
}

QAbstractButton* DropDownButtonView::MakeSplit() {
  auto* const split = new QToolButton;
  split->setToolButtonStyle(Qt::ToolButtonTextOnly);
  split->setPopupMode(QToolButton::MenuButtonPopup);
  split->setFocusPolicy(Qt::StrongFocus);
  split->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  split->setMinimumHeight(QPushButton(QStringLiteral("X")).sizeHint().height());
  split->setMenu(menu_);
  QObject::connect(split, &QToolButton::clicked, split,
                   [this] { Act([this] { forms::user::Press(button_); }); });
  return split;
}

QAbstractButton* DropDownButtonView::MakeWhole() {
  auto* const whole = new QPushButton;
  whole->setAutoDefault(false);
  whole->setMenu(menu_);
  return whole;
}

QWidget* DropDownButtonView::Widget() const { return widget_; }

void DropDownButtonView::FillMenu() {
  menu_->clear();
  for (const auto& item : button_.Items()) {
    if (item.Text == u"-") {
      menu_->addSeparator();
      continue;
    }
    QAction* const action = menu_->addAction(ToQt(item.Text));
    // The list may be another one by the time the action runs.
    QObject::connect(action, &QAction::triggered, widget_, [this, key = item.Key] {
      Act([this, &key] { forms::user::PressItem(button_, key); });
    });
  }
}

void DropDownButtonView::Update() { ShowFace(*widget_, button_); }

}  // namespace tessel::workbench
