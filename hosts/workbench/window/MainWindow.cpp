#include "hosts/workbench/window/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QMessageBox>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/designer/PropertiesWindow.h"
#include "hosts/workbench/designer/Toolbox.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ComponentIcon.h"

namespace tessel::workbench {
namespace {

constexpr int PlaceDelayMs = 80, StateDelayMs = 400;
/// What was on the screen longer than twice this long survives a crash.
constexpr int KeepDelayMs = 4000;
constexpr int DarkLimit = 128;

QString CodeTitle(const model::VBComponent& component) {
  return QStringLiteral("%1 - %2 (Code)")
      .arg(ToQt(component.Project()->PlainName()), ToQt(component.PlainName()));
}

void StartSingle(QTimer& timer, int ms, QObject* owner, const std::function<void()>& action) {
  timer.setSingleShot(true);
  timer.setInterval(ms);
  QObject::connect(&timer, &QTimer::timeout, owner, action);
}

}  // namespace

MainWindow::MainWindow(WorkbenchPlatform& services, const QString& stateFolder)
    : services_(services),
      settings_(QDir(stateFolder).filePath(QStringLiteral("workbench.ini"))),
      recovery_(QDir(stateFolder).filePath(QStringLiteral("recovery"))),
      workspace_(services, {.SkipBadComponents = true}),
      vbe_(std::dynamic_pointer_cast<model::Vbe>(workspace_.VBE())),
      area_(new QMdiArea(this)) {
  setWindowTitle(tr("Tessel[*]"));
  setWindowIcon(Picture(ProgramPicture));
  setObjectName(QStringLiteral("workbench"));
  setDockNestingEnabled(true);
  resize(1280, 840);
  area_->setViewMode(QMdiArea::SubWindowView);
  area_->setActivationOrder(QMdiArea::ActivationHistoryOrder);
  connect(area_, &QMdiArea::subWindowActivated, this,
          [this](QMdiSubWindow* window) { SubWindowActivated(window); });
  bars_ = std::make_unique<BarView>(*this, vbe_);
  // Not from inside the click itself: what it runs may build the bars anew.
  bars_->OnClick = [this](const std::shared_ptr<host::CommandBarControl>& control) {
    QTimer::singleShot(
        0, this, [this, control] { services_.Desktop().RunAction([&] { control->Execute(); }); });
  };
  watch_ = new FileWatch(workspace_, this);
  watch_->OnChanged = [this](const auto& changed) { AskToReload(changed); };
  BuildDocks();
  BuildMenus();
  BuildStatusBar();
  StartSingle(barsTimer_, 0, this, [this] { bars_->Rebuild(); });
  StartSingle(projectsTimer_, 0, this, [this] {
    CloseDesignersOfGoneComponents();
    projects_->Refresh();
    watch_->Refresh();
    UpdateCommands();
    ShowState();
  });
  StartSingle(choiceTimer_, 0, this, [this] { ShowChoice(); });
  StartSingle(placeTimer_, PlaceDelayMs, this, [this] { ShowPlace(); });
  StartSingle(stateTimer_, StateDelayMs, this, [this] { ShowState(); });
  StartSingle(keepTimer_, KeepDelayMs, this, [this] { KeepWork(); });
  vbe_->SetObserver(this);
  services_.Desktop().SetParent(this);
  services_.Desktop().RunTool = [this](const std::function<void()>& action) { RunTool(action); };
  ApplyOptions();
  restoreGeometry(settings_.Geometry());
  restoreState(settings_.Docks());
  UpdateCommands();
}

MainWindow::~MainWindow() {
  vbe_->SetObserver(nullptr);
  services_.Desktop().RunTool = nullptr;
  services_.Desktop().SetParent(nullptr);
  // The windows hold parts of the model that must go ahead of it.
  for (const auto& [module, window] : codes_) window->OnClosed = nullptr;
  delete area_;
}

void MainWindow::ConnectAddin() {
  connect_ = std::make_shared<tessel::Connect>();
  services_.Desktop().RunAction([&] {
    connect_->AddinInstance_OnConnection(vbe_);
    connect_->AddinInstance_OnStartupComplete();
  });
  bars_->Rebuild();
  restoreState(settings_.Docks());
}

void MainWindow::BuildDocks() {
  auto* const centre = new QWidget(this);
  auto* const column = new QVBoxLayout(centre);
  column->setContentsMargins({});
  column->setSpacing(0);
  find_ = new FindBar(centre);
  find_->Target = [this]() -> CodeEditor* {
    CodeWindow* const code = CurrentCode();
    return code == nullptr ? nullptr : &code->Editor();
  };
  column->addWidget(area_, 1);
  column->addWidget(find_);
  setCentralWidget(centre);

  toolbox_ = new Toolbox(this);
  toolbox_->OnTool = [this](StringView className) {
    for (const auto& [component, view] : designers_) view->SetTool(className);
  };
  toolbox_->OnAdd = [this](StringView className) {
    if (DesignerView* const view = CurrentDesigner()) view->AddControl(className);
  };
  AddDock(tr("Toolbox"), QStringLiteral("toolbox"), toolbox_, Qt::LeftDockWidgetArea);
  projects_ = new ProjectWindow(vbe_);
  projects_->OnViewCode = [this](const auto& component) { ShowCode(component); };
  projects_->OnViewObject = [this](const auto& component) { ShowDesigner(component); };
  projects_->OnRemove = [this](const auto& component) { RemoveComponent(component); };
  projects_->OnRename = [this](const auto& component) { RenameComponent(component); };
  projects_->OnSaveAs = [this](const auto& component) { SaveComponentAs(component); };
  projects_->OnCloseProject = [this](const auto& project) { CloseProject(project); };
  AddDock(tr("Project"), QStringLiteral("project"), projects_, Qt::RightDockWidgetArea);
  properties_ = new PropertiesWindow(this);
  properties_->OnFailure = [this](const String& text) { ShowFailure(ToQt(text)); };
  properties_->OnChosen = [this](model::DesignerNode* node) {
    if (DesignerView* const view = CurrentDesigner()) view->Select({node});
  };
  AddDock(tr("Properties"), QStringLiteral("properties"), properties_, Qt::RightDockWidgetArea);
}

QDockWidget* MainWindow::AddDock(const QString& caption, const QString& name, QWidget* content,
                                 Qt::DockWidgetArea area) {
  auto* const dock = new QDockWidget(caption, this);
  dock->setObjectName(name);
  dock->setWidget(content);
  addDockWidget(area, dock);
  docks_.push_back(dock);
  return dock;
}

void MainWindow::BuildStatusBar() {
  placeLabel_ = new QLabel(this);
  memberLabel_ = new QLabel(this);
  codePageLabel_ = new QLabel(this);
  placeLabel_->setObjectName(QStringLiteral("place"));
  memberLabel_->setObjectName(QStringLiteral("member"));
  codePageLabel_->setObjectName(QStringLiteral("codePage"));
  statusBar()->addWidget(memberLabel_, 1);
  statusBar()->addPermanentWidget(placeLabel_);
  statusBar()->addPermanentWidget(codePageLabel_);
}

// What the model tells

CodeEditor* MainWindow::EditorOf(const model::CodeModule& module) const {
  const auto code = codes_.find(&module);
  return code == codes_.end() ? shelf_.Find(module) : &code->second->Editor();
}

void MainWindow::LinesChanging(model::CodeModule& module) {
  if (toolDepth_ == 0 || EditorOf(module) != nullptr) return;
  shelf_.Put(module.shared_from_this(), CurrentOptions());
}

void MainWindow::LinesChanged(model::CodeModule& module, int line, int removed, int added) {
  if (CodeEditor* const editor = EditorOf(module)) {
    if (toolDepth_ > 0 && grouped_.insert(editor).second) editor->BeginGroup();
    editor->LinesChanged(line, removed, added);
  }
  if (!stateTimer_.isActive()) stateTimer_.start();
  if (!keepTimer_.isActive()) keepTimer_.start();
}

void MainWindow::PaneShown(const std::shared_ptr<model::CodePane>& pane) {
  CodeWindow*& code = codes_[pane->Module().get()];
  if (code == nullptr) {
    code = new CodeWindow(pane, CurrentOptions(), shelf_.Take(*pane->Module()));
    code->OnClosed = [this, pane] { CodeClosed(pane); };
    code->OnMoved = [this] {
      if (!placeTimer_.isActive()) placeTimer_.start();
    };
    QMdiSubWindow* const frame = area_->addSubWindow(code);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->resize(area_->width() * 3 / 4, area_->height() * 3 / 4);
    code->setWindowTitle(CodeTitle(*code->Component()));
    frame->setWindowIcon(ComponentIcon(code->Component()->PlainType()));
    frame->show();
    if (codes_.size() + designers_.size() == 1) frame->showMaximized();
  }
  area_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(code->parentWidget()));
}

