// The life of the add-in, and what of it no control reaches.

#include "contextmenu/frmContextMenu.h"
#include "hosts/drive/Fields.h"
#include "hosts/drive/Session.h"
#include "scanning/ModuleOf.h"

namespace tessel::drive {
namespace {

Json Connect(Session& session, const Json&) {
  session.Connect();
  return {};
}

Json RunHandler(Session& session, const Json& request) {
  session.RunHandler(TextField(request, "handler"));
  return {};
}

/// The pane in front, after the component that a request names was brought there.
std::shared_ptr<host::CodePane> PaneOf(Session& session, const Json& request) {
  const auto calls = session.Environment().WhoseCalls(model::CallsOf::Environment);
  const String name = TextField(request, "component", u"");
  if (!name.empty()) {
    const auto module = ModuleOf(session.Environment().Component(name));
    if (!module) Refuse("\"" + Utf8(name) + "\" has no code");
    const auto pane = module->CodePane();
    pane->Show();
    return pane;
  }
  auto pane = session.Environment().VBE()->ActiveCodePane();
  if (!pane) Refuse("no code pane is in front");
  return pane;
}

/// The word that the user picks from a list that is given.
String PickFrom(const std::vector<String>& items, host::CodePane& pane, int codeX, int codeY) {
  String chosen;
  Enter([&] {
    const auto form = std::make_shared<frmContextMenu>();
    form->ArrayMenu = items;
    form->hwndCODE = pane.Window()->HWnd();
    form->CodeX = codeX;
    form->CodeY = codeY;
    form->Show(platform::ShowStyle::Modal);
    chosen = form->ItemMenu;
    form->Unload();
  });
  return chosen;
}

/// The reply that closes the list tells the word.
Json ContextMenu(Session& session, const Json& request) {
  const int codeX = IntField(request, "x", 0), codeY = IntField(request, "y", 0);
  const auto pane = PaneOf(session, request);
  const String item = request.contains("items")
                          ? PickFrom(TextListField(request, "items"), *pane, codeX, codeY)
                          : session.ShowContextMenu(codeX, codeY);
  session.Channel().AddToReply({{"item", Utf8(item)}});
  return {};
}

/// Closes what is open first: the waits end, then the add-in goes.
Json Disconnect(Session& session, const Json&) {
  session.Channel().Unwind([&session] { session.Disconnect(); });
  return {};
}

Json Quit(Session& session, const Json&) {
  session.Channel().Close([&session] { session.Disconnect(); });
  return {};
}

}  // namespace

const VerbTable& LifeVerbs() {
  static const VerbTable table{{"connect", Connect},
                               {"disconnect", Disconnect},
                               {"quit", Quit},
                               {"run", RunHandler},
                               {"context-menu", ContextMenu}};
  return table;
}

}  // namespace tessel::drive
