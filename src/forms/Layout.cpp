#include "forms/Layout.h"

#include <algorithm>

#include "forms/Controls.h"

namespace tessel::forms {
namespace {

Layout Node(Layout::Kind kind, std::vector<Layout> children, int stretch) {
  Layout layout;
  layout.Type = kind;
  layout.Children = std::move(children);
  layout.Stretch = stretch;
  return layout;
}

}  // namespace

Layout Item(Control& control, int stretch) {
  Layout layout = Node(Layout::Kind::Item, {}, stretch);
  layout.Content = &control;
  return layout;
}

Layout Row(std::vector<Layout> children, int stretch) {
  return Node(Layout::Kind::Row, std::move(children), stretch);
}

Layout Column(std::vector<Layout> children, int stretch) {
  return Node(Layout::Kind::Column, std::move(children), stretch);
}

Layout Group(StringView caption, std::vector<Layout> children, int stretch) {
  Layout layout = Node(Layout::Kind::Group, std::move(children), stretch);
  layout.Caption = caption;
  return layout;
}

Layout Group(Panel& panel, std::vector<Layout> children, int stretch) {
  Layout layout = Node(Layout::Kind::Group, std::move(children), stretch);
  layout.Content = &panel;
  return layout;
}

Layout Tabs(TabControl& control, std::vector<Layout> pages, int stretch) {
  Layout layout = Node(Layout::Kind::Tabs, {}, stretch);
  layout.Content = &control;
  for (Layout& page : pages) {
    layout.Children.push_back(Node(Layout::Kind::Page, {std::move(page)}, 0));
  }
  return layout;
}

bool Holds(const Layout& layout, const Control& control) {
  return layout.Content == &control ||
         std::any_of(layout.Children.begin(), layout.Children.end(),
                     [&](const Layout& child) { return Holds(child, control); });
}

bool HoldersShow(const Layout& layout, const Control& control) {
  if (layout.Content == &control) return true;
  for (const Layout& child : layout.Children) {
    if (!Holds(child, control)) continue;
    return (layout.Content == nullptr || layout.Content->Visible()) && HoldersShow(child, control);
  }
  return true;
}

Layout Space() { return Node(Layout::Kind::Space, {}, 1); }

}  // namespace tessel::forms
