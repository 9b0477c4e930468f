#include "projectmodel/ProjectTables.h"

#include <algorithm>

namespace tessel {
namespace {

constexpr std::int32_t OtherProjectPicture = 124;
constexpr std::int32_t ProjectPictures[] = {133, 132, 131, 130};

constexpr HostRow Hosts[] = {
    {u"EXCEL", 1, 141, 137}, {u"WINWORD", 6, 136, 136},  {u"MSPUB", 5, 140, 140},
    {u"VB6", 0, 0, 0},       {u"POWERPNT", 0, 0, 0},     {u"OUTLOOK", 7, 142, 142},
    {u"FRONTPG", 0, 0, 0},   {u"MSACCESS", 2, 139, 138}, {u"ACAD", 8, 143, 143}};
constexpr HostRow OtherHost{u"", 0, 125, 125};

constexpr GroupRow Groups[] = {{host::vbext_ct_StdModule, u"Modules", 115, false},
                               {host::vbext_ct_ClassModule, u"Class Modules", 114, false},
                               {host::vbext_ct_VBForm, u"Forms", 112, true},
                               {host::vbext_ct_VBMDIForm, u"Form MDI", 117, true},
                               {host::vbext_ct_PropPage, u"Property Pages", 119, true},
                               {host::vbext_ct_UserControl, u"User Controls", 116, true},
                               {host::vbext_ct_DocObject, u"User Documents", 118, true},
                               {host::vbext_ct_ActiveXDesigner, u"ActiveX Designers", 113, true}};

}  // namespace

ProjectTexts ProjectCaption(const std::shared_ptr<host::VBProject>& project) {
  if (!project) return {};
  ProjectTexts texts;
  texts.FileName = project->FileName();
  texts.Caption = project->Name();
  if (!texts.FileName.empty()) {
    const std::size_t folder = texts.FileName.find_last_of(u"\\/");
    const StringView file =
        StringView(texts.FileName).substr(folder == String::npos ? 0 : folder + 1);
    texts.Caption += u"[" + String(file) + u"]";
  }
  return texts;
}

std::int32_t ProjectPicture(std::int32_t projectType) {
  if (projectType < 0 || projectType >= static_cast<std::int32_t>(std::size(ProjectPictures))) {
    return OtherProjectPicture;
  }
  return ProjectPictures[projectType];
}

const HostRow& HostByName(StringView name) {
  const auto* const found = std::find_if(std::begin(Hosts), std::end(Hosts),
                                         [&](const HostRow& row) { return row.Name == name; });
  return found == std::end(Hosts) ? OtherHost : *found;
}

const GroupRow* GroupOfType(std::int32_t componentType) {
  const auto* const found = std::find_if(
      std::begin(Groups), std::end(Groups),
      [&](const GroupRow& row) { return static_cast<std::int32_t>(row.Type) == componentType; });
  return found == std::end(Groups) ? nullptr : found;
}

}  // namespace tessel
