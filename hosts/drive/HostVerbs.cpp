// Everything that a person does in the development environment itself.

#include "hosts/drive/Fields.h"
#include "hosts/drive/MemberJson.h"
#include "hosts/drive/Session.h"
#include "scanning/ModuleOf.h"
#include "scanning/mFunctions.h"

namespace tessel::drive {
namespace {

Json SelectComponent(Session& session, const Json& request) {
  session.Environment().SelectComponent(TextField(request, "component", u""));
  return {};
}

Json Text(Session& session, const Json& request) {
  return {{"text", Utf8(session.Environment().Text(TextField(request, "component")))}};
}

Json SetText(Session& session, const Json& request) {
  session.Environment().SetText(TextField(request, "component"), TextField(request, "text"));
  return {};
}

Json Caret(Session& session, const Json& request) {
  host::Selection selection;
  selection.StartLine = IntField(request, "line");
  selection.StartColumn = IntField(request, "column", 1);
  selection.EndLine = IntField(request, "end-line", selection.StartLine);
  selection.EndColumn = IntField(request, "end-column", selection.StartColumn);
  if (selection.StartLine < 1 || selection.EndLine < 1) Refuse("lines count from 1");
  if (selection.StartColumn < 1 || selection.EndColumn < 1) Refuse("columns count from 1");
  session.Environment().SetCaret(TextField(request, "component"), selection);
  return {};
}

Json ClosePane(Session& session, const Json& request) {
  session.Environment().ClosePane(TextField(request, "component"));
  return {};
}

Json Pane(Session& session, const Json&) {
  const auto pane = session.Environment().VBE()->ActiveCodePane();
  if (!pane) return {{"component", nullptr}, {"selection", nullptr}, {"top-line", nullptr}};
  const host::Selection at = pane->GetSelection();
  return {{"component", Utf8(pane->CodeModule()->Name())},
          {"selection",
           {{"line", at.StartLine},
            {"column", at.StartColumn},
            {"end-line", at.EndLine},
            {"end-column", at.EndColumn}}},
          {"top-line", pane->TopLine()}};
}

Json Members(Session& session, const Json& request) {
  const auto component = session.Environment().Component(TextField(request, "component"));
  const MemberTable table = mFunctions::AllNameProcedures(ModuleOf(component), u"");
  if (!table) return {{"members", nullptr}};
  Json members = Json::array();
  for (const Member& member : *table) members.push_back(MemberJson(member));
  return {{"members", members}};
}

Json Windows(Session& session, const Json&) {
  Json windows = Json::array();
  for (const auto& window : session.Environment().OpenWindows()) {
    windows.push_back({{"handle", window.Handle},
                       {"class", Utf8(window.Class)},
                       {"caption", Utf8(window.Caption)},
                       {"visible", window.Visible},
                       {"parent", window.Parent}});
  }
  return {{"windows", windows}};
}

Json Message(Session& session, const Json& request) {
  const std::intptr_t window = IntField(request, "window");
  if (session.Services().Windows().ClassName(window).empty()) {
    Refuse("there is no window " + std::to_string(window));
  }
  const auto result = session.Environment().OwnWindows().Send(
      {window, static_cast<std::uint32_t>(IntField(request, "message")),
       IntField(request, "wparam", 0), IntField(request, "lparam", 0)});
  return {{"result", result}};
}

}  // namespace

const VerbTable& HostVerbs() {
  static const VerbTable table{{"select-component", SelectComponent},
                               {"text", Text},
                               {"set-text", SetText},
                               {"caret", Caret},
                               {"close-pane", ClosePane},
                               {"pane", Pane},
                               {"members", Members},
                               {"windows", Windows},
                               {"message", Message}};
  return table;
}

}  // namespace tessel::drive
