// The control classes that the environment itself has.
#pragma once

#include <span>

#include "hosts/model/DesignerTree.h"
#include "vb/Text.h"

namespace tessel::workbench {

/// How a control is drawn.
enum class Look {
  Box,  ///< a plain box with the control's name
  Picture,
  Label,
  Text,
  Frame,
  Button,
  Check,
  Option,
  Combo,
  List,
  HScroll,
  VScroll,
  Timer,
  Drive,
  Dir,
  File,
  Shape,
  Line,
  Image,
  Data,
  Ole,
  Menu,
};

/// What is known of a class ahead of any form.
struct ControlClass {
  StringView Name;      ///< "VB.CommandButton"
  StringView BaseName;  ///< what names of new ones begin with: "Command"
  Look Style;
  int Width, Height;  ///< twips of one that is put on a form with a click
  bool Lightweight;   ///< has no window: lies below the controls that have one
  bool Container;     ///< other controls can stand in it
};

/// The twenty classes of the toolbox, in its order.
[[nodiscard]] std::span<const ControlClass> ToolboxClasses();

/// By name without regard to case; null for a class that isn't the environment's own.
[[nodiscard]] const ControlClass* FindControlClass(StringView name);

/// Whether controls can stand on a designer of that class: a form, MDI form, user control, property
/// page or user document. Other designers, as a data environment, are another library's.
[[nodiscard]] bool IsFormClass(StringView className);

/// Whether a control of that class can stand right on an MDI form: it clings to an edge or can't be
/// seen. Of another library's classes nothing is known, and they may.
[[nodiscard]] bool FitsOnMdiForm(StringView className);

/// The class's name without its library: "CommandButton".
[[nodiscard]] StringView ShortName(StringView className);

/// The first name of a class that no control of the form has: "Command1", "Command2" ...
[[nodiscard]] String FreeControlName(const model::DesignerTree& tree, StringView className);

/// The name that code gives the object: a form's own procedures begin with "Form", "UserControl"
/// ..., a control's with its name.
[[nodiscard]] String NameInCode(const model::DesignerNode& node);

/// The name as lists show it, an element of a control array with its index: "optFormat(0)".
[[nodiscard]] String ShownName(const model::DesignerNode& node);

}  // namespace tessel::workbench
