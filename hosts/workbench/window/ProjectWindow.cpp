#include "hosts/workbench/window/ProjectWindow.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSet>
#include <QToolBar>
#include <QVBoxLayout>
#include <array>

#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ComponentIcon.h"

namespace tessel::workbench {
namespace {

constexpr int NameRole = Qt::UserRole, ProjectRole = Qt::UserRole + 1;

struct Folder {
  const char* Caption;
  std::array<int, 2> Types;
};
/// In the order of the tree.
constexpr std::array Folders{
    Folder{"Forms", {host::vbext_ct_VBForm, host::vbext_ct_VBMDIForm}},
    Folder{"Modules", {host::vbext_ct_StdModule, 0}},
    Folder{"Class Modules", {host::vbext_ct_ClassModule, 0}},
    Folder{"User Controls", {host::vbext_ct_UserControl, 0}},
    Folder{"Property Pages", {host::vbext_ct_PropPage, 0}},
    Folder{"User Documents", {host::vbext_ct_DocObject, 0}},
    Folder{"Designers", {host::vbext_ct_ActiveXDesigner, host::vbext_ct_MSForm}},
    Folder{"Related Documents", {host::vbext_ct_ResFile, host::vbext_ct_RelatedDocument}}};

QString CaptionOf(const model::VBComponent& component) {
  const QString name = ToQt(component.PlainName());
  const QString file =
      component.Storage() ? QFileInfo(ToQt(component.Storage()->FileName())).fileName() : QString();
  return file.isEmpty() || file == name ? name : QStringLiteral("%1 (%2)").arg(name, file);
}

QString PathOf(const QTreeWidgetItem* item) {
  QString path;
  for (; item != nullptr; item = item->parent()) path = item->text(0) + u'\n' + path;
  return path;
}

template <class Visit>
void ForEachItem(QTreeWidgetItem* item, const Visit& visit) {
  for (int at = 0; at < item->childCount(); ++at) {
    visit(item->child(at));
    ForEachItem(item->child(at), visit);
  }
}

}  // namespace

ProjectWindow::ProjectWindow(std::shared_ptr<model::Vbe> vbe)
    : vbe_(std::move(vbe)), tree_(new QTreeWidget(this)) {
  Build();
  Refresh();
}

void ProjectWindow::Build() {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  auto* const bar = new QToolBar(this);
  bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  connect(bar->addAction(tr("View Code")), &QAction::triggered, this, [this] {
    const auto component = ComponentOf(tree_->currentItem());
    if (component && OnViewCode) OnViewCode(component);
  });
  connect(bar->addAction(tr("View Object")), &QAction::triggered, this, [this] {
    const auto component = ComponentOf(tree_->currentItem());
    if (component && OnViewObject) OnViewObject(component);
  });
  column->addWidget(bar);
  column->addWidget(tree_, 1);
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  tree_->setObjectName(QStringLiteral("projects"));
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(tree_, &QTreeWidget::currentItemChanged, this, [this] { Selected(); });
  connect(tree_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) { Open(item); });
  connect(tree_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& at) { ShowMenu(at); });
}

void ProjectWindow::Refresh() {
  const QScopedValueRollback guard(filling_, true);
  QSet<QString> closed, known;
  ForEachItem(tree_->invisibleRootItem(), [&](QTreeWidgetItem* item) {
    if (item->childCount() == 0) return;
    known.insert(PathOf(item));
    if (!item->isExpanded()) closed.insert(PathOf(item));
  });
  tree_->setUpdatesEnabled(false);
  tree_->clear();
  for (const auto& project : vbe_->Projects().All()) AddProject(project);
  ForEachItem(tree_->invisibleRootItem(), [&](QTreeWidgetItem* item) {
    if (item->childCount() > 0) item->setExpanded(!closed.contains(PathOf(item)));
  });
  tree_->setUpdatesEnabled(true);
  ShowSelected();
}

void ProjectWindow::AddProject(const std::shared_ptr<model::VBProject>& project) {
  auto* const item = new QTreeWidgetItem(tree_);
  const QString file = QFileInfo(ToQt(project->File)).fileName();
  const QString name = ToQt(project->PlainName());
  item->setText(0, file.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, file));
  item->setIcon(0, Picture(ProjectPicture));
  item->setToolTip(0, ToQt(project->File));
  item->setData(0, ProjectRole, name);
  AddComponents(item, *project);
}

