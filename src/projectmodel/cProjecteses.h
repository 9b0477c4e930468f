// What the environment has open, as names, numbers and line positions: projects, groups of
// components of one type, components, members. No level holds an object of the environment.
#pragma once

#include "projectmodel/ModelCollection.h"
#include "scanning/Member.h"

namespace tessel {

inline void NameByKey(cNameProcedures& child, const vb::SharedText& key) {
  child.NameAndType = key;
}

/// One component, with its members by name and kind.
class cComponentes : public ModelCollection<cNameProcedures> {
 public:
  /// Line counts of the module at the last scan: when they differ, it must be scanned again.
  std::int32_t CountOfDeclarationLines = 0;
  std::int32_t CountOfLines = 0;
  String Name;
};

inline void NameByKey(cComponentes& child, const vb::SharedText& key) { child.Name = key; }

/// The components of one type within a project, by name.
class cTypeComponentes : public ModelCollection<cComponentes> {
 public:
  /// Code of the hosting application.
  std::int32_t TypeExtendProject = 0;
  /// The `vbext_ComponentType` number.
  std::int32_t TypeComponent = 0;
};

void NameByKey(cTypeComponentes& child, const vb::SharedText& key);

/// One project, with its groups by the number of their type.
class cProjectes : public ModelCollection<cTypeComponentes> {
 public:
  using ModelCollection::item;
  std::shared_ptr<cTypeComponentes> item(std::int32_t type) { return item(vb::Str(type)); }

  /// Picture number by the project's type.
  std::int32_t IcoProject = 0;
  /// Full path; empty for a project that was never saved.
  String FullFileName;
  String VBProjectName;
  /// The caption, which is the key as well.
  String Name;
  std::int16_t Protection = 0;
};

inline void NameByKey(cProjectes& child, const vb::SharedText& key) { child.Name = key; }

/// All projects, by caption.
class cProjecteses : public ModelCollection<cProjectes> {};

}  // namespace tessel
