#include "snippets/ComponentGroups.h"

#include <algorithm>

#include "vb/Numbers.h"

namespace tessel {
namespace {

// The titles of the folders are not those of the rows.
constexpr ComponentGroup Groups[] = {
    {host::vbext_ct_VBForm, u"Forms", u"Forms", u"FRM"},
    {host::vbext_ct_StdModule, u"Modules", u"Modules", u"BAS"},
    {host::vbext_ct_ClassModule, u"Class Modules", u"Class Modules", u"CLS"},
    {host::vbext_ct_ActiveXDesigner, u"ActiveX Designers", u"ActiveX Designers", u"DSR"},
    {host::vbext_ct_DocObject, u"User Documents", u"User Documents", u"DOB"},
    {host::vbext_ct_VBMDIForm, u"Forms MDI", u"Forms MDI", u"FRM"},
    {host::vbext_ct_UserControl, u"User Controls", u"User Control", u"CTL"},
    {host::vbext_ct_PropPage, u"Property Pages", u"Property Page", u"PAG"}};

}  // namespace

std::span<const ComponentGroup> ComponentGroups() { return Groups; }

const ComponentGroup* ComponentGroupOf(int type) {
  const auto* const found =
      std::find_if(std::begin(Groups), std::end(Groups),
                   [&](const ComponentGroup& one) { return static_cast<int>(one.Type) == type; });
  return found == std::end(Groups) ? nullptr : found;
}

String JoinComponentKey(const ComponentKey& key) {
  return vb::Str(key.Project) + u"." + vb::Str(key.Component) + u"." + vb::Str(key.Type);
}

ComponentKey SplitComponentKey(const String& text) {
  ComponentKey key;
  int* const parts[] = {&key.Project, &key.Component, &key.Type};
  std::size_t at = 0;
  for (const StringView part : vb::SplitViews(text, u".")) {
    if (at < std::size(parts)) *parts[at++] = vb::CLng(vb::Val(part));
  }
  return key;
}

}  // namespace tessel
