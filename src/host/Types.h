// Numbers of the host's object model.
#pragma once

#include "vb/Text.h"

namespace tessel::host {

/// Procedure kinds, with the environment's numbers.
enum vbext_ProcKind : int {
  vbext_pk_Proc = 0,
  vbext_pk_Let = 1,
  vbext_pk_Set = 2,
  vbext_pk_Get = 3,
};

/// Component types, with the environment's numbers.
enum vbext_ComponentType : int {
  vbext_ct_StdModule = 1,
  vbext_ct_ClassModule = 2,
  vbext_ct_MSForm = 3,
  vbext_ct_ResFile = 4,
  vbext_ct_VBForm = 5,
  vbext_ct_VBMDIForm = 6,
  vbext_ct_PropPage = 7,
  vbext_ct_UserControl = 8,
  vbext_ct_DocObject = 9,
  vbext_ct_RelatedDocument = 10,
  vbext_ct_ActiveXDesigner = 11,
};

/// Project types, with the environment's numbers.
enum vbext_ProjectType : int {
  vbext_pt_StandardExe = 0,
  vbext_pt_ActiveXExe = 1,
  vbext_pt_ActiveXDll = 2,
  vbext_pt_ActiveXControl = 3,
};

/// A selection in a code pane; lines and columns count from 1. A caret has equal ends.
struct Selection {
  int StartLine = 1, StartColumn = 1, EndLine = 1, EndColumn = 1;
  bool operator==(const Selection&) const = default;
};

/// Types of command bar controls.
enum MsoControlType : int { msoControlButton = 1, msoControlPopup = 10 };

/// Places of a command bar.
enum MsoBarPosition : int {
  msoBarLeft = 0,
  msoBarTop = 1,
  msoBarRight = 2,
  msoBarBottom = 3,
  msoBarFloating = 4,
};

}  // namespace tessel::host
