#include "hosts/workbench/window/ProjectWindow.h"

#include <QFileInfo>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <tuple>

#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ComponentIcon.h"
#include "hosts/workbench/window/Unsaved.h"
#include "hosts/workspace/Paths.h"

namespace tessel::workbench {
namespace {

/// A tree of three levels in a narrow column: names come first, white space last.
constexpr int Indentation = 14;
constexpr QChar UnsavedMark = u'*';

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

/// The number of a type's folder; nothing for types that are not shown.
std::optional<int> FolderNumber(host::vbext_ComponentType type) {
  const auto found = std::find_if(Folders.begin(), Folders.end(), [&](const Folder& folder) {
    return folder.Types[0] == type || folder.Types[1] == type;
  });
  if (found == Folders.end()) return std::nullopt;
  return static_cast<int>(found - Folders.begin());
}

/// "Name (File)", which is cut at its end where the room is short.
QString Caption(const QString& name, const QString& path, bool unsaved) {
  const QString file = QFileInfo(path).fileName();
  const QString marked = unsaved ? name + UnsavedMark : name;
  return file.isEmpty() || file == name ? marked : QStringLiteral("%1 (%2)").arg(marked, file);
}

QString PathOf(const model::VBComponent& component) {
  return component.Storage() ? ToQt(component.Storage()->FileName()) : QString();
}

}  // namespace

/// A project, a folder of one, or a component in it.
class ProjectWindow::Node : public QTreeWidgetItem {
 public:
  Node(const std::shared_ptr<model::VBProject>& project, int folder,
       const std::shared_ptr<model::VBComponent>& component)
      : Project(project), Component(component), key_(project.get(), folder, component.get()) {}

  std::weak_ptr<model::VBProject> Project;
  std::weak_ptr<model::VBComponent> Component;

  /// What it stands for; to be compared, not followed.
  using Key = std::tuple<const void*, int, const void*>;
  [[nodiscard]] const Key& Identity() const { return key_; }
  /// That of the folder; -1 for a project.
  [[nodiscard]] int Number() const { return std::get<int>(key_); }

  bool operator<(const QTreeWidgetItem& other) const override {
    const int order =
        QString::localeAwareCompare(text(0).toCaseFolded(), other.text(0).toCaseFolded());
    return order != 0 ? order < 0 : text(0) < other.text(0);
  }

 private:
  Key key_;
};

ProjectWindow::ProjectWindow(const workspace::Workspace& workspace)
    : workspace_(workspace),
      vbe_(std::dynamic_pointer_cast<model::Vbe>(workspace.VBE())),
      tree_(new QTreeWidget(this)) {
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
  tree_->setIndentation(Indentation);
  setFocusProxy(tree_);
  tree_->setObjectName(QStringLiteral("projects"));
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(tree_, &QTreeWidget::currentItemChanged, this, [this] { Selected(); });
  connect(tree_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) { Open(item); });
  connect(tree_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& at) { ShowMenu(at); });
}

void ProjectWindow::ForEach(const std::function<void(Node&)>& visit) const {
  for (QTreeWidgetItemIterator at(tree_); *at != nullptr; ++at) visit(static_cast<Node&>(**at));
}

void ProjectWindow::Refresh() {
  const QScopedValueRollback guard(filling_, true);
  std::set<Node::Key> closed;
  ForEach([&](const Node& node) {
    if (node.childCount() > 0 && !node.isExpanded()) closed.insert(node.Identity());
  });
  const auto* const chosen = static_cast<const Node*>(tree_->currentItem());
  const Node::Key current = chosen == nullptr ? Node::Key() : chosen->Identity();
  const int scrolled = tree_->verticalScrollBar()->value();
  tree_->setUpdatesEnabled(false);
  tree_->clear();
  for (const auto& project : vbe_->Projects().All()) AddProject(project);
  ForEach([&](Node& node) {
    if (node.childCount() > 0) node.setExpanded(!closed.contains(node.Identity()));
    if (chosen != nullptr && node.Identity() == current) tree_->setCurrentItem(&node);
  });
  tree_->verticalScrollBar()->setValue(scrolled);
  tree_->setUpdatesEnabled(true);
  ShowSelected();
}

