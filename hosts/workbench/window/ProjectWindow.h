// The environment's project window.
#pragma once

#include <QTreeWidget>
#include <QWidget>
#include <functional>
#include <memory>

#include "hosts/model/Vbe.h"

namespace tessel::workbench {

/// Projects with their components in folders by kind. What is selected here is the environment's
/// selected component.
class ProjectWindow : public QWidget {
 public:
  explicit ProjectWindow(std::shared_ptr<model::Vbe> vbe);

  /// Reads projects and components again; what was open stays open.
  void Refresh();
  /// Marks the environment's selected component and its active project.
  void ShowSelected();

  std::function<void(const std::shared_ptr<model::VBComponent>&)> OnViewCode, OnViewObject,
      OnRemove, OnRename, OnSaveAs;
  std::function<void(const std::shared_ptr<model::VBProject>&)> OnCloseProject;

 private:
  void Build();
  void MarkActive();
  void AddProject(const std::shared_ptr<model::VBProject>& project);
  void AddComponents(QTreeWidgetItem* parent, const model::VBProject& project);
  void Selected();
  void Open(QTreeWidgetItem* item);
  void ShowMenu(const QPoint& at);
  [[nodiscard]] std::shared_ptr<model::VBComponent> ComponentOf(const QTreeWidgetItem* item) const;
  [[nodiscard]] std::shared_ptr<model::VBProject> ProjectOf(const QTreeWidgetItem* item) const;

  std::shared_ptr<model::Vbe> vbe_;
  QTreeWidget* tree_;
  bool filling_ = false;
};

}  // namespace tessel::workbench
