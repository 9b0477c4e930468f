#include "store/Command.h"

#include <algorithm>

#include "store/PreparedCommand.h"

namespace tessel::store {
namespace {

[[noreturn]] void Fail(String text) {
  throw vb::Failure(StoreFailure, std::move(text), u"Tessel.store");
}

}  // namespace

Command::Command() = default;
Command::Command(std::shared_ptr<Connection> connection, String text, NamedValues parameters)
    : ActiveConnection(std::move(connection)),
      CommandText(std::move(text)),
      Parameters(std::move(parameters)) {}
Command::~Command() = default;
Command::Command(Command&& other) noexcept = default;
Command& Command::operator=(Command&& other) noexcept = default;

void Command::Prepared::Bind(sqlite3* db, const std::vector<Value>& values) const {
  const auto wanted = static_cast<std::size_t>(sqlite3_bind_parameter_count(Statement.get()));
  if (values.size() != wanted) {
    Fail(u"The command takes " + vb::Str(wanted) + u" values, not " + vb::Str(values.size()) +
         u": " + Text);
  }
  int parameter = 1;
  for (const Value& value : values) engine::Bind(db, Statement.get(), parameter++, value);
}

Command::Prepared& Command::Prepare() {
  sqlite3* const db = engine::Need(ActiveConnection.get());
  // A connection that was opened again has another handle, also while the old one lingers for the
  // sake of this very statement.
  if (!prepared_ || prepared_->Text != CommandText ||
      sqlite3_db_handle(prepared_->Statement.get()) != db) {
    prepared_.reset();
    Translation translation = ActiveConnection->Translate(CommandText);
    engine::Statement statement = engine::Prepare(db, translation.Sql);
    prepared_ = std::make_unique<Prepared>(
        Prepared{CommandText, std::move(translation), std::move(statement)});
  }
  return *prepared_;
}

std::vector<Value> Command::ValuesByName() {
  sqlite3_stmt* const statement = Prepare().Statement.get();
  std::vector<Value> values;
  const int count = sqlite3_bind_parameter_count(statement);
  for (int parameter = 1; parameter <= count; ++parameter) {
    const char* const known = sqlite3_bind_parameter_name(statement, parameter);
    const String name = known == nullptr ? String(u"?") : vb::FromUtf8(known);
    const auto given = std::find_if(Parameters.begin(), Parameters.end(),
                                    [&](const auto& one) { return vb::SameText(one.first, name); });
    if (given == Parameters.end()) {
      Fail(u"No value given for the parameter " + name + u": " + CommandText);
    }
    values.push_back(given->second);
  }
  return values;
}

int Command::Execute() { return Execute(ValuesByName()); }

int Command::Execute(const std::vector<Value>& values) {
  sqlite3* const db = engine::Need(ActiveConnection.get());
  Transaction transaction(*ActiveConnection);
  const Prepared& prepared = Prepare();
  sqlite3_stmt* const statement = prepared.Statement.get();
  {
    const engine::Resetting resetting(statement);
    prepared.Bind(db, values);
    while (engine::Step(db, statement)) {
    }
  }
  const int changed = sqlite3_stmt_readonly(statement) != 0 ? 0 : sqlite3_changes(db);
  transaction.Commit();
  return changed;
}

}  // namespace tessel::store