void MainWindow::CodeClosed(const std::shared_ptr<model::CodePane>& pane) {
  const auto code = codes_.find(pane->Module().get());
  if (code == codes_.end()) return;
  grouped_.erase(&code->second->Editor());
  codes_.erase(code);
  if (pane->Module()) vbe_->ClosePane(*pane->Module());
}

void MainWindow::PaneClosed(const model::CodeModule& module) {
  const auto code = codes_.find(&module);
  if (code == codes_.end()) return;
  CodeWindow* const window = code->second;
  grouped_.erase(&window->Editor());
  codes_.erase(code);
  window->OnClosed = nullptr;
  window->parentWidget()->close();
}

void MainWindow::SelectionSet(model::CodePane& pane) {
  const auto code = codes_.find(pane.Module().get());
  if (code != codes_.end()) code->second->FollowSelection();
}

void MainWindow::TopLineSet(model::CodePane& pane) {
  const auto code = codes_.find(pane.Module().get());
  if (code != codes_.end()) code->second->FollowTopLine();
}

void MainWindow::DesignerShown(model::VBComponent& component) {
  DesignerView*& view = designers_[&component];
  if (view == nullptr) {
    const auto shared = component.shared_from_this();
    view = new DesignerView(shared);
    view->OnFailure = [this](const String& text) { ShowFailure(ToQt(text)); };
    view->OnOpenCode = [this](const auto& owner, const String& control) {
      OpenEventProcedure(owner, control);
    };
    view->OnSelection = [this, shared](const std::vector<model::DesignerNode*>& nodes) {
      ShowProperties(shared, nodes);
    };
    view->SetTool(toolbox_->Tool());
    view->OnToolUsed = [this] { toolbox_->Reset(); };
    QMdiSubWindow* const frame = area_->addSubWindow(view);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    view->setWindowTitle(QStringLiteral("%1 - %2 (%3)")
                             .arg(ToQt(component.Project()->PlainName()),
                                  ToQt(component.PlainName()), tr("Design")));
    frame->setWindowIcon(ComponentIcon(component.PlainType()));
    connect(view, &QObject::destroyed, this, [this, key = &component] { designers_.erase(key); });
    frame->resize(area_->width() * 3 / 4, area_->height() * 3 / 4);
    frame->show();
  }
  area_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(view->parentWidget()));
}

