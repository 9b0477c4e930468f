#include "hosts/workbench/forms/TabControlView.h"

#include <QScopedValueRollback>
#include <QTabBar>

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {

TabControlView::TabControlView(forms::TabControl& tabs, ViewHost& host)
    : ControlView(tabs, host), tabs_(tabs), widget_(new QTabWidget) {
  widget_->tabBar()->setFocusPolicy(Qt::StrongFocus);
  widget_->tabBar()->setVisible(tabs.HasTabs());
  QObject::connect(widget_, &QTabWidget::currentChanged, widget_, [this](int index) {
    // Also told while the pages are being put in.
    if (widget_->count() < static_cast<int>(tabs_.Pages().size())) return;
    if (index == tabs_.CurrTab()) return;
    Act([this, index] { forms::user::SelectPage(tabs_, index); });
  });
}

QWidget* TabControlView::FocusWidget() const { return widget_->tabBar(); }

void TabControlView::AddPage(QWidget* content) {
  const auto index = static_cast<std::size_t>(widget_->count());
  const auto& page = tabs_.Pages().at(index);
  widget_->addTab(content, ToQt(page.Caption.empty() ? page.Name : page.Caption));
}

void TabControlView::Update() { widget_->setCurrentIndex(tabs_.CurrTab()); }

}  // namespace tessel::workbench
