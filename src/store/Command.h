// A prepared text command, shaped after ADO.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "store/Connection.h"

struct sqlite3_stmt;

namespace tessel::store {

/// Parameters stand in the text as "@Name"; one that occurs twice has one value. The text is
/// prepared when it runs first and kept, until the text or the connection changes.
class Command {
 public:
  using NamedValues = std::vector<std::pair<String, Value>>;

  Command();
  Command(std::shared_ptr<Connection> connection, String text, NamedValues parameters = {});
  ~Command();
  Command(Command&& other) noexcept;
  Command& operator=(Command&& other) noexcept;

  std::shared_ptr<Connection> ActiveConnection;
  String CommandText;
  NamedValues Parameters;

  /// Runs the command with `Parameters` inside its own transaction and answers the number of rows
  /// changed. Fails with `StoreFailure`; also when a parameter of the text has no value.
  int Execute();
  /// The same with values in the order in which the parameters first occur. Fails with
  /// `StoreFailure` when there are more or fewer of them.
  int Execute(const std::vector<Value>& values);

 private:
  friend class Recordset;
  struct Prepared;

  Prepared& Prepare();
  [[nodiscard]] std::vector<Value> ValuesByName();

  std::unique_ptr<Prepared> prepared_;
};

}  // namespace tessel::store
