#include "hosts/workbench/window/CodeWindow.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "hosts/workbench/platform/Text.h"
#include "hosts/workbench/window/ControlEvents.h"

namespace tessel::workbench {
namespace {

constexpr int ListDelayMs = 200;

}  // namespace

CodeWindow::CodeWindow(const std::shared_ptr<model::CodePane>& pane, const EditorOptions& options,
                       CodeEditor* editor)
    : pane_(pane),
      editor_(editor != nullptr ? editor : new CodeEditor(pane->Module(), options, this)),
      objectBox_(new ListOnDemand(this)),
      procedureBox_(new ListOnDemand(this)) {
  if (editor != nullptr) editor->SetOptions(options);
  Build();
  editor_->Select(pane->GetSelection());
  editor_->SetTopLine(pane->TopLine());
  editor_->OnMoved = [this] { Moved(); };
  editor_->OnChanged = [this] { ListsChanged(); };
  listTimer_.setSingleShot(true);
  listTimer_.setInterval(ListDelayMs);
  connect(&listTimer_, &QTimer::timeout, this, [this] { ShowPlace(); });
  connect(objectBox_, &QComboBox::activated, this, [this](int index) { PickObject(index); });
  connect(procedureBox_, &QComboBox::activated, this, [this](int index) { PickProcedure(index); });
  ShowPlace();
}

CodeWindow::~CodeWindow() = default;

void CodeWindow::Build() {
  objectBox_->setObjectName(QStringLiteral("objects"));
  procedureBox_->setObjectName(QStringLiteral("procedures"));
  for (ListOnDemand* const box : {objectBox_, procedureBox_}) {
    box->BeforePopup = [this] { ReadLists(); };
    box->setMaxVisibleItems(25);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    box->setFocusPolicy(Qt::ClickFocus);
  }
  objectBox_->setToolTip(tr("Object"));
  procedureBox_->setToolTip(tr("Procedure"));
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(2);
  auto* const boxes = new QHBoxLayout;
  boxes->setSpacing(2);
  boxes->addWidget(objectBox_);
  boxes->addWidget(procedureBox_);
  column->addLayout(boxes);
  column->addWidget(editor_, 1);
  setFocusProxy(editor_);
}

std::shared_ptr<model::VBComponent> CodeWindow::Component() const {
  return pane_->Module() ? pane_->Module()->Component() : nullptr;
}

void CodeWindow::FollowSelection() { editor_->Select(pane_->GetSelection()); }

void CodeWindow::FollowTopLine() { editor_->SetTopLine(pane_->TopLine()); }

void CodeWindow::ListsChanged() {
  listsStale_ = true;
  listTimer_.start();
}

void CodeWindow::Moved() {
  TellPane();
  if (!listTimer_.isActive()) listTimer_.start();
  if (OnMoved) OnMoved();
}

/// Whether the lists show a member already, as they do while the user types inside it.
bool CodeWindow::ShowsMember(StringView member, host::vbext_ProcKind kind) const {
  const int shown = procedureBox_->currentIndex();
  if (shown < 0 || shown >= static_cast<int>(procedures_.size())) return false;
  const CodeProcedure& procedure = procedures_[static_cast<std::size_t>(shown)];
  return procedure.Line > 0 && procedure.Kind == kind && vb::SameText(procedure.Member, member);
}

void CodeWindow::ShowPlace() {
  const auto component = Component();
  if (!component) return;
  host::vbext_ProcKind kind{};
  const int line = editor_->Selected().StartLine;
  if (!ShowsMember(component->Module()->Index().ProcOfLine(line, kind), kind)) ReadLists();
}

void CodeWindow::ReadLists() {
  const auto component = Component();
  if (!component) return;
  host::vbext_ProcKind kind{};
  const int line = editor_->Selected().StartLine;
  const String member = component->Module()->Index().ProcOfLine(line, kind);
  if (std::exchange(listsStale_, false)) {
    objects_ = ObjectsOf(*component);
    objectBox_->clear();
    for (const CodeObject& object : objects_) {
      objectBox_->addItem(object.Name.empty() ? tr("(General)") : ToQt(object.Name));
    }
    procedures_.clear();
    objectBox_->setCurrentIndex(-1);
  }
  const std::size_t object = member.empty() ? 0 : ObjectOfMember(objects_, member);
  if (objectBox_->currentIndex() != static_cast<int>(object) || procedures_.empty()) {
    objectBox_->setCurrentIndex(static_cast<int>(object));
    FillProcedures(object);
  }
  const auto at = std::find_if(procedures_.begin(), procedures_.end(), [&](const auto& one) {
    return one.Line > 0 && one.Kind == kind && vb::SameText(one.Member, member);
  });
  procedureBox_->setCurrentIndex(
      at == procedures_.end() ? -1 : static_cast<int>(at - procedures_.begin()));
}

void CodeWindow::FillProcedures(std::size_t object) {
  const auto component = Component();
  if (!component) return;
  procedures_ = ProceduresOf(*component, objects_, object);
  procedureBox_->clear();
  for (const CodeProcedure& procedure : procedures_) {
    procedureBox_->addItem(ToQt(procedure.Caption));
    // What stands in the module shows in bold.
    if (procedure.Line == 0) continue;
    QFont bold = procedureBox_->font();
    bold.setBold(object > 0);
    procedureBox_->setItemData(procedureBox_->count() - 1, bold, Qt::FontRole);
  }
}

void CodeWindow::PickObject(int index) {
  FillProcedures(static_cast<std::size_t>(index));
  if (procedures_.empty()) return;
  const auto there = std::find_if(procedures_.begin(), procedures_.end(),
                                  [](const CodeProcedure& one) { return one.Line > 0; });
  if (there != procedures_.end()) {
    PickProcedure(static_cast<int>(there - procedures_.begin()));
    return;
  }
  // Without a procedure of its own, an object gets that of its first event.
  const CodeObject object = objects_[static_cast<std::size_t>(index)];
  OpenProcedure(object.Name, {});
}

void CodeWindow::PickProcedure(int index) {
  if (index < 0 || index >= static_cast<int>(procedures_.size())) return;
  const CodeProcedure procedure = procedures_[static_cast<std::size_t>(index)];
  if (procedure.Line == 0) {
    AddProcedure(procedure);
  } else {
    editor_->GoToLine(procedure.Line);
  }
}

void CodeWindow::OpenProcedure(StringView object, StringView event) {
  const auto component = Component();
  if (!component) return;
  objects_ = ObjectsOf(*component);
  const auto found = std::find_if(objects_.begin(), objects_.end(), [&](const CodeObject& one) {
    return vb::SameText(one.Name, object);
  });
  if (found == objects_.end()) return;
  const auto events = EventsOf(found->Class);
  const String wanted = !event.empty()    ? String(event)
                        : !events.empty() ? String(events.front().Name)
                                          : String();
  const auto procedures =
      ProceduresOf(*component, objects_, static_cast<std::size_t>(found - objects_.begin()));
  for (const CodeProcedure& one : procedures) {
    if (!vb::SameText(one.Caption, wanted)) continue;
    if (one.Line > 0) {
      editor_->GoToLine(one.Line);
    } else {
      AddProcedure(one);
    }
    return;
  }
}

void CodeWindow::AddProcedure(const CodeProcedure& procedure) {
  const auto module = pane_->Module();
  const int count = module->Buffer().Count();
  const bool apart = count > 0 && !module->Buffer().Line(count).empty();
  const String text = String(apart ? u"\r\n" : u"") + u"Private Sub " + procedure.Member + u"(" +
                      procedure.Parameters + u")\r\n\r\nEnd Sub";
  editor_->BeginGroup();
  module->InsertLines(count + 1, text);
  editor_->EndGroup();
  editor_->GoToLine(module->Buffer().Count() - 1);
  ListsChanged();
}

void CodeWindow::closeEvent(QCloseEvent* event) {
  editor_->TidyEntered();
  event->accept();
  if (OnClosed) OnClosed();
}

}  // namespace tessel::workbench
