// Where controls sit: a tree of rows, columns, groups and tab pages.
#pragma once

#include <initializer_list>
#include <vector>

#include "vb/Text.h"

namespace tessel::forms {

class Control;
class Panel;
class TabControl;

struct Layout {
  enum class Kind { Item, Row, Column, Group, Tabs, Page, Space };
  Kind Type = Kind::Column;
  String Caption;              ///< of a group
  Control* Content = nullptr;  ///< of an item, the TabControl of Tabs, the Panel of a Group
  std::vector<Layout> Children;
  int Stretch = 0;  ///< share of the room that is left over; 0 takes none
};

/// Layout of one control.
[[nodiscard]] Layout Item(Control& control, int stretch = 0);
[[nodiscard]] Layout Row(std::vector<Layout> children, int stretch = 0);
[[nodiscard]] Layout Column(std::vector<Layout> children, int stretch = 0);
[[nodiscard]] Layout Group(StringView caption, std::vector<Layout> children, int stretch = 0);
/// With the caption and the visibility of a panel.
[[nodiscard]] Layout Group(Panel& panel, std::vector<Layout> children, int stretch = 0);
/// One child for each page, in order.
[[nodiscard]] Layout Tabs(TabControl& control, std::vector<Layout> pages, int stretch = 1);
/// Room that pushes its neighbours apart.
[[nodiscard]] Layout Space();

/// Whether a layout has a control somewhere in it.
[[nodiscard]] bool Holds(const Layout& layout, const Control& control);
/// Whether everything that holds a control in a layout is visible.
[[nodiscard]] bool HoldersShow(const Layout& layout, const Control& control);

}  // namespace tessel::forms
