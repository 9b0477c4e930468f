// What the Explorer's tree has to show, read from the environment without any of its code.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "forms/Grid.h"
#include "host/VBE.h"
#include "scanning/mFunctions.h"
#include "vb/Numbers.h"

namespace tessel::test {

/// Rows as a person would note them who has the member tables and the list of what is open.
class PlainReading {
 public:
  PlainReading(host::VBE& vbe, bool property, bool method, bool control)
      : property_(property), method_(method), control_(control) {
    for (int index = 1; index <= vbe.VBProjects()->Count(); ++index) {
      Project(*vbe.VBProjects()->Item(index));
    }
  }
  std::vector<std::string> Rows;

  static std::string Row(int level, int picture, const std::vector<String>& cells) {
    std::string row = std::to_string(level) + " #" + std::to_string(picture);
    for (const String& cell : cells) row += " | " + vb::ToUtf8(cell);
    return row;
  }

 private:
  struct Group {
    int Picture;
    StringView Title;
    bool Object;
  };
  static const std::map<int, Group>& Groups() {
    static const std::map<int, Group> groups{
        {1, {115, u"Modules", false}},       {2, {114, u"Class Modules", false}},
        {5, {112, u"Forms", true}},          {6, {117, u"Form MDI", true}},
        {7, {119, u"Property Pages", true}}, {8, {116, u"User Controls", true}},
        {9, {118, u"User Documents", true}}, {11, {113, u"ActiveX Designers", true}}};
    return groups;
  }

  void Project(host::VBProject& project) {
    const String file = project.FileName();
    String caption = project.Name();
    if (!file.empty()) caption += u"[" + file.substr(file.find_last_of(u"/\\") + 1) + u"]";
    constexpr int Pictures[] = {133, 132, 131, 130};
    Rows.push_back(
        Row(0, Pictures[project.Type()],
            {caption, caption, project.Name(), u"", u"2", u"", u"", u"", u"", u"", u"", u""}));
    std::vector<int> order;
    std::map<int, std::vector<std::shared_ptr<host::VBComponent>>> byType;
    for (int index = 1; index <= project.VBComponents()->Count(); ++index) {
      const auto component = project.VBComponents()->Item(index);
      auto& group = byType[component->Type()];
      if (group.empty()) order.push_back(component->Type());
      group.push_back(component);
    }
    for (const int type : order) {
      const auto group = Groups().find(type);
      if (group == Groups().end()) continue;
      const String key = vb::Str(type) + u"." + caption;
      Rows.push_back(Row(1, group->second.Picture,
                         {String(group->second.Title), key, project.Name(), u"", u"2", u"", u"",
                          u"", u"", u"", u"", u""}));
      std::set<String> names;
      for (const auto& component : byType[type]) {
        if (!names.insert(vb::UCase(component->Name())).second) shared_ = true;
        Component(*component, group->second, key, project.Name());
      }
    }
  }

  void Component(host::VBComponent& component, const Group& group, const String& key,
                 const String& project) {
    const String name = component.Name(), view = group.Object ? u"1" : u"0";
    Rows.push_back(
        Row(2, group.Picture,
            {name, key + u"." + name, project, key, view, name, u"", u"", u"", u"", u"", u""}));
    const auto table = mFunctions::AllNameProcedures(component.CodeModule(), u"");
    std::set<String> seen;
    for (const Member& member : table.value_or(std::vector<Member>())) {
      constexpr const char16_t* Tokens[] = {u" [Proc]", u" [Let]", u" [Set]", u" [Get]"};
      const bool event = member.Kind == 99;
      const String text = member.Name + (event ? u" [Ctl]" : Tokens[member.Kind]);
      if (!seen.insert(vb::UCase(text)).second) continue;
      if (event ? !control_ : member.Kind == 0 ? !method_ : !property_) continue;
      constexpr int Pictures[] = {123, 121, 120, 122};
      Rows.push_back(Row(3, event ? 129 : Pictures[member.Kind],
                         {member.Name, text, project, key, view, name, u"", u"",
                          vb::Str(member.StartLine), u"", u"", u""}));
    }
  }

 public:
  /// Two components of a group bear one name, so that they share a row.
  [[nodiscard]] bool SharesRows() const { return shared_; }

 private:
  bool property_, method_, control_, shared_ = false;
};

/// The rows that a tree has.
inline std::vector<std::string> RowsIn(const forms::Grid& grid) {
  std::vector<std::string> rows;
  for (int row = 0; row < grid.Rows(); ++row) {
    const forms::GridRow& one = grid.RowAt(row);
    std::vector<String> cells;
    for (int col = 0; col < grid.Cols(); ++col) cells.push_back(grid.TextMatrix(row, col));
    rows.push_back(PlainReading::Row(one.Level, one.Picture, cells));
  }
  return rows;
}

}  // namespace tessel::test
