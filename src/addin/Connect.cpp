// Start-up and shut-down.

#include "addin/Connect.h"

#include <filesystem>
#include <utility>

#include "connections/OpenRegistered.h"
#include "foundation/CAppSettings.h"
#include "foundation/Routine.h"
#include "insertion/mGlobals.h"
#include "platform/Platform.h"
#include "store/Seeds.h"
#include "vb/Numbers.h"

namespace tessel {
namespace {

constexpr StringView Settings = u"Settings";
constexpr StringView ExplorerProgId = u"Tessel.udProjectExplorer";

bool WindowIsWanted() {
  return gAppSettings && gAppSettings->GetText(Settings, u"ProjectExplorerWindow", u"0") == u"1";
}

}  // namespace

Connect::Connect() = default;

/// A dialog doesn't outlive the root that owns it.
Connect::~Connect() {
  for (const auto& dialog : dialogs_) {
    if (const auto form = dialog.lock()) Enter([&] { form->Unload(); });
  }
}

void Connect::AddinInstance_OnConnection(const std::shared_ptr<host::VBE>& application) {
  const auto self = weak_from_this().lock();
  const SilentStatements silently;
  silently([] { gErrorHandler = std::make_shared<CErrorHandler>(); });
  silently([] {
    Need(gErrorHandler)
        .Init(ActionErrorDialog, u"Error Log.txt", true, false, 2, u"Tracing Log.txt");
  });
  silently([] { gAppSettings = std::make_shared<CAppSettings>(); });
  silently([] { Need(gAppSettings).Init(u"Norvane", u"Tessel"); });
  try {
    platform::Clock& clock = platform::Current().Clock();
    vbInstance_ = application;
    vbeVersion_ = vb::Val(Need(vbInstance_).Version());
    ctrFennickEvents_ = Need(vbInstance_).Events()->VBControlsEvents();
    BindControlEvents();
    ctrVBProjectsEvents_ = Need(vbInstance_).Events()->VBProjectsEvents();
    ctrVBProjectsEvents_->ItemAdded =
        Entering<std::shared_ptr<host::VBProject>>(&Connect::ctrVBProjectsEvents_ItemAdded);
    ctrVBComponentsEvents_ = Need(vbInstance_).Events()->VBComponentsEvents();
    ctrVBComponentsEvents_->ItemAdded =
        Entering<std::shared_ptr<host::VBComponent>>(&Connect::ctrVBComponentsEvents_ItemAdded);
    OpenDatabases();
    clock.DoEvents();
    AddToAddInCommandBar(u"Tessel");
    AddToAddInCommandBarEvents();
    clock.DoEvents();
    StartWatchers();
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
  for (const RegisteredConnection& row : *registered) OpenRegistered(row);
}

void Connect::CreateExplorerWindow() {
  constexpr StringView Guid = u"ProjectExplorerGUID";
  if (gAppSettings->GetText(Settings, Guid, u"0") == u"0") {
    explorerWindowGUID_ = mGlobals::GUIDGen();
    gAppSettings->SaveSetting(Settings, Guid, explorerWindowGUID_);
  } else {
    explorerWindowGUID_ = gAppSettings->GetText(Settings, Guid, u"0");
  }
  const auto documents = [this](StringView progId) -> std::shared_ptr<forms::Document> {
    if (progId != ExplorerProgId) return nullptr;
    return explorerDocument_ = std::make_shared<udProjectExplorer>();
  };
  explorerWindow_ = Need(vbInstance_)
                        .Windows()
                        ->CreateToolWindow(documents, ExplorerProgId, u"Tessel Project Explorer",
                                           explorerWindowGUID_)
                        .Frame;
}

void Connect::AddinInstance_OnStartupComplete() {
  const auto self = weak_from_this().lock();
  const SilentStatements silently;
  const String wanted =
      silently([] { return Need(gAppSettings).GetText(Settings, u"DisplayOnConnect", u"0"); });
  if (wanted == u"1") silently([&] { ShowProjectExplorer(); });
}

void Connect::ctrVBProjectsEvents_ItemAdded() {
  Run(u"Connect.ctrVBProjectsEvents_ItemAdded", [&] {
    if (!WindowIsWanted()) return;
    // The user's own opening counts for good.
    const bool before = std::exchange(explorerOpenedByUser_, true);
    ShowProjectExplorer();
    explorerOpenedByUser_ = before;
  });
}

void Connect::ctrVBComponentsEvents_ItemAdded() {
  Run(u"Connect.ctrVBComponentsEvents_ItemAdded", [&] {
    if (WindowIsWanted() && !explorerOpenedByUser_) ShowProjectExplorer();
  });
}

void Connect::AddinInstance_OnDisconnection() {
  const auto self = weak_from_this().lock();
  // The one dialog that can stand while the environment goes: it writes its settings and lets go of
  // the databases as long as both are there.
  if (FragmentBuilder) Enter([&] { FragmentBuilder->Unload(); });
  try {
    StopWatchers();
    RemoveBar();
    controls_.clear();
    vbInstance_.reset();
    if (gConnectionMDBs) {
      for (const auto& [name, connection] : *gConnectionMDBs) connection->mConnectMDB.reset();
    }
    gConnectReestr.reset();
    gConnectionMDBs.reset();
    ctrFennickEvents_.reset();
    ctrVBProjectsEvents_.reset();
    ctrVBComponentsEvents_.reset();
    SaveExplorerWindow();
    explorerDocument_.reset();
    gAppSettings.reset();
  } catch (...) {
    ShowPlainly(vb::CurrentFailure());
  }
}

/// Keeps the bar's place and takes the bar away, at resume-next: a value that can't be read is not
/// kept, and the bar goes all the same.
void Connect::RemoveBar() {
  const SilentStatements silently;
  const auto bar = silently([&] { return Need(vbInstance_).CommandBars()->Item(u"Tessel"); });
  if (!bar) return;
  const auto save = [&](StringView key, int (host::CommandBar::*value)()) {
    silently([&] { Need(gAppSettings).SaveSetting(Settings, key, vb::Str(((*bar).*value)())); });
  };
  silently([&] {
    Need(gAppSettings)
        .SaveSetting(Settings, u"ToolBarVisible", String(bar->Visible() ? u"1" : u"0"));
  });
  save(u"ToolBarPosition", &host::CommandBar::Position);
  save(u"ToolBarRowIndex", &host::CommandBar::RowIndex);
  save(u"ToolBarLeft", &host::CommandBar::Left);
  save(u"ToolBarTop", &host::CommandBar::Top);
  silently([&] { bar->Delete(); });
}

void Connect::SaveExplorerWindow() {
  const bool visible = explorerWindow_ && explorerWindow_->Visible();
  if (gAppSettings) {
    gAppSettings->SaveSetting(Settings, u"ProjectExplorerWindow", String(visible ? u"1" : u"0"));
  }
  explorerWindow_.reset();
}

}  // namespace tessel
