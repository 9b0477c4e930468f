// The plain control kinds. Grid.h and RichTextBox.h hold the two large ones.
#pragma once

#include <algorithm>
#include <vector>

#include "forms/Control.h"

namespace tessel::forms {

/// First values of a control.
struct Init {
  String Caption{};
  String Text{};
  String ToolTipText{};
  bool Enabled = true;
  bool Visible = true;
};

/// A captioned control: "&" ahead of a letter makes it the access key.
class CaptionedControl : public Control {
 public:
  CaptionedControl(Surface* owner, std::string_view name, const Init& init);
  [[nodiscard]] const String& Caption() const { return caption_; }
  void SetCaption(StringView caption) { caption_ = String(caption); }

  /// Number of the program's picture that a button shows in place of its caption, which is its tip
  /// then; 0 for none.
  Designed<int> Picture{this};

 private:
  Designed<String> caption_;
};

class Label : public CaptionedControl {
 public:
  Label(Surface* owner, std::string_view name, const Init& init = {});
  [[nodiscard]] std::string_view Kind() const override { return "Label"; }
  [[nodiscard]] bool TakesFocus() const override { return false; }
};

/// Holds other controls by the layout (`Group`); hidden, it hides them all.
class Panel : public CaptionedControl {
 public:
  Panel(Surface* owner, std::string_view name, const Init& init = {});
  [[nodiscard]] std::string_view Kind() const override { return "Panel"; }
  [[nodiscard]] bool TakesFocus() const override { return false; }
};

class Button : public CaptionedControl {
 public:
  Button(Surface* owner, std::string_view name, const Init& init = {});
  [[nodiscard]] std::string_view Kind() const override { return "Button"; }
  /// Pressed by Enter or by Escape from anywhere on the form.
  Designed<bool> Default{this}, Cancel{this};
  std::function<void()> Click;
};

/// A button with a list of keyed items below it.
class DropDownButton : public CaptionedControl {
 public:
  struct Item {
    String Key;
    String Text;  ///< "-" is a separator
    bool operator==(const Item&) const = default;
  };
  DropDownButton(Surface* owner, std::string_view name, const Init& init = {});
  [[nodiscard]] std::string_view Kind() const override { return "DropDownButton"; }
  [[nodiscard]] const std::vector<Item>& Items() const { return items_; }
  void AddItem(StringView key, StringView text);
  void ClearItems();
  std::function<void()> Click;
  std::function<void(StringView key)> DropdownItemClick;

 private:
  Designed<std::vector<Item>> items_{this};
};

/// Value 0 or 1. Setting another value raises Click.
class TwoState : public CaptionedControl {
 public:
  using CaptionedControl::CaptionedControl;
  [[nodiscard]] int Value() const { return value_; }
  void SetValue(int value);
  std::function<void()> Click;

 private:
  Designed<int> value_{this};
};

class CheckBox : public TwoState {
 public:
  CheckBox(Surface* owner, std::string_view name, const Init& init = {})
      : TwoState(owner, name, init) {}
  [[nodiscard]] std::string_view Kind() const override { return "CheckBox"; }
};

/// A button that stays pressed (1) until it is pressed again.
class ToggleButton : public TwoState {
 public:
  ToggleButton(Surface* owner, std::string_view name, const Init& init = {})
      : TwoState(owner, name, init) {}
  [[nodiscard]] std::string_view Kind() const override { return "ToggleButton"; }
};

/// One of a group: switching it on switches the others of its group off. Click is raised when it
/// goes on.
class OptionButton : public CaptionedControl {
 public:
  /// `group` tells the groups of a form apart.
  OptionButton(Surface* owner, std::string_view name, int group, const Init& init = {});
  [[nodiscard]] std::string_view Kind() const override { return "OptionButton"; }
  [[nodiscard]] bool Value() const { return value_; }
  void SetValue(bool value);
  [[nodiscard]] int Group() const { return group_; }
  std::function<void()> Click;

 private:
  int group_;
  Designed<bool> value_{this};
};

/// Setting another text raises Change.
class TextBox : public Control {
 public:
  TextBox(Surface* owner, std::string_view name, const Init& init = {});
  [[nodiscard]] std::string_view Kind() const override { return "TextBox"; }
  [[nodiscard]] const String& Text() const { return text_; }
  void SetText(StringView text);
  bool MultiLine = false;  ///< for good, from the constructor of the surface on
  Designed<bool> Locked{this};
  std::function<void()> Change;