void MainWindow::DesignerChanged(model::VBComponent& component) {
  const auto view = designers_.find(&component);
  if (view != designers_.end()) view->second->Refresh();
  properties_->Refresh();
  const auto code = codes_.find(component.Module().get());
  if (code != codes_.end()) code->second->ListsChanged();
  if (!stateTimer_.isActive()) stateTimer_.start();
  if (!keepTimer_.isActive()) keepTimer_.start();
}

void MainWindow::ProjectsChanged() {
  if (!projectsTimer_.isActive()) projectsTimer_.start();
}

void MainWindow::ChoiceChanged() {
  if (!choiceTimer_.isActive()) choiceTimer_.start();
}

void MainWindow::BarsChanged() {
  if (!barsTimer_.isActive()) barsTimer_.start();
}

// Windows

CodeWindow* MainWindow::ShowCode(const std::shared_ptr<model::VBComponent>& component) {
  if (!component->Module()) return nullptr;
  Guard([&] { component->Module()->OwnPane()->Show(); });
  const auto code = codes_.find(component->Module().get());
  if (code == codes_.end()) return nullptr;
  code->second->Editor().setFocus();
  return code->second;
}

DesignerView* MainWindow::ShowDesigner(const std::shared_ptr<model::VBComponent>& component) {
  if (!component->OwnDesigner()) return nullptr;
  Guard([&] { component->Activate(); });
  const auto view = designers_.find(component.get());
  return view == designers_.end() ? nullptr : view->second;
}

