#include "hosts/workbench/forms/ListBoxView.h"

#include <QCursor>
#include <QFontMetrics>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>

#include "forms/Popup.h"
#include "forms/User.h"
#include "hosts/workbench/forms/ScreenPlace.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

constexpr int MostColumns = 20;

/// The arrival of the focus makes no row current that nobody has chosen.
class UnchosenList : public QListWidget {
 protected:
  void focusInEvent(QFocusEvent* event) override {
    const bool chosen = currentIndex().isValid();
    const QSignalBlocker quiet(this);
    QListWidget::focusInEvent(event);
    if (!chosen) selectionModel()->clearCurrentIndex();
  }
};

}  // namespace

ListBoxView::ListBoxView(forms::ListBox& box, ViewHost& host)
    : ControlView(box, host), box_(box), widget_(new UnchosenList) {
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
  if (const auto* const list = dynamic_cast<const forms::PopupList*>(&box_)) ShowSize(list->Height);
}

/// As high as the rows that the height was meant for, as wide as the longest of them, and never
/// more than half a screen.
void ListBoxView::ShowSize(int twips) {
  constexpr int DesignedRow = 195;  // twips of a row in the environment's font
  const QFontMetrics font = widget_->fontMetrics();
  const int row = std::max(widget_->sizeHintForRow(0), font.height());
  const int frame = 2 * widget_->frameWidth();
  const int bar = widget_->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const QSize half = ScreenAround(QCursor::pos()).size() / 2;
  const QSize wanted(widget_->sizeHintForColumn(0) + bar + frame,
                     row * twips / DesignedRow + frame);
  widget_->setFixedSize(wanted.boundedTo(half));
}

}  // namespace tessel::workbench
