#include "hosts/workbench/window/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QStatusBar>
#include <QVBoxLayout>
#include <algorithm>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/designer/PropertiesWindow.h"
#include "hosts/workbench/designer/Toolbox.h"
#include "hosts/workbench/forms/ScreenPlace.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ComponentIcon.h"

namespace tessel::workbench {
namespace {

constexpr int PlaceDelayMs = 80, StateDelayMs = 400;
/// What was on the screen longer than twice this long survives a crash.
constexpr int KeepDelayMs = 4000;
constexpr int MessageMs = 8000;
constexpr int LeastDockHeight = 60;  // pixels

constexpr int DarkLimit = 128;
constexpr QSize ProposedSize(1280, 840);
/// Room for what the desktop puts around a window, which it tells only when it shows.
constexpr int FrameWidth = 4, FrameHeight = 32;

void StartSingle(QTimer& timer, int ms, QObject* owner, const std::function<void()>& action) {
  timer.setSingleShot(true);
  timer.setInterval(ms);
  QObject::connect(&timer, &QTimer::timeout, owner, action);
}

/// The first wish of a stretch of time starts its timer.
void Start(QTimer& timer) {
  if (!timer.isActive()) timer.start();
}

}  // namespace

MainWindow::MainWindow(WorkbenchPlatform& services, const QString& stateFolder)
    : services_(services),
      questions_(*this),
      settings_(QDir(stateFolder).filePath(QStringLiteral("workbench.ini"))),
      workspace_(services),
      vbe_(std::dynamic_pointer_cast<model::Vbe>(workspace_.VBE())),
      files_(workspace_, questions_, settings_,
             QDir(stateFolder).filePath(QStringLiteral("recovery"))),
      children_(new ChildWindows(vbe_, this)),
      reloader_(workspace_, questions_, *this) {
  setWindowTitle(tr("Tessel[*]"));
  setWindowIcon(Picture(ProgramPicture));
  setObjectName(QStringLiteral("workbench"));
  setDockNestingEnabled(true);
  ConnectChildren();
  ConnectJumps();
  bars_ = std::make_unique<BarView>(*this, vbe_);
  // Not from inside the click itself: what it runs may build the bars anew.
  bars_->OnClick = [this](const std::shared_ptr<host::CommandBarControl>& control) {
    QTimer::singleShot(0, this, [this, control] { barCommands_.Execute(*control); });
  };
  WatchFiles();
  files_.BeforeSaving = [this] { children_->TidyEntered(); };
  files_.OnChanged = [this] { FilesChanged(); };
  files_.OnNew = [this](const auto& component) { ShowNew(component); };
  files_.OnNotKept = [this] {
    statusBar()->showMessage(tr("Unsaved work can't be kept for a crash: %1 can't be written")
                                 .arg(files_.RecoveryFolder()),
                             MessageMs);
  };
  files_.RunTool = [this](const std::function<void()>& action) { RunTool(action); };
  barCommands_.OnNew = files_.OnNew;
  BuildDocks();
  BuildMenus();
  BuildStatusBar();
  StartSingle(barsTimer_, 0, this, [this] { bars_->Rebuild(); });
  StartSingle(projectsTimer_, 0, this, [this] { ShowProjects(); });
  StartSingle(choiceTimer_, 0, this, [this] { ShowChoice(); });
  StartSingle(placeTimer_, PlaceDelayMs, this, [this] { ShowPlace(); });
  StartSingle(stateTimer_, StateDelayMs, this, [this] { ShowState(); });
  StartSingle(keepTimer_, KeepDelayMs, this, [this] { files_.KeepWork(); });
  vbe_->SetObserver(this);
  services_.Desktop().SetParent(this);
  services_.UseWindows(workspace_.OwnWindows());
  messages_ = std::make_unique<WindowMessages>(*children_, workspace_.OwnWindows());
  messages_->OnEntered = [this] {
    if (!IsTurnedToWindow()) WindowActivated();
  };
  services_.Desktop().RunTool = [this](const std::function<void()>& action) { RunTool(action); };
  ApplyOptions();
  Place();
  UpdateCommands();
}

/// A list behind a run is one of its own session.
void MainWindow::RestoreDocks() {
  restoreState(settings_.Docks());
  runs_->hide();
}

/// As it was left, but always whole on a screen that there is.
void MainWindow::Place() {
  resize(ProposedSize);
  restoreGeometry(settings_.Geometry());
  if (!isMaximized() && !isFullScreen()) {
    const QRect room = ScreenAround(geometry().center());
    const QMargins frame(FrameWidth, FrameHeight, FrameWidth, FrameWidth);
    const QRect inside = KeptOnScreen(geometry().marginsAdded(frame)).marginsRemoved(frame);
    setGeometry(inside.intersected(room));
  }
  RestoreDocks();
}

MainWindow::~MainWindow() {
  vbe_->SetObserver(nullptr);
  services_.Desktop().RunTool = nullptr;
  services_.Desktop().SetParent(nullptr);
  messages_.reset();
  // The windows hold parts of the model that must go ahead of it.
  delete children_;
}

void MainWindow::ConnectAddin() {
  connect_ = std::make_shared<tessel::Connect>();
  services_.Desktop().RunAction([&] {
    connect_->AddinInstance_OnConnection(vbe_);
    connect_->AddinInstance_OnStartupComplete();
  });
  bars_->Rebuild();
  RestoreDocks();
}

void MainWindow::WatchFiles() {
  watch_ = new FileWatch(workspace_, this);
  watch_->OnChanged = [this](const auto& changes) { reloader_.Add(changes); };
  watch_->OnProjectsChanged = [this](const auto& changes) { reloader_.Add(changes); };
  reloader_.IsStill = [this](OutsideProject& change) { return watch_->IsStill(change); };
  reloader_.OpenAgain = [this](const auto& project) { files_.OpenAgain(project, 0); };
  // A pressed button is a gesture in the middle: a line drawn, a form's control moved.
  reloader_.IsBusy = [this] {
    return services_.Desktop().IsBusy() || Questions::IsBoxOpen() ||
           QApplication::mouseButtons() != Qt::NoButton;
  };
  reloader_.Around = [this](const model::VBComponent& component, const auto& load) {
    children_->Reload(component, load);
  };
  reloader_.OnDone = [this](const auto& reloaded) {
    FilesChanged();
    files_.KeepWork();
    if (reloaded.empty()) return;
    statusBar()->showMessage(
        reloaded.size() == 1
            ? tr("%1 was changed outside and loaded again").arg(ToQt(reloaded.front()->PlainName()))
            : tr("%1 components were changed outside and loaded again").arg(reloaded.size()),
        MessageMs);
  };
}

void MainWindow::ConnectChildren() {
  children_->Options = [this] { return CurrentOptions(); };
  children_->OnActivated = [this] { WindowActivated(); };
  children_->OnMoved = [this] { Start(placeTimer_); };
  children_->OnUnchanged = [this] { KeepWorkSoon(); };
  children_->OnDesigner = [this](DesignerView& view) { ConnectDesigner(view); };
}

void MainWindow::ConnectJumps() {
  jumps_.ShowCode = [this](const auto& component) { return ShowCode(component); };
  jumps_.ShowDesigner = [this](const auto& component) { ShowDesigner(component); };
  jumps_.OnMissing = [this](const QString& name) {
    statusBar()->showMessage(name.isEmpty() ? tr("There is no name at the caret")
                                            : tr("\"%1\" isn't declared in this project").arg(name),
                             MessageMs);
  };
}

FindGround MainWindow::GroundOfFind() {
  FindGround ground;
  ground.Current = [this]() -> CodeEditor* {
    CodeWindow* const code = children_->CurrentCode();
    return code == nullptr ? nullptr : &code->Editor();
  };
  ground.Modules = [this] {
    std::vector<std::shared_ptr<model::CodeModule>> modules;
    const auto component = CurrentComponent();
    const auto project = component ? component->Project() : nullptr;
    if (!project) return modules;
    for (const auto& one : project->Components().All()) {
      if (one->Module()) modules.push_back(one->Module());
    }
    return modules;
  };
  ground.Open = [this](const model::CodeModule& module) -> CodeEditor* {
    const auto component = module.Component();
    CodeWindow* const code = component ? ShowCode(component) : nullptr;
    return code == nullptr ? nullptr : &code->Editor();
  };
  ground.Run = [this](const std::function<void()>& action) { RunTool(action); };
  return ground;
}

void MainWindow::ConnectDesigner(DesignerView& view) {
  // Who hears of an edit asks for the active project.
  view.Editor()->RunTool = [this, component = view.Component()](const std::function<void()>& edit) {
    services_.Desktop().RunAction([&] {
      vbe_->Select(component);
      edit();
    });
  };
  view.Editor()->OnTakeBack = [this](auto& component, const String& before, const String& after) {
    if (!children_->TakeBack(component, before, after)) return false;
    workspace_.ToolHasEdited();
    return true;
  };
  view.OnFailure = [this](const String& text) { ShowFailure(ToQt(text)); };
  view.OnOpenCode = [this](const auto& owner, const String& control) {
    OpenEventProcedure(owner, control);
  };
  view.OnSelection = [this, component =
                                view.Component()](const std::vector<model::DesignerNode*>& nodes) {
    ShowProperties(component, nodes);
  };
  view.SetTool(toolbox_->Tool());
  view.OnToolUsed = [this] { toolbox_->Reset(); };
}

void MainWindow::BuildDocks() {
  auto* const centre = new QWidget(this);
  auto* const column = new QVBoxLayout(centre);
  column->setContentsMargins({});
  column->setSpacing(0);
  find_ = new FindBar(GroundOfFind(), centre);
  column->addWidget(children_, 1);
  column->addWidget(find_);
  setCentralWidget(centre);

  toolbox_ = new Toolbox(this);
  toolbox_->OnTool = [this](StringView className) {
    for (const auto& [component, view] : children_->Designers()) view->SetTool(className);
  };
  toolbox_->OnAdd = [this](StringView className) {
    if (DesignerView* const view = children_->CurrentDesigner()) view->AddControl(className);
  };
  AddDock(tr("Toolbox"), QStringLiteral("toolbox"), toolbox_, Qt::LeftDockWidgetArea);
  projects_ = new ProjectWindow(workspace_);
  projects_->OnViewCode = [this](const auto& component) { ShowCode(component); };
  projects_->OnViewObject = [this](const auto& component) { ShowDesigner(component); };
  projects_->OnRemove = [this](const auto& component) { files_.Remove(component); };
  projects_->OnRename = [this](const auto& component) { files_.Rename(component); };
  projects_->OnSaveAs = [this](const auto& component) { files_.SaveAs(component); };
  projects_->OnCloseProject = [this](const auto& project) { files_.Close(project); };
  AddDock(tr("Project"), QStringLiteral("project"), projects_, Qt::RightDockWidgetArea);
  properties_ = new PropertiesWindow(this);
  properties_->OnFailure = [this](const String& text) { ShowFailure(ToQt(text)); };
  properties_->OnChosen = [this](model::DesignerNode* node) {
    if (DesignerView* const view = children_->CurrentDesigner()) view->Select({node});
  };
  AddDock(tr("Properties"), QStringLiteral("properties"), properties_, Qt::RightDockWidgetArea);
  BuildRunDock();
}

void MainWindow::BuildRunDock() {
  runs_ = new RunDock(*children_, this);
  AddDock(runs_, Qt::BottomDockWidgetArea);
  runs_->OnShow = [this] { ShowDock(runs_->objectName()); };
  runs_->OnMessage = [this](const QString& text) { statusBar()->showMessage(text, MessageMs); };
  runs_->List().OnJump = [this](const auto& component, int line) {
    if (CodeWindow* const code = ShowCode(component)) code->Editor().Select({line, 1, line, 1});
  };
  runs_->List().OnTakeBack = [this](const auto& component, const String& before,
                                    const String& after) {
    bool done = false;
    questions_.Guard([&] { done = children_->TakeBack(*component, before, after); });
    if (done) workspace_.ToolHasEdited();
    return done;
  };
}

void MainWindow::AddDock(const QString& caption, const QString& name, QWidget* content,
                         Qt::DockWidgetArea area) {
  auto* const dock = new QDockWidget(caption, this);
  dock->setObjectName(name);
  dock->setWidget(content);
  AddDock(dock, area);
}

void MainWindow::AddDock(QDockWidget* dock, Qt::DockWidgetArea area) {
  // A small screen holds several of them, one above the other.
  dock->widget()->setMinimumHeight(LeastDockHeight);
  addDockWidget(area, dock);
  docks_.push_back(dock);
}

void MainWindow::BuildStatusBar() {
  place_ = new PlaceLine(*statusBar());
  place_->Current = [this] { return CurrentComponent(); };
  place_->OnOpenAgain = [this](const auto& project, int codePage) {
    files_.OpenAgain(project, codePage);
  };
}

// What the model tells

void MainWindow::KeepWorkSoon() {
  Start(stateTimer_);
  Start(keepTimer_);
}

void MainWindow::LinesChanging(model::CodeModule& module) { children_->LinesChanging(module); }

void MainWindow::LinesChanged(model::CodeModule& module, int line, int removed, int added) {
  children_->LinesChanged(module, line, removed, added);
  KeepWorkSoon();
}

void MainWindow::PaneShown(const std::shared_ptr<model::CodePane>& pane) {
  children_->ShowPane(pane);
}

void MainWindow::PaneClosed(const model::CodeModule& module) { children_->ClosePane(module); }

void MainWindow::SelectionSet(model::CodePane& pane) { children_->SelectionSet(pane); }

void MainWindow::TopLineSet(model::CodePane& pane) { children_->TopLineSet(pane); }

void MainWindow::DesignerShown(model::VBComponent& component) {
  children_->ShowDesigner(component);
}

void MainWindow::DesignerChanged(model::VBComponent& component) {
  children_->DesignerChanged(component);
  properties_->Refresh();
  KeepWorkSoon();
}

void MainWindow::ProjectsChanged() { Start(projectsTimer_); }

void MainWindow::ChoiceChanged() { Start(choiceTimer_); }

void MainWindow::BarsChanged() { Start(barsTimer_); }

// Windows

CodeWindow* MainWindow::ShowCode(const std::shared_ptr<model::VBComponent>& component) {
  if (!component->Module()) return nullptr;
  questions_.Guard([&] { component->Module()->OwnPane()->Show(); });
  CodeWindow* const code = children_->CodeOf(*component->Module());
  if (code != nullptr) code->Editor().setFocus();
  return code;
}

DesignerView* MainWindow::ShowDesigner(const std::shared_ptr<model::VBComponent>& component) {
  if (!component->OwnDesigner()) return nullptr;
  questions_.Guard([&] { component->Activate(); });
  return children_->DesignerOf(*component);
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

std::shared_ptr<model::VBComponent> MainWindow::CurrentComponent() const {
  if (children_->activeSubWindow() != nullptr) return children_->CurrentComponent();
  auto component = std::dynamic_pointer_cast<model::VBComponent>(vbe_->SelectedVBComponent());
  return component && component->Project() ? component : nullptr;
}

bool MainWindow::SaveCurrent() {
  const auto component = CurrentComponent();
  return component && files_.Save(component);
}

/// Whether the model's choice is what the window in front shows.
bool MainWindow::IsTurnedToWindow() const {
  const auto component = children_->CurrentComponent();
  if (!component) return true;
  const CodeWindow* const code = children_->CurrentCode();
  return vbe_->Selected() == component && vbe_->Active() == component->Project() &&
         (code == nullptr || vbe_->ActiveCodePane() == code->Pane());
}

void MainWindow::WindowActivated() {
  UpdateCommands();
  ShowPlace();
  const auto component = children_->CurrentComponent();
  if (!component) return;
  const bool turns = vbe_->Selected() != component || vbe_->Active() != component->Project();
  if (const CodeWindow* const code = children_->CurrentCode()) {
    reader_.Begin();
    if (vbe_->ActiveCodePane() != code->Pane()) vbe_->BringToFront(code->Pane());
    ShowProperties(component, {});
  } else if (DesignerView* const view = children_->CurrentDesigner()) {
    ShowProperties(component, view->Selected());
  }
  vbe_->Select(component);
  if (turns) vbe_->OwnWindows().ShowProperties();
}

void MainWindow::ShowProperties(const std::shared_ptr<model::VBComponent>& component,
                                const std::vector<model::DesignerNode*>& nodes) {
  DesignerView* const view = children_->DesignerOf(*component);
  properties_->ShowObjects(component, nodes, view == nullptr ? nullptr : view->Editor());
}

void MainWindow::ShowChoice() {
  projects_->ShowSelected();
  // A designer shows the properties of its own choice.
  const auto selected = std::dynamic_pointer_cast<model::VBComponent>(vbe_->SelectedVBComponent());
  const DesignerView* const view = children_->CurrentDesigner();
  if (selected && (view == nullptr || view->Component() != selected)) ShowProperties(selected, {});
  ShowState();
}

void MainWindow::ShowProjects() {
  children_->CloseGone();
  // Somebody may hold what was closed for a while; nobody would save what is changed there.
  const auto shown = properties_->Component();
  const auto holdsShown = [&](const auto& project) {
    return std::ranges::count(project->Components().All(), shown) > 0;
  };
  if (shown && std::ranges::none_of(vbe_->Projects().All(), holdsShown)) {
    properties_->ShowObjects(nullptr, {});
  }
  projects_->Refresh();
  watch_->Refresh();
  ShowState();
}

void MainWindow::FilesChanged() {
  children_->CloseGone();
  children_->NoteSaved();
  ProjectsChanged();
  ShowState();
}

// Commands

void MainWindow::ShowNew(const std::shared_ptr<model::VBComponent>& component) {
  if (ShowDesigner(component) == nullptr) ShowCode(component);
}

bool MainWindow::ClickCommand(StringView bar, const std::vector<String>& path) {
  bool clicked = false;
  questions_.Guard([&] { clicked = barCommands_.Click(bar, path); });
  return clicked;
}

// State

void MainWindow::ShowPlace() { place_->Show(children_->CurrentCode(), CurrentComponent()); }

void MainWindow::ShowState() {
  const auto project = vbe_->Active();
  setWindowTitle(project ? tr("%1 - Tessel[*]").arg(ToQt(project->PlainName())) : tr("Tessel[*]"));
  setWindowModified(files_.IsUnsaved());
  projects_->ShowUnsaved();
  UpdateCommands();
}

EditorOptions MainWindow::CurrentOptions() const {
  EditorOptions options = settings_.Editor();
  options.Names = names_;
  options.Dark = palette().color(QPalette::Base).lightness() < DarkLimit;
  return options;
}

void MainWindow::ApplyOptions() {
  QApplication::setPalette(PaletteOf(settings_.Colors()));
  children_->ApplyOptions();
}

void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) children_->ApplyOptions();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (services_.Desktop().IsBusy()) return event->ignore();  // a tool is at work
  bars_->StorePlaces();
  settings_.SetPlaces(saveGeometry(), saveState());
  if (!files_.CloseAll()) return event->ignore();
  children_->CloseGone();
  if (const auto addin = std::exchange(connect_, nullptr)) {
    services_.Desktop().RunAction([&] { addin->AddinInstance_OnDisconnection(); });
  }
  files_.ForgetWork();
  event->accept();
}

}  // namespace tessel::workbench
