// Start-up and shut-down.

#include "addin/Connect.h"

#include <filesystem>

#include "connections/cConnectReestr.h"
#include "connections/cConnectionMDBs.h"
#include "foundation/CAppSettings.h"
#include "foundation/Routine.h"
#include "insertion/mGlobals.h"
#include "platform/Platform.h"
#include "store/Seeds.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr StringView Settings = u"Settings";

/// The two routines of the life cycle report in a plain box: the failure service may not be there.
void ShowPlainly(const vb::Failure& failure) {
  platform::Platform& services = platform::Current();
  services.Desktop().ShowMessage(failure.Description(), services.App().Title(), platform::OKOnly);
}

bool WindowIsWanted() {
  return gAppSettings && gAppSettings->GetText(Settings, u"ProjectExplorerWindow", u"0") == u"1";
}

}  // namespace

Connect::Connect() = default;
Connect::~Connect() = default;

void Connect::AddinInstance_OnConnection(const std::shared_ptr<host::VBE>& application) {
  ResumeNext([&] {
    gErrorHandler = std::make_shared<CErrorHandler>();
    gErrorHandler->Init(ActionErrorDialog, u"Error Log.txt", true, false, 2, u"Tracing Log.txt");
  });
  ResumeNext([&] {
    gAppSettings = std::make_shared<CAppSettings>();
    gAppSettings->Init(u"Norvane", u"Tessel");
  });
  try {
    platform::Clock& clock = platform::Current().Clock();
    vbInstance_ = application;
    vbeVersion_ = vb::Val(Need(vbInstance_).Version());
    const auto events = Need(vbInstance_).Events();
    ctrFennickEvents_ = events->VBControlsEvents();
    ctrVBProjectsEvents_ = events->VBProjectsEvents();
    ctrVBProjectsEvents_->ItemAdded = [this](const auto&) { ctrVBProjectsEvents_ItemAdded(); };
    ctrVBComponentsEvents_ = events->VBComponentsEvents();
    ctrVBComponentsEvents_->ItemAdded = [this](const auto&) { ctrVBComponentsEvents_ItemAdded(); };
    OpenDatabases();
    clock.DoEvents();
    AddToAddInCommandBar(u"Tessel");
    AddToAddInCommandBarEvents();
    clock.DoEvents();
    CreateExplorerWindow();
    dialogOpen_ = false;
  } catch (...) {
    ShowPlainly(vb::CurrentFailure());
  }
}

void Connect::OpenDatabases() {
  platform::App& app = platform::Current().App();
  gConnectionMDBs = std::make_shared<cConnectionMDBs>();
  gConnectReestr = std::make_shared<cConnectReestr>();
  gConnectReestr->Init(gAppSettings);
  // The two delivered files come into being at the first start; what is there stays as it is.
  try {
    store::WriteStandardDatabases(std::filesystem::path(app.NativePath(app.Path() + u"\\Data")),
                                  platform::Current().Files());
  } catch (...) {
    ShowPlainly(vb::CurrentFailure());
  }
  gConnectReestr->SaveConnect(MainConnection, app.Path() + u"\\Data\\VBCode.MDB");
  gConnectReestr->SaveConnect(SharedConnection, app.Path() + u"\\Data\\Personal.MDB");
  const auto registered = gConnectReestr->GetAllConnect();
  if (!registered) return;
  for (const RegisteredConnection& row : *registered) {
    const auto connection = std::make_shared<cConnectionMDB>();
    gConnectionMDBs->Add(connection, row.Name);
    connection->mConnectMDB = std::make_shared<store::Connection>();
    connection->NameConnect = row.Name;
    connection->FileName = row.FileName;
    if (connection->OpenConnection()) continue;
    connection->mConnectMDB.reset();
    gConnectionMDBs->Remove(row.Name);
    gConnectReestr->DeleteConnection(row.FileName);
  }
}

void Connect::CreateExplorerWindow() {
  constexpr StringView Guid = u"ProjectExplorerGUID";
  if (gAppSettings->GetText(Settings, Guid, u"0") == u"0") {
    explorerWindowGUID_ = mGlobals::GUIDGen();
    gAppSettings->SaveSetting(Settings, Guid, explorerWindowGUID_);
  } else {
    explorerWindowGUID_ = gAppSettings->GetText(Settings, Guid, u"0");
  }
  explorerWindow_ = Need(vbInstance_)
                        .Windows()
                        ->CreateToolWindow(u"Tessel.udProjectExplorer", u"Tessel Project Explorer",
                                           explorerWindowGUID_);
}

void Connect::AddinInstance_OnStartupComplete() {
  ResumeNext([&] {
    if (gAppSettings->GetText(Settings, u"DisplayOnConnect", u"0") == u"1") ShowProjectExplorer();
  });
}

void Connect::ctrVBProjectsEvents_ItemAdded() {
  Routine(u"Connect.ctrVBProjectsEvents_ItemAdded", [&] {
    if (!WindowIsWanted()) return;
    explorerOpenedByUser_ = true;
    ShowProjectExplorer();
    explorerOpenedByUser_ = false;
  });
}

void Connect::ctrVBComponentsEvents_ItemAdded() {
  Routine(u"Connect.ctrVBComponentsEvents_ItemAdded", [&] {
    if (WindowIsWanted() && !explorerOpenedByUser_) ShowProjectExplorer();
  });
}

void Connect::AddinInstance_OnDisconnection() {
  try {
    ResumeNext([&] { RemoveBar(); });
    controls_.clear();
    vbInstance_.reset();
    ResumeNext([&] {
      if (!gConnectionMDBs) return;
      for (const auto& [name, connection] : *gConnectionMDBs) connection->mConnectMDB.reset();
    });
    gConnectReestr.reset();
    gConnectionMDBs.reset();
    ctrFennickEvents_.reset();
    ctrVBProjectsEvents_.reset();
    ctrVBComponentsEvents_.reset();
    SaveExplorerWindow();
    gAppSettings.reset();
  } catch (...) {
    ShowPlainly(vb::CurrentFailure());
  }
}

/// Keeps the bar's place and takes the bar away.
void Connect::RemoveBar() {
  const auto bar = Need(vbInstance_).CommandBars()->Item(u"Tessel");
  const auto save = [](StringView key, int value) {
    ResumeNext([&] { gAppSettings->SaveSetting(Settings, key, vb::Str(value)); });
  };
  save(u"ToolBarVisible", bar->Visible() ? 1 : 0);
  save(u"ToolBarPosition", bar->Position());
  save(u"ToolBarRowIndex", bar->RowIndex());
  save(u"ToolBarLeft", bar->Left());
  save(u"ToolBarTop", bar->Top());
  bar->Delete();
}

void Connect::SaveExplorerWindow() {
  const bool visible = explorerWindow_ && explorerWindow_->Visible();
  if (gAppSettings) {
    gAppSettings->SaveSetting(Settings, u"ProjectExplorerWindow", String(visible ? u"1" : u"0"));
  }
  explorerWindow_.reset();
}

}  // namespace tessel
