#include "connections/OpenRegistered.h"

#include <filesystem>

#include "platform/Platform.h"

namespace tessel {
namespace {

std::filesystem::path Native(StringView path) {
  return {platform::Current().App().NativePath(path)};
}

bool IsSameFile(StringView one, StringView other) {
  if (vb::SameText(one, other)) return true;
  std::error_code error;
  return std::filesystem::equivalent(Native(one), Native(other), error) && !error;
}

}  // namespace

bool OpenRegistered(const RegisteredConnection& row) {
  const auto connection = std::make_shared<cConnectionMDB>();
  gConnectionMDBs->Add(connection, row.Name);
  connection->mConnectMDB = std::make_shared<store::Connection>();
  connection->NameConnect = row.Name;
  connection->FileName = row.FileName;
  if (connection->OpenConnection()) return true;
  connection->mConnectMDB.reset();
  gConnectionMDBs->Remove(row.Name);
  gConnectReestr->DeleteConnection(row.FileName);
  return false;
}

std::shared_ptr<cConnectionMDB> ConnectionToFile(StringView fileName) {
  if (!gConnectionMDBs) return nullptr;
  for (const auto& [name, connection] : *gConnectionMDBs) {
    if (IsSameFile(connection->FileName, fileName)) return connection;
  }
  return nullptr;
}

}  // namespace tessel
