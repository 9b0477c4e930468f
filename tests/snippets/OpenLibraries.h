// Open snippet databases for the length of a test, as the add-in has them between connection and
// disconnection.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "connections/cConnectReestr.h"
#include "connections/cConnectionMDBs.h"
#include "foundation/CAppSettings.h"
#include "snippets/SnippetDatabase.h"

namespace tessel::test {

/// Settings, the registered list and the open connections; empty at first. The platform must be
/// installed for as long.
class OpenLibraries {
 public:
  OpenLibraries() {
    gAppSettings = std::make_shared<CAppSettings>();
    gAppSettings->Init(u"Norvane", u"Tessel");
    gConnectReestr = std::make_shared<cConnectReestr>();
    gConnectReestr->Init(gAppSettings);
    gConnectionMDBs = std::make_shared<cConnectionMDBs>();
  }
  ~OpenLibraries() {
    gConnectionMDBs.reset();
    gConnectReestr.reset();
    gAppSettings.reset();
  }
  OpenLibraries(const OpenLibraries&) = delete;
  OpenLibraries& operator=(const OpenLibraries&) = delete;

  /// Makes an empty database, registers it and opens it under that name.
  std::shared_ptr<CSQLTree> Add(StringView name) {
    const std::filesystem::path file = Folder.Path() / (vb::ToUtf8(name) + ".mdb");
    WriteEmptyDatabase(file);
    gConnectReestr->SaveConnect(name, file.u16string());
    const auto connection = std::make_shared<cConnectionMDB>();
    connection->NameConnect = name;
    connection->FileName = file.u16string();
    EXPECT_TRUE(connection->OpenConnection());
    gConnectionMDBs->Add(connection, name);
    return OpenTree(connection->mConnectMDB);
  }
  [[nodiscard]] static std::shared_ptr<store::Connection> At(StringView name) {
    return gConnectionMDBs->item(name)->mConnectMDB;
  }

  const TemporaryFolder Folder;
};

}  // namespace tessel::test
