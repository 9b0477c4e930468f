// The command bars.

#include "hosts/drive/Fields.h"
#include "hosts/drive/Session.h"
#include "hosts/model/CommandBars.h"

namespace tessel::drive {
namespace {

Json ControlsJson(host::CommandBarControls& controls);

Json ControlJson(const std::shared_ptr<host::CommandBarControl>& control) {
  const auto* model = dynamic_cast<const model::CommandBarControl*>(control.get());
  Json json{{"caption", Utf8(control->Caption())},
            {"type", static_cast<int>(control->Type())},
            {"begin-group", control->BeginGroup()},
            {"enabled", control->Enabled()},
            {"visible", control->Visible()},
            {"face-id", control->FaceId()},
            {"picture", model == nullptr ? 0 : model->PictureNumber()},
            {"on-action", Utf8(control->OnAction())}};
  if (const auto below = control->Controls()) json["controls"] = ControlsJson(*below);
  return json;
}

Json ControlsJson(host::CommandBarControls& controls) {
  Json all = Json::array();
  for (int index = 1; index <= controls.Count(); ++index) {
    all.push_back(ControlJson(controls.Item(index)));
  }
  return all;
}

Json Bars(Session& session, const Json&) {
  Json all = Json::array();
  const auto bars = session.Environment().VBE()->CommandBars();
  for (int index = 1; index <= bars->Count(); ++index) {
    const auto bar = bars->Item(index);
    all.push_back({{"name", Utf8(bar->Name())},
                   {"visible", bar->Visible()},
                   {"position", bar->Position()},
                   {"row-index", bar->RowIndex()},
                   {"left", bar->Left()},
                   {"top", bar->Top()},
                   {"controls", ControlsJson(*bar->Controls())}});
  }
  return {{"bars", all}};
}

/// The control at the end of a path: the bar's name, then captions from the outside in.
std::shared_ptr<host::CommandBarControl> ControlAt(Session& session,
                                                   const std::vector<String>& path) {
  if (path.size() < 2) Refuse("field \"path\" needs a bar and at least one caption");
  std::shared_ptr<host::CommandBarControls> controls;
  std::shared_ptr<host::CommandBarControl> control;
  try {
    controls = session.Environment().VBE()->CommandBars()->Item(path.front())->Controls();
  } catch (const vb::Failure&) {
    Refuse("there is no command bar \"" + Utf8(path.front()) + '"');
  }
  for (std::size_t step = 1; step < path.size(); ++step) {
    try {
      if (!controls) Refuse("");
      control = controls->Item(path[step]);
    } catch (const vb::Failure&) {
      Refuse("there is no control \"" + Utf8(path[step]) + "\" below \"" + Utf8(path[step - 1]) +
             '"');
    }
    controls = control->Controls();
  }
  return control;
}

Json Click(Session& session, const Json& request) {
  const auto path = TextListField(request, "path");
  const auto* top = session.Desktop().Top();
  if (top != nullptr && !std::holds_alternative<std::shared_ptr<forms::Form>>(*top)) {
    Refuse("a box waits for its answer first");
  }
  const auto control = ControlAt(session, path);
  if (control->Controls()) Refuse("\"" + Utf8(path.back()) + "\" is a pop-up");
  if (!control->Visible()) Refuse("\"" + Utf8(path.back()) + "\" is hidden");
  if (!control->Enabled()) Refuse("\"" + Utf8(path.back()) + "\" is disabled");
  control->Execute();
  return {};
}

}  // namespace

const VerbTable& BarVerbs() {
  static const VerbTable table{{"bars", Bars}, {"click", Click}};
  return table;
}

}  // namespace tessel::drive
