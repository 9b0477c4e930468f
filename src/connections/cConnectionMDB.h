// One open database.
#pragma once

#include <memory>
#include <span>

#include "store/Connection.h"

namespace tessel {

/// A table that every snippet database has, and the statement that tells whether it has its
/// columns.
struct SnippetTable {
  StringView Name, Statement;
};
[[nodiscard]] std::span<const SnippetTable> SnippetTables();

class cConnectionMDB {
 public:
  /// The connection object; nothing when it was dropped.
  std::shared_ptr<store::Connection> mConnectMDB;
  /// The connection's name and key.
  String NameConnect;
  /// Full path of the file, as registered.
  String FileName;

  /// Opens the file and checks the tables of a snippet database ("PersonalMarlow" has others and is
  /// not checked). A failure shows a plain message box and answers false.
  [[nodiscard]] bool OpenConnection();
  /// Closes and drops the connection object.
  void CloseConnection();

 private:
  [[nodiscard]] bool CheckStructureMDB() const;
};

}  // namespace tessel
