#include "hosts/workbench/window/HitList.h"

#include <QHeaderView>
#include <algorithm>

#include "hosts/model/Component.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

enum Column { ComponentColumn, LineColumn, TextColumn };
constexpr int IndexRole = Qt::UserRole;
constexpr int LinesShown = 8;

QString NameOf(const model::CodeModule& module) {
  const auto component = module.Component();
  return component ? ToQt(component->PlainName()) : QString();
}

}  // namespace

HitList::HitList(QWidget* parent) : QTreeWidget(parent) {
  setObjectName(QStringLiteral("hits"));
  setHeaderLabels({tr("Component"), tr("Line"), tr("Text")});
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setAlternatingRowColors(true);
  header()->setStretchLastSection(true);
  setFixedHeight(fontMetrics().height() * (LinesShown + 2));
  connect(this, &QTreeWidget::itemClicked, this,
          [this](const QTreeWidgetItem* item, int) { Choose(*item); });
  connect(this, &QTreeWidget::itemActivated, this,
          [this](const QTreeWidgetItem* item, int) { Choose(*item); });
}

void HitList::Show(std::vector<ModuleHit> hits) {
  clear();
  hits_ = std::move(hits);
  QList<QTreeWidgetItem*> items;
  for (std::size_t at = 0; at < std::min(hits_.size(), MostListed); ++at) {
    const auto module = hits_[at].Module.lock();
    const int line = hits_[at].Place.Line;
    auto* const item = new QTreeWidgetItem(
        {NameOf(*module), QString::number(line), ToQt(module->Buffer().Line(line)).trimmed()});
    item->setData(ComponentColumn, IndexRole, static_cast<qulonglong>(at));
    item->setTextAlignment(LineColumn, Qt::AlignRight | Qt::AlignVCenter);
    items.append(item);
  }
  addTopLevelItems(items);
  resizeColumnToContents(ComponentColumn);
  resizeColumnToContents(LineColumn);
  setVisible(!items.isEmpty());
}

void HitList::Choose(const QTreeWidgetItem& item) {
  const auto at = item.data(ComponentColumn, IndexRole).toULongLong();
  if (OnChosen && at < hits_.size()) OnChosen(hits_[at]);
}

}  // namespace tessel::workbench
