#include "forms/Controls.h"

#include <algorithm>

#include "forms/Surface.h"
#include "vb/Failure.h"

namespace tessel::forms {
namespace {

void Start(Control& control, const Init& init) {
  control.SetToolTipText(init.ToolTipText);
  control.SetEnabled(init.Enabled);
  control.SetVisible(init.Visible);
}

[[noreturn]] void InvalidValue(const Control& control) {
  throw vb::Failure(380, u"Invalid property value: " + control.Name());
}

}  // namespace

CaptionedControl::CaptionedControl(Surface* owner, std::string_view name, const Init& init)
    : Control(owner, name), caption_(this, init.Caption) {
  Start(*this, init);
}

Label::Label(Surface* owner, std::string_view name, const Init& init)
    : CaptionedControl(owner, name, init) {}

Panel::Panel(Surface* owner, std::string_view name, const Init& init)
    : CaptionedControl(owner, name, init) {}

Button::Button(Surface* owner, std::string_view name, const Init& init)
    : CaptionedControl(owner, name, init) {}

DropDownButton::DropDownButton(Surface* owner, std::string_view name, const Init& init)
    : CaptionedControl(owner, name, init) {}

void DropDownButton::AddItem(StringView key, StringView text) {
  items_.InPlace().push_back({String(key), String(text)});
  Changed();
}

void DropDownButton::ClearItems() { items_ = {}; }

void TwoState::SetValue(int value) {
  if (value != 0 && value != 1) InvalidValue(*this);
  if (value_.Set(value)) Raise(*this, Click);
}

OptionButton::OptionButton(Surface* owner, std::string_view name, int group, const Init& init)
    : CaptionedControl(owner, name, init), group_(group) {}

void OptionButton::SetValue(bool value) {
  if (!value_.Set(value) || !value) return;
  for (Control* control : Owner().Controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other != nullptr && other != this && other->group_ == group_) other->SetValue(false);
  }
  Raise(*this, Click);
}

TextBox::TextBox(Surface* owner, std::string_view name, const Init& init)
    : Control(owner, name), text_(this, init.Text) {
  Start(*this, init);
}

void TextBox::SetText(StringView text) {
  if (text_.Set(String(text))) Raise(*this, Change);
}

ListControl::ListControl(Surface* owner, std::string_view name, const Init& init)
    : Control(owner, name) {
  Start(*this, init);
}

void ListControl::AddItem(StringView text) {
  list_.InPlace().emplace_back(text);
  Changed();
}

void ListControl::RemoveItem(int index) {
  if (index < 0 || index >= static_cast<int>(list_->size())) {
    throw vb::RuntimeFailure(vb::InvalidCall);
  }
  list_.InPlace().erase(list_->begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    listIndex_ = listIndex_ - 1;
  }
  Changed();
}

void ListControl::Clear() {
  list_ = {};
  listIndex_ = -1;
}

void ListControl::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(list_->size())) InvalidValue(*this);
  if (listIndex_.Set(index)) Raise(*this, Click);
}

String ListControl::Text() const {
  return listIndex_ < 0 ? String() : (*list_)[static_cast<std::size_t>(listIndex_)];
}

ListBox::ListBox(Surface* owner, std::string_view name, const Init& init)
    : ListControl(owner, name, init) {}

ComboBox::ComboBox(Surface* owner, std::string_view name, Style style, const Init& init)
    : ListControl(owner, name, init), style_(style), text_(this, init.Text) {}

String ComboBox::Text() const { return style_ == Style::List ? ListControl::Text() : *text_; }

void ComboBox::SetText(StringView text) {
  if (style_ == Style::List) {
    const auto found = std::find(list_->begin(), list_->end(), text);
    if (found == list_->end()) throw vb::Failure(383, u"'Text' property is read-only: " + Name());
    SetListIndex(static_cast<int>(found - list_->begin()));
    return;
  }
  if (*text_ == text) return;
  listIndex_ = -1;
  text_ = String(text);
  Raise(*this, Change);
}

void ComboBox::Clear() {
  text_ = String();
  ListControl::Clear();
}

void ComboBox::SetListIndex(int index) {
  if (style_ == Style::Editable && index >= 0 && index < static_cast<int>(list_->size())) {
    text_ = (*list_)[static_cast<std::size_t>(index)];
  } else if (index == -1 && ListIndex() != -1) {
    text_ = String();  // the item's text goes with it; typed text has no item and stays
  }
  ListControl::SetListIndex(index);
}

TabControl::TabControl(Surface* owner, std::string_view name, std::vector<Page> pages, Style style)
    : Control(owner, name), pages_(std::move(pages)), style_(style) {}

void TabControl::SetCurrTab(int index) {
  if (index < 0 || index >= static_cast<int>(pages_.size())) InvalidValue(*this);
  if (current_.Set(index)) Raise(*this, Switch);
}

SpinButton::SpinButton(Surface* owner, std::string_view name, int min, int max)
    : Control(owner, name), min_(min), max_(max), value_(this, min) {}

void SpinButton::SetValue(int value) {
  if (value_.Set(std::clamp(value, min_, max_))) Raise(*this, Change);
}

ProgressBar::ProgressBar(Surface* owner, std::string_view name) : Control(owner, name) {}

PictureBox::PictureBox(Surface* owner, std::string_view name, int picture)
    : Control(owner, name), picture_(this, picture) {}

}  // namespace tessel::forms
