#include "hosts/workbench/forms/FlowLayout.h"

#include <algorithm>

namespace tessel::workbench {

void FlowLayout::addItem(QLayoutItem* item) { items_.emplace_back(item); }

QLayoutItem* FlowLayout::itemAt(int index) const {
  const bool known = index >= 0 && index < count();
  return known ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
  if (itemAt(index) == nullptr) return nullptr;
  const auto place = items_.begin() + index;
  QLayoutItem* const taken = place->release();
  items_.erase(place);
  return taken;
}

int FlowLayout::Gap() const { return std::max(0, spacing()); }

int FlowLayout::heightForWidth(int width) const {
  return Arrange(QRect(0, 0, width, 0), /*counts=*/true);
}

QSize FlowLayout::sizeHint() const {
  QSize whole(0, 0);
  for (const auto& item : items_) {
    if (item->isEmpty()) continue;
    const QSize wanted = item->sizeHint();
    whole = QSize(whole.width() + wanted.width() + (whole.isEmpty() ? 0 : Gap()),
                  std::max(whole.height(), wanted.height()));
  }
  return whole;
}

QSize FlowLayout::minimumSize() const {
  QSize widest(0, 0);
  for (const auto& item : items_) {
    if (!item->isEmpty()) widest = widest.expandedTo(item->minimumSize());
  }
  return widest;
}

void FlowLayout::setGeometry(const QRect& place) {
  QLayout::setGeometry(place);
  Arrange(place, /*counts=*/false);
}

int FlowLayout::Arrange(const QRect& place, bool counts) const {
  int x = place.x(), y = place.y(), line = 0;
  for (const auto& item : items_) {
    if (item->isEmpty()) continue;
    const QSize wanted = item->sizeHint();
    if (line > 0 && x + wanted.width() > place.x() + place.width()) {
      x = place.x();
      y += line + Gap();
      line = 0;
    }
    if (!counts) item->setGeometry(QRect(QPoint(x, y), wanted));
    x += wanted.width() + Gap();
    line = std::max(line, wanted.height());
  }
  return y + line - place.y();
}

}  // namespace tessel::workbench