void MainWindow::OpenEventProcedure(const std::shared_ptr<model::VBComponent>& component,
                                    StringView control) {
  CodeWindow* const code = ShowCode(component);
  if (code == nullptr) return;
  const auto objects = ObjectsOf(*component);
  const bool root = control.empty() || vb::SameText(control, component->PlainName());
  if (root && objects.size() < 2) return;
  RunTool([&] { code->OpenProcedure(root ? StringView(objects[1].Name) : control, {}); });
}

CodeWindow* MainWindow::CurrentCode() const {
  QMdiSubWindow* const frame = area_->activeSubWindow();
  return frame == nullptr ? nullptr : dynamic_cast<CodeWindow*>(frame->widget());
}

DesignerView* MainWindow::CurrentDesigner() const {
  QMdiSubWindow* const frame = area_->activeSubWindow();
  return frame == nullptr ? nullptr : dynamic_cast<DesignerView*>(frame->widget());
}

std::shared_ptr<model::VBComponent> MainWindow::CurrentComponent() const {
  auto component = std::dynamic_pointer_cast<model::VBComponent>(vbe_->SelectedVBComponent());
  if (const CodeWindow* const code = CurrentCode()) component = code->Component();
  if (const DesignerView* const view = CurrentDesigner()) component = view->Component();
  // One whose project was closed is on its way out with its window.
  return component && component->Project() ? component : nullptr;
}

void MainWindow::SubWindowActivated(QMdiSubWindow* window) {
  UpdateCommands();
  ShowPlace();
  if (window == nullptr) return;
  const auto component = CurrentComponent();
  if (!component) return;
  if (const CodeWindow* const code = CurrentCode()) {
    if (vbe_->ActiveCodePane() != code->Pane()) vbe_->BringToFront(code->Pane());
    ShowProperties(component, {});
  } else if (DesignerView* const view = CurrentDesigner()) {
    ShowProperties(component, view->Selected());
  }
  vbe_->Select(component);
}

void MainWindow::ShowProperties(const std::shared_ptr<model::VBComponent>& component,
                                const std::vector<model::DesignerNode*>& nodes) {
  const auto view = designers_.find(component.get());
  properties_->ShowObjects(component, nodes,
                           view == designers_.end() ? nullptr : view->second->Editor());
}

void MainWindow::ShowChoice() {
  projects_->ShowSelected();
  // A designer shows the properties of its own choice.
  const auto selected = std::dynamic_pointer_cast<model::VBComponent>(vbe_->SelectedVBComponent());
  const DesignerView* const view = CurrentDesigner();
  if (selected && (view == nullptr || view->Component() != selected)) ShowProperties(selected, {});
  ShowState();
}

void MainWindow::CloseDesignersOfGoneComponents() {
  std::set<const model::VBComponent*> there;
  for (const auto& project : vbe_->Projects().All()) {
    for (const auto& component : project->Components().All()) there.insert(component.get());
  }
  for (const auto& [component, view] : std::map(designers_)) {
    if (there.count(component) == 0) view->parentWidget()->close();
  }
  if (toolDepth_ == 0) shelf_.DropGone();  // a tool's edits are still open in them
  for (const auto& [module, code] : codes_) {
    if (const auto component = code->Component()) code->setWindowTitle(CodeTitle(*component));
  }
  const auto shown = properties_->Component();
  if (shown && there.count(shown.get()) == 0) properties_->ShowObjects(nullptr, {});
}

