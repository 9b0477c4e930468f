#include "hosts/model/CommandBars.h"

#include <algorithm>

#include "vb/Failure.h"

namespace tessel::model {
namespace {

[[noreturn]] void Missing(StringView what, StringView name) {
  throw vb::Failure(vb::InvalidCall, u"There is no " + String(what) + u" \"" + String(name) + u"\"",
                    u"VBIDE");
}

/// Captions are the same without their access keys.
String WithoutKeys(StringView caption) { return vb::Replace(caption, u"&", u""); }

}  // namespace

CommandBarControl::CommandBarControl(const BarContext& context, host::MsoControlType type)
    : context_(context), type_(type) {
  if (type == host::msoControlPopup) controls_ = std::make_shared<CommandBarControls>(context);
}

void CommandBarControl::SetCaption(StringView caption) {
  (*context_.Hook)("CommandBarControl.Caption");
  caption_ = caption;
  context_.Hook->Tell(&Observer::BarsChanged);
}

void CommandBarControl::SetBeginGroup(bool value) {
  (*context_.Hook)("CommandBarControl.BeginGroup");
  beginGroup_ = value;
  context_.Hook->Tell(&Observer::BarsChanged);
}

bool CommandBarControl::Enabled() {
  (*context_.Hook)("CommandBarControl.Enabled");
  return enabled_ && (!IsUsable || IsUsable());
}

void CommandBarControl::SetEnabled(bool value) {
  (*context_.Hook)("CommandBarControl.Enabled");
  enabled_ = value;
  context_.Hook->Tell(&Observer::BarsChanged);
}

void CommandBarControl::SetVisible(bool value) {
  (*context_.Hook)("CommandBarControl.Visible");
  visible_ = value;
  context_.Hook->Tell(&Observer::BarsChanged);
}

String CommandBarControl::OnAction() {
  (*context_.Hook)("CommandBarControl.OnAction");
  return onAction_;
}

void CommandBarControl::SetOnAction(StringView text) {
  (*context_.Hook)("CommandBarControl.OnAction");
  onAction_ = text;
}

void CommandBarControl::SetStyle(int style) {
  (*context_.Hook)("CommandBarControl.Style");
  style_ = style;
}

void CommandBarControl::SetFaceId(int face) {
  (*context_.Hook)("CommandBarControl.FaceId");
  faceId_ = face;
  context_.Hook->Tell(&Observer::BarsChanged);
}

void CommandBarControl::PasteFace() {
  (*context_.Hook)("CommandBarControl.PasteFace");
  const int picture = context_.Services->Clipboard().GetPicture();
  if (picture == 0) {
    throw vb::Failure(vb::InvalidCall, u"There is no picture on the clipboard", u"VBIDE");
  }
  picture_ = picture;
  context_.Hook->Tell(&Observer::BarsChanged);
}

void CommandBarControl::Execute() {
  (*context_.Hook)("CommandBarControl.Execute");
  const auto self = shared_from_this();
  const bool cancelled = context_.Events->Clicked(self);
  if (const auto command = Command; command && !cancelled) command();
}

std::shared_ptr<host::CommandBarControls> CommandBarControl::Controls() {
  (*context_.Hook)("CommandBarControl.Controls");
  return controls_;
}

int CommandBarControls::Count() {
  (*context_.Hook)("CommandBarControls.Count");
  return static_cast<int>(items_.size());
}

std::shared_ptr<host::CommandBarControl> CommandBarControls::Item(int index) {
  (*context_.Hook)("CommandBarControls.Item");
  if (index < 1 || index > static_cast<int>(items_.size())) Missing(u"control", vb::Str(index));
  return items_[static_cast<std::size_t>(index) - 1];
}

std::shared_ptr<host::CommandBarControl> CommandBarControls::Item(StringView caption) {
  (*context_.Hook)("CommandBarControls.Item");
  const String wanted = WithoutKeys(caption);
  for (const auto& item : items_) {
    if (vb::SameText(WithoutKeys(item->PlainCaption()), wanted)) return item;
  }
  Missing(u"control", caption);
}

std::shared_ptr<host::CommandBarControl> CommandBarControls::Add(host::MsoControlType type,
                                                                 std::optional<int> before, bool) {
  (*context_.Hook)("CommandBarControls.Add");
  const int end = static_cast<int>(items_.size()) + 1;
  const int place = before.value_or(end);
  if (place < 1 || place > end) Missing(u"place", vb::Str(place));
  auto control = std::make_shared<CommandBarControl>(context_, type);
  items_.insert(items_.begin() + (place - 1), control);
  context_.Hook->Tell(&Observer::BarsChanged);
  return control;
}

std::shared_ptr<CommandBarControl> CommandBarControls::AddOwn(host::MsoControlType type,
                                                              StringView caption) {
  auto control = std::make_shared<CommandBarControl>(context_, type);
  control->SetCaption(caption);
  items_.push_back(control);
  return control;
}

CommandBar::CommandBar(const BarContext& context, CommandBars* owner, StringView name, int position)
    : context_(context),
      owner_(owner),
      name_(name),
      controls_(std::make_shared<CommandBarControls>(context)),
      position_(position) {}

void CommandBar::Put(const char* operation, int& field, int value) const {
  (*context_.Hook)(operation);
  field = value;
  context_.Hook->Tell(&Observer::BarsChanged);
}

void CommandBar::SetVisible(bool value) {
  (*context_.Hook)("CommandBar.Visible");
  visible_ = value;
  context_.Hook->Tell(&Observer::BarsChanged);
}

void CommandBar::Delete() {
  (*context_.Hook)("CommandBar.Delete");
  owner_->Remove(this);
}

int CommandBars::Count() {
  (*context_.Hook)("CommandBars.Count");
  return static_cast<int>(bars_.size());
}

std::shared_ptr<host::CommandBar> CommandBars::Item(int index) {
  (*context_.Hook)("CommandBars.Item");
  if (index < 1 || index > static_cast<int>(bars_.size())) Missing(u"command bar", vb::Str(index));
  return bars_[static_cast<std::size_t>(index) - 1];
}

std::shared_ptr<host::CommandBar> CommandBars::Item(StringView name) {
  (*context_.Hook)("CommandBars.Item");
  for (const auto& bar : bars_) {
    if (vb::SameText(bar->PlainName(), name)) return bar;
  }
  Missing(u"command bar", name);
}

std::shared_ptr<host::CommandBar> CommandBars::Add(StringView name, int position, bool) {
  (*context_.Hook)("CommandBars.Add");
  for (const auto& bar : bars_) {
    if (vb::SameText(bar->PlainName(), name)) {
      throw vb::Failure(vb::InvalidCall,
                        u"There is a command bar \"" + String(name) + u"\" already", u"VBIDE");
    }
  }
  bars_.push_back(std::make_shared<CommandBar>(context_, this, name, position));
  context_.Hook->Tell(&Observer::BarsChanged);
  return bars_.back();
}

std::shared_ptr<CommandBar> CommandBars::AddOwn(StringView name) {
  bars_.push_back(std::make_shared<CommandBar>(context_, this, name, host::msoBarTop));
  bars_.back()->SetVisible(true);
  return bars_.back();
}

void CommandBars::Remove(const CommandBar* bar) {
  std::erase_if(bars_, [&](const auto& one) { return one.get() == bar; });
  context_.Hook->Tell(&Observer::BarsChanged);
}

}  // namespace tessel::model
