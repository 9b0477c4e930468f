// Databases that the Snippet Manager makes, opens and closes.

#include "connections/OpenRegistered.h"
#include "platform/Platform.h"
#include "scanning/mFunctions.h"
#include "snippets/ObjectFiles.h"
#include "snippets/frmFragmentBuilder.h"
#include "store/Seeds.h"

namespace tessel {
namespace {

constexpr int AlreadyOpenMessage = 15, CannotCloseMessage = 16;

/// The program's resource ETALONVBCODE, number 101.
std::string_view EmptyDatabase() {
  const auto bytes = store::EmptySnippetDatabase();
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

void frmFragmentBuilder::FileCommand(StringView key) {
  Routine(u"frmFragmentBuilder.btmFile_DropdownItemClick", [&](const Statements& run) {
    const auto row = CurrentKey();
    if (key == u"NEWDATABASE") NewDataBase();
    if (key == u"OPENDATABASE") OpenDatabase();
    if (key == u"CLOSECURRENTDATABASE" && row) {
      if (row->Connection == MainConnection) {
        run([&] { mFunctions::myBreak(CannotCloseMessage, row->Connection); });
      } else {
        CloseDatabase(row->Connection);
        if (fgTree.Rows() > 0) run([&] { MakeCurrent(0); });
      }
    }
    fgTree.SetFocus();
  });
}

void frmFragmentBuilder::NewDataBase() {
  Routine(u"frmFragmentBuilder.NewDataBase", [&](const Statements& run) {
    String path;
    if (!run([&] { return mFunctions::SaveFileName(path, u"MS Access (*.mdb)|*.mdb"); })) return;
    // An empty database in the place of an open one would take the library away from below it.
    if (run([&] { return ConnectionToFile(path); })) {
      run([&] { mFunctions::myBreak(AlreadyOpenMessage, path); });
      return;
    }
    run([&] {
      platform::Platform& services = platform::Current();
      services.Files().Write(services.App().NativePath(path), EmptyDatabase());
    });
    DynamicConnect(path);
    if (fgTree.Rows() > 0) run([&] { MakeCurrent(fgTree.Rows() - 1); });
  });
}

void frmFragmentBuilder::OpenDatabase() {
  Routine(u"frmFragmentBuilder.OpenDatabase", [&](const Statements& run) {
    String path;
    if (run([&] { return mFunctions::OPENFILENAME(u"DataBase File (*.mdb)|*.mdb", path); })) {
      DynamicConnect(path);
    }
  });
}

bool frmFragmentBuilder::DynamicConnect(StringView fileName) {
  bool connected = false;
  Routine(u"frmFragmentBuilder.DynamicConnect", [&](const Statements& run) {
    const bool free = run([&] {
      return !ConnectionToFile(fileName) && Need(gConnectReestr).AddNewConnection(fileName);
    });
    if (!free) {
      run([&] { mFunctions::myBreak(AlreadyOpenMessage, fileName); });
      return;
    }
    const auto registered = run([&] { return Need(gConnectReestr).GetAllConnect(); });
    for (const RegisteredConnection& row :
         registered.value_or(std::vector<RegisteredConnection>{})) {
      if (!vb::SameText(row.FileName, fileName)) continue;
      connected = run([&] { return OpenRegistered(row); });
    }
    RunLoadTree(run([] { return SelectedFolder(); }));
  });
  return connected;
}

void frmFragmentBuilder::CloseDatabase(StringView nameConnect) {
  const String name(nameConnect);
  Routine(u"frmFragmentBuilder.CloseDatabase", [&](const Statements& run) {
    const auto belongs = [&](int row) {
      return SplitRowKey(fgTree.RowAt(row).CellData, 1).Connection == name;
    };
    run([&] {
      for (int end = fgTree.Rows(); end > 0; --end) {
        int first = end;
        while (first > 0 && belongs(first - 1)) --first;
        if (first == end) continue;
        fgTree.RemoveItems(first, end - first);
        end = first + 1;
      }
    });
    const auto connection = run([&] { return Need(gConnectionMDBs).item(name); });
    run([&] { Need(gConnectReestr).DeleteConnection(Need(connection).FileName); });
    run([&] { TreeOf(name).SetConnection(nullptr); });
    run([&] { Need(trees_).Remove(name); });
    run([&] { Need(connection).mConnectMDB.reset(); });
    run([&] { Need(gConnectionMDBs).Remove(name); });
  });
}

}  // namespace tessel