// State

void MainWindow::RunTool(const std::function<void()>& action) {
  if (toolDepth_++ == 0) {
    for (const auto& [module, code] : codes_) {
      code->Editor().TidyEntered();
      code->TellPane();
    }
  }
  try {
    action();
  } catch (...) {
    EndToolEdits();
    throw;
  }
  EndToolEdits();
}

void MainWindow::EndToolEdits() {
  if (--toolDepth_ > 0) return;
  for (CodeEditor* const editor : std::exchange(grouped_, {})) editor->EndGroup();
}

bool MainWindow::ClickCommand(StringView bar, const std::vector<String>& path) {
  bool clicked = false;
  Guard([&] {
    auto controls = vbe_->OwnBars().Item(bar)->Controls();
    std::shared_ptr<host::CommandBarControl> control;
    for (const String& caption : path) {
      control = controls->Item(caption);
      controls = control->Controls();
    }
    clicked = control && control->Enabled();
    if (clicked) services_.Desktop().RunAction([&] { control->Execute(); });
  });
  return clicked;
}

void MainWindow::ShowPlace() {
  const CodeWindow* const code = CurrentCode();
  const auto component = CurrentComponent();
  if (code == nullptr || !component) {
    placeLabel_->clear();
    memberLabel_->clear();
  } else {
    const host::Selection at = code->Editor().Selected();
    placeLabel_->setText(tr("Ln %1, Col %2").arg(at.EndLine).arg(at.EndColumn));
    host::vbext_ProcKind kind{};
    const String member = component->Module()->Index().ProcOfLine(at.EndLine, kind);
    memberLabel_->setText(member.empty() ? tr("(Declarations)") : ToQt(member));
  }
  const bool stored = component && component->Storage() && component->Module();
  codePageLabel_->setText(stored ? tr("Code page %1")
                                       .arg(workspace_.CodePageOf(component->Project()->PlainName(),
                                                                  component->PlainName()))
                                 : QString());
}

void MainWindow::ShowState() {
  const auto project = vbe_->Active();
  setWindowTitle(project ? tr("%1 - Tessel[*]").arg(ToQt(project->PlainName())) : tr("Tessel[*]"));
  bool modified = false;
  for (const auto& one : vbe_->Projects().All()) {
    const auto& all = one->Components().All();
    modified |= std::any_of(all.begin(), all.end(),
                            [](const auto& component) { return IsUnsaved(*component); });
  }
  setWindowModified(modified || !workspace_.ChangedFiles().empty());
  UpdateCommands();
}

void MainWindow::KeepWork() {
  keepTimer_.stop();
  recovery_.Write(UnsavedWork(workspace_));
}

EditorOptions MainWindow::CurrentOptions() const {
  EditorOptions options = settings_.Editor();
  options.Dark = palette().color(QPalette::Base).lightness() < DarkLimit;
  return options;
}

void MainWindow::ApplyOptions() {
  QApplication::setPalette(PaletteOf(settings_.Colors()));
  for (const auto& [module, code] : codes_) code->Editor().SetOptions(CurrentOptions());
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  for (const auto& [module, code] : codes_) code->Editor().SetOptions(CurrentOptions());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (services_.Desktop().IsBusy()) return event->ignore();  // a tool is at work
  bars_->StorePlaces();
  settings_.SetPlaces(saveGeometry(), saveState());
  if (!CloseProjects()) return event->ignore();
  if (const auto addin = std::exchange(connect_, nullptr)) {
    services_.Desktop().RunAction([&] { addin->AddinInstance_OnDisconnection(); });
  }
  recovery_.Remove();
  event->accept();
}

}  // namespace tessel::workbench
