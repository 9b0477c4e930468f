#include "hosts/workbench/window/ComponentIcon.h"

#include "hosts/workbench/platform/Pictures.h"

namespace tessel::workbench {

QIcon ComponentIcon(host::vbext_ComponentType type) {
  struct Entry {
    host::vbext_ComponentType Type;
    int Picture;
  };
  static constexpr Entry Entries[] = {
      {host::vbext_ct_StdModule, 115},      {host::vbext_ct_ClassModule, 114},
      {host::vbext_ct_MSForm, 112},         {host::vbext_ct_ResFile, 134},
      {host::vbext_ct_VBForm, 112},         {host::vbext_ct_VBMDIForm, 117},
      {host::vbext_ct_PropPage, 119},       {host::vbext_ct_UserControl, 116},
      {host::vbext_ct_DocObject, 118},      {host::vbext_ct_RelatedDocument, 134},
      {host::vbext_ct_ActiveXDesigner, 113}};
  for (const Entry& entry : Entries) {
    if (entry.Type == type) return Picture(entry.Picture);
  }
  return {};
}

}  // namespace tessel::workbench
