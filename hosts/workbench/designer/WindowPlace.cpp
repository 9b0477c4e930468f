#include "hosts/workbench/designer/WindowPlace.h"

#include <algorithm>

#include "hosts/workbench/designer/ControlClasses.h"
#include "hosts/workbench/designer/Placement.h"
#include "hosts/workbench/designer/Values.h"

namespace tessel::workbench {
namespace {

struct Pair {
  StringView Window, Body;
};
constexpr Pair Pairs[] = {{u"Left", u"ClientLeft"},
                          {u"Top", u"ClientTop"},
                          {u"Width", u"ClientWidth"},
                          {u"Height", u"ClientHeight"}};

/// What stands around a body, twips.
struct Surround {
  double Border = 0, Title = 0;
};
/// By BorderStyle, as the environment's own desktop measures them.
constexpr Surround Surrounds[] = {{0, 0}, {45, 285}, {60, 285}, {45, 285}, {45, 240}, {60, 240}};
constexpr int SizableBorder = 2;
constexpr double MenuHeight = 285;

bool IsWindow(const model::DesignerNode& root) {
  return vb::SameText(root.Class, u"VB.Form") || vb::SameText(root.Class, u"VB.MDIForm");
}

bool HasMenus(const model::DesignerNode& root) {
  return std::any_of(root.Items.begin(), root.Items.end(), [](const auto& item) {
    return item.Child && vb::SameText(item.Child->Class, u"VB.Menu") &&
           FlagOf(*item.Child, u"Visible", true);
  });
}

Surround SurroundOf(const model::DesignerNode& root) {
  if (!IsWindow(root)) return {};
  const double style = NumberOf(root, u"BorderStyle", SizableBorder);
  const bool known = style >= 0 && style < static_cast<double>(std::size(Surrounds));
  Surround surround = Surrounds[known ? static_cast<std::size_t>(style) : SizableBorder];
  if (HasMenus(root)) surround.Title += MenuHeight;
  return surround;
}

/// What a window's property has more than the body's.
double Difference(const model::DesignerNode& root, StringView property) {
  const Surround around = SurroundOf(root);
  if (vb::SameText(property, u"Left")) return -around.Border;
  if (vb::SameText(property, u"Top")) return -around.Border - around.Title;
  if (vb::SameText(property, u"Width")) return 2 * around.Border;
  return 2 * around.Border + around.Title;
}

}  // namespace

StringView BodyProperty(StringView windowProperty) {
  for (const Pair& pair : Pairs) {
    if (vb::SameText(pair.Window, windowProperty)) return pair.Body;
  }
  return {};
}

StringView WindowProperty(StringView bodyProperty) {
  for (const Pair& pair : Pairs) {
    if (vb::SameText(pair.Body, bodyProperty)) return pair.Window;
  }
  return {};
}

bool IsWindowPlace(const model::DesignerNode& node, StringView property) {
  return node.Parent == nullptr && IsFormClass(node.Class) && !BodyProperty(property).empty();
}

std::optional<double> WindowPlace(const model::DesignerNode& root, StringView property) {
  const StringView body = BodyProperty(property);
  if (body.empty()) return std::nullopt;
  if (root.RawValue(body)) return NumberOf(root, body, 0) + Difference(root, property);
  if (root.RawValue(property)) return NumberOf(root, property, 0);
  return std::nullopt;
}

PropertyEdits WindowPlaceEdits(model::DesignerNode& root, StringView property, double twips) {
  const double inside = twips - Difference(root, property);
  PropertyEdits edits{&root, {}};
  const FormLayout layout(root);
  QSizeF client = layout.ClientSize();
  if (vb::SameText(property, u"Width")) {
    client.setWidth(std::max(0.0, inside));
    edits = FormSizeEdits(root, layout, client);
  } else if (vb::SameText(property, u"Height")) {
    client.setHeight(std::max(0.0, inside));
    edits = FormSizeEdits(root, layout, client);
  } else {
    edits.Values.emplace_back(BodyProperty(property), TwipsText(inside));
  }
  // Files of older versions say both.
  if (root.RawValue(property)) edits.Values.emplace_back(property, TwipsText(twips));
  return edits;
}

}  // namespace tessel::workbench
