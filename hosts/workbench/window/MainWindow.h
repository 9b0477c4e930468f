// The workbench: the environment's window over project files.
#pragma once

#include <QDockWidget>
#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <map>
#include <memory>

#include "addin/Connect.h"
#include "hosts/model/Vbe.h"
#include "hosts/workbench/forms/ToolWindowDocks.h"
#include "hosts/workbench/forms/WorkbenchPlatform.h"
#include "hosts/workbench/window/BarCommands.h"
#include "hosts/workbench/window/BarView.h"
#include "hosts/workbench/window/ChildWindows.h"
#include "hosts/workbench/window/DefinitionJumps.h"
#include "hosts/workbench/window/FileWatch.h"
#include "hosts/workbench/window/FindBar.h"
#include "hosts/workbench/window/PlaceLine.h"
#include "hosts/workbench/window/ProjectFiles.h"
#include "hosts/workbench/window/ProjectWindow.h"
#include "hosts/workbench/window/Questions.h"
#include "hosts/workbench/window/QuietReader.h"
#include "hosts/workbench/window/Reloader.h"
#include "hosts/workbench/window/RunDock.h"
#include "hosts/workbench/window/Settings.h"
#include "hosts/workbench/window/WindowMessages.h"
#include "hosts/workspace/Workspace.h"

namespace tessel::workbench {

class PropertiesWindow;
class Toolbox;

/// Stands where the development environment stands: owns the projects, shows them, and hosts the
/// add-in. What a tool or a file operation fails with is shown in a message box; the window stays.
class MainWindow : public QMainWindow, private model::Observer {
 public:
  /// `services` (not owned) is the platform in force; `stateFolder` keeps the window's own settings
  /// and the recovery file.
  MainWindow(WorkbenchPlatform& services, const QString& stateFolder);
  ~MainWindow() override;

  /// Connects the add-in: its bars appear.
  void ConnectAddin();
  /// Offers what a run that ended without closing left.
  void OfferRecovery() { files_.OfferRecovery(); }

  /// Opens a project, a group or a component file; false when it failed, which was shown.
  bool OpenFile(const QString& file) { return files_.Open(file); }
  void NewProject(host::vbext_ProjectType type) { files_.NewProject(type); }
  /// Closes all projects, after asking about unsaved changes; false when the user cancelled.
  bool CloseProjects() { return files_.CloseAll(); }
  /// Both answer false when something failed or the user cancelled.
  bool SaveCurrent();
  bool SaveAll() { return files_.SaveAll(); }

