#include "connections/cConnectionMDB.h"

#include "connections/cConnectionMDBs.h"
#include "platform/Platform.h"
#include "store/PlainCause.h"
#include "store/Recordset.h"

namespace tessel {
namespace {

/// A snippet database has at least these columns; more columns and tables are welcome.
constexpr SnippetTable NeededTables[] = {
    {u"Tree", u"SELECT ID, Name, lft, rgt, Root FROM Tree"},
    {u"List",
     u"SELECT Id, Text, TitleObj, TextObj, CompObj, NameObj, ClassObj, TextUserNotes FROM List"},
    {u"NameMDB", u"SELECT Name FROM NameMDB"}};

void Report(StringView text) {
  platform::Platform& services = platform::Current();
  services.Boxes().ShowMessage(text, services.App().Title(), platform::OKOnly);
}

}  // namespace

std::span<const SnippetTable> SnippetTables() { return NeededTables; }

bool cConnectionMDB::OpenConnection() {
  CloseConnection();
  if (FileName.empty() || NameConnect.empty()) return false;
  try {
    auto opened = std::make_shared<store::Connection>();
    opened->Provider = u"Microsoft.Jet.OLEDB.4.0";
    opened->DataSource = platform::Current().App().NativePath(FileName);
    opened->CursorLocation = store::CursorLocation::Client;
    opened->Open();
    mConnectMDB = std::move(opened);
  } catch (...) {
    Report(vb::CurrentFailure().Description());
    return false;
  }
  return NameConnect == SharedConnection || CheckStructureMDB();
}

void cConnectionMDB::CloseConnection() {
  if (mConnectMDB) mConnectMDB->Close();
  mConnectMDB.reset();
}

bool cConnectionMDB::CheckStructureMDB() const {
  for (const SnippetTable& table : NeededTables) {
    try {
      store::Recordset records;
      // Whether the columns are there shows without reading any row of a large library.
      records.Open(String(table.Statement) + u" WHERE 1 = 0", mConnectMDB);
    } catch (...) {
      const String description = vb::CurrentFailure().Description();
      const String plain = store::PlainCause(description);
      Report((plain.empty() ? description : plain) + u"\r\nFile: " + FileName + u"\r\nTable: " +
             String(table.Name));
      return false;
    }
  }
  return true;
}

}  // namespace tessel
