#include "hosts/workbench/forms/FormLayout.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <cstddef>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlViews.h"
#include "hosts/workbench/forms/LabelView.h"
#include "hosts/workbench/forms/TabControlView.h"
#include "hosts/workbench/forms/TextBoxView.h"
#include "hosts/workbench/platform/Text.h"

namespace tessel::workbench {
namespace {

using forms::Layout;
using Kind = forms::Layout::Kind;

template <class Control>
Control* ControlOf(const Layout& node) {
  return node.Type == Kind::Item ? dynamic_cast<Control*>(node.Content) : nullptr;
}

bool IsLabelledRow(const Layout& node) {
  return node.Type == Kind::Row && node.Children.size() > 1 &&
         ControlOf<forms::Label>(node.Children.front()) != nullptr;
}

/// Whether two neighbours in a row are a number and the arrows that turn it.
bool IsNumberField(const Layout& field, const Layout& spin) {
  const auto* const box = ControlOf<forms::TextBox>(field);
  return box != nullptr && !box->MultiLine && ControlOf<forms::SpinButton>(spin) != nullptr;
}

}  // namespace

void FormLayout::Build(const Layout& arrangement, QWidget& into) const {
  auto* const box = new QVBoxLayout(&into);
  if (arrangement.Type == Kind::Column) {
    AddColumn(arrangement.Children, *box);
  } else {
    Add(arrangement, *box);
  }
}

void FormLayout::Add(const Layout& node, QBoxLayout& to) const {
  switch (node.Type) {
    case Kind::Item:
      to.addWidget(views_.Of(*node.Content).Widget(), node.Stretch);
      break;
    case Kind::Row: {
      auto* const row = new QHBoxLayout;
      to.addLayout(row, node.Stretch);
      AddRow(node.Children, *row);
      break;
    }
    case Kind::Column:
    case Kind::Page: {
      auto* const column = new QVBoxLayout;
      to.addLayout(column, node.Stretch);
      AddColumn(node.Children, *column);
      break;
    }
    case Kind::Group:
      to.addWidget(MakeGroup(node), node.Stretch);
      break;
    case Kind::Tabs:
      to.addWidget(MakeTabs(node), node.Stretch);
      break;
    case Kind::Space:
      to.addStretch(std::max(1, node.Stretch));
      break;
  }
}

void FormLayout::AddColumn(const Children& children, QBoxLayout& to) const {
  for (auto at = children.begin(); at != children.end();) {
    const auto end = std::find_if_not(at, children.end(), IsLabelledRow);
    if (end - at > 1) {
      auto* const grid = new QGridLayout;
      grid->setColumnStretch(1, 1);
      to.addLayout(grid);
      for (; at != end; ++at) AddLabelledRow(*at, *grid);
    } else {
      AllowWrapping(*at);
      Add(*at++, to);
    }
  }
}

void FormLayout::AddRow(const Children& children, QBoxLayout& to) const {
  for (std::size_t at = 0; at < children.size(); ++at) {
    if (at + 1 < children.size() && IsNumberField(children[at], children[at + 1])) {
      to.addLayout(MakeNumberField(children[at], children[at + 1]));
      ++at;
    } else {
      Add(children[at], to);
    }
  }
  EvenOutButtons(children);
}

void FormLayout::AddLabelledRow(const Layout& row, QGridLayout& to) const {
  const int line = to.rowCount();
  to.addWidget(views_.Of(*row.Children.front().Content).Widget(), line, 0);
  auto* const rest = new QHBoxLayout;
  to.addLayout(rest, line, 1);
  AddRow({row.Children.begin() + 1, row.Children.end()}, *rest);
}

QLayout* FormLayout::MakeNumberField(const Layout& field, const Layout& spin) const {
  auto& arrows = dynamic_cast<forms::SpinButton&>(*spin.Content);
  auto& text = dynamic_cast<TextBoxView&>(views_.Of(*field.Content));
  text.NarrowTo(static_cast<int>(vb::Str(arrows.Max()).size()));
  auto* const pair = new QHBoxLayout;
  pair->setSpacing(0);
  pair->addWidget(text.Widget());
  pair->addWidget(views_.Of(arrows).Widget());
  return pair;
}

QWidget* FormLayout::MakeGroup(const Layout& node) const {
  auto* const group = new QGroupBox(ToQt(node.Caption));
  AddColumn(node.Children, *new QVBoxLayout(group));
  return group;
}

QWidget* FormLayout::MakeTabs(const Layout& node) const {
  auto& tabs = dynamic_cast<TabControlView&>(views_.Of(*node.Content));
  for (const Layout& page : node.Children) {
    auto* const content = new QWidget;
    Build(page.Children.size() == 1 ? page.Children.front() : page, *content);
    tabs.AddPage(content);
  }
  return tabs.Widget();
}

/// Buttons side by side are equally wide.
void FormLayout::EvenOutButtons(const Children& children) const {
  int width = 0;
  const auto each = [&](const auto& visit) {
    for (const Layout& child : children) {
      if (auto* const button = ControlOf<forms::Button>(child)) visit(*views_.Of(*button).Widget());
    }
  };
  each([&](const QWidget& button) { width = std::max(width, button.sizeHint().width()); });
  each([&](QWidget& button) { button.setMinimumWidth(width); });
}

/// A label that has a line to itself may take several.
void FormLayout::AllowWrapping(const Layout& node) const {
  if (auto* const label = ControlOf<forms::Label>(node)) {
    dynamic_cast<LabelView&>(views_.Of(*label)).AllowWrapping();
  }
}

}  // namespace tessel::workbench
