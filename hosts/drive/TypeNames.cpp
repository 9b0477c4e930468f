#include "hosts/drive/TypeNames.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "hosts/drive/Fields.h"

namespace tessel::drive {
namespace {

struct TypeName {
  int Number;
  StringView Name;
};

/// The first name of a number is that of the environment; others are what people call it.
constexpr TypeName ComponentTypes[] = {{host::vbext_ct_StdModule, u"StdModule"},
                                       {host::vbext_ct_StdModule, u"Module"},
                                       {host::vbext_ct_ClassModule, u"ClassModule"},
                                       {host::vbext_ct_ClassModule, u"Class"},
                                       {host::vbext_ct_VBForm, u"VBForm"},
                                       {host::vbext_ct_VBForm, u"Form"},
                                       {host::vbext_ct_VBMDIForm, u"VBMDIForm"},
                                       {host::vbext_ct_VBMDIForm, u"MDIForm"},
                                       {host::vbext_ct_PropPage, u"PropPage"},
                                       {host::vbext_ct_PropPage, u"PropertyPage"},
                                       {host::vbext_ct_UserControl, u"UserControl"},
                                       {host::vbext_ct_DocObject, u"DocObject"},
                                       {host::vbext_ct_DocObject, u"UserDocument"},
                                       {host::vbext_ct_ActiveXDesigner, u"ActiveXDesigner"},
                                       {host::vbext_ct_ActiveXDesigner, u"Designer"}};

constexpr TypeName ProjectTypes[] = {{host::vbext_pt_StandardExe, u"StandardExe"},
                                     {host::vbext_pt_ActiveXExe, u"ActiveXExe"},
                                     {host::vbext_pt_ActiveXDll, u"ActiveXDll"},
                                     {host::vbext_pt_ActiveXControl, u"ActiveXControl"}};

int TypeField(const Json& request, const char* field, std::span<const TypeName> types) {
  const bool byName = request.contains(field) && request[field].is_string();
  const String name = byName ? TextField(request, field) : String();
  const int number = byName ? 0 : IntField(request, field);
  const auto found = std::find_if(types.begin(), types.end(), [&](const TypeName& one) {
    return byName ? vb::SameText(one.Name, name) : one.Number == number;
  });
  if (found != types.end()) return found->Number;
  std::string known;
  for (const TypeName& one : types) {
    known += (known.empty() ? "" : ", ") + std::to_string(one.Number) + ' ' + vb::ToUtf8(one.Name);
  }
  Refuse("field \"" + std::string(field) + "\": there is no type " +
         (byName ? '"' + vb::ToUtf8(name) + '"' : std::to_string(number)) + " (" + known + ')');
}

}  // namespace

host::vbext_ComponentType ComponentTypeField(const Json& request, const char* field) {
  return static_cast<host::vbext_ComponentType>(TypeField(request, field, ComponentTypes));
}

host::vbext_ProjectType ProjectTypeField(const Json& request, const char* field) {
  return static_cast<host::vbext_ProjectType>(TypeField(request, field, ProjectTypes));
}

}  // namespace tessel::drive
