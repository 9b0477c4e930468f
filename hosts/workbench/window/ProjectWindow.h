// The environment's project window.
#pragma once

#include <QTreeWidget>
#include <QWidget>
#include <functional>
#include <memory>

#include "hosts/model/Vbe.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workbench {

/// Projects with their components in folders by kind. What is selected here is the environment's
/// selected component. What isn't in its file bears a star behind its name; what could not be
/// loaded is greyed and says why.
class ProjectWindow : public QWidget {
 public:
  /// `workspace` is not owned.
  explicit ProjectWindow(const workspace::Workspace& workspace);

  /// Reads projects and components again; what was open, chosen and in sight stays so.
  void Refresh();
  /// Marks the environment's selected component and its active project.
  void ShowSelected();
  /// Marks what isn't in its file.
  void ShowUnsaved();

  std::function<void(const std::shared_ptr<model::VBComponent>&)> OnViewCode, OnViewObject,
      OnRemove, OnRename, OnSaveAs;
  std::function<void(const std::shared_ptr<model::VBProject>&)> OnCloseProject;

 private:
  class Node;
  void Build();
  void MarkActive();
  void AddProject(const std::shared_ptr<model::VBProject>& project);
  void AddComponents(Node& parent);
  void AddProblems(Node& parent);
  Node& FolderOf(Node& parent, int number);
  void Selected();
  void Open(QTreeWidgetItem* item);
  void ShowMenu(const QPoint& at);
  void ForEach(const std::function<void(Node&)>& visit) const;
  [[nodiscard]] static std::shared_ptr<model::VBComponent> ComponentOf(const QTreeWidgetItem* item);
  [[nodiscard]] static std::shared_ptr<model::VBProject> ProjectOf(const QTreeWidgetItem* item);

  const workspace::Workspace& workspace_;
  std::shared_ptr<model::Vbe> vbe_;
  QTreeWidget* tree_;
  bool filling_ = false;
};

}  // namespace tessel::workbench
