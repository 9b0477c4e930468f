#include "hosts/workbench/window/CodeObjects.h"

#include <algorithm>
#include <set>

#include "hosts/workbench/window/ControlEvents.h"

namespace tessel::workbench {
namespace {

/// What the event procedures of the object that a module is begin with.
StringView RootObject(host::vbext_ComponentType type) {
  switch (type) {
    case host::vbext_ct_VBForm:
      return u"Form";
    case host::vbext_ct_VBMDIForm:
      return u"MDIForm";
    case host::vbext_ct_UserControl:
      return u"UserControl";
    case host::vbext_ct_PropPage:
      return u"PropertyPage";
    case host::vbext_ct_DocObject:
      return u"UserDocument";
    case host::vbext_ct_ClassModule:
      return u"Class";
    default:
      return {};
  }
}

bool ByName(const CodeObject& a, const CodeObject& b) {
  return vb::StrComp(a.Name, b.Name, vb::Compare::Text) < 0;
}

String CaptionOf(const model::MemberIndex::Member& member) {
  static constexpr StringView Kinds[] = {u"", u" [Property Let]", u" [Property Set]",
                                         u" [Property Get]"};
  return member.Name + String(Kinds[member.Kind]);
}

void AddAbsentEvents(std::vector<CodeProcedure>& procedures, const CodeObject& object) {
  std::set<String> there;
  for (const CodeProcedure& one : procedures) there.insert(vb::LCase(one.Caption));
  for (const ObjectEvent& event : EventsOf(object.Class)) {
    if (there.count(vb::LCase(event.Name)) != 0) continue;
    procedures.push_back({String(event.Name), object.Name + u"_" + String(event.Name),
                          String(event.Parameters), host::vbext_pk_Proc, 0});
  }
}

}  // namespace

std::vector<CodeObject> ObjectsOf(const model::VBComponent& component) {
  std::vector<CodeObject> objects{{}};
  const StringView root = RootObject(component.PlainType());
  if (root.empty()) return objects;
  objects.push_back({String(root), root == u"Class" ? String(root) : u"VB." + String(root)});
  if (!component.OwnDesigner()) return objects;
  std::set<String> names;  // the elements of a control array are one object
  for (const model::DesignerNode* node : component.OwnDesigner()->Tree().Controls()) {
    if (names.insert(vb::LCase(node->Name)).second) objects.push_back({node->Name, node->Class});
  }
  std::sort(objects.begin() + 2, objects.end(), ByName);
  return objects;
}

std::size_t ObjectOfMember(const std::vector<CodeObject>& objects, StringView member) {
  std::size_t best = 0;
  for (std::size_t at = 1; at < objects.size(); ++at) {
    const String& name = objects[at].Name;
    const bool begins = member.size() > name.size() && member[name.size()] == u'_' &&
                        vb::SameText(member.substr(0, name.size()), name);
    // "A_B_Click" belongs to the control "A_B" when there is one.
    if (begins && (best == 0 || name.size() > objects[best].Name.size())) best = at;
  }
  return best;
}

std::vector<CodeProcedure> ProceduresOf(const model::VBComponent& component,
                                        const std::vector<CodeObject>& objects,
                                        std::size_t object) {
  std::vector<CodeProcedure> procedures;
  if (!component.Module() || object >= objects.size()) return procedures;
  for (const auto& member : component.Module()->Index().Members()) {
    if (ObjectOfMember(objects, member.Name) != object) continue;
    String caption = CaptionOf(member);
    if (object > 0) caption = caption.substr(objects[object].Name.size() + 1);
    procedures.push_back({std::move(caption), member.Name, {}, member.Kind, member.Lines.Body});
  }
  if (object > 0) AddAbsentEvents(procedures, objects[object]);
  std::sort(procedures.begin(), procedures.end(),
            [](const CodeProcedure& a, const CodeProcedure& b) {
              return vb::StrComp(a.Caption, b.Caption, vb::Compare::Text) < 0;
            });
  if (object == 0) procedures.insert(procedures.begin(), {u"(Declarations)", {}, {}, {}, 1});
  return procedures;
}

}  // namespace tessel::workbench
