#include "hosts/workbench/window/RunList.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ComponentIcon.h"

namespace tessel::workbench {
namespace {

enum Column { PlaceColumn, LineColumn, CauseColumn };

String TextOf(model::VBComponent& component) {
  const model::LineBuffer& lines = component.Module()->Buffer();
  return lines.Count() == 0 ? String() : lines.Text(1, lines.Count());
}

}  // namespace

QString CountOfModules(std::size_t count) {
  return count == 1 ? QObject::tr("one module") : QObject::tr("%1 modules").arg(count);
}

RunList::RunList(QWidget* parent)
    : QWidget(parent),
      head_(new QLabel(this)),
      list_(new QTreeWidget(this)),
      takeBack_(new QPushButton(tr("&Take Back"), this)) {
  Build();
}

void RunList::Build() {
  auto* const keep = new QPushButton(tr("&Keep"), this);
  keep->setObjectName(QStringLiteral("keepRun"));
  takeBack_->setObjectName(QStringLiteral("takeBackRun"));
  list_->setObjectName(QStringLiteral("runPlaces"));
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setHeaderLabels({tr("Component"), tr("Line"), tr("What became otherwise")});
  list_->header()->setStretchLastSection(true);
  head_->setWordWrap(true);
  setFocusProxy(list_);
  auto* const row = new QHBoxLayout;
  row->addWidget(head_, 1);
  row->addWidget(keep);
  row->addWidget(takeBack_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(4, 4, 4, 4);
  column->addLayout(row);
  column->addWidget(list_, 1);
  connect(list_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) { Jump(*item); });
  connect(list_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) { Jump(*item); });
  connect(keep, &QPushButton::clicked, this, [this] {
    Clear();
    if (OnDone) OnDone();
  });
  connect(takeBack_, &QPushButton::clicked, this, [this] { TakeBack(); });
}

void RunList::Clear() {
  list_->clear();
  items_.clear();
  changes_.clear();
}

bool RunList::Show(const review::RunReview& run) {
  Clear();
  items_ = run.Items();
  if (items_.empty()) return false;
  for (const auto& component : run.Changed()) {
    changes_.push_back({component, run.Before(*component), TextOf(*component)});
  }
  for (const review::ReviewItem& item : items_) AddItem(item);
  for (const int column : {PlaceColumn, LineColumn}) list_->resizeColumnToContents(column);
  head_->setText(tr("The run changed %1. At these places more than the layout is otherwise:")
                     .arg(CountOfModules(changes_.size())));
  takeBack_->setEnabled(true);
  return true;
}

void RunList::AddItem(const review::ReviewItem& item) {
  const String place =
      item.ComponentName.empty() ? item.Project : item.Project + u" - " + item.ComponentName;
  auto* const row = new QTreeWidgetItem(
      list_, {ToQt(place), item.Line > 0 ? QString::number(item.Line) : QString(),
              QString::fromStdString(item.Cause)});
  row->setToolTip(CauseColumn, row->text(CauseColumn));
  row->setTextAlignment(LineColumn, Qt::AlignRight | Qt::AlignVCenter);
  if (item.Component) row->setIcon(PlaceColumn, ComponentIcon(item.Component->PlainType()));
}

void RunList::Jump(QTreeWidgetItem& item) {
  const int row = list_->indexOfTopLevelItem(&item);
  const review::ReviewItem& place = items_[static_cast<std::size_t>(row)];
  if (place.Component && place.Component->Project() && OnJump) {
    OnJump(place.Component, std::max(1, place.Line));
  }
}

void RunList::TakeBack() {
  QStringList left;
  for (const Change& change : changes_) {
    const auto component = change.Component.lock();
    if (!component || !component->Project()) continue;
    if (!OnTakeBack(component, change.Before, change.After)) {
      left.append(ToQt(component->PlainName()));
    }
  }
  if (left.isEmpty()) {
    Clear();
    if (OnDone) OnDone();
    return;
  }
  head_->setText(tr("Taken back, but for what was edited since the run: %1")
                     .arg(left.join(QStringLiteral(", "))));
  takeBack_->setEnabled(false);
}

}  // namespace tessel::workbench
