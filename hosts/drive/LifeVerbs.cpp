// The life of the add-in, and what of it no control reaches.

#include "hosts/drive/Fields.h"
#include "hosts/drive/Session.h"

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
  static const VerbTable table{
      {"connect", Connect}, {"disconnect", Disconnect}, {"quit", Quit}, {"run", RunHandler}};
  return table;
}

}  // namespace tessel::drive
