// The controls on designers.

#include <algorithm>

#include "hosts/drive/Fields.h"
#include "hosts/drive/Session.h"
#include "hosts/model/Component.h"

namespace tessel::drive {
namespace {

/// Values of an object's fields as the property bag has them.
std::vector<std::pair<String, String>> PropertiesField(const Json& request) {
  std::vector<std::pair<String, String>> properties;
  if (!request.contains("properties")) return properties;
  for (const auto& [name, value] : ObjectField(request, "properties").items()) {
    properties.emplace_back(
        vb::FromUtf8(name),
        vb::FromUtf8(value.is_string() ? value.get<std::string>() : value.dump()));
  }
  return properties;
}

/// A class by itself or with its library.
String ClassField(const Json& request) {
  String text = TextField(request, "class");
  const auto words = vb::Split(text, u".");
  if (words.empty() || words.size() > 2 ||
      !std::all_of(words.begin(), words.end(), model::IsName)) {
    Refuse("field \"class\": \"" + Utf8(text) + "\" is no class and no Library.Class");
  }
  return text;
}

Json AddControl(Session& session, const Json& request) {
  const auto control =
      session.Environment().AddControl(TextField(request, "component"), ClassField(request),
                                       TextField(request, "name"), PropertiesField(request));
  return {{"name", Utf8(control->ControlObjectName())}};
}

Json RenameControl(Session& session, const Json& request) {
  session.Environment().RenameControl(TextField(request, "component"), TextField(request, "name"),
                                      TextField(request, "new-name"),
                                      IntField(request, "index", -1));
  return {};
}

Json RemoveControl(Session& session, const Json& request) {
  session.Environment().RemoveControl(TextField(request, "component"), TextField(request, "name"),
                                      IntField(request, "index", -1));
  return {};
}

Json PropertiesJson(const model::DesignerNode& node) {
  Json properties = Json::object();
  for (const auto& item : node.Items) {
    if (item.Child || item.PropertyName.empty()) continue;
    properties[Utf8(item.PropertyName)] =
        Utf8(model::PlainValue(node.RawValue(item.PropertyName).value_or(String())));
  }
  return properties;
}

Json ControlJson(const model::DesignerNode& node) {
  const int index = node.ArrayIndex();
  return {{"class", Utf8(node.Class.substr(node.Class.find(u'.') + 1))},
          {"name", Utf8(node.Name)},
          {"index", index < 0 ? Json(nullptr) : Json(index)},
          {"properties", PropertiesJson(node)},
          {"container", node.Parent == nullptr ? Json(nullptr) : Json(Utf8(node.Parent->Name))}};
}

Json Controls(Session& session, const Json& request) {
  const String name = TextField(request, "component");
  const auto component =
      std::dynamic_pointer_cast<model::VBComponent>(session.Environment().Component(name));
  if (!component->OwnDesigner()) Refuse("\"" + Utf8(name) + "\" has no designer");
  Json controls = Json::array();
  for (const auto* node : component->OwnDesigner()->Tree().Controls()) {
    controls.push_back(ControlJson(*node));
  }
  return {{"controls", controls}};
}

}  // namespace

const VerbTable& ControlVerbs() {
  static const VerbTable table{{"add-control", AddControl},
                               {"rename-control", RenameControl},
                               {"remove-control", RemoveControl},
                               {"controls", Controls}};
  return table;
}

}  // namespace tessel::drive
