#include "hosts/workbench/forms/ListBoxView.h"

#include <algorithm>

#include "forms/User.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int MostColumns = 20;

}  // namespace

ListBoxView::ListBoxView(forms::ListBox& box, ViewHost& host)
    : ControlView(box, host), box_(box), widget_(new QListWidget) {
  widget_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  QObject::connect(widget_, &QListWidget::currentRowChanged, widget_, [this](int row) {
    if (row >= 0) Act([this, row] { forms::user::Pick(box_, row); });
  });
  QObject::connect(widget_, &QListWidget::itemDoubleClicked, widget_,
                   [this](QListWidgetItem* item) {
                     const int row = widget_->row(item);
                     Act([this, row] { forms::user::DoubleClick(box_, row); });
                   });
}

void ListBoxView::Update() {
  if (shown_ != box_.List()) {
    shown_ = box_.List();
    QStringList items;
    for (const String& text : shown_) items.append(ToQt(text));
    widget_->clear();
    widget_->addItems(items);
    // Short items are never cut off; long ones are scrolled.
    const int wanted = widget_->sizeHintForColumn(0) + 2 * widget_->frameWidth();
    widget_->setMinimumWidth(
        std::min(wanted, MostColumns * widget_->fontMetrics().averageCharWidth()));
  }
  widget_->setCurrentRow(box_.ListIndex());
}

}  // namespace tessel::workbench
