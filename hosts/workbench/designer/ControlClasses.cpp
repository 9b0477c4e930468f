#include "hosts/workbench/designer/ControlClasses.h"

#include <algorithm>
#include <unordered_set>

namespace tessel::workbench {
namespace {

constexpr ControlClass Classes[] = {
    // clang-format off
    // name                base name   look            width height light  holds
    {u"VB.PictureBox",     u"Picture", Look::Picture,  1215, 1215,  false, true},
    {u"VB.Label",          u"Label",   Look::Label,    1215, 255,   true,  false},
    {u"VB.TextBox",        u"Text",    Look::Text,     1215, 315,   false, false},
    {u"VB.Frame",          u"Frame",   Look::Frame,   2415, 1215,  false, true},
    {u"VB.CommandButton",  u"Command", Look::Button,   1215, 375,   false, false},
    {u"VB.CheckBox",       u"Check",   Look::Check,    1215, 255,   false, false},
    {u"VB.OptionButton",   u"Option",  Look::Option,   1215, 255,   false, false},
    {u"VB.ComboBox",       u"Combo",   Look::Combo,    1215, 315,   false, false},
    {u"VB.ListBox",        u"List",    Look::List,     1215, 1035,  false, false},
    {u"VB.HScrollBar",     u"HScroll", Look::HScroll,  1215, 255,   false, false},
    {u"VB.VScrollBar",     u"VScroll", Look::VScroll,  255,  1215,  false, false},
    {u"VB.Timer",          u"Timer",   Look::Timer,    420,  420,   false, false},
    {u"VB.DriveListBox",   u"Drive",   Look::Drive,    1215, 315,   false, false},
    {u"VB.DirListBox",     u"Dir",     Look::Dir,      1215, 1215,  false, false},
    {u"VB.FileListBox",    u"File",    Look::File,     1215, 1065,  false, false},
    {u"VB.Shape",          u"Shape",   Look::Shape,    1215, 615,   true,  false},
    {u"VB.Line",           u"Line",    Look::Line,     1215, 615,   true,  false},
    {u"VB.Image",          u"Image",   Look::Image,    615,  615,   true,  false},
    {u"VB.Data",           u"Data",    Look::Data,    1215, 345,   false, false},
    {u"VB.OLE",            u"OLE",     Look::Ole,      1215, 615,   false, false},
    // clang-format on
};
constexpr ControlClass MenuClass{u"VB.Menu", u"Menu", Look::Menu, 0, 0, true, false};

}  // namespace

std::span<const ControlClass> ToolboxClasses() { return Classes; }

const ControlClass* FindControlClass(StringView name) {
  if (vb::SameText(name, MenuClass.Name)) return &MenuClass;
  const auto* const found =
      std::find_if(std::begin(Classes), std::end(Classes),
                   [&](const ControlClass& one) { return vb::SameText(one.Name, name); });
  return found == std::end(Classes) ? nullptr : found;
}

bool IsFormClass(StringView className) {
  constexpr StringView Forms[] = {u"VB.Form", u"VB.MDIForm", u"VB.UserControl", u"VB.PropertyPage",
                                  u"VB.UserDocument"};
  return std::any_of(std::begin(Forms), std::end(Forms),
                     [&](StringView form) { return vb::SameText(form, className); });
}

bool FitsOnMdiForm(StringView className) {
  const ControlClass* const known = FindControlClass(className);
  if (known == nullptr) return true;
  return known->Style == Look::Picture || known->Style == Look::Timer || known->Style == Look::Data;
}

StringView ShortName(StringView className) {
  return className.substr(className.rfind(u'.') + 1);  // npos + 1 is the whole name
}

String FreeControlName(const model::DesignerTree& tree, StringView className) {
  std::unordered_set<String> taken;
  if (tree.Root() != nullptr) taken.insert(vb::LCase(tree.Root()->Name));
  for (const model::DesignerNode* node : tree.Controls()) taken.insert(vb::LCase(node->Name));
  const ControlClass* const known = FindControlClass(className);
  const String base(known != nullptr ? known->BaseName : ShortName(className));
  for (int number = 1;; ++number) {
    String name = base + vb::Str(number);
    if (!taken.contains(vb::LCase(name))) return name;
  }
}

String NameInCode(const model::DesignerNode& node) {
  return node.Parent == nullptr ? String(ShortName(node.Class)) : node.Name;
}

String ShownName(const model::DesignerNode& node) {
  const int index = node.ArrayIndex();
  return index < 0 ? node.Name : node.Name + u"(" + vb::Str(index) + u")";
}

}  // namespace tessel::workbench
