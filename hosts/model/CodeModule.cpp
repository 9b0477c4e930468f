#include "hosts/model/CodeModule.h"

#include <algorithm>

#include "hosts/model/Component.h"
#include "hosts/model/Vbe.h"
#include "vb/Failure.h"

namespace tessel::model {
namespace {

constexpr std::int32_t NoSuchProcedure = 35;

}  // namespace

CodeModule::CodeModule(Hook hook, const std::shared_ptr<VBComponent>& component,
                       std::function<LineBuffer()> load)
    : hook_(std::move(hook)), component_(component), load_(std::move(load)) {}

LineBuffer& CodeModule::Text() {
  if (!buffer_) buffer_ = load_ ? load_() : LineBuffer();
  return *buffer_;
}

const LineBuffer& CodeModule::Buffer() { return Text(); }

const LineBuffer& CodeModule::SettledBuffer() {
  if (keeper_) keeper_->Settle();
  return Text();
}

MemberIndex& CodeModule::Index() {
  if (!index_) index_.emplace(Text());
  return *index_;
}

std::shared_ptr<host::VBComponent> CodeModule::Parent() {
  (*hook_)("CodeModule.Parent");
  return component_.lock();
}

std::shared_ptr<host::VBE> CodeModule::VBE() {
  (*hook_)("CodeModule.VBE");
  const auto component = component_.lock();
  return component ? component->Environment() : nullptr;
}

String CodeModule::Name() {
  (*hook_)("CodeModule.Name");
  const auto component = component_.lock();
  return component ? component->PlainName() : String();
}

String CodeModule::Lines(int startLine, int count) {
  (*hook_)("CodeModule.Lines");
  if (startLine < 1 || count < 0) throw vb::RuntimeFailure(vb::SubscriptOutOfRange);
  const int there = Text().Count() - startLine + 1;
  return there <= 0 ? String() : Text().Text(startLine, std::min(count, there));
}

int CodeModule::CountOfLines() {
  (*hook_)("CodeModule.CountOfLines");
  return Text().Count();
}

void CodeModule::InsertLines(int line, StringView text) {
  (*hook_)("CodeModule.InsertLines");
  if (line < 1) throw vb::RuntimeFailure(vb::SubscriptOutOfRange);
  const int at = std::min(line, Text().Count() + 1);
  Changing();
  const int added = keeper_->Insert(at, text);
  Changed(at, 0, added);
}

void CodeModule::DeleteLines(int startLine, int count) {
  (*hook_)("CodeModule.DeleteLines");
  if (startLine < 1 || count < 0 || count > Text().Count() - startLine + 1) {
    throw vb::RuntimeFailure(vb::SubscriptOutOfRange);
  }
  if (count == 0) return;
  Changing();
  keeper_->Delete(startLine, count);
  Changed(startLine, count, 0);
}

void CodeModule::ReplaceLine(int line, StringView text) {
  (*hook_)("CodeModule.ReplaceLine");
  if (line < 1 || line > Text().Count()) throw vb::RuntimeFailure(vb::SubscriptOutOfRange);
  Edit(line, 1, text);
}

void CodeModule::Edit(int line, int count, StringView text) {
  Changing();
  const int added = keeper_->Replace(line, count, text);
  Changed(line, count, added);
}

void CodeModule::Reload(LineBuffer lines) {
  // What is alike at both ends didn't change for anybody who looks on.
  const CommonLines same = CompareEnds(Text(), lines);
  const int removed = Text().Count() - same.Ahead - same.Behind;
  const int added = lines.Count() - same.Ahead - same.Behind;
  Changing();
  *buffer_ = std::move(lines);
  keeper_->Forget();
  if (removed > 0 || added > 0) {
    index_->Edited(same.Ahead + 1, removed, added);
    Changed(same.Ahead + 1, removed, added);
  }
  modified_ = false;
}

/// The index must know the lines as they were.
void CodeModule::Changing() {
  Index();
  if (!keeper_) keeper_.emplace(*buffer_, *index_);
  hook_->Tell(&Observer::LinesChanging, *this);
}

void CodeModule::Changed(int line, int removed, int added) {
  modified_ = true;
  ++revision_;
  hook_->Tell(&Observer::LinesChanged, *this, line, removed, added);
}

const MemberIndex::Span& CodeModule::SpanOf(StringView name, host::vbext_ProcKind kind) {
  const MemberIndex::Span* const span = Index().Find(name, kind);
  if (span == nullptr) {
    throw vb::Failure(NoSuchProcedure, u"Sub or Function not defined: " + String(name), u"VBIDE");
  }
  return *span;
}

bool CodeModule::MayHaveProc(StringView name, host::vbext_ProcKind kind) {
  return Index().Find(name, kind) != nullptr;
}

int CodeModule::ProcStartLine(StringView name, host::vbext_ProcKind kind) {
  (*hook_)("CodeModule.ProcStartLine");
  return SpanOf(name, kind).Start;
}

int CodeModule::ProcCountLines(StringView name, host::vbext_ProcKind kind) {
  (*hook_)("CodeModule.ProcCountLines");
  return SpanOf(name, kind).Count;
}

int CodeModule::ProcBodyLine(StringView name, host::vbext_ProcKind kind) {
  (*hook_)("CodeModule.ProcBodyLine");
  return SpanOf(name, kind).Body;
}

String CodeModule::ProcOfLine(int line, host::vbext_ProcKind& kind) {
  (*hook_)("CodeModule.ProcOfLine");
  return Index().ProcOfLine(line, kind);
}

int CodeModule::CountOfDeclarationLines() {
  (*hook_)("CodeModule.CountOfDeclarationLines");
  return Index().CountOfDeclarationLines();
}

std::shared_ptr<host::CodePane> CodeModule::CodePane() {
  (*hook_)("CodeModule.CodePane");
  return OwnPane();
}

std::shared_ptr<model::CodePane> CodeModule::OwnPane() {
  if (auto pane = pane_.lock()) {
    pane->Reopen();
    return pane;
  }
  const auto component = component_.lock();
  const auto vbe = component ? component->Environment() : nullptr;
  if (!vbe) throw vb::RuntimeFailure(vb::ObjectNotSet);
  auto pane = std::make_shared<model::CodePane>(
      hook_, shared_from_this(),
      vbe->OwnWindows().Create(u"VbaWindow", CodePane::CaptionOf(*component)));
  pane_ = pane;
  vbe->KeepPane(pane);
  pane->OwnWindow().Announce();
  return pane;
}

CodePane::CodePane(Hook hook, const std::shared_ptr<model::CodeModule>& module,
                   std::shared_ptr<model::Window> window)
    : hook_(std::move(hook)), module_(module), window_(std::move(window)) {}

String CodePane::CaptionOf(const VBComponent& component) {
  return component.PlainName() + u" (Code)";
}

void CodePane::Reopen() {
  if (window_->IsOpen()) return;
  const auto module = module_.lock();
  const auto component = module ? module->Component() : nullptr;
  const auto vbe = component ? component->Environment() : nullptr;
  if (!vbe) throw vb::RuntimeFailure(vb::ObjectNotSet);
  window_ = vbe->OwnWindows().Create(u"VbaWindow", CaptionOf(*component));
  vbe->KeepPane(shared_from_this());
  window_->Announce();
}

std::shared_ptr<host::Window> CodePane::Window() {
  (*hook_)("CodePane.Window");
  return window_;
}

int CodePane::ClampLine(int line) const {
  const auto module = module_.lock();
  return std::clamp(line, 1, module ? std::max(1, module->Buffer().Count()) : 1);
}

/// A place past the last line is the end of the text.
void CodePane::Clamp(int& line, int& column) const {
  const auto module = module_.lock();
  const int count = module ? module->Buffer().Count() : 0;
  const bool past = line > count;
  line = ClampLine(line);
  const int length = count == 0 ? 0 : static_cast<int>(module->Buffer().Line(line).size());
  column = past ? length + 1 : std::clamp(column, 1, length + 1);
}

host::Selection CodePane::GetSelection() {
  (*hook_)("CodePane.GetSelection");
  // The text may have changed since.
  Clamp(selection_.StartLine, selection_.StartColumn);
  Clamp(selection_.EndLine, selection_.EndColumn);
  return selection_;
}

void CodePane::SetSelection(const host::Selection& selection) {
  (*hook_)("CodePane.SetSelection");
  selection_ = selection;
  Clamp(selection_.StartLine, selection_.StartColumn);
  Clamp(selection_.EndLine, selection_.EndColumn);
  hook_->Tell(&Observer::SelectionSet, *this);
}

int CodePane::TopLine() {
  (*hook_)("CodePane.TopLine");
  return ClampLine(topLine_);
}

void CodePane::SetTopLine(int line) {
  (*hook_)("CodePane.TopLine");
  topLine_ = ClampLine(line);
  hook_->Tell(&Observer::TopLineSet, *this);
}

void CodePane::Follow(const host::Selection& selection, int topLine) {
  selection_ = selection;
  topLine_ = topLine;
}

std::shared_ptr<host::CodeModule> CodePane::CodeModule() {
  (*hook_)("CodePane.CodeModule");
  return module_.lock();
}

void CodePane::Show() {
  (*hook_)("CodePane.Show");
  const auto module = module_.lock();
  const auto component = module ? module->Component() : nullptr;
  if (!component || !component->Environment()) throw vb::RuntimeFailure(vb::ObjectNotSet);
  component->Environment()->BringToFront(shared_from_this());
}

}  // namespace tessel::model