void ProjectWindow::AddComponents(QTreeWidgetItem* parent, const model::VBProject& project) {
  const auto all = const_cast<model::VBProject&>(project).Components().All();
  for (const Folder& folder : Folders) {
    QTreeWidgetItem* group = nullptr;
    for (const auto& component : all) {
      const int type = component->PlainType();
      if (type != folder.Types[0] && type != folder.Types[1]) continue;
      if (group == nullptr) group = new QTreeWidgetItem(parent, {tr(folder.Caption)});
      auto* const item = new QTreeWidgetItem(group, {CaptionOf(*component)});
      item->setIcon(0, ComponentIcon(component->PlainType()));
      item->setData(0, NameRole, ToQt(component->PlainName()));
      item->setData(0, ProjectRole, ToQt(project.PlainName()));
      if (component->Storage()) item->setToolTip(0, ToQt(component->Storage()->FileName()));
    }
    if (group != nullptr) {
      group->setIcon(0, Picture(FolderPicture));
      group->setData(0, ProjectRole, ToQt(project.PlainName()));
      group->sortChildren(0, Qt::AscendingOrder);
    }
  }
}

void ProjectWindow::MarkActive() {
  for (int at = 0; at < tree_->topLevelItemCount(); ++at) {
    QTreeWidgetItem* const item = tree_->topLevelItem(at);
    QFont font = tree_->font();
    font.setBold(ProjectOf(item) == vbe_->Active());
    item->setFont(0, font);
  }
}

void ProjectWindow::ShowSelected() {
  MarkActive();
  const auto selected = std::dynamic_pointer_cast<model::VBComponent>(vbe_->SelectedVBComponent());
  if (ComponentOf(tree_->currentItem()) == selected && selected) return;
  const QScopedValueRollback guard(filling_, true);
  ForEachItem(tree_->invisibleRootItem(), [&](QTreeWidgetItem* item) {
    if (selected && ComponentOf(item) == selected) tree_->setCurrentItem(item);
  });
}

std::shared_ptr<model::VBProject> ProjectWindow::ProjectOf(const QTreeWidgetItem* item) const {
  return item == nullptr ? nullptr
                         : vbe_->Projects().Find(FromQt(item->data(0, ProjectRole).toString()));
}

std::shared_ptr<model::VBComponent> ProjectWindow::ComponentOf(const QTreeWidgetItem* item) const {
  const auto project = ProjectOf(item);
  const QString name = item == nullptr ? QString() : item->data(0, NameRole).toString();
  return project && !name.isEmpty() ? project->Components().Find(FromQt(name)) : nullptr;
}

void ProjectWindow::Selected() {
  if (filling_) return;
  const QScopedValueRollback guard(filling_, true);
  vbe_->Select(ComponentOf(tree_->currentItem()));
  if (const auto project = ProjectOf(tree_->currentItem())) vbe_->Activate(project);
}

void ProjectWindow::Open(QTreeWidgetItem* item) {
  const auto component = ComponentOf(item);
  if (!component) return;
  const auto& open = component->OwnDesigner() ? OnViewObject : OnViewCode;
  if (open) open(component);
}

void ProjectWindow::ShowMenu(const QPoint& at) {
  QTreeWidgetItem* const item = tree_->itemAt(at);
  const auto component = ComponentOf(item);
  const auto project = ProjectOf(item);
  if (!project) return;
  QMenu menu(this);
  const auto add = [&](const QString& caption, const auto& handler, const auto& target) {
    QAction* const action = menu.addAction(caption);
    action->setEnabled(static_cast<bool>(handler));
    connect(action, &QAction::triggered, this, [&handler, target] { handler(target); });
  };
  if (component) {
    add(tr("View &Code"), OnViewCode, component);
    if (component->OwnDesigner()) add(tr("View &Object"), OnViewObject, component);
    menu.addSeparator();
    add(tr("&Rename..."), OnRename, component);
    add(tr("&Save As..."), OnSaveAs, component);
    add(tr("Re&move %1").arg(ToQt(component->PlainName())), OnRemove, component);
  } else {
    add(tr("C&lose %1").arg(ToQt(project->PlainName())), OnCloseProject, project);
  }
  menu.exec(tree_->viewport()->mapToGlobal(at));
}

}  // namespace tessel::workbench
