// Widgets in a line that goes on below where the room ends.
#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace tessel::workbench {

/// Wants the room of one line, and is content with that of its widest part.
class FlowLayout : public QLayout {
 public:
  FlowLayout() { setContentsMargins(0, 0, 0, 0); }
  ~FlowLayout() override = default;

  void addItem(QLayoutItem* item) override;
  [[nodiscard]] int count() const override { return static_cast<int>(items_.size()); }
  [[nodiscard]] QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSize() const override;
  void setGeometry(const QRect& place) override;

 private:
  /// Lays the items out inside a place, or only counts; the height that they take.
  int Arrange(const QRect& place, bool counts) const;
  [[nodiscard]] int Gap() const;

  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

}  // namespace tessel::workbench
