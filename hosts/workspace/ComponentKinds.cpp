#include "hosts/workspace/ComponentKinds.h"

#include <algorithm>

#include "hosts/workspace/ByteLines.h"

namespace tessel::workspace {
namespace {

constexpr ComponentKind Kinds[] = {{host::vbext_ct_StdModule, ".bas", "Module", true},
                                   {host::vbext_ct_ClassModule, ".cls", "Class", true},
                                   {host::vbext_ct_VBForm, ".frm", "Form", false},
                                   {host::vbext_ct_VBMDIForm, ".frm", "", false},
                                   {host::vbext_ct_UserControl, ".ctl", "UserControl", false},
                                   {host::vbext_ct_PropPage, ".pag", "PropertyPage", false},
                                   {host::vbext_ct_DocObject, ".dob", "UserDocument", false},
                                   {host::vbext_ct_ActiveXDesigner, ".dsr", "Designer", false},
                                   {host::vbext_ct_ResFile, "", "ResFile32", false},
                                   {host::vbext_ct_RelatedDocument, "", "RelatedDoc", false}};

template <class Matches>
const ComponentKind* Find(const Matches& matches) {
  const auto* const found = std::find_if(std::begin(Kinds), std::end(Kinds), matches);
  return found == std::end(Kinds) ? nullptr : found;
}

}  // namespace

std::span<const ComponentKind> ComponentKinds() { return Kinds; }

const ComponentKind* KindOf(host::vbext_ComponentType type) {
  return Find([&](const ComponentKind& kind) { return kind.Type == type; });
}

const ComponentKind* KindOf(const std::filesystem::path& file) {
  const std::string extension = Lower(file.extension().string());
  return Find(
      [&](const ComponentKind& kind) { return !extension.empty() && kind.Extension == extension; });
}

const ComponentKind* KindOfKey(std::string_view key) {
  return Find([&, lower = Lower(key)](const ComponentKind& kind) {
    return !kind.Key.empty() && Lower(kind.Key) == lower;
  });
}

bool HoldsCode(host::vbext_ComponentType type) {
  const ComponentKind* const kind = KindOf(type);
  return kind != nullptr && !kind->Extension.empty();
}

}  // namespace tessel::workspace
