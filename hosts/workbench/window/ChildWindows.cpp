#include "hosts/workbench/window/ChildWindows.h"

#include <QEvent>
#include <QProxyStyle>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <QUndoStack>
#include <algorithm>

#include "hosts/workbench/designer/DesignerView.h"
#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ComponentIcon.h"
#include "hosts/workspace/ComponentFile.h"

namespace tessel::workbench {
namespace {

QString CodeTitle(const model::VBComponent& component) {
  return QStringLiteral("%1 - %2 (%3)")
      .arg(ToQt(component.Project()->PlainName()), ToQt(component.PlainName()),
           QObject::tr("Code"));
}

QString DesignTitle(const model::VBComponent& component) {
  return QStringLiteral("%1 - %2 (%3)")
      .arg(ToQt(component.Project()->PlainName()), ToQt(component.PlainName()),
           QObject::tr("Design"));
}

/// Styles draw the buttons of a child window that isn't in front in black, on dark frames as well:
/// there its frame is drawn as one in front, in the colour of the others.
class FrameStyle : public QProxyStyle {
 public:
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override {
    const auto* const title = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    if (control != CC_TitleBar || title == nullptr || !IsBlackOnDark(*title)) {
      return QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
    QStyleOptionTitleBar front(*title);
    front.titleBarState |= static_cast<int>(State_Active);
    front.palette.setColor(QPalette::Highlight, title->palette.color(QPalette::Window));
    QProxyStyle::drawComplexControl(control, &front, painter, widget);
  }

 private:
  static bool IsBlackOnDark(const QStyleOptionTitleBar& title) {
    constexpr int Dark = 128;
    return (title.titleBarState & static_cast<int>(State_Active)) == 0 &&
           title.palette.color(QPalette::Window).lightness() < Dark;
  }
};

}  // namespace

ChildWindows::ChildWindows(std::shared_ptr<model::Vbe> vbe, QWidget* parent)
    : QMdiArea(parent), vbe_(std::move(vbe)), frameStyle_(new FrameStyle) {
  frameStyle_->setParent(this);
  setViewMode(QMdiArea::SubWindowView);
  setActivationOrder(QMdiArea::ActivationHistoryOrder);
  connect(this, &QMdiArea::subWindowActivated, this, [this] {
    if (OnActivated) OnActivated();
  });
  ShowColors();
}

ChildWindows::~ChildWindows() {
  OnActivated = nullptr;
  for (const auto& [module, window] : codes_) window->OnClosed = nullptr;
  // What their ends are told to must still be there; also those that are closed and not yet gone.
  qDeleteAll(findChildren<QMdiSubWindow*>());
}

CodeWindow* ChildWindows::CodeOf(const model::CodeModule& module) const {
  const auto code = codes_.find(&module);
  return code == codes_.end() ? nullptr : code->second;
}

DesignerView* ChildWindows::DesignerOf(const model::VBComponent& component) const {
  const auto view = designers_.find(&component);
  return view == designers_.end() ? nullptr : view->second;
}

CodeWindow* ChildWindows::CurrentCode() const {
  QMdiSubWindow* const frame = activeSubWindow();
  return frame == nullptr ? nullptr : dynamic_cast<CodeWindow*>(frame->widget());
}

DesignerView* ChildWindows::CurrentDesigner() const {
  QMdiSubWindow* const frame = activeSubWindow();
  return frame == nullptr ? nullptr : dynamic_cast<DesignerView*>(frame->widget());
}

std::shared_ptr<model::VBComponent> ChildWindows::CurrentComponent() const {
  std::shared_ptr<model::VBComponent> component;
  if (const CodeWindow* const code = CurrentCode()) component = code->Component();
  if (const DesignerView* const view = CurrentDesigner()) component = view->Component();
  return component && component->Project() ? component : nullptr;
}

CodeEditor* ChildWindows::EditorOf(const model::CodeModule& module) const {
  CodeWindow* const code = CodeOf(module);
  return code == nullptr ? shelf_.Find(module) : &code->Editor();
}

// Opening and closing

QMdiSubWindow* ChildWindows::AddFrame(QWidget& content, const model::VBComponent& component) {
  const QMdiSubWindow* const front = activeSubWindow();
  const bool maximized = front == nullptr ? dynamic_cast<const CodeWindow*>(&content) != nullptr
                                          : front->isMaximized();
  QMdiSubWindow* const frame = addSubWindow(&content);
  frame->setAttribute(Qt::WA_DeleteOnClose);
  frame->setStyle(frameStyle_);
  frame->setWindowIcon(ComponentIcon(component.PlainType()));
  frame->setGeometry(PlaceOfNext());
  if (maximized) {
    frame->showMaximized();
  } else {
    frame->show();
  }
  return frame;
}

/// Below the title of the one ahead, from the corner again where the room ends.
QRect ChildWindows::PlaceOfNext() const {
  constexpr int Share = 3, Whole = 4;
  const QSize room = viewport()->size();
  const QSize size = room * Share / Whole;
  const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight) + 2;
  const QSize free = room - size;
  const int steps = std::max(1, std::min(free.width(), free.height()) / step + 1);
  const auto others = static_cast<int>(subWindowList().size()) - 1;
  const int at = others % steps * step;
  return {QPoint(at, at), size};
}

void ChildWindows::ShowPane(const std::shared_ptr<model::CodePane>& pane) {
  CodeWindow* code = CodeOf(*pane->Module());
  if (code == nullptr) {
    CodeEditor* const kept = shelf_.Take(*pane->Module());
    code = new CodeWindow(pane, Options(), kept);
    codes_[pane->Module().get()] = code;
    if (kept == nullptr) WatchSavePoint(code->Editor());
    code->OnClosed = [this, pane] { CodeClosed(pane); };
    code->OnMoved = [this] {
      if (OnMoved) OnMoved();
    };
    code->setWindowTitle(CodeTitle(*code->Component()));
    AddFrame(*code, *code->Component());
  }
  setActiveSubWindow(qobject_cast<QMdiSubWindow*>(code->parentWidget()));
}

void ChildWindows::ShowDesigner(model::VBComponent& component) {
  DesignerView* view = DesignerOf(component);
  if (view == nullptr) {
    view = new DesignerView(component.shared_from_this());
    designers_[&component] = view;
    WatchSavePoint(*view);
    if (OnDesigner) OnDesigner(*view);
    view->setWindowTitle(DesignTitle(component));
    shownForms_[view] = component.OwnDesigner();
    connect(view, &QObject::destroyed, this,
            [this, view, key = &component, weak = component.weak_from_this()] {
              designers_.erase(key);
              shownForms_.erase(view);
              if (const auto shown = weak.lock()) shown->CloseDesigner();
            });
    AddFrame(*view, component);
  }
  setActiveSubWindow(qobject_cast<QMdiSubWindow*>(view->parentWidget()));
}

/// What was known of an editor goes with its window.
void ChildWindows::Forget(std::map<const model::CodeModule*, CodeWindow*>::iterator code) {
  const CodeEditor& editor = code->second->Editor();
  grouped_.erase(&code->second->Editor());
  saved_.erase(&editor);
  codes_.erase(code);
}

void ChildWindows::CodeClosed(const std::shared_ptr<model::CodePane>& pane) {
  const auto code = codes_.find(pane->Module().get());
  if (code == codes_.end()) return;
  Forget(code);
  if (pane->Module()) vbe_->ClosePane(*pane->Module());
}

void ChildWindows::ClosePane(const model::CodeModule& module) {
  const auto code = codes_.find(&module);
  if (code == codes_.end()) return;
  CodeWindow* const window = code->second;
  Forget(code);
  window->OnClosed = nullptr;
  window->parentWidget()->close();
}

void ChildWindows::CloseGone() {
  std::set<const model::VBComponent*> there;
  for (const auto& project : vbe_->Projects().All()) {
    for (const auto& component : project->Components().All()) there.insert(component.get());
  }
  for (const auto& [component, view] : std::map(designers_)) {
    if (there.count(component) == 0) {
      view->parentWidget()->close();
    } else {
      view->setWindowTitle(DesignTitle(*component));
    }
  }
  if (toolDepth_ == 0) shelf_.DropGone();  // a tool's edits are still open in them
  for (const auto& [module, code] : codes_) {
    const auto component = code->Component();
    if (component && component->Project()) code->setWindowTitle(CodeTitle(*component));
  }
}

// Looks

void ChildWindows::ApplyOptions() {
  for (const auto& [module, code] : codes_) code->Editor().SetOptions(Options());
}

void ChildWindows::ShowColors() { setBackground(palette().brush(QPalette::Dark)); }

void ChildWindows::changeEvent(QEvent* event) {
  QMdiArea::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ShowColors();
}

// Edits

void ChildWindows::TidyEntered() {
  for (const auto& [module, code] : codes_) code->Editor().TidyEntered();
}

void ChildWindows::RunTool(const std::function<void()>& action) {
  if (toolDepth_++ == 0) {
    TidyEntered();
    for (const auto& [module, code] : codes_) code->TellPane();
  }
  // The dialog is gone from the screen when its run makes its first edit.
  if (!runKind_ && RunUnderWay) runKind_ = RunUnderWay();
  try {
    action();
  } catch (...) {
    EndToolEdits();
    throw;
  }
  EndToolEdits();
}

void ChildWindows::EndToolEdits() {
  if (--toolDepth_ > 0) return;
  const auto edited = std::exchange(grouped_, {});
  for (CodeEditor* const editor : edited) editor->EndGroup();
  if (!edited.empty()) vbe_->OwnWindows().ShowProperties();
  runKind_.reset();
  if (const auto run = std::exchange(run_, nullptr); run && OnRun) OnRun(run);
}

void ChildWindows::LinesChanging(model::CodeModule& module) {
  if (toolDepth_ == 0) return;
  if (runKind_ && !run_) run_ = std::make_shared<review::RunReview>(*runKind_);
  if (run_) run_->Add(module.Component());
  if (EditorOf(module) != nullptr) return;
  shelf_.Put(module.shared_from_this(), Options());
  if (CodeEditor* const editor = shelf_.Find(module)) WatchSavePoint(*editor);
}

void ChildWindows::LinesChanged(model::CodeModule& module, int line, int removed, int added) {
  CodeEditor* const editor = EditorOf(module);
  if (editor == nullptr) return;
  if (toolDepth_ > 0 && !stepping_ && grouped_.insert(editor).second) editor->BeginGroup();
  editor->LinesChanged(line, removed, added);
}

void ChildWindows::SelectionSet(const model::CodePane& pane) {
  if (CodeWindow* const code = CodeOf(*pane.Module())) code->FollowSelection();
}

void ChildWindows::TopLineSet(const model::CodePane& pane) {
  if (CodeWindow* const code = CodeOf(*pane.Module())) code->FollowTopLine();
}

/// The steps of a form that was loaded again lead nowhere.
void ChildWindows::DropStepsOfOldForms(const model::VBComponent& component, DesignerView& view) {
  auto& shown = shownForms_[&view];
  if (shown.lock() == component.OwnDesigner()) return;
  shown = component.OwnDesigner();
  view.UndoStack().clear();
}

void ChildWindows::DesignerChanged(model::VBComponent& component) {
  if (DesignerView* const view = DesignerOf(component)) {
    DropStepsOfOldForms(component, *view);
    view->Refresh();
  }
  CodeWindow* const code = component.Module() ? CodeOf(*component.Module()) : nullptr;
  if (code != nullptr) code->ListsChanged();
}

bool ChildWindows::TakeBack(model::VBComponent& component, const String& before,
                            const String& after) {
  model::CodeModule& module = *component.Module();
  const auto text = [&] {
    const int count = module.Buffer().Count();
    return count == 0 ? String() : module.Buffer().Text(1, count);
  };
  if (text() != after) return false;
  CodeEditor* const editor = EditorOf(module);
  // A tool's step that is open in it can't be left for another one.
  if (editor != nullptr && grouped_.count(editor) == 0) {
    const QScopedValueRollback stepping(stepping_, true);
    if (editor->isUndoAvailable()) {
      editor->undo();
      if (text() == before) return true;
      editor->redo();
    }
    if (editor->isRedoAvailable()) {
      editor->redo();
      if (text() == before) return true;
      editor->undo();
    }
  }
  if (editor != nullptr) editor->BeginGroup();
  const int count = module.Buffer().Count();
  if (count > 0) module.DeleteLines(1, count);
  if (!before.empty()) module.InsertLines(1, before);
  if (editor != nullptr) editor->EndGroup();
  return true;
}

// Back to what the file holds

namespace {

/// Where a line of a text stands after another text has taken its place.
int Moved(int line, const model::LineBuffer& before, const model::LineBuffer& after) {
  const model::CommonLines same = model::CompareEnds(before, after);
  if (line > before.Count() - same.Behind) return line + after.Count() - before.Count();
  return line <= same.Ahead ? line : std::min(line, std::max(1, after.Count() - same.Behind));
}

}  // namespace

void ChildWindows::Reload(const model::VBComponent& component, const std::function<void()>& load) {
  CodeEditor* const editor = EditorOf(*component.Module());
  if (editor == nullptr) return load();
  editor->TidyEntered();
  const model::LineBuffer before = component.Module()->Buffer();
  const host::Selection selected = editor->Selected();
  const int top = editor->TopLine();
  editor->BeginGroup();
  try {
    load();
  } catch (...) {
    editor->EndGroup();
    throw;
  }
  editor->EndGroup();
  const auto moved = [&](int line) { return Moved(line, before, component.Module()->Buffer()); };
  editor->Select({moved(selected.StartLine), selected.StartColumn, moved(selected.EndLine),
                  selected.EndColumn});
  editor->SetTopLine(moved(top));
  NoteSaved(*editor);
}

void ChildWindows::NoteSaved(CodeEditor& editor) {
  if (editor.Module()->IsModified()) return;
  editor.setModified(false);
  saved_.insert(&editor);
}

void ChildWindows::NoteSaved() {
  for (const auto& [module, code] : codes_) NoteSaved(code->Editor());
  shelf_.ForEach([this](CodeEditor& editor) { NoteSaved(editor); });
  for (const auto& [component, view] : designers_) {
    if (!component->OwnDesigner()->Tree().IsModified()) view->UndoStack().setClean();
  }
}

void ChildWindows::WatchSavePoint(CodeEditor& editor) {
  NoteSaved(editor);
  connect(&editor, &QsciScintillaBase::SCN_SAVEPOINTREACHED, this, [this, watched = &editor] {
    if (saved_.count(watched) == 0 || !watched->Module()->IsModified()) return;
    watched->Module()->SetModified(false);
    if (OnUnchanged) OnUnchanged();
  });
  connect(&editor, &QObject::destroyed, this, [this, watched = &editor] { saved_.erase(watched); });
}

void ChildWindows::WatchSavePoint(DesignerView& view) {
  connect(&view.UndoStack(), &QUndoStack::cleanChanged, this,
          [this, component = view.Component()](bool clean) {
            const auto file =
                std::dynamic_pointer_cast<workspace::ComponentFile>(component->Storage());
            if (!clean || !file || file->IsNew()) return;
            // Other hands than the user's may have changed the form as well.
            const auto stored = file->LoadDesigner();
            auto& tree = component->OwnDesigner()->Tree();
            if (!stored || stored->Text() != tree.Text()) return;
            tree.SetModified(false);
            if (OnUnchanged) OnUnchanged();
          });
}

}  // namespace tessel::workbench
