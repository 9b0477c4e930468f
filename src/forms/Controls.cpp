#include "forms/Controls.h"

#include <algorithm>

#include "forms/Form.h"
#include "vb/Failure.h"

namespace tessel::forms {
namespace {

void Start(Control& control, const Init& init) {
  control.SetToolTipText(init.ToolTipText);
  control.SetEnabled(init.Enabled);
  control.SetVisible(init.Visible);
}

void Raise(const std::function<void()>& event) {
  // A handler may replace itself or drop the form; it runs on a copy.
  if (const auto handler = event) handler();
}

[[noreturn]] void InvalidValue(const Control& control) {
  throw vb::Failure(380, u"Invalid property value: " + control.Name());
}

}  // namespace

CaptionedControl::CaptionedControl(Form* owner, std::string_view name, const Init& init)
    : Control(owner, name), caption_(init.Caption) {
  Start(*this, init);
}

void CaptionedControl::SetCaption(StringView caption) {
  caption_ = caption;
  Changed();
}

void CaptionedControl::SaveDesign() {
  Control::SaveDesign();
  designCaption_ = caption_;
}

void CaptionedControl::RestoreDesign() {
  Control::RestoreDesign();
  caption_ = designCaption_;
}

Label::Label(Form* owner, std::string_view name, const Init& init)
    : CaptionedControl(owner, name, init) {}

Button::Button(Form* owner, std::string_view name, const Init& init)
    : CaptionedControl(owner, name, init) {}

DropDownButton::DropDownButton(Form* owner, std::string_view name, const Init& init)
    : CaptionedControl(owner, name, init) {}

void DropDownButton::AddItem(StringView key, StringView text) {
  items_.push_back({String(key), String(text)});
  Changed();
}

void DropDownButton::ClearItems() {
  items_.clear();
  Changed();
}

void DropDownButton::SaveDesign() {
  CaptionedControl::SaveDesign();
  designItems_ = items_;
}

void DropDownButton::RestoreDesign() {
  CaptionedControl::RestoreDesign();
  items_ = designItems_;
}

CheckBox::CheckBox(Form* owner, std::string_view name, const Init& init)
    : CaptionedControl(owner, name, init) {}

void CheckBox::SetValue(int value) {
  if (value != 0 && value != 1) InvalidValue(*this);
  if (value_ == value) return;
  value_ = value;
  Changed();
  Raise(Click);
}

void CheckBox::SaveDesign() {
  CaptionedControl::SaveDesign();
  designValue_ = value_;
}

void CheckBox::RestoreDesign() {
  CaptionedControl::RestoreDesign();
  value_ = designValue_;
}

OptionButton::OptionButton(Form* owner, std::string_view name, int group, const Init& init)
    : CaptionedControl(owner, name, init), group_(group) {}

void OptionButton::SetValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  Changed();
  if (!value) return;
  for (Control* control : Owner().Controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other != nullptr && other != this && other->group_ == group_) other->SetValue(false);
  }
  Raise(Click);
}

void OptionButton::SaveDesign() {
  CaptionedControl::SaveDesign();
  designValue_ = value_;
}

void OptionButton::RestoreDesign() {
  CaptionedControl::RestoreDesign();
  value_ = designValue_;
}

TextBox::TextBox(Form* owner, std::string_view name, const Init& init)
    : Control(owner, name), text_(init.Text) {
  Start(*this, init);
}

void TextBox::SetText(StringView text) {
  if (text_ == text) return;
  text_ = text;
  Changed();
  Raise(Change);
}

void TextBox::SaveDesign() {
  Control::SaveDesign();
  designText_ = text_;
}

void TextBox::RestoreDesign() {
  Control::RestoreDesign();
  text_ = designText_;
}

ListControl::ListControl(Form* owner, std::string_view name, const Init& init)
    : Control(owner, name) {
  Start(*this, init);
}

void ListControl::AddItem(StringView text) {
  list_.emplace_back(text);
  Changed();
}

void ListControl::RemoveItem(int index) {
  if (index < 0 || index >= static_cast<int>(list_.size())) {
    throw vb::RuntimeFailure(vb::InvalidCall);
  }
  list_.erase(list_.begin() + index);
  if (listIndex_ == index) {
    listIndex_ = -1;
  } else if (listIndex_ > index) {
    --listIndex_;
  }
  Changed();
}

