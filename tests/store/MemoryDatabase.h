// A database in memory and what tests ask of it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "store/Recordset.h"

namespace tessel::store::test {

inline std::shared_ptr<Connection> InMemory(std::string_view statements) {
  auto connection = std::make_shared<Connection>();
  connection->OpenMemory(statements);
  return connection;
}

/// The first column of every row, as text.
inline std::vector<std::string> FirstColumn(StringView statement,
                                            const std::shared_ptr<Connection>& connection) {
  Recordset records;
  records.Open(statement, connection);
  std::vector<std::string> texts;
  for (std::size_t row = 0; row < records.RecordCount(); ++row) {
    texts.push_back(vb::ToUtf8(ToText(records.Cell(row, 0))));
  }
  return texts;
}

using Texts = std::vector<std::string>;

}  // namespace tessel::store::test
