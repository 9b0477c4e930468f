#include "store/Command.h"

#include "store/Engine.h"
#include "store/Statements.h"

namespace tessel::store {
namespace {

const Value& ParameterOf(const Command& command, const std::string& name) {
  for (const auto& [given, value] : command.Parameters) {
    if (vb::SameText(given, vb::FromUtf8(name))) return value;
  }
  throw vb::Failure(
      StoreFailure,
      u"No value given for the parameter " + vb::FromUtf8(name) + u": " + command.CommandText,
      u"Tessel.store");
}

}  // namespace

int Command::Execute() {
  sqlite3* const db = engine::Need(ActiveConnection.get());
  Transaction transaction(*ActiveConnection);
  const auto statement = engine::Prepare(db, TranslateStatement(CommandText));
  const int count = sqlite3_bind_parameter_count(statement.get());
  for (int parameter = 1; parameter <= count; ++parameter) {
    const char* name = sqlite3_bind_parameter_name(statement.get(), parameter);
    engine::Bind(db, statement.get(), parameter, ParameterOf(*this, name == nullptr ? "?" : name));
  }
  while (engine::Step(db, statement.get())) {
  }
  const int changed = sqlite3_changes(db);
  transaction.Commit();
  return changed;
}

}  // namespace tessel::store