void ProjectWindow::AddProject(const std::shared_ptr<model::VBProject>& project) {
  auto* const node = new Node(project, -1, nullptr);
  tree_->addTopLevelItem(node);
  node->setText(
      0, Caption(ToQt(project->PlainName()), ToQt(project->File), IsUnsaved(workspace_, *project)));
  node->setIcon(0, Picture(ProjectPicture));
  node->setToolTip(0, ToQt(project->File));
  AddComponents(*node);
}

/// The folder of that number in a project, made when there is none.
ProjectWindow::Node& ProjectWindow::FolderOf(Node& parent, int number) {
  int at = 0;
  for (; at < parent.childCount(); ++at) {
    auto& folder = static_cast<Node&>(*parent.child(at));
    if (folder.Number() == number) return folder;
    if (folder.Number() > number) break;
  }
  auto* const folder = new Node(parent.Project.lock(), number, nullptr);
  parent.insertChild(at, folder);
  folder->setText(0, tr(Folders[static_cast<std::size_t>(number)].Caption));
  folder->setIcon(0, Picture(FolderPicture));
  return *folder;
}

void ProjectWindow::AddComponents(Node& parent) {
  const auto project = parent.Project.lock();
  for (const auto& component : project->Components().All()) {
    const auto number = FolderNumber(component->PlainType());
    if (!number) continue;
    auto* const node = new Node(project, *number, component);
    FolderOf(parent, *number).addChild(node);
    node->setText(0,
                  Caption(ToQt(component->PlainName()), PathOf(*component), IsUnsaved(*component)));
    node->setIcon(0, ComponentIcon(component->PlainType()));
    node->setToolTip(0, PathOf(*component));
  }
  AddProblems(parent);
  for (int at = 0; at < parent.childCount(); ++at) {
    parent.child(at)->sortChildren(0, Qt::AscendingOrder);
  }
}

void ProjectWindow::AddProblems(Node& parent) {
  const auto project = parent.Project.lock();
  for (const workspace::Problem& problem : workspace_.Problems()) {
    const auto number = FolderNumber(problem.Type);
    if (problem.Project.lock() != project || !number) continue;
    auto* const node = new Node(project, *number, nullptr);
    FolderOf(parent, *number).addChild(node);
    const QString path = ToQt(workspace::TextOf(problem.File));
    const QString name = ToQt(problem.Component);
    node->setText(0,
                  Caption(name.isEmpty() ? QFileInfo(path).completeBaseName() : name, path, false));
    node->setIcon(0, ComponentIcon(problem.Type));
    node->setToolTip(0, ToQt(problem.Description()));
    node->setDisabled(true);
  }
}

void ProjectWindow::ShowUnsaved() {
  ForEach([this](Node& node) {
    const auto project = node.Project.lock();
    const auto component = node.Component.lock();
    if (!project || (!component && node.parent() != nullptr)) return;
    const QString caption =
        component ? Caption(ToQt(component->PlainName()), PathOf(*component), IsUnsaved(*component))
                  : Caption(ToQt(project->PlainName()), ToQt(project->File),
                            IsUnsaved(workspace_, *project));
    if (node.text(0) != caption) node.setText(0, caption);
  });
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
  if (!selected || ComponentOf(tree_->currentItem()) == selected) return;
  const QScopedValueRollback guard(filling_, true);
  ForEach([&](Node& node) {
    if (node.Component.lock() == selected) tree_->setCurrentItem(&node);
  });
}

std::shared_ptr<model::VBProject> ProjectWindow::ProjectOf(const QTreeWidgetItem* item) {
  return item == nullptr ? nullptr : static_cast<const Node*>(item)->Project.lock();
}

std::shared_ptr<model::VBComponent> ProjectWindow::ComponentOf(const QTreeWidgetItem* item) {
  return item == nullptr ? nullptr : static_cast<const Node*>(item)->Component.lock();
}

void ProjectWindow::Selected() {
  if (filling_) return;
  const QScopedValueRollback guard(filling_, true);
  vbe_->Select(ComponentOf(tree_->currentItem()));
  if (const auto project = ProjectOf(tree_->currentItem())) vbe_->Activate(project);
  vbe_->OwnWindows().ShowProperties();
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