void ListControl::Clear() {
  list_.clear();
  listIndex_ = -1;
  Changed();
}

void ListControl::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(list_.size())) InvalidValue(*this);
  if (listIndex_ == index) return;
  listIndex_ = index;
  Changed();
  Raise(Click);
}

String ListControl::Text() const {
  return listIndex_ < 0 ? String() : list_[static_cast<std::size_t>(listIndex_)];
}

void ListControl::SaveDesign() {
  Control::SaveDesign();
  designList_ = list_;
  designListIndex_ = listIndex_;
}

void ListControl::RestoreDesign() {
  Control::RestoreDesign();
  list_ = designList_;
  listIndex_ = designListIndex_;
}

ListBox::ListBox(Form* owner, std::string_view name, const Init& init)
    : ListControl(owner, name, init) {}

ComboBox::ComboBox(Form* owner, std::string_view name, Style style, const Init& init)
    : ListControl(owner, name, init), style_(style), text_(init.Text) {}

String ComboBox::Text() const { return style_ == Style::List ? ListControl::Text() : text_; }

void ComboBox::SetText(StringView text) {
  if (style_ == Style::List) {
    const auto found = std::find(list_.begin(), list_.end(), text);
    if (found == list_.end()) throw vb::Failure(383, u"'Text' property is read-only: " + Name());
    SetListIndex(static_cast<int>(found - list_.begin()));
    return;
  }
  if (text_ == text) return;
  text_ = text;
  listIndex_ = -1;
  Changed();
  Raise(Change);
}

void ComboBox::Clear() {
  text_.clear();
  ListControl::Clear();
}

void ComboBox::SetListIndex(int index) {
  if (style_ == Style::Editable && index >= 0 && index < static_cast<int>(list_.size())) {
    text_ = list_[static_cast<std::size_t>(index)];
  } else if (index == -1 && ListIndex() != -1) {
    text_.clear();  // the item's text goes with it; typed text has no item and stays
  }
  ListControl::SetListIndex(index);
}

void ComboBox::SaveDesign() {
  ListControl::SaveDesign();
  designText_ = text_;
}

void ComboBox::RestoreDesign() {
  ListControl::RestoreDesign();
  text_ = designText_;
}

TabControl::TabControl(Form* owner, std::string_view name, std::vector<Page> pages)
    : Control(owner, name), pages_(std::move(pages)) {}

void TabControl::SetCurrTab(int index) {
  if (index < 0 || index >= static_cast<int>(pages_.size())) InvalidValue(*this);
  if (current_ == index) return;
  current_ = index;
  Changed();
  Raise(Switch);
}

void TabControl::SaveDesign() {
  Control::SaveDesign();
  designCurrent_ = current_;
}

void TabControl::RestoreDesign() {
  Control::RestoreDesign();
  current_ = designCurrent_;
}

SpinButton::SpinButton(Form* owner, std::string_view name, int min, int max)
    : Control(owner, name), min_(min), max_(max), value_(min), designValue_(min) {}

void SpinButton::SetValue(int value) {
  const int bounded = std::clamp(value, min_, max_);
  if (value_ == bounded) return;
  value_ = bounded;
  Changed();
  Raise(Change);
}

void SpinButton::SaveDesign() {
  Control::SaveDesign();
  designValue_ = value_;
}

void SpinButton::RestoreDesign() {
  Control::RestoreDesign();
  value_ = designValue_;
}

ProgressBar::ProgressBar(Form* owner, std::string_view name) : Control(owner, name) {}

void ProgressBar::SetValue(double percent) {
  value_ = std::clamp(percent, 0.0, 100.0);
  Changed();
}

void ProgressBar::SaveDesign() {
  Control::SaveDesign();
  designValue_ = value_;
}

void ProgressBar::RestoreDesign() {
  Control::RestoreDesign();
  value_ = designValue_;
}

PictureBox::PictureBox(Form* owner, std::string_view name, int picture)
    : Control(owner, name), picture_(picture), designPicture_(picture) {}

void PictureBox::SetPicture(int picture) {
  picture_ = picture;
  Changed();
}

void PictureBox::SaveDesign() {
  Control::SaveDesign();
  designPicture_ = picture_;
}

void PictureBox::RestoreDesign() {
  Control::RestoreDesign();
  picture_ = designPicture_;
}

}  // namespace tessel::forms
