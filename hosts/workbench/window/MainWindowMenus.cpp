// The menus of the main window.

#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMessageBox>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/platform/Pictures.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ExplorerCommands.h"
#include "hosts/workbench/window/MainWindow.h"
#include "hosts/workbench/window/OptionsDialog.h"

namespace tessel::workbench {
namespace {

struct NewProjectKind {
  const char* Caption;
  host::vbext_ProjectType Type;
};
constexpr NewProjectKind NewProjectKinds[] = {
    {QT_TRANSLATE_NOOP("Menu", "&Standard EXE"), host::vbext_pt_StandardExe},
    {QT_TRANSLATE_NOOP("Menu", "ActiveX &EXE"), host::vbext_pt_ActiveXExe},
    {QT_TRANSLATE_NOOP("Menu", "ActiveX &DLL"), host::vbext_pt_ActiveXDll},
    {QT_TRANSLATE_NOOP("Menu", "ActiveX &Control"), host::vbext_pt_ActiveXControl}};

/// One of a list whose first nine have their digits as keys.
QString Numbered(int number, QString text) {
  constexpr int Keys = 9;
  text.replace(u'&', QStringLiteral("&&"));
  return number <= Keys ? QStringLiteral("&%1 %2").arg(number).arg(text) : text;
}

/// What the mouse chooses from a menu brings no key that would tell of the edit.
void TellOfEdit(model::Vbe& vbe) { vbe.OwnWindows().ShowProperties(); }

}  // namespace

QAction* MainWindow::AddCommand(QMenu& menu, const QString& caption, const QKeySequence& keys,
                                const std::function<void()>& action) {
  QAction* const command = menu.addAction(caption);
  command->setShortcut(keys);
  connect(command, &QAction::triggered, this, action);
  commands_[QString(caption).remove(u'&').remove(QStringLiteral("..."))] = command;
  return command;
}

void MainWindow::BuildMenus() {
  BuildFileMenu();
  BuildEditMenu();
  BuildViewMenu();
  // What the host's own menus hold, as the add-in and the watchers know them.
  for (const StringView caption : {StringView(u"Project"), StringView(u"Add-Ins")}) {
    QMenu* const menu = menuBar()->addMenu(u'&' + ToQt(caption));
    menu->setObjectName(ToQt(caption));
    connect(menu, &QMenu::aboutToShow, this, [this, menu, name = String(caption)] {
      menu->clear();
      if (!bars_->FillMenu(*menu, name)) menu->addAction(tr("(Empty)"))->setEnabled(false);
    });
  }
  QMenu* const tools = menuBar()->addMenu(tr("&Tools"));
  AddCommand(*tools, tr("&Options..."), {}, [this] { ShowOptions(); });
  BuildWindowMenu();
  QMenu* const help = menuBar()->addMenu(tr("&Help"));
  AddCommand(*help, tr("&Contents"), QKeySequence::HelpContents,
             [this] { services_.Desktop().Shell().ShowHelp({}, u"support.htm"); });
  AddCommand(*help, tr("&About Tessel"), {}, [this] {
    QMessageBox::about(this, tr("About Tessel"),
                       tr("Tessel %1\n\nTools for Visual Basic 6 code over project files.")
                           .arg(QStringLiteral("1.0.0")));
  });
}

void MainWindow::BuildFileMenu() {
  QMenu* const file = menuBar()->addMenu(tr("&File"));
  QMenu* const fresh = file->addMenu(tr("&New Project"));
  for (const NewProjectKind& kind : NewProjectKinds) {
    connect(fresh->addAction(tr(kind.Caption)), &QAction::triggered, this,
            [this, type = kind.Type] { files_.NewProject(type); });
  }
  AddCommand(*file, tr("&Open..."), QKeySequence::Open, [this] { files_.AskForFile(); });
  recentMenu_ = file->addMenu(tr("&Recent"));
  connect(recentMenu_, &QMenu::aboutToShow, this, [this] { FillRecent(*recentMenu_); });
  file->addSeparator();
  AddCommand(*file, tr("&Save"), QKeySequence::Save, [this] { SaveCurrent(); });
  AddCommand(*file, tr("Save &All"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
             [this] { files_.SaveAll(); });
  AddCommand(*file, tr("Save Co&mponent As..."), {}, [this] {
    if (const auto component = CurrentComponent()) files_.SaveAs(component);
  });
  file->addSeparator();
  AddCommand(*file, tr("&Close Project"), {}, [this] { files_.CloseAll(); });
  AddCommand(*file, tr("E&xit"), QKeySequence::Quit, [this] { close(); });
}

void MainWindow::FillRecent(QMenu& menu) {
  menu.clear();
  for (int number = 1; const QString& file : settings_.Recent()) {
    connect(menu.addAction(Numbered(number++, file)), &QAction::triggered, this,
            [this, file] { files_.OpenRecent(file); });
  }
  if (menu.isEmpty()) menu.addAction(tr("(None)"))->setEnabled(false);
}

void MainWindow::BuildEditMenu() {
  QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
  const auto inEditor = [this](void (QsciScintilla::*action)(), bool edits) {
    return [this, action, edits] {
      CodeWindow* const code = children_->CurrentCode();
      if (code == nullptr) return;
      (code->Editor().*action)();
      if (edits) TellOfEdit(*vbe_);
    };
  };
  AddCommand(*edit, tr("&Undo"), QKeySequence::Undo, [this] { Undo(); });
  AddCommand(*edit, tr("&Redo"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z),
             [this] { Redo(); });
  edit->addSeparator();
  AddCommand(*edit, tr("Cu&t"), QKeySequence::Cut, inEditor(&QsciScintilla::cut, true));
  AddCommand(*edit, tr("&Copy"), QKeySequence::Copy, inEditor(&QsciScintilla::copy, false));
  AddCommand(*edit, tr("&Paste"), QKeySequence::Paste, inEditor(&QsciScintilla::paste, true));
  AddCommand(*edit, tr("Select &All"), QKeySequence::SelectAll, [this] {
    if (CodeWindow* const code = children_->CurrentCode()) code->Editor().selectAll(true);
  });
  edit->addSeparator();
  AddCommand(*edit, tr("&Find..."), QKeySequence::Find, [this] { find_->Open(false); });
  AddCommand(*edit, tr("Find &Next"), QKeySequence(Qt::Key_F3), [this] { find_->FindNext(); });
  AddCommand(*edit, tr("Find Pre&vious"), QKeySequence(Qt::SHIFT | Qt::Key_F3),
             [this] { find_->FindNext(false); });
  AddCommand(*edit, tr("R&eplace..."), QKeySequence(Qt::CTRL | Qt::Key_H),
             [this] { find_->Open(true); });
  AddLineCommands(*edit);
  constexpr std::pair<const char*, int> Pictures[] = {
      {"Cut", 142}, {"Copy", 143}, {"Paste", 144}, {"Find", 145}};
  for (const auto& [name, picture] : Pictures) {
    commands_[QString::fromLatin1(name)]->setIcon(Picture(picture));
  }
  connect(edit, &QMenu::aboutToShow, this, [this] { UpdateCommands(); });
}

/// What is done to whole lines. Only for the editor that has the keys: a field of another window
/// keeps its own.
void MainWindow::AddLineCommands(QMenu& edit) {
  const auto inLines = [this](const std::function<void(CodeEditor&)>& action) {
    return [this, action] {
      CodeWindow* const code = children_->CurrentCode();
      if (code != nullptr && code->isAncestorOf(QApplication::focusWidget()))
        action(code->Editor());
    };
  };
  const auto editsLines = [this, inLines](const std::function<void(CodeEditor&)>& action) {
    return inLines([this, action](CodeEditor& editor) {
      action(editor);
      TellOfEdit(*vbe_);
    });
  };
  edit.addSeparator();
  AddCommand(edit, tr("Cut &Line"), QKeySequence(Qt::CTRL | Qt::Key_Y),
             editsLines([](CodeEditor& editor) { editor.CutLine(); }));
  AddCommand(edit, tr("Co&mment Block"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C),
             editsLines([](CodeEditor& editor) { editor.CommentBlock(true); }));
  AddCommand(edit, tr("Unc&omment Block"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_U),
             editsLines([](CodeEditor& editor) { editor.CommentBlock(false); }));
  AddCommand(edit, tr("L&ist Members"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Space),
             inLines([this](CodeEditor&) { ListMembers(); }));
  QMenu* const marks = edit.addMenu(tr("&Bookmarks"));
  AddCommand(*marks, tr("&Toggle Bookmark"), QKeySequence(Qt::CTRL | Qt::Key_B),
             inLines([](CodeEditor& editor) { editor.ToggleBookmark(); }));
  AddCommand(*marks, tr("&Next Bookmark"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Down),
             inLines([](CodeEditor& editor) { editor.GoToBookmark(true); }));
  AddCommand(*marks, tr("&Previous Bookmark"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Up),
             inLines([](CodeEditor& editor) { editor.GoToBookmark(false); }));
  AddCommand(*marks, tr("&Clear All Bookmarks"), {},
             inLines([](CodeEditor& editor) { editor.ClearBookmarks(); }));
}

/// The list of the module's members at the caret, for the add-in to open.
void MainWindow::ListMembers() {
  CodeWindow* const code = children_->CurrentCode();
  if (code == nullptr || !connect_) return;
  code->TellPane();
  const QPoint place = code->Editor().mapTo(code, code->Editor().PlaceBelowCaret());
  services_.Desktop().RunAction([&] {
    if (const auto addin = connect_) addin->ShowContextMenu(place.x(), place.y());
  });
}

/// Where to go in the code.
void MainWindow::AddPlaceCommands(QMenu& view) {
  AddCommand(view, tr("&Definition"), QKeySequence(Qt::SHIFT | Qt::Key_F2), [this] {
    if (const CodeWindow* const code = children_->CurrentCode()) jumps_.Go(*code);
  });
  AddCommand(view, tr("&Last Position"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F2),
             [this] { jumps_.Back(); });
  const auto go = [this](bool forward) {
    return [this, forward] {
      if (CodeWindow* const code = children_->CurrentCode()) code->Editor().GoToProcedure(forward);
    };
  };
  AddCommand(view, tr("&Member in Explorer"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_M),
             [this] { ShowMemberInExplorer(*this); });
  AddCommand(view, tr("&Next Procedure"), QKeySequence(Qt::CTRL | Qt::Key_Down), go(true));
  AddCommand(view, tr("P&revious Procedure"), QKeySequence(Qt::CTRL | Qt::Key_Up), go(false));
}

void MainWindow::BuildViewMenu() {
  QMenu* const view = menuBar()->addMenu(tr("&View"));
  AddCommand(*view, tr("&Code"), QKeySequence(Qt::Key_F7), [this] {
    if (const auto component = CurrentComponent()) ShowCode(component);
  });
  AddCommand(*view, tr("O&bject"), QKeySequence(Qt::SHIFT | Qt::Key_F7), [this] {
    if (const auto component = CurrentComponent()) ShowDesigner(component);
  });
  AddPlaceCommands(*view);
  connect(view, &QMenu::aboutToShow, this, [this] { UpdateCommands(); });
  view->addSeparator();
  AddCommand(*view, tr("&Project Window"), QKeySequence(Qt::CTRL | Qt::Key_R),
             [this] { ShowDock(QStringLiteral("project")); });
  AddCommand(*view, tr("Properties &Window"), QKeySequence(Qt::Key_F4),
             [this] { ShowDock(QStringLiteral("properties")); });
  AddCommand(*view, tr("Project &Explorer"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E),
             [this] { FindInExplorer(*this); });
  AddCommand(*view, tr("Toolbo&x"), {}, [this] { ShowDock(QStringLiteral("toolbox")); });
  QMenu* const bars = view->addMenu(tr("&Toolbars"));
  connect(bars, &QMenu::aboutToShow, this, [this, bars] {
    bars->clear();
    for (QToolBar* const bar : findChildren<QToolBar*>()) {
      if (bar->objectName().startsWith(QStringLiteral("bar:"))) {
        bars->addAction(bar->toggleViewAction());
      }
    }
  });
}

/// Brings one of the docked windows to the user, with the keys.
void MainWindow::ShowDock(const QString& name) {
  for (QDockWidget* const dock : docks_) {
    if (dock->objectName() != name) continue;
    dock->show();
    dock->raise();
    dock->widget()->setFocus(Qt::ShortcutFocusReason);
  }
}

void MainWindow::GiveKeysTo(StringView document, StringView control) {
  toolWindows_.Follow();
  QDockWidget* const dock = toolWindows_.DockOf(document);
  if (dock == nullptr) return;
  dock->raise();
  if (dock->isFloating()) dock->activateWindow();
  auto* const widget = dock->findChild<QWidget*>(ToQt(control));
  if (widget != nullptr) widget->setFocus(Qt::ShortcutFocusReason);
}

void MainWindow::BuildWindowMenu() {
  QMenu* const menu = menuBar()->addMenu(tr("&Window"));
  connect(menu, &QMenu::aboutToShow, this, [this, menu] {
    menu->clear();
    connect(menu->addAction(tr("&Cascade")), &QAction::triggered, children_,
            &QMdiArea::cascadeSubWindows);
    connect(menu->addAction(tr("&Tile")), &QAction::triggered, children_,
            &QMdiArea::tileSubWindows);
    connect(menu->addAction(tr("Close &All")), &QAction::triggered, children_,
            &QMdiArea::closeAllSubWindows);
    menu->addSeparator();
    for (int number = 1; QMdiSubWindow* const frame : children_->subWindowList()) {
      QAction* const action = menu->addAction(Numbered(number++, frame->widget()->windowTitle()));
      action->setCheckable(true);
      action->setChecked(frame == children_->activeSubWindow());
      connect(action, &QAction::triggered, frame,
              [this, frame] { children_->setActiveSubWindow(frame); });
    }
  });
}

void MainWindow::UpdateCommands() {
  const CodeWindow* const code = children_->CurrentCode();
  DesignerView* const view = children_->CurrentDesigner();
  const auto component = CurrentComponent();
  const bool open = !vbe_->Projects().All().empty();
  const auto put = [this](const char* name, bool enabled) {
    const auto command = commands_.find(QString::fromLatin1(name));
    if (command != commands_.end()) command->second->setEnabled(enabled);
  };
  put("Undo", code ? code->Editor().isUndoAvailable() : view && view->UndoStack().canUndo());
  put("Redo", code ? code->Editor().isRedoAvailable() : view && view->UndoStack().canRedo());
  for (const char* name : {"Cut", "Copy"}) put(name, code && code->Editor().hasSelectedText());
  for (const char* name :
       {"Select All", "Find", "Find Next", "Find Previous", "Replace", "Cut Line", "Comment Block",
        "Uncomment Block", "Toggle Bookmark", "List Members", "Next Bookmark", "Previous Bookmark",
        "Clear All Bookmarks", "Definition", "Next Procedure", "Previous Procedure"}) {
    put(name, code);
  }
  put("Paste", code && !QGuiApplication::clipboard()->text().isEmpty());
  put("Save", component != nullptr);
  put("Save Component As", component && component->Storage());
  put("Save All", open);
  put("Close Project", open);
  put("Code", component && component->Module());
  put("Object", component && component->OwnDesigner());
}

void MainWindow::Undo() {
  if (CodeWindow* const code = children_->CurrentCode()) code->Editor().undo();
  if (DesignerView* const view = children_->CurrentDesigner()) view->UndoStack().undo();
  TellOfEdit(*vbe_);
}

void MainWindow::Redo() {
  if (CodeWindow* const code = children_->CurrentCode()) code->Editor().redo();
  if (DesignerView* const view = children_->CurrentDesigner()) view->UndoStack().redo();
  TellOfEdit(*vbe_);
}

void MainWindow::ShowOptions() {
  if (EditOptions(this, settings_)) ApplyOptions();
}

}  // namespace tessel::workbench