 private:
  Designed<String> text_;
};

/// The list part of a combo box and a list box; indexes count from 0, -1 is none.
class ListControl : public Control {
 public:
  ListControl(Surface* owner, std::string_view name, const Init& init);
  [[nodiscard]] const std::vector<String>& List() const { return list_; }
  void AddItem(StringView text);
  /// Fails with 5 when there is no such item.
  void RemoveItem(int index);
  virtual void Clear();
  [[nodiscard]] int ListIndex() const { return listIndex_; }
  /// Setting another index raises Click; fails with 380 outside -1 to the last one.
  virtual void SetListIndex(int index);
  [[nodiscard]] virtual String Text() const;
  std::function<void()> Click;
  std::function<void()> DblClick;

 protected:
  Designed<std::vector<String>> list_{this};
  Designed<int> listIndex_{this, -1};
};

class ListBox : public ListControl {
 public:
  ListBox(Surface* owner, std::string_view name, const Init& init = {});
  [[nodiscard]] std::string_view Kind() const override { return "ListBox"; }
};

/// A drop-down list, or an editable one. The text of a list-only box is that of its item.
class ComboBox : public ListControl {
 public:
  enum class Style { Editable, List };
  ComboBox(Surface* owner, std::string_view name, Style style = Style::List, const Init& init = {});
  [[nodiscard]] std::string_view Kind() const override { return "ComboBox"; }
  [[nodiscard]] ComboBox::Style BoxStyle() const { return style_; }
  [[nodiscard]] String Text() const override;
  /// Editable: another text raises Change. List: selects the item of that text, fails with 383 when
  /// there is none.
  void SetText(StringView text);
  void Clear() override;
  void SetListIndex(int index) override;
  std::function<void()> Change;

 private:
  Style style_;
  Designed<String> text_;
};

/// Pages told apart by index from 0; controls belong to a page by the layout.
class TabControl : public Control {
 public:
  /// Without tabs the pages are turned from code alone.
  enum class Style { Tabs, NoTabs };
  struct Page {
    String Name;
    String Caption;
  };
  TabControl(Surface* owner, std::string_view name, std::vector<Page> pages,
             Style style = Style::Tabs);
  [[nodiscard]] std::string_view Kind() const override { return "TabControl"; }
  [[nodiscard]] bool TakesFocus() const override { return HasTabs(); }
  [[nodiscard]] bool HasTabs() const { return style_ == Style::Tabs; }
  [[nodiscard]] const std::vector<Page>& Pages() const { return pages_; }
  [[nodiscard]] int CurrTab() const { return current_; }
  /// Another page raises Switch; fails with 380 when there is no such page.
  void SetCurrTab(int index);
  std::function<void()> Switch;

 private:
  std::vector<Page> pages_;
  Style style_;
  Designed<int> current_{this};
};

/// Setting another value raises Change; values are pulled into the bounds.
class SpinButton : public Control {
 public:
  SpinButton(Surface* owner, std::string_view name, int min, int max);
  [[nodiscard]] std::string_view Kind() const override { return "SpinButton"; }
  [[nodiscard]] int Min() const { return min_; }
  [[nodiscard]] int Max() const { return max_; }
  [[nodiscard]] int Value() const { return value_; }
  void SetValue(int value);
  std::function<void()> Change;

 private:
  int min_, max_;
  Designed<int> value_;
};

/// Value in per cent, 0 to 100.
class ProgressBar : public Control {
 public:
  ProgressBar(Surface* owner, std::string_view name);
  [[nodiscard]] std::string_view Kind() const override { return "ProgressBar"; }
  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] double Value() const { return value_; }
  void SetValue(double percent) { value_ = std::clamp(percent, 0.0, 100.0); }

 private:
  Designed<double> value_{this};
};

/// Shows one of the program's pictures (101 to 153), 0 for none.
class PictureBox : public Control {
 public:
  PictureBox(Surface* owner, std::string_view name, int picture = 0);
  [[nodiscard]] std::string_view Kind() const override { return "PictureBox"; }
  [[nodiscard]] bool TakesFocus() const override { return false; }
  [[nodiscard]] int Picture() const { return picture_; }
  void SetPicture(int picture) { picture_ = picture; }
  std::function<void()> Click;

 private:
  Designed<int> picture_;
};

}  // namespace tessel::forms
