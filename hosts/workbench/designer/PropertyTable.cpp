#include "hosts/workbench/designer/PropertyTable.h"

#include <algorithm>

#include "hosts/workbench/designer/ControlClasses.h"

namespace tessel::workbench {
namespace {

constexpr StringView Alignments[] = {u"Left Justify", u"Right Justify", u"Center"};
constexpr StringView Sides[] = {u"Left Justify", u"Right Justify"};
constexpr StringView Appearances[] = {u"Flat", u"3D"};
constexpr StringView Aligns[] = {u"None", u"Align Top", u"Align Bottom", u"Align Left",
                                 u"Align Right"};
constexpr StringView BackStyles[] = {u"Transparent", u"Opaque"};
constexpr StringView Borders[] = {u"None", u"Fixed Single"};
constexpr StringView FormBorders[] = {u"None",         u"Fixed Single",     u"Sizable",
                                      u"Fixed Dialog", u"Fixed ToolWindow", u"Sizable ToolWindow"};
constexpr StringView LineBorders[] = {u"Transparent", u"Solid",        u"Dash",        u"Dot",
                                      u"Dash-Dot",    u"Dash-Dot-Dot", u"Inside Solid"};
constexpr StringView CheckValues[] = {u"Unchecked", u"Checked", u"Grayed"};
constexpr StringView ComboStyles[] = {u"Dropdown Combo", u"Simple Combo", u"Dropdown List"};
constexpr StringView ButtonStyles[] = {u"Standard", u"Graphical"};
constexpr StringView ListStyles[] = {u"Standard", u"Checkbox"};
constexpr StringView FillStyles[] = {u"Solid",         u"Transparent",     u"Horizontal Line",
                                     u"Vertical Line", u"Upward Diagonal", u"Downward Diagonal",
                                     u"Cross",         u"Diagonal Cross"};
constexpr StringView MultiSelects[] = {u"None", u"Simple", u"Extended"};
constexpr StringView Pointers[] = {u"Default",
                                   u"Arrow",
                                   u"Cross",
                                   u"I-Beam",
                                   u"Icon",
                                   u"Size",
                                   u"Size NE SW",
                                   u"Size N S",
                                   u"Size NW SE",
                                   u"Size W E",
                                   u"Up Arrow",
                                   u"Hourglass",
                                   u"No Drop",
                                   u"Arrow and Hourglass",
                                   u"Arrow and Question",
                                   u"Size All"};
constexpr StringView ScaleModes[] = {u"User",      u"Twip", u"Point",      u"Pixel",
                                     u"Character", u"Inch", u"Millimeter", u"Centimeter"};
constexpr StringView ScrollBars[] = {u"None", u"Horizontal", u"Vertical", u"Both"};
constexpr StringView Shapes[] = {u"Rectangle",         u"Square",        u"Oval", u"Circle",
                                 u"Rounded Rectangle", u"Rounded Square"};
constexpr StringView StartPositions[] = {u"Manual", u"CenterOwner", u"CenterScreen",
                                         u"Windows Default"};
constexpr StringView WindowStates[] = {u"Normal", u"Minimized", u"Maximized"};
constexpr StringView DragModes[] = {u"Manual", u"Automatic"};

struct KnownProperty {
  StringView Class;  ///< without its library; empty for all classes that aren't named
  StringView Name;
  ValueKind Kind;
  Choices List = {};
  StringView Default = {};
};

/// An entry of a class stands ahead of the one of all.
constexpr KnownProperty Known[] = {
    // clang-format off
    {u"OptionButton", u"Value", ValueKind::Flag, {}, u"False"},
    {u"CheckBox", u"Value", ValueKind::Choice, CheckValues, u"0 - Unchecked"},
    {u"HScrollBar", u"Value", ValueKind::Number, {}, u"0"},
    {u"VScrollBar", u"Value", ValueKind::Number, {}, u"0"},
    {u"CheckBox", u"Alignment", ValueKind::Choice, Sides, u"0 - Left Justify"},
    {u"OptionButton", u"Alignment", ValueKind::Choice, Sides, u"0 - Left Justify"},
    {u"ComboBox", u"Style", ValueKind::Choice, ComboStyles, u"0 - Dropdown Combo"},
    {u"ListBox", u"Style", ValueKind::Choice, ListStyles, u"0 - Standard"},
    {u"Form", u"BorderStyle", ValueKind::Choice, FormBorders, u"2 - Sizable"},
    {u"Line", u"BorderStyle", ValueKind::Choice, LineBorders, u"1 - Solid"},
    {u"Shape", u"BorderStyle", ValueKind::Choice, LineBorders, u"1 - Solid"},
    {u"Shape", u"BackStyle", ValueKind::Choice, BackStyles, u"0 - Transparent"},
    {u"Label", u"BorderStyle", ValueKind::Choice, Borders, u"0 - None"},
    {u"Image", u"BorderStyle", ValueKind::Choice, Borders, u"0 - None"},
    {u"UserControl", u"BorderStyle", ValueKind::Choice, Borders, u"0 - None"},
    {u"", u"Alignment", ValueKind::Choice, Alignments, u"0 - Left Justify"},
    {u"", u"Align", ValueKind::Choice, Aligns, u"0 - None"},
    {u"", u"Appearance", ValueKind::Choice, Appearances, u"1 - 3D"},
    {u"", u"AutoRedraw", ValueKind::Flag, {}, u"False"},
    {u"", u"AutoSize", ValueKind::Flag, {}, u"False"},
    {u"", u"BackColor", ValueKind::Color},
    {u"", u"BackStyle", ValueKind::Choice, BackStyles, u"1 - Opaque"},
    {u"", u"BorderColor", ValueKind::Color},
    {u"", u"BorderStyle", ValueKind::Choice, Borders, u"1 - Fixed Single"},
    {u"", u"BorderWidth", ValueKind::Whole, {}, u"1"},
    {u"", u"Cancel", ValueKind::Flag, {}, u"False"},
    {u"", u"Caption", ValueKind::Text},
    {u"", u"Checked", ValueKind::Flag, {}, u"False"},
    {u"", u"ClientHeight", ValueKind::Number},
    {u"", u"ClientLeft", ValueKind::Number},
    {u"", u"ClientTop", ValueKind::Number},
    {u"", u"ClientWidth", ValueKind::Number},
    {u"", u"ControlBox", ValueKind::Flag, {}, u"True"},
    {u"", u"Default", ValueKind::Flag, {}, u"False"},
    {u"", u"DragMode", ValueKind::Choice, DragModes, u"0 - Manual"},
    {u"", u"Enabled", ValueKind::Flag, {}, u"True"},
    {u"", u"FillColor", ValueKind::Color},
    {u"", u"FillStyle", ValueKind::Choice, FillStyles, u"1 - Transparent"},
    {u"", u"ForeColor", ValueKind::Color},
    {u"", u"Height", ValueKind::Number},
    {u"", u"HelpContextID", ValueKind::Whole, {}, u"0"},
    {u"", u"Index", ValueKind::Whole},
    {u"", u"IntegralHeight", ValueKind::Flag, {}, u"True"},
    {u"", u"Interval", ValueKind::Whole, {}, u"0"},
    {u"", u"KeyPreview", ValueKind::Flag, {}, u"False"},
    {u"", u"LargeChange", ValueKind::Whole, {}, u"1"},
    {u"", u"Left", ValueKind::Number},
    {u"", u"LinkTopic", ValueKind::Text},
    {u"", u"Locked", ValueKind::Flag, {}, u"False"},
    {u"", u"MDIChild", ValueKind::Flag, {}, u"False"},
    {u"", u"Max", ValueKind::Number, {}, u"32767"},
    {u"", u"MaxButton", ValueKind::Flag, {}, u"True"},
    {u"", u"MaxLength", ValueKind::Whole, {}, u"0"},
    {u"", u"Min", ValueKind::Number, {}, u"0"},
    {u"", u"MinButton", ValueKind::Flag, {}, u"True"},
    {u"", u"MousePointer", ValueKind::Choice, Pointers, u"0 - Default"},
    {u"", u"MultiLine", ValueKind::Flag, {}, u"False"},
    {u"", u"MultiSelect", ValueKind::Choice, MultiSelects, u"0 - None"},
    {u"", u"PasswordChar", ValueKind::Text},
    {u"", u"Pattern", ValueKind::Text, {}, u"*.*"},
    {u"", u"ScaleHeight", ValueKind::Number},
    {u"", u"ScaleMode", ValueKind::Choice, ScaleModes, u"1 - Twip"},
    {u"", u"ScaleWidth", ValueKind::Number},
    {u"", u"ScrollBars", ValueKind::Choice, ScrollBars, u"0 - None"},
    {u"", u"Shape", ValueKind::Choice, Shapes, u"0 - Rectangle"},
    {u"", u"ShowInTaskbar", ValueKind::Flag, {}, u"True"},
    {u"", u"SmallChange", ValueKind::Whole, {}, u"1"},
    {u"", u"Sorted", ValueKind::Flag, {}, u"False"},
    {u"", u"StartUpPosition", ValueKind::Choice, StartPositions, u"3 - Windows Default"},
    {u"", u"Stretch", ValueKind::Flag, {}, u"False"},
    {u"", u"Style", ValueKind::Choice, ButtonStyles, u"0 - Standard"},
    {u"", u"TabIndex", ValueKind::Whole},
    {u"", u"TabStop", ValueKind::Flag, {}, u"True"},
    {u"", u"Tag", ValueKind::Text},
    {u"", u"Text", ValueKind::Text},
    {u"", u"ToolTipText", ValueKind::Text},
    {u"", u"Top", ValueKind::Number},
    {u"", u"UseMnemonic", ValueKind::Flag, {}, u"True"},
    {u"", u"Visible", ValueKind::Flag, {}, u"True"},
    {u"", u"Width", ValueKind::Number},
    {u"", u"WindowList", ValueKind::Flag, {}, u"False"},
    {u"", u"WindowState", ValueKind::Choice, WindowStates, u"0 - Normal"},
    {u"", u"WordWrap", ValueKind::Flag, {}, u"False"},
    {u"", u"X1", ValueKind::Number},
    {u"", u"X2", ValueKind::Number},
    {u"", u"Y1", ValueKind::Number},
    {u"", u"Y2", ValueKind::Number},
    // clang-format on
};

/// What the controls of several classes have in common.
constexpr StringView Place[] = {u"Left", u"Top", u"Width", u"Height", u"Index", u"Tag"};
constexpr StringView Input[] = {u"Enabled",     u"Visible",      u"TabIndex",     u"TabStop",
                                u"ToolTipText", u"MousePointer", u"HelpContextID"};
constexpr StringView PictureExtras[] = {u"Align",     u"Appearance",  u"AutoRedraw", u"AutoSize",
                                        u"BackColor", u"BorderStyle", u"ForeColor",  u"ScaleMode"};
constexpr StringView LabelExtras[] = {u"Alignment",   u"Appearance",  u"AutoSize", u"BackColor",
                                      u"BackStyle",   u"BorderStyle", u"Caption",  u"ForeColor",
                                      u"UseMnemonic", u"WordWrap"};
constexpr StringView TextExtras[] = {u"Alignment",    u"Appearance", u"BackColor", u"BorderStyle",
                                     u"ForeColor",    u"Locked",     u"MaxLength", u"MultiLine",
                                     u"PasswordChar", u"ScrollBars", u"Text"};
constexpr StringView FrameExtras[] = {u"Appearance", u"BackColor", u"BorderStyle", u"Caption",
                                      u"ForeColor"};
constexpr StringView ButtonExtras[] = {u"Appearance", u"BackColor", u"Cancel",
                                       u"Caption",    u"Default",   u"Style"};
constexpr StringView MarkExtras[] = {u"Alignment", u"Appearance", u"BackColor", u"Caption",
                                     u"ForeColor", u"Style",      u"Value"};
constexpr StringView ComboExtras[] = {u"Appearance", u"BackColor", u"ForeColor", u"Locked",
                                      u"Sorted",     u"Style",     u"Text"};
constexpr StringView ListExtras[] = {u"Appearance",  u"BackColor", u"ForeColor", u"IntegralHeight",
                                     u"MultiSelect", u"Sorted",    u"Style"};
constexpr StringView ScrollExtras[] = {u"LargeChange", u"Max", u"Min", u"SmallChange", u"Value"};
constexpr StringView FilesExtras[] = {u"Appearance", u"BackColor", u"ForeColor", u"Pattern"};
constexpr StringView ShapeExtras[] = {u"BackColor",   u"BackStyle",   u"BorderColor",
                                      u"BorderStyle", u"BorderWidth", u"FillColor",
                                      u"FillStyle",   u"Shape",       u"Visible"};
constexpr StringView LineExtras[] = {u"BorderColor", u"BorderStyle", u"BorderWidth", u"Index",
                                     u"Tag",         u"Visible",     u"X1",          u"X2",
                                     u"Y1",          u"Y2"};
constexpr StringView ImageExtras[] = {u"Appearance",  u"BorderStyle", u"Enabled",     u"Stretch",
                                      u"ToolTipText", u"Visible",     u"MousePointer"};
constexpr StringView TimerExtras[] = {u"Enabled", u"Index", u"Interval", u"Left", u"Tag", u"Top"};
constexpr StringView MenuExtras[] = {u"Caption", u"Checked", u"Enabled", u"HelpContextID",
                                     u"Index",   u"Tag",     u"Visible", u"WindowList"};
constexpr StringView FormExtras[] = {
    u"Appearance",   u"AutoRedraw",   u"BackColor",  u"BorderStyle",   u"Caption",
    u"ClientHeight", u"ClientLeft",   u"ClientTop",  u"ClientWidth",   u"ControlBox",
    u"Enabled",      u"ForeColor",    u"KeyPreview", u"MDIChild",      u"MaxButton",
    u"MinButton",    u"MousePointer", u"ScaleMode",  u"ShowInTaskbar", u"StartUpPosition",
    u"Tag",          u"Visible",      u"WindowState"};
constexpr StringView ParentExtras[] = {
    u"Appearance", u"BackColor",   u"Caption",    u"ClientHeight", u"ClientLeft",
    u"ClientTop",  u"ClientWidth", u"Enabled",    u"MousePointer", u"StartUpPosition",
    u"Tag",        u"Visible",     u"WindowState"};
constexpr StringView SurfaceExtras[] = {
    u"Appearance", u"AutoRedraw", u"BackColor",    u"ClientHeight", u"ClientWidth",
    u"Enabled",    u"ForeColor",  u"MousePointer", u"ScaleMode",    u"Tag"};
constexpr StringView PageExtras[] = {u"Caption"};
constexpr StringView DataExtras[] = {u"Align", u"Appearance", u"BackColor", u"Caption",
                                     u"ForeColor"};
constexpr StringView OleExtras[] = {u"Appearance", u"BackColor", u"BackStyle", u"BorderStyle"};

constexpr StringView FolderExtras[] = {u"Appearance", u"BackColor", u"ForeColor"};
/// A control without a face has no size.
constexpr StringView ForeignExtras[] = {u"Left", u"Top", u"Index", u"Tag"};

using Names = std::span<const StringView>;
struct ClassProperties {
  StringView Class;
  Names Own, More = {}, Most = {};
};
constexpr ClassProperties ByClass[] = {{u"PictureBox", PictureExtras, Place, Input},
                                       {u"Label", LabelExtras, Place, Input},
                                       {u"TextBox", TextExtras, Place, Input},
                                       {u"Frame", FrameExtras, Place, Input},
                                       {u"CommandButton", ButtonExtras, Place, Input},
                                       {u"CheckBox", MarkExtras, Place, Input},
                                       {u"OptionButton", MarkExtras, Place, Input},
                                       {u"ComboBox", ComboExtras, Place, Input},
                                       {u"ListBox", ListExtras, Place, Input},
                                       {u"HScrollBar", ScrollExtras, Place, Input},
                                       {u"VScrollBar", ScrollExtras, Place, Input},
                                       {u"Timer", TimerExtras},
                                       {u"DriveListBox", FolderExtras, Place, Input},
                                       {u"DirListBox", FolderExtras, Place, Input},
                                       {u"FileListBox", FilesExtras, Place, Input},
                                       {u"Shape", ShapeExtras, Place},
                                       {u"Line", LineExtras},
                                       {u"Image", ImageExtras, Place},
                                       {u"Data", DataExtras, Place, Input},
                                       {u"OLE", OleExtras, Place, Input},
                                       {u"Menu", MenuExtras},
                                       {u"Form", FormExtras},
                                       {u"MDIForm", ParentExtras},
                                       {u"UserControl", SurfaceExtras},
                                       {u"PropertyPage", SurfaceExtras, PageExtras},
                                       {u"UserDocument", SurfaceExtras},
                                       {u"", ForeignExtras}};

/// Classes of the environment only: another library's "Form" or "Label" is something else.
StringView OwnName(StringView className) {
  return vb::StartsWithText(className, u"VB.") ? ShortName(className) : StringView();
}

const KnownProperty* Find(StringView className, StringView property) {
  const StringView own = OwnName(className);
  const auto* const found =
      std::find_if(std::begin(Known), std::end(Known), [&](const KnownProperty& one) {
        return vb::SameText(one.Name, property) &&
               (one.Class.empty() || vb::SameText(one.Class, own));
      });
  return found == std::end(Known) ? nullptr : found;
}

}  // namespace

ValueKind KnownKind(StringView className, StringView property) {
  const KnownProperty* const known = Find(className, property);
  return known == nullptr ? ValueKind::Plain : known->Kind;
}

Choices ChoicesOf(StringView className, StringView property) {
  const KnownProperty* const known = Find(className, property);
  return known == nullptr ? Choices() : known->List;
}

bool IsKnown(StringView className, StringView property) {
  return Find(className, property) != nullptr;
}

std::vector<StringView> CommonProperties(StringView className) {
  const StringView own = OwnName(className);
  const auto* const found = std::find_if(
      std::begin(ByClass), std::end(ByClass),
      [&](const auto& one) { return one.Class.empty() || vb::SameText(one.Class, own); });
  std::vector<StringView> names(found->Own.begin(), found->Own.end());
  names.insert(names.end(), found->More.begin(), found->More.end());
  names.insert(names.end(), found->Most.begin(), found->Most.end());
  return names;
}

StringView DefaultValue(StringView className, StringView property) {
  const KnownProperty* const known = Find(className, property);
  return known == nullptr ? StringView() : known->Default;
}

}  // namespace tessel::workbench
