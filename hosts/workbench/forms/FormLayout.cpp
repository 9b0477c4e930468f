#include "hosts/workbench/forms/FormLayout.h"

#include <QApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <cstddef>

#include "forms/Controls.h"
#include "hosts/workbench/forms/ControlViews.h"
#include "hosts/workbench/forms/FlowLayout.h"
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

/// A button that shows its caption.
bool IsButton(const Layout& node) {
  const auto* const control = ControlOf<forms::CaptionedControl>(node);
  if (control == nullptr || control->Picture != 0) return false;
  return dynamic_cast<const forms::Button*>(control) != nullptr ||
         dynamic_cast<const forms::DropDownButton*>(control) != nullptr ||
         dynamic_cast<const forms::ToggleButton*>(control) != nullptr;
}

/// Buttons with pictures side by side, with nothing else but room behind them.
bool IsPictureRow(const Layout& node) {
  if (node.Type != Kind::Row || node.Children.size() < 2) return false;
  const auto isPicture = [](const Layout& part) {
    const auto* const control = ControlOf<forms::CaptionedControl>(part);
    return control != nullptr && control->Picture != 0;
  };
  const bool spaced = node.Children.back().Type == Kind::Space;
  return std::all_of(node.Children.begin(), node.Children.end() - (spaced ? 1 : 0), isPicture);
}

/// Parts that share the room of a row; the user moves the bar between them.
bool IsDivided(const Layout& node) {
  return node.Type == Kind::Row && node.Children.size() > 1 &&
         std::all_of(node.Children.begin(), node.Children.end(), [](const Layout& part) {
           return part.Type == Kind::Column && part.Stretch > 0;
         });
}

/// Even where there is no room to spare, parts that are pushed apart don't touch.
void AddSpace(QBoxLayout& to, int stretch) {
  const QStyle* const style = QApplication::style();
  to.addSpacing(style->pixelMetric(QStyle::PM_LayoutVerticalSpacing));
  to.addStretch(std::max(1, stretch));
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
      if (IsDivided(node)) {
        to.addWidget(MakeDivided(node), node.Stretch);
        break;
      }
      if (IsPictureRow(node)) {
        to.addLayout(MakeFlow(node), node.Stretch);
        break;
      }
      auto* const row = new QHBoxLayout;
      to.addLayout(row, node.Stretch);
      AddRow(node.Children, *row);
      HintAtSense(node.Children);
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
      AddSpace(to, node.Stretch);
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
  text.HoldNumber(arrows.Min(), arrows.Max());
  auto* const pair = new QHBoxLayout;
  pair->setSpacing(0);
  pair->addWidget(text.Widget());
  pair->addWidget(views_.Of(arrows).Widget());
  return pair;
}

QLayout* FormLayout::MakeFlow(const Layout& node) const {
  auto* const flow = new FlowLayout;
  for (const Layout& part : node.Children) {
    if (part.Content != nullptr) flow->addWidget(views_.Of(*part.Content).Widget());
  }
  return flow;
}

/// A field that has a line to itself has no label: it says by itself what it is for.
void FormLayout::HintAtSense(const Children& row) const {
  const auto* const box = row.size() == 1 ? ControlOf<forms::TextBox>(row.front()) : nullptr;
  if (box == nullptr || box->MultiLine) return;
  dynamic_cast<TextBoxView&>(views_.Of(*box)).ShowHint();
}

/// The part with the largest share takes what a larger window gives; the others keep their width.
QWidget* FormLayout::MakeDivided(const Layout& node) const {
  auto* const divided = new QSplitter(Qt::Horizontal);
  divided->setChildrenCollapsible(false);
  const auto most = std::max_element(
      node.Children.begin(), node.Children.end(),
      [](const Layout& one, const Layout& other) { return one.Stretch < other.Stretch; });
  for (const Layout& part : node.Children) {
    auto* const content = new QWidget;
    Build(part, *content);
    content->layout()->setContentsMargins(0, 0, 0, 0);
    divided->addWidget(content);
    divided->setStretchFactor(divided->count() - 1, &part == &*most ? 1 : 0);
  }
  return divided;
}

QWidget* FormLayout::MakeGroup(const Layout& node) const {
  QWidget* const group = node.Content == nullptr ? new QGroupBox(ToQt(node.Caption))
                                                 : views_.Of(*node.Content).Widget();
  auto* const column = new QVBoxLayout(group);
  if (qobject_cast<QGroupBox*>(group) == nullptr) column->setContentsMargins(0, 0, 0, 0);
  AddColumn(node.Children, *column);
  return group;
}

QWidget* FormLayout::MakeTabs(const Layout& node) const {
  auto& tabs = dynamic_cast<TabControlView&>(views_.Of(*node.Content));
  for (const Layout& page : node.Children) {
    auto* const content = new QWidget;
    Build(page.Children.size() == 1 ? page.Children.front() : page, *content);
    tabs.AddPage(content);
  }
  // Pages that come and go with a selection must not make the window jump.
  QSizePolicy policy = tabs.Widget()->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  tabs.Widget()->setSizePolicy(policy);
  return tabs.Widget();
}

/// Buttons side by side are equally wide.
void FormLayout::EvenOutButtons(const Children& children) const {
  int width = 0;
  const auto each = [&](const auto& visit) {
    for (const Layout& child : children) {
      if (IsButton(child)) visit(*views_.Of(*child.Content).Widget());
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
