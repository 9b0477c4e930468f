#include "hosts/workbench/forms/DropDownButtonView.h"

#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

DropDownButtonView::DropDownButtonView(forms::DropDownButton& button, ViewHost& host)
    : ControlView(button, host),
      button_(button),
      widget_(new QToolButton),
      menu_(new QMenu(widget_)) {
  widget_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  widget_->setPopupMode(button.Click ? QToolButton::MenuButtonPopup : QToolButton::InstantPopup);
  widget_->setFocusPolicy(Qt::StrongFocus);
  widget_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  widget_->setMinimumHeight(QPushButton(QStringLiteral("X")).sizeHint().height());
  widget_->setMenu(menu_);
  QObject::connect(menu_, &QMenu::aboutToShow, widget_, [this] { FillMenu(); });
  QObject::connect(widget_, &QToolButton::clicked, widget_,
                   [this] { Act([this] { forms::user::Press(button_); }); });
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

void DropDownButtonView::Update() { widget_->setText(ToQt(button_.Caption())); }

}  // namespace tessel::workbench