  [[nodiscard]] workspace::Workspace& Environment() { return workspace_; }
  [[nodiscard]] const std::shared_ptr<model::Vbe>& Root() const { return vbe_; }
  /// The window of a component's code, which is opened when there is none; null without code.
  CodeWindow* ShowCode(const std::shared_ptr<model::VBComponent>& component);
  DesignerView* ShowDesigner(const std::shared_ptr<model::VBComponent>& component);
  /// Clicks a command of a bar by its captions, as the user does; false when it isn't there or is
  /// greyed.
  bool ClickCommand(StringView bar, const std::vector<String>& path);
  /// Brings the dock of a tool window's document to the user and gives a control of it the keys.
  void GiveKeysTo(StringView document, StringView control);
  [[nodiscard]] ProjectFiles& Files() { return files_; }
  /// The windows of code and designers.
  [[nodiscard]] ChildWindows& Children() { return *children_; }
  /// What one action of the user makes the tools do; its edits are one step of each window's undo.
  void RunTool(const std::function<void()>& action) { children_->RunTool(action); }
  /// Shows a failure of the window's own work.
  void ShowFailure(const QString& text) { questions_.ShowFailure(text); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  // model::Observer
  void LinesChanging(model::CodeModule& module) override;
  void LinesChanged(model::CodeModule& module, int line, int removed, int added) override;
  void PaneShown(const std::shared_ptr<model::CodePane>& pane) override;
  void PaneClosed(const model::CodeModule& module) override;
  void SelectionSet(model::CodePane& pane) override;
  void TopLineSet(model::CodePane& pane) override;
  void DesignerShown(model::VBComponent& component) override;
  void DesignerChanged(model::VBComponent& component) override;
  void ProjectsChanged() override;
  void ChoiceChanged() override;
  void BarsChanged() override;
  void ToolWindowsChanged() override { toolWindows_.FollowSoon(); }

  // MainWindowMenus.cpp
  void BuildMenus();
  void BuildFileMenu();
  void BuildEditMenu();
  void AddLineCommands(QMenu& edit);
  void AddPlaceCommands(QMenu& view);
  void ListMembers();
  void BuildViewMenu();
  void BuildWindowMenu();
  void FillRecent(QMenu& menu);
  QAction* AddCommand(QMenu& menu, const QString& caption, const QKeySequence& keys,
                      const std::function<void()>& action);
  void UpdateCommands();
  void Undo();
  void Redo();

  void BuildDocks();
  void BuildStatusBar();
  void AddDock(const QString& caption, const QString& name, QWidget* content,
               Qt::DockWidgetArea area);
  void AddDock(QDockWidget* dock, Qt::DockWidgetArea area);
  void ApplyOptions();
  void ShowOptions();
  [[nodiscard]] EditorOptions CurrentOptions() const;
  /// The component that the window in front shows, else the selected one; null for none.
  [[nodiscard]] std::shared_ptr<model::VBComponent> CurrentComponent() const;
  void ShowNew(const std::shared_ptr<model::VBComponent>& component);
  void Place();
  void RestoreDocks();
  void ShowDock(const QString& name);
  void BuildRunDock();
  void ConnectChildren();
  void ConnectJumps();
  [[nodiscard]] FindGround GroundOfFind();
  void ConnectDesigner(DesignerView& view);
  void WindowActivated();
  [[nodiscard]] bool IsTurnedToWindow() const;
  void ShowProperties(const std::shared_ptr<model::VBComponent>& component,
                      const std::vector<model::DesignerNode*>& nodes);
  void ShowProjects();
  void FilesChanged();
  void OpenEventProcedure(const std::shared_ptr<model::VBComponent>& component, StringView control);
  void ShowPlace();
  void ShowState();
  void ShowChoice();
  void KeepWorkSoon();
  void WatchFiles();

  WorkbenchPlatform& services_;
  Questions questions_;
  Settings settings_;
  workspace::Workspace workspace_;
  std::shared_ptr<model::Vbe> vbe_;
  ProjectFiles files_;
  std::shared_ptr<tessel::Connect> connect_;
  ToolWindowDocks toolWindows_{*this, services_.Desktop(),
                               [this] { return vbe_->OwnWindows().ToolWindows(); }};

  std::shared_ptr<editing::Names> names_ = std::make_shared<editing::Names>();
  DefinitionJumps jumps_{names_};
  QuietReader reader_{vbe_};
  ChildWindows* children_;
  std::unique_ptr<WindowMessages> messages_;
  ProjectWindow* projects_ = nullptr;
  PropertiesWindow* properties_ = nullptr;
  Toolbox* toolbox_ = nullptr;
  FindBar* find_ = nullptr;
  RunDock* runs_ = nullptr;
  FileWatch* watch_ = nullptr;
  Reloader reloader_;
  BarCommands barCommands_{services_.Desktop(), vbe_};
  std::unique_ptr<BarView> bars_;
  std::vector<QDockWidget*> docks_;
  std::map<QString, QAction*> commands_;
  QMenu* recentMenu_ = nullptr;
  PlaceLine* place_ = nullptr;
  QTimer barsTimer_, projectsTimer_, choiceTimer_, placeTimer_, stateTimer_, keepTimer_;
};

}  // namespace tessel::workbench
