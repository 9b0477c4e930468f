// What a user does with a dialog.

#include "forms/Document.h"
#include "forms/User.h"
#include "hosts/drive/Fields.h"
#include "hosts/drive/FormJson.h"
#include "hosts/drive/RunDifferences.h"
#include "hosts/drive/Session.h"

namespace tessel::drive {
namespace {

namespace user = forms::user;

constexpr int ReturnKey = 13;

/// A dockable document that is open by its name, else a form.
std::shared_ptr<forms::Surface> SurfaceOf(Session& session, const Json& request) {
  const String name = TextField(request, "form", u"");
  for (const auto& document : session.Environment().OpenDocuments()) {
    if (name.empty() || !vb::SameText(document->Name(), name)) continue;
    session.Desktop().RefuseBehindBox();
    return document;
  }
  return session.Desktop().OpenForm(name);
}

/// The surface stays alive as long as this, whatever the action does to it.
struct Target {
  std::shared_ptr<forms::Surface> Surface;
  forms::Control* Control;
};

Target ControlOf(Session& session, const Json& request) {
  const String name = TextField(request, "control");
  auto surface = SurfaceOf(session, request);
  forms::Control* control = surface->Find(name);
  if (control == nullptr) {
    Refuse("form \"" + Utf8(surface->Name()) + "\" has no control \"" + Utf8(name) + '"');
  }
  return {std::move(surface), control};
}

Json Form(Session& session, const Json& request) {
  return SurfaceJson(*SurfaceOf(session, request));
}

Json Type(Session& session, const Json& request) {
  const String text = TextField(request, "text");
  user::Type(*ControlOf(session, request).Control, text);
  return {};
}

Json Pick(Session& session, const Json& request) {
  const Target target = ControlOf(session, request);
  if (request.contains("index")) {
    user::Pick(*target.Control, IntField(request, "index"));
  } else {
    user::Pick(*target.Control, TextField(request, "text"));
  }
  return {};
}

Json Check(Session& session, const Json& request) {
  const int value = IntField(request, "value");
  const Target target = ControlOf(session, request);
  if (request.contains("row")) {
    user::Tick(*target.Control, IntField(request, "row"), value != 0);
  } else {
    user::Check(*target.Control, value);
  }
  return {};
}

Json Press(Session& session, const Json& request) {
  const Target target = ControlOf(session, request);
  if (request.contains("row")) {
    user::PressCell(*target.Control, IntField(request, "row"), IntField(request, "col"));
  } else if (request.contains("item")) {
    user::PressItem(*target.Control, TextField(request, "item"));
  } else {
    CarryReviewed(session, *target.Surface,
                  review::RunOfButton(target.Surface->Name(), target.Control->Name()),
                  [&] { user::Press(*target.Control); });
  }
  return {};
}

Json Page(Session& session, const Json& request) {
  const int index = IntField(request, "index");
  user::SelectPage(*ControlOf(session, request).Control, index);
  return {};
}

Json Row(Session& session, const Json& request) {
  const int row = IntField(request, "row");
  const Target target = ControlOf(session, request);
  int col = 0;
  if (const auto* grid = dynamic_cast<const forms::Grid*>(target.Control)) col = grid->Col();
  user::SelectRow(*target.Control, row, IntField(request, "col", col));
  return {};
}

Json Edit(Session& session, const Json& request) {
  const int row = IntField(request, "row");
  const int col = IntField(request, "col");
  const String text = TextField(request, "text");
  user::EditCell(*ControlOf(session, request).Control, row, col, text);
  return {};
}

/// Verbs that name a control and a row.
template <void (*Action)(forms::Control&, int)>
Json OnRow(Session& session, const Json& request) {
  const int row = IntField(request, "row");
  Action(*ControlOf(session, request).Control, row);
  return {};
}

Json SelectText(Session& session, const Json& request) {
  const int start = IntField(request, "start");
  const int length = IntField(request, "length");
  user::SelectText(*ControlOf(session, request).Control, start, length);
  return {};
}

Json Focus(Session& session, const Json& request) {
  user::Focus(*ControlOf(session, request).Control);
  return {};
}

Json Key(Session& session, const Json& request) {
  const int ascii = IntField(request, "ascii");
  const Target target = ControlOf(session, request);
  std::optional<review::RunKind> run;
  if (ascii == ReturnKey) {
    const bool onButton = dynamic_cast<const forms::Button*>(target.Control) != nullptr;
    run = onButton ? review::RunOfButton(target.Surface->Name(), target.Control->Name())
                   : review::RunOfForm(target.Surface->Name());
  }
  CarryReviewed(session, *target.Surface, run, [&] { user::Key(*target.Control, ascii); });
  return {};
}

Json Drop(Session& session, const Json& request) {
  const int row = IntField(request, "row");
  const auto files = TextListField(request, "files");
  user::Drop(*ControlOf(session, request).Control, row, files);
  return {};
}

Json Spin(Session& session, const Json& request) {
  const int value = IntField(request, "value");
  user::Spin(*ControlOf(session, request).Control, value);
  return {};
}

Json Close(Session& session, const Json& request) {
  if (session.Desktop().CloseMenu()) return {};
  const auto form = session.Desktop().OpenForm(TextField(request, "form", u""));
  user::Close(*form);
  return {};
}

Json Menu(Session& session, const Json& request) {
  session.Desktop().ChooseItem(TextField(request, "item"));
  return {};
}

Json Answer(Session& session, const Json& request) {
  session.Desktop().AnswerBox(request);
  return {};
}

}  // namespace

const VerbTable& DialogVerbs() {
  static const VerbTable table{{"form", Form},
                               {"type", Type},
                               {"pick", Pick},
                               {"check", Check},
                               {"press", Press},
                               {"page", Page},
                               {"row", Row},
                               {"edit", Edit},
                               {"expand", OnRow<user::Expand>},
                               {"collapse", OnRow<user::Collapse>},
                               {"double-click", OnRow<user::DoubleClick>},
                               {"right-click", OnRow<user::RightClick>},
                               {"select-text", SelectText},
                               {"focus", Focus},
                               {"key", Key},
                               {"drop", Drop},
                               {"spin", Spin},
                               {"menu", Menu},
                               {"close", Close},
                               {"answer", Answer}};
  return table;
}

}  // namespace tessel::drive
